#include <array>
#include <cstddef>
#include <functional>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/source_type.h>

#include "analysis/diffed.h"
#include "analysis/format.h"
#include "concurrency/all_answers.h"
#include "support/temp_folder.h"

// Each value of a file that has all keys of its format is edited, one at a time. What the library
// answers decides whether there is a change to be found.

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to compare

namespace {

using Zelk::Analysis::Document;
using Zelk::Analysis::Domain;
using Zelk::Analysis::Form;
using Zelk::Analysis::Format;
using Zelk::Analysis::FormatOf;
using Zelk::Analysis::KeyForm;
using Zelk::Analysis::kNoNode;
using Zelk::Analysis::kRootNode;
using Zelk::Analysis::NodeId;
using Zelk::Analysis::NodeKind;
using Zelk::Analysis::ObjectForm;
using Zelk::Analysis::ToUpper;
using Zelk::Analysis::ValueForm;
using Zelk::Analysis::Variant;
using Zelk::Analysis::Diff::Result;

// What the Metamodel file is made of.
namespace Full {

/// With the keys of all categories, so that it loads as each of them.
std::string Type(const std::string& category) {
  return R"({"category": ")" + category + R"(", "primitive_type": "STRING",
      "user_defined_type": "Structure", "user_defined_type_name": "c.p.spec",
      "generic_type": "LIST", "element_type": {"category": "BUILTIN", "primitive_type": "ID"},
      "map_key_type": {"category": "BUILTIN", "primitive_type": "ID"},
      "map_value_type": {"category": "BUILTIN", "primitive_type": "LONG"}})";
}

std::string Head(const std::string& name) {
  return R"("name": ")" + name + R"(", "documentation": "Text.", "metadata": {"Note": {}})";
}

/// A parameter or a field.
std::string Field(const std::string& name, const std::string& category) {
  return "{" + Head(name) + R"(, "type": )" + Type(category) + "}";
}

std::string Id(const std::string& name, const std::string& resource) {
  return R"({"name": ")" + name + R"(", "documentation": "", "metadata": {"ModelKey": {},
      "Note": {"value": "a, b", "names": ["x", "y, z"]}, "Resource": {"value": )" +
         resource + R"(}}, "type": {"category": "BUILTIN",
      "primitive_type": "ID"}})";
}

std::string Enumeration(const std::string& name) {
  return "{" + Head(name) + R"(, "values": [{)" + Head("ON") + "}, {" + Head("OFF") + "}]}";
}

std::string Constant(const std::string& name) {
  return R"({"name": ")" + name + R"(", "documentation": "Text.", "value": "text",
      "type": {"category": "PRIMITIVE", "type": "STRING"}})";
}

std::string Structure(const std::string& name, const std::string& annotations) {
  return R"({"name": ")" + name + R"(", "documentation": "", "type": "STRUCTURE", "metadata": {)" +
         annotations + R"(}, "enumerations": [)" + Enumeration(name + ".mode") +
         R"(], "constants": [)" + Constant("least") + "," + Constant("most") + R"(], "fields": [)" +
         Id("id", R"("c.machine")") + "," + Id("to", R"(["c.machine", "c.engine"])") + "," +
         Field("volts", "GENERIC") + "]}";
}

std::string Operation(const std::string& name, const std::string& parameters,
                      const std::string& errors) {
  return "{" + Head(name) + R"(, "params": [)" + parameters + R"(], "errors": [)" + errors +
         R"(], "result": {"documentation": "Text.", "metadata": {"Note": {}}, "type": )" +
         Type("USER_DEFINED") + "}}";
}

std::string Error(const std::string& name) {
  return R"({"user_defined_type_name": ")" + name + R"(", "documentation": "Text."})";
}

std::string Metamodel() {
  const std::string parameters = Field("text", "BUILTIN") + "," + Field("spec", "USER_DEFINED") +
                                 "," + Field("list", "GENERIC");
  const std::string service =
      "{" + Head("c.p.s") + R"(, "enumerations": [)" + Enumeration("c.p.s.state") +
      R"(], "structures": [)" + Structure("c.p.other", "") + R"(], "constants": [)" +
      Constant("most") + R"(], "operations": [)" +
      Operation("start", parameters, Error("c.p.failed") + "," + Error("c.p.refused")) + "," +
      Operation("stop", "", "") + "]}";
  const std::string package = "{" + Head("c.p") + R"(, "enumerations": [)" +
                              Enumeration("c.p.state") + R"(], "structures": [)" +
                              Structure("c.p.spec", R"("Model": {})") + R"(], "services": [)" +
                              service + "]}";
  return R"({"metamodel": {"component": {)" + Head("c") + R"(, "packages": [)" + package + ",{" +
         Head("c.q") + R"(, "enumerations": [], "structures": [], "services": []}]}}})";
}

}  // namespace Full

constexpr char kAuthentication[] = R"({"authentication": {
  "product": {"name": "d", "schemes": {}, "packages": {"d.p": []}},
  "component": {"name": "c", "schemes": {
    "session": {"authenticationScheme": "c.session", "type": "SESSION_AWARE",
                "sessionManager": "c.manager"},
    "plain": {"authenticationScheme": "c.plain", "type": "SESSIONLESS",
              "sessionManager": "c.manager"}},
    "operations": {"c.p.s.start": ["session", "plain"], "c.p.s.stop": ["plain"]},
    "services": {"c.p.s": ["session"], "c.p.t": []},
    "packages": {"c.p": ["session", "plain"], "c.q": []}}}})";

constexpr char kCli[] = R"({"cli": [
  {"type": "namespace", "path": "", "name": "", "description": "Text."},
  {"type": "namespace", "path": "", "name": "c", "description": "Text."},
  {"type": "namespace", "path": "c", "name": "p", "description": "Text."},
  {"type": "namespace", "path": "c", "name": "q", "description": "Text."},
  {"type": "command", "path": "c.p", "name": "start", "description": "Text.", "node_metadata": {
    "service_id": "c.p.s", "operation_id": "start", "formatter": "TABLE", "options": [
      {"long_option": "text", "short_option": "t", "field_name": "text", "description": "Text.",
       "type": "STRING", "generic": "none"},
      {"long_option": "volts", "field_name": "spec.volts", "description": "Text.",
       "type": "LONG", "generic": "optional"}],
    "output_field_list": [
      {"structure_id": "c.p.spec", "output_fields": [
        {"field_name": "id", "display_name": "Id"}, {"field_name": "volts", "display_name": ""}]},
      {"structure_id": "c.p.other", "output_fields": []}]}},
  {"type": "command", "path": "c.p", "name": "stop", "description": "Text.", "node_metadata": {
    "service_id": "c.p.s", "operation_id": "stop"}}]})";

// Files in which several definitions have one name.
namespace Twice {

std::string Structure(const std::string& name, const std::string& enumeration) {
  return R"({"name": ")" + name + R"(", "documentation": "", "type": "STRUCTURE", "metadata": {
      "Model": {}}, "enumerations": [)" +
         Full::Enumeration(enumeration) + R"(], "constants": [)" + Full::Constant("most") +
         R"(], "fields": [)" + Full::Id("id", R"("c.machine")") + "]}";
}

std::string Service(const std::string& name, const std::string& structures) {
  return "{" + Full::Head(name) + R"(, "enumerations": [)" + Full::Enumeration("c.level") +
         R"(], "structures": [)" + structures + R"(], "constants": [], "operations": [)" +
         R"({"name": "start", "documentation": "", "metadata": {}, "params": [], "errors": [)" +
         Full::Error("c.x") + R"(], "result": {"documentation": "", "metadata": {},
         "type": {"category": "BUILTIN", "primitive_type": "VOID"}}}]})";
}

std::string Package(const std::string& name, const std::string& structures,
                    const std::string& services) {
  return "{" + Full::Head(name) + R"(, "enumerations": [], "structures": [)" + structures +
         R"(], "services": [)" + services + "]}";
}

std::string Component(const std::string& name, const std::string& packages) {
  return R"({"metamodel": {"component": {)" + Full::Head(name) + R"(, "packages": [)" + packages +
         "]}}}";
}

/// The structures of two services, and enumerations in them.
std::string Service() {
  return Component("c", Package("c.p", "",
                                Service("c.s", Structure("c.x", "c.mode")) + "," +
                                    Service("c.t", Structure("c.x", "c.mode") + "," +
                                                       Structure("c.y", "c.mode"))));
}

/// A component in two files, a package in two components, a service in two packages.
std::vector<std::string> Metamodel() {
  const std::string structure = Structure("c.x", "c.mode");
  return {Component("d", Package("c.p", "", Service("c.s", "")) + "," +
                             Package("c.q", structure, Service("c.s", structure))),
          Component("e", Package("c.p", structure, Service("c.t", structure))),
          Component("d", Package("c.p", "", "") + "," + Package("c.r", "", Service("c.s", "")))};
}

std::string Lists(const std::string& name) {
  return R"({"name": ")" + name + R"(", "schemes": {
    "session": {"authenticationScheme": "c.session", "type": "SESSION_AWARE",
                "sessionManager": "c.manager"},
    "plain": {"authenticationScheme": "c.plain", "type": "SESSIONLESS"}},
    "operations": {"c.p.s.start": ["session", "plain"], "c.p.t.stop": ["plain"]},
    "services": {"c.p.s": ["session"], "c.p.u": []},
    "packages": {"c.p": ["session", "plain"], "c.q": []}})";
}

std::vector<std::string> Authentication() {
  return {
      R"({"authentication": {"product": )" + Lists("d") + R"(, "component": )" + Lists("c") + "}}",
      R"({"authentication": {"component": )" + Lists("e") + "}}",
      R"({"authentication": {"component": )" + Lists("c") + "}}"};
}

std::vector<std::string> Cli() {
  return {kCli, kCli};
}

}  // namespace Twice

struct Edit {
  /// The key whose value was edited.
  const KeyForm* key;
  /// What was there, and what is there now.
  std::string shown;
  std::string text;
};

std::string InQuotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

std::set<std::string> AsSet(const std::vector<std::string>& texts) {
  return {texts.begin(), texts.end()};
}

/// Makes the edits of a file by the tables of its format.
class Editor {
 public:
  /// Uses at most so many words of each list of words.
  Editor(const Format& format, const std::string& text, std::size_t most_words)
      : document_(text), most_words_(most_words) {
    Look(format.root, kRootNode);
  }

  std::vector<Edit> Take() { return std::move(edits_); }

 private:
  void Add(std::size_t begin, std::size_t end, const std::string& replacement) {
    std::string text(document_.Text());
    const std::string shown = text.substr(begin, end - begin) + " -> " + replacement;
    edits_.push_back({key_, shown, text.replace(begin, end - begin, replacement)});
  }

  void Replace(NodeId node, const std::string& replacement) {
    Add(document_[node].begin, document_[node].end, replacement);
  }

  /// Removes a member or an element, with the comma after it or in front of it.
  void Remove(NodeId node) {
    const std::string_view text = document_.Text();
    const auto& value = document_[node];
    const bool has_key = value.key_end > value.key_begin;
    std::size_t begin = has_key ? value.key_begin : value.begin;
    std::size_t end = value.end;
    const std::size_t next = text.find_first_not_of(" \n", end);
    const std::size_t last = text.find_last_not_of(" \n", begin - 1);
    if (text[next] == ',') {
      end = next + 1;
    } else if (text[last] == ',') {
      begin = last;
    }
    Add(begin, end, "");
  }

  /// Writes the element and the next one in the other order.
  void Swap(NodeId node) {
    const NodeId next = document_[node].next;
    const auto text_of = [&](NodeId id) {
      return document_.Text().substr(document_[id].begin, document_[id].end - document_[id].begin);
    };
    Add(document_[node].begin, document_[next].end,
        std::string(text_of(next)) + "," + std::string(text_of(node)));
  }

  void Look(const ValueForm& form, NodeId node) {
    switch (form.form) {
      case Form::kObject:
      case Form::kElement:
        return LookAtKeys(*form.object, node);
      case Form::kMembers:
      case Form::kList:
        return LookAtParts(form, node);
      case Form::kTextOrList:
        if (document_[node].kind == NodeKind::kArray) return LookAtParts(form, node);
        Replace(node, "[" + InQuotes(document_.String(node)) + "]");
        return LookAtText(form, node);
      default:
        return LookAtText(form, node);
    }
  }

  void LookAtText(const ValueForm& form, NodeId node) {
    const std::string_view text = document_.String(node);
    Replace(node, InQuotes(std::string(text) + "x"));
    if (form.words == nullptr) return;
    const char* const* const words = form.words->texts;
    for (std::size_t i = 0; i < most_words_ && words[i] != nullptr; ++i) {
      Replace(node, InQuotes(words[i]));
    }
  }

  void LookAtParts(const ValueForm& form, NodeId node) {
    if (form.form == Form::kTextOrList) Replace(node, R"("[x, y]")");
    for (NodeId part = document_[node].first_child; part != kNoNode; part = document_[part].next) {
      const bool has_key = form.form == Form::kMembers;
      Remove(part);
      if (has_key) {
        Add(document_[part].key_begin, document_[part].key_end,
            InQuotes(std::string(document_.Key(part)) + "x"));
      }
      if (document_[part].next != kNoNode && !has_key) Swap(part);
      Look(*form.each, part);
    }
  }

  void LookAtKeys(const ObjectForm& object, NodeId node) {
    const KeyForm* const outer = key_;
    for (const KeyForm& key : object.keys) {
      const NodeId member = document_.Find(node, key.name);
      if (member == kNoNode) continue;
      key_ = &key;
      if (key.presence != KeyForm::kRequired) Remove(member);
      Look(key.value, member);
    }
    if (object.decided_by != nullptr) {
      const std::string_view text = document_.String(document_.Find(node, object.decided_by));
      for (const Variant& variant : object.variants) {
        if (ToUpper(text) == ToUpper(variant.text)) LookAtKeys(*variant.object, node);
      }
    }
    key_ = outer;
  }

  const Document document_;
  std::size_t most_words_;
  const KeyForm* key_ = nullptr;
  std::vector<Edit> edits_;
};

/// All keys of a format but those of objects, which their own keys stand for.
std::set<const KeyForm*> KeysOf(const Format& format) {
  std::set<const KeyForm*> keys;
  std::set<const ObjectForm*> objects;
  std::vector<const ValueForm*> values{&format.root};
  std::vector<const ObjectForm*> open;
  while (!values.empty() || !open.empty()) {
    if (!values.empty()) {
      const ValueForm& value = *values.back();
      values.pop_back();
      if (value.each != nullptr) values.push_back(value.each);
      if (value.object != nullptr) open.push_back(value.object);
      continue;
    }
    const ObjectForm& object = *open.back();
    open.pop_back();
    if (!objects.insert(&object).second) continue;
    for (const Variant& variant : object.variants) open.push_back(variant.object);
    for (const KeyForm& key : object.keys) {
      if (key.value.form != Form::kObject) keys.insert(&key);
      values.push_back(&key.value);
    }
  }
  return keys;
}

/// What the library answers of files, without fingerprints; nothing if one does not load.
template <typename DomainUnderTest>
std::vector<std::string> LoadedAnswers(const TempFolder& folder,
                                       const std::vector<std::string>& texts) {
  const auto container = DomainUnderTest::Container::GetInstance();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string id = std::to_string(i);
    const auto spec = std::make_shared<const typename DomainUnderTest::CreateSpec>(
        "", Bindings::SourceType::LOCAL_FILE, folder.Write(id, texts[i]), boost::none);
    if (container->CreateSource(id, spec) != nullptr) return {};
  }
  static const std::regex fingerprint("[0-9a-f]{32}");
  AnswerLog log = AnswersOf(*container);
  if constexpr (std::is_same_v<DomainUnderTest, AuthenticationUnderTest>) {
    // Operations are found in all lists of a service, but only those of the first one are listed.
    for (const std::string& service : container->ListServices()) {
      for (const char* operation : {"start", "startx", "stop", "stopx"}) {
        const auto found = container->OperationInfo(service, operation);
        if (found != nullptr) log.Add(service + operation + SchemesText(*found));
      }
    }
  }
  std::vector<std::string> answers = log.All();
  for (std::string& answer : answers) answer = std::regex_replace(answer, fingerprint, "");
  return answers;
}

/// Edits each of the files, and looks at whether there is a change if and only if the library
/// answers something else. Returns the keys whose edits change answers.
template <typename DomainUnderTest>
std::set<const KeyForm*> ExpectChanges(Domain domain, const std::vector<std::string>& texts,
                                       std::size_t most_words = 2) {
  const TempFolder folder;
  const std::vector<std::string> answers = LoadedAnswers<DomainUnderTest>(folder, texts);
  EXPECT_FALSE(answers.empty());
  std::set<const KeyForm*> keys;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (const Edit& edit : Editor(FormatOf(domain), texts[i], most_words).Take()) {
      if (edit.text == texts[i]) continue;
      std::vector<std::string> edited_texts = texts;
      edited_texts[i] = edit.text;
      const std::vector<std::string> edited = LoadedAnswers<DomainUnderTest>(folder, edited_texts);
      if (edited.empty()) continue;
      // Lists have the names of what several files define several times. That does not count.
      const bool is_listed_otherwise = edited != answers && AsSet(edited) == AsSet(answers);
      if (is_listed_otherwise && texts.size() > 1) continue;
      std::vector<std::string> changes = Changed(texts, edited_texts);
      if (changes.size() == 1 && changes[0].find("formatting-only") != std::string::npos) {
        changes.clear();
      }
      EXPECT_EQ(changes.empty(), edited == answers)
          << i << ": " << edit.key->name << ": " << edit.shown;
      if (edited != answers) keys.insert(edit.key);
    }
  }
  return keys;
}

/// The file has all keys.
template <typename DomainUnderTest>
void ExpectChangesForAllKeys(Domain domain, const std::string& text) {
  const std::set<const KeyForm*> edited = ExpectChanges<DomainUnderTest>(domain, {text}, 100);
  std::set<std::string> unedited;
  for (const KeyForm* key : KeysOf(FormatOf(domain))) {
    if (edited.count(key) == 0) unedited.insert(key->name);
  }
  EXPECT_EQ(unedited, std::set<std::string>{});
}

}  // namespace

TEST(Changes, AreFoundForEachKeyOfMetamodelFiles) {
  ExpectChangesForAllKeys<MetamodelUnderTest>(Domain::kMetamodel, Full::Metamodel());
}

TEST(Changes, AreFoundForEachKeyOfAuthenticationFiles) {
  ExpectChangesForAllKeys<AuthenticationUnderTest>(Domain::kAuthentication, kAuthentication);
}

TEST(Changes, AreFoundForEachKeyOfCliFiles) {
  ExpectChangesForAllKeys<CliUnderTest>(Domain::kCli, kCli);
}

TEST(Changes, AreFoundInAllMetamodelDefinitionsOfOneName) {
  ExpectChanges<MetamodelUnderTest>(Domain::kMetamodel, {Twice::Service()});
  ExpectChanges<MetamodelUnderTest>(Domain::kMetamodel, Twice::Metamodel());
}

TEST(Changes, AreFoundInAllAuthenticationListsOfOneName) {
  ExpectChanges<AuthenticationUnderTest>(Domain::kAuthentication, Twice::Authentication());
}

TEST(Changes, AreFoundInAllCommandsOfOneName) {
  ExpectChanges<CliUnderTest>(Domain::kCli, Twice::Cli());
}
