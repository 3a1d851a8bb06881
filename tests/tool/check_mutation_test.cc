#include <algorithm>
#include <cstdio>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/pointer.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include "domains/table.h"
#include "host/load.h"
#include "support/file_text.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"
#include "tool/check_claims.h"

// Every message of the library gets a place, and the right one: documents are damaged at random,
// and the report is compared with the damage and against the document itself, which the
// tests read on their own.

using rapidjson::Document;
using rapidjson::Pointer;
using rapidjson::Value;
using Zelk::Testing::FileText;
using Zelk::Testing::IsTrueClaim;
using Zelk::Testing::TempFolder;
using Zelk::Tool::LoadReport;
using Zelk::Tool::Problem;
using Zelk::Tool::Severity;

namespace {

/// A component with every kind of thing that a file of the domain can hold.
constexpr char kMetamodel[] = R"({"metamodel": {"component": {
  "name": "c", "documentation": "", "metadata": {"A": {"x": "t", "y": ["u", "v"]}},
  "packages": [{"name": "p", "documentation": "", "metadata": {},
    "enumerations": [{"name": "e", "documentation": "", "metadata": {"Z": {}},
      "values": [{"name": "ONE", "documentation": "", "metadata": {}},
                 {"name": "TWO", "documentation": "", "metadata": {"B~/": {"a/b~": ["w"]}}}]}],
    "structures": [{"name": "s", "type": "error", "documentation": "", "metadata": {},
      "enumerations": [],
      "constants": [
        {"name": "k", "documentation": "", "type": {"category": "PRIMITIVE", "type": "STRING"},
         "value": "v"},
        {"name": "l", "documentation": "", "type": {"category": "LIST", "type": "LONG"},
         "value": [1]},
        {"name": "b", "documentation": "", "type": {"category": "primitive", "type": "string"},
         "value": 7}],
      "fields": [
        {"name": "f", "documentation": "", "metadata": {},
         "type": {"category": "GENERIC", "generic_type": "MAP",
                  "map_key_type": {"category": "PRIMITIVE", "primitive_type": "EXCEPTION"},
                  "map_value_type": {"category": "GENERIC", "generic_type": "optional",
                    "element_type": {"category": "USER_DEFINED", "user_defined_type": "Structure",
                                     "user_defined_type_name": "s"}}}}]}],
    "services": [{"name": "v", "documentation": "", "metadata": {}, "enumerations": [],
      "structures": [], "constants": [],
      "operations": [{"name": "o", "documentation": "", "metadata": {},
        "params": [{"name": "q", "documentation": "", "metadata": {},
                    "type": {"category": "BUILTIN", "primitive_type": "ID"}}],
        "result": {"documentation": "", "metadata": {},
                   "type": {"category": "BUILTIN", "primitive_type": "VOID"}},
        "errors": [{"user_defined_type_name": "s", "documentation": ""}]}]}]}]}}})";

constexpr char kAuthentication[] = R"({"authentication": {"component": {
  "name": "c",
  "schemes": {"a": {"authenticationScheme": "x", "type": "SESSIONLESS"},
              "b": {"authenticationScheme": "y", "type": "SessionAware", "sessionManager": "m"}},
  "operations": {"p.v.o": ["a"], "p.w.o": ["a", "b"], "q.o": [], "r.o": []},
  "services": {"p.v": ["b"], "p.u": []},
  "packages": {"p": ["a", "b"]}}}})";

constexpr char kCli[] = R"({"cli": [
  {"type": "namespace", "path": "", "name": "n", "description": ""},
  {"type": "command", "path": "n", "name": "c", "description": "", "node_metadata": {
    "service_id": "s", "operation_id": "o",
    "options": [
      {"long_option": "l", "short_option": "s", "field_name": "f", "description": "",
       "type": "t", "generic": ""},
      {"long_option": "l", "field_name": "f", "description": "", "type": "t", "generic": "LIST"}],
    "output_field_list": [
      {"structure_id": "s", "output_fields": [{"field_name": "f", "display_name": "d"}]},
      {"structure_id": "t"}]}},
  {"type": "command", "path": "n", "name": "d", "description": "", "node_metadata": {
    "service_id": "s", "operation_id": "o", "formatter": "TABLE"}}]})";

using Random = std::mt19937;

std::size_t Below(Random& random, std::size_t limit) {
  return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
}

/// The pointers of the value and of all within.
void Collect(const Value& value, const Pointer& pointer, std::vector<Pointer>& all) {
  all.push_back(pointer);
  if (value.IsObject()) {
    for (const auto& member : value.GetObject()) {
      Collect(member.value, pointer.Append(member.name.GetString(), member.name.GetStringLength()),
              all);
    }
  } else if (value.IsArray()) {
    for (rapidjson::SizeType i = 0; i < value.Size(); ++i) {
      Collect(value[i], pointer.Append(i), all);
    }
  }
}

std::string Text(const Pointer& pointer) {
  rapidjson::StringBuffer buffer;
  pointer.Stringify(buffer);
  return buffer.GetString();
}

Pointer At(const std::string& text) {
  return Pointer(text.c_str(), text.size());
}

Pointer ParentOf(const Pointer& pointer) {
  const std::string text = Text(pointer);
  return At(text.substr(0, text.rfind('/')));
}

std::string LastOf(const Pointer& pointer) {
  const auto& token = pointer.GetTokens()[pointer.GetTokenCount() - 1];
  return {token.name, token.length};
}

/// Another value, at times of the same JSON type.
Value Other(Random& random, Document& document) {
  Document other(&document.GetAllocator());
  const char* const texts[] = {"7", "\"mutant\"", "[]", "{}", "true", "[1]", "null"};
  other.Parse(texts[Below(random, std::size(texts))]);
  Value value;
  value.Swap(other);
  return value;
}

/// A damaged document and the places that a complaint about the damage may be at.
struct Mutant {
  Document document;
  std::set<std::string> places;
};

void Duplicate(Random& random, Mutant& mutant, const Pointer& at) {
  auto& allocator = mutant.document.GetAllocator();
  Value& object = *ParentOf(at).Get(mutant.document);
  const std::string name = LastOf(at);
  Value members(rapidjson::kObjectType);
  for (auto& member : object.GetObject()) {
    // The copy comes first and counts.
    if (member.name.GetString() == name) {
      members.AddMember(Value(name.c_str(), allocator), Other(random, mutant.document), allocator);
    }
    members.AddMember(member.name, member.value, allocator);
  }
  object = members;
}

/// Pointers reach only the first of two members with one name, so further changes cannot follow one
/// that made such a member.
void Mutate(Random& random, Mutant& mutant, bool may_duplicate) {
  std::vector<Pointer> all;
  Collect(mutant.document, Pointer(), all);
  if (all.size() == 1) return;
  const Pointer at = all[1 + Below(random, all.size() - 1)];
  Value* const found = ParentOf(at).Get(mutant.document);
  // It may be within the second of two members with one name, which pointers do not reach.
  if (found == nullptr || at.Get(mutant.document) == nullptr) return;
  Value& parent = *found;
  // The second place is for a good array with a bad element.
  mutant.places = {Text(at), Text(at) + "/0"};
  auto& allocator = mutant.document.GetAllocator();
  switch (parent.IsObject() ? Below(random, may_duplicate ? 5 : 3) : 0) {
    case 1:
      parent.RemoveMember(LastOf(at).c_str());
      mutant.places = {Text(ParentOf(at))};
      return;
    case 2: {
      const std::string renamed =
          Below(random, 2) == 0 ? "mutant" + std::to_string(random()) : "." + LastOf(at);
      parent.FindMember(LastOf(at).c_str())->name.SetString(renamed.c_str(), allocator);
      mutant.places = {Text(ParentOf(at)),
                       Text(ParentOf(at).Append(renamed.c_str(),
                                                static_cast<rapidjson::SizeType>(renamed.size())))};
      return;
    }
    case 3:
      return Duplicate(random, mutant, at);
    default:
      at.Set(mutant.document, Other(random, mutant.document));
  }
}

std::string Written(const Value& document) {
  rapidjson::StringBuffer buffer;
  rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
  document.Accept(writer);
  return buffer.GetString();
}

/// Whether the text has at the place the value that the pointer leads to, or, for a message about a
/// name, that name.
bool PointsAt(const Problem& problem, const Document& document, const std::string& text) {
  const Pointer pointer = At(*problem.place->pointer);
  const Value* const value = pointer.Get(document);
  Document there;
  there.Parse<rapidjson::kParseStopWhenDoneFlag>(text.c_str() + problem.place->offset);
  if (value == nullptr || there.HasParseError()) return false;
  const bool is_about_name = problem.message.id.find(".id") != std::string::npos;
  if (is_about_name) return there.IsString() && there.GetString() == LastOf(pointer);
  // Not by the values' own equality, which finds the first of two members with one name twice.
  return Written(there) == Written(*value);
}

/// Whether the document has, at the place, what the message says of it.
bool IsTrue(const Problem& problem, const Document& document) {
  return problem.message.arguments.size() == 1 &&
         IsTrueClaim(problem.message.id, problem.message.arguments.front(),
                     At(*problem.place->pointer), document);
}

void ExpectPlaces(const LoadReport& checked, const Document& document, const std::string& text) {
  for (const Problem& problem : checked.problems) {
    if (problem.message.id.empty()) continue;
    ASSERT_TRUE(problem.place) << problem.message.Text() << text;
    ASSERT_TRUE(problem.place->pointer) << problem.message.Text() << text;
    EXPECT_TRUE(PointsAt(problem, document, text))
        << *problem.place->pointer << " is at " << text.substr(problem.place->offset, 40) << text;
    EXPECT_TRUE(IsTrue(problem, document))
        << problem.message.Text() << *problem.place->pointer << text;
  }
}

/// The file must have one.
const Problem& LastError(const LoadReport& checked) {
  return *std::find_if(checked.problems.rbegin(), checked.problems.rend(),
                       [](const Problem& problem) { return problem.severity == Severity::kError; });
}

bool IsAboutAScheme(const Problem& problem) {
  return problem.message.id == "zelk.metadata.authentication.json.unknown.schema.name";
}

/// Damages the document `count` times, with `changes` changes each. Returns how many did not load.
std::size_t CheckMutants(const std::string& original, std::size_t count, std::size_t changes) {
  const TempFolder folder;
  Random random(20240229 + static_cast<unsigned>(changes));
  std::size_t failed = 0;
  for (std::size_t i = 0; i < count && !testing::Test::HasFailure(); ++i) {
    Mutant mutant;
    mutant.document.Parse(original.c_str());
    for (std::size_t change = 0; change < changes; ++change) Mutate(random, mutant, changes == 1);
    const std::string text = Written(mutant.document);
    // Some file systems wait for the disk when a file is written over.
    std::remove(folder.Path("mutant.json").c_str());
    const std::string path = folder.Write("mutant.json", text);
    const LoadReport checked = Zelk::Tool::LoadAlone({"mutant", path}, Zelk::Tool::Domains());
    ExpectPlaces(checked, mutant.document, text);
    if (checked.IsLoaded()) continue;
    ++failed;
    const Problem& last = LastError(checked);
    if (testing::Test::HasFailure() || changes > 1 || IsAboutAScheme(last)) continue;
    // The root key was changed.
    if (last.message.id.empty()) continue;
    EXPECT_EQ(mutant.places.count(*last.place->pointer), 1U)
        << *last.place->pointer << " and not " << *mutant.places.begin() << '\n'
        << last.message.Text() << text;
  }
  return failed;
}

const char* const kBuilt[] = {kMetamodel, kAuthentication, kCli};

const std::string kFiles[] = {
    ZELK_SOURCE_DIR "/metadata/cli/zelk-metadata.json",
    ZELK_SOURCE_DIR "/metadata/authentication/zelk-metadata.json",
    ZELK_SOURCE_DIR "/metadata/metamodel/zelk-metadata.json",
    ZELK_SOURCE_DIR "/tests/data/tool/inventory.json",
};

}  // namespace

TEST(CheckMutation, OneChangeIsFoundWhereItWasMade) {
  for (const char* original : kBuilt) {
    ASSERT_GT(CheckMutants(original, 1000, 1), 400U) << original;
  }
}

TEST(CheckMutation, SeveralChangesLeaveNoMessageWithoutItsPlace) {
  for (const char* original : kBuilt) {
    ASSERT_GT(CheckMutants(original, 500, 2), 250U) << original;
    ASSERT_GT(CheckMutants(original, 500, 4), 300U) << original;
  }
}

TEST(CheckMutation, OneChangeOfAFileAsPeopleWriteThemIsFoundWhereItWasMade) {
  std::size_t failed = 0;
  for (const std::string& file : kFiles) failed += CheckMutants(FileText(file), 60, 1);
  EXPECT_GT(failed, 60U);
}
