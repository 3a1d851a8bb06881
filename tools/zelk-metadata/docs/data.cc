#include "docs/data.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <sstream>
#include <string_view>

#include <zelk/md5.h>

#include "analysis/format.h"
#include "analysis/resources.h"
#include "docs/details.h"
#include "docs/owner.h"
#include "render/json_writer.h"

namespace Zelk::Tool::Docs {
namespace {

using Analysis::Domain;
using Analysis::ElementId;
using Analysis::ElementKind;
using Analysis::kDomains;
using Analysis::Model;
using Analysis::NodeId;
using Analysis::Workspace;
using Render::JsonWriter;

// In the order of ElementKind and one more, Fate and ReferenceKind; each word is used once.
constexpr const char* kKindWords[] = {
    "none",         "component",    "package",        "service",      "operation",
    "parameter",    "result",       "error",          "structure",    "field",
    "enumeration",  "value",        "constant",       "annotation",   "scheme",
    "package-list", "service-list", "operation-list", "entry",        "namespace",
    "command",      "option",       "output",         "output-field", "authentication"};
constexpr const char* kFateWords[] = {"found",    "dropped", "overridden",
                                      "shadowed", "ignored", "lost"};
constexpr const char* kReferenceWords[] = {"type",    "error",  "resource",    "listed",
                                           "manager", "scheme", "service",     "operation",
                                           "fills",   "output", "output-field"};

std::string Finished(const JsonWriter& json) {
  std::ostringstream text;
  json.WriteTo(text);
  return text.str();
}

/// Components of Authentication have pages of their own, so they are of a kind of their own.
constexpr std::uint64_t kAuthentication = std::size(kKindWords) - 1;

std::uint64_t KindNumber(const Model& model, ElementId id) {
  const ElementKind kind = model[id].kind;
  const bool is_authentication =
      kind == ElementKind::kComponent && model.GetDomain() == Domain::kAuthentication;
  return is_authentication ? kAuthentication : static_cast<std::uint64_t>(kind);
}

class StructureWriter {
 public:
  explicit StructureWriter(const Subject& subject)
      : subject_(subject), workspace_(subject.workspace), numbers_(workspace_) {}

  std::string Write() {
    json_.StartObject();
    json_.Key("version").Number(1);
    json_.Member("title", subject_.title);
    WriteWords("kinds", kKindWords);
    WriteWords("fates", kFateWords);
    WriteWords("references", kReferenceWords);
    WriteSources();
    WriteProblems("failed", subject_.failed);
    WriteProblems("partial", subject_.partial);
    WriteElements();
    WriteReferences();
    WriteResources();
    json_.Key("details");
    details_.WriteRows(json_);
    json_.Key("strings");
    texts_.Write(json_);
    json_.EndObject();
    return Finished(json_);
  }

 private:
  template <std::size_t kSize>
  void WriteWords(const char* key, const char* const (&words)[kSize]) {
    json_.Key(key).StartArray();
    for (const char* word : words) json_.String(word);
    json_.EndArray();
  }

  void WriteSources() {
    json_.Key("sources").StartArray();
    for (const Domain domain : kDomains) {
      const auto& sources = workspace_.ModelOf(domain).Sources();
      for (std::uint32_t source = 0; source < sources.size(); ++source) {
        const std::string_view text = sources[source].document->Text();
        MD5 digest;
        digest.Update(text.data(), text.size());
        json_.StartObject();
        json_.Member("domain", Analysis::FormatOf(domain).root_key);
        json_.Member("id", sources[source].id);
        json_.Member("file", workspace_.Files()[workspace_.FileOf(domain, source)].name);
        json_.Member("fingerprint", digest.hexdigest());
        json_.Key("bytes").Number(text.size());
        json_.EndObject();
      }
    }
    json_.EndArray();
  }

  void WriteProblems(const char* key, const std::vector<LoadReport>& reports) {
    json_.Key(key).StartArray();
    for (const LoadReport& report : reports) {
      json_.StartObject();
      json_.Member("file", report.file);
      json_.Key("problems").StartArray();
      for (const Problem& problem : report.problems) {
        json_.String(ProblemLine(report.file, problem));
      }
      json_.EndArray();
      json_.EndObject();
    }
    json_.EndArray();
  }

  /// Calls `number(model, id)` for every element, and writes what it returns.
  template <typename NumberOf>
  void WriteColumn(const char* key, const NumberOf& number) {
    json_.Key(key).StartArray();
    for (const Domain domain : kDomains) {
      const Model& model = workspace_.ModelOf(domain);
      for (ElementId id = 0; id < model.Size(); ++id) json_.Number(number(model, id));
    }
    json_.EndArray();
  }

  void WriteElements() {
    WriteColumn("kind", KindNumber);
    WriteColumn("name", [&](const Model& model, ElementId id) {
      const bool has_path = !model[id].path.empty();
      return has_path ? texts_.Add(model.FullName(id)) : texts_.Add(model[id].name);
    });
    WriteColumn("owner", [&](const Model& model, ElementId id) {
      return numbers_.OrZero(model.GetDomain(), ShownOwner(model, id));
    });
    // Twice the fate, and one more for what the library made.
    WriteColumn("fate", [](const Model& model, ElementId id) {
      return static_cast<std::uint64_t>(model[id].fate) * 2 + (model[id].is_implied ? 1 : 0);
    });
    WriteColumn("by", [&](const Model& model, ElementId id) {
      return numbers_.OrZero(model.GetDomain(), model[id].by);
    });
    WriteColumn("source", [&](const Model& model, ElementId id) {
      return numbers_.FirstSource(model.GetDomain()) + model[id].source;
    });
    WriteColumn("line", [](const Model& model, ElementId id) {
      const Analysis::Document& document = model.DocumentOf(id);
      return document.PositionAt(document[model[id].node].key_begin).line;
    });
    WriteColumn("detail", [&](const Model& model, ElementId id) {
      return details_.Add(DetailOf({workspace_, numbers_, texts_}, model, id));
    });
  }

  void WriteReferences() {
    const auto& all = workspace_.GetReferences().All();
    const auto write = [&](const char* key, const auto& number) {
      json_.Key(key).StartArray();
      for (const Analysis::Reference& reference : all) json_.Number(number(reference));
      json_.EndArray();
    };
    write("referenceKind", [](const Analysis::Reference& reference) {
      return static_cast<std::uint64_t>(reference.kind);
    });
    write("referenceFrom", [&](const Analysis::Reference& reference) {
      return numbers_.Of(reference.from.domain, reference.from.element);
    });
    write("referenceTo", [&](const Analysis::Reference& reference) {
      return LinkTo(numbers_, texts_, reference.target, reference.name);
    });
  }

  /// A name, the annotation that has it, and the model or 0, one after another.
  void WriteResources() {
    json_.Key("resources").StartArray();
    for (const Analysis::ResourceUse& use :
         Analysis::ResourceUses(workspace_.ModelOf(Domain::kMetamodel))) {
      json_.Number(texts_.Add(use.resource));
      json_.Number(numbers_.Of(Domain::kMetamodel, use.annotation));
      json_.Number(numbers_.OrZero(Domain::kMetamodel, use.model));
    }
    json_.EndArray();
  }

  const Subject& subject_;
  const Workspace& workspace_;
  const Numbers numbers_;
  Texts texts_;
  Details details_;
  JsonWriter json_;
};

}  // namespace

std::string StructureJson(const Subject& subject) {
  return StructureWriter(subject).Write();
}

std::string DocumentationJson(const Workspace& workspace) {
  JsonWriter json;
  json.StartArray();
  for (const Domain domain : kDomains) {
    const Model& model = workspace.ModelOf(domain);
    const char* const key = domain == Domain::kCli ? "description" : "documentation";
    for (ElementId id = 0; id < model.Size(); ++id) {
      const Analysis::Document& document = model.DocumentOf(id);
      // What is made has the place of something else.
      const NodeId node =
          model[id].is_implied ? Analysis::kNoNode : document.Find(model[id].node, key);
      const std::string text(node == Analysis::kNoNode ? "" : document.String(node));
      if (text.empty()) {
        json.Number(0);
      } else {
        json.String(text);
      }
    }
  }
  json.EndArray();
  return Finished(json);
}

}  // namespace Zelk::Tool::Docs
