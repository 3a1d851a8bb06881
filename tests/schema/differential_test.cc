#include <array>
#include <cctype>
#include <filesystem>
#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <valijson/adapters/rapidjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>
#include <vector>

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <com/orvane/zelk/metadata/authentication/records.h>
#include <com/orvane/zelk/metadata/cli/records.h>
#include <com/orvane/zelk/metadata/metamodel/records.h>
#include <com/orvane/zelk/metadata/source_type.h>
#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>

#include "analysis/reader.h"
#include "analysis/schema/schema.h"
#include "support/file_text.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"

// What the library loads is compared with what the schemas allow, on the fuzzers' corpora and on
// documents that were changed at random.

namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace Metadata = ::Zelk::Provider::Metadata;
namespace Schema = ::Zelk::Analysis::Schema;

using rapidjson::Document;
using rapidjson::Pointer;
using rapidjson::Value;
using Zelk::Analysis::Domain;
using Zelk::Analysis::FormatOf;
using Zelk::Testing::FileText;
using Zelk::Testing::TempFolder;

const std::string kFolder = ZELK_SOURCE_DIR "/tests/data/schema/";

template <typename Container, typename CreateSpec>
bool IsLoaded(const std::string& path) {
  const auto spec =
      std::make_shared<const CreateSpec>("", Bindings::SourceType::LOCAL_FILE, path, boost::none);
  return Container::GetInstance()->CreateSource("a", spec) == nullptr;
}

/// Whether the library loads the text as a file of the domain.
bool Loads(Domain domain, const std::string& text) {
  static const TempFolder folder;
  const std::string path = folder.Write("file.json", text);
  switch (domain) {
    case Domain::kMetamodel:
      return IsLoaded<Metadata::Metamodel::MetadataContainer,
                      Bindings::Metamodel::SourceSvc::CreateSpec>(path);
    case Domain::kAuthentication:
      return IsLoaded<Metadata::Authentication::MetadataContainer,
                      Bindings::Authentication::SourceSvc::CreateSpec>(path);
    case Domain::kCli:
      break;
  }
  return IsLoaded<Metadata::Cli::MetadataContainer, Bindings::Cli::SourceSvc::CreateSpec>(path);
}

/// A schema of draft 7.
class Validator {
 public:
  Validator(const std::string& name, Schema::Kind kind) {
    Document text;
    text.Parse(Schema::Text(name, kind, Schema::Draft::k7).c_str());
    valijson::SchemaParser parser(valijson::SchemaParser::kDraft7);
    parser.populateSchema(valijson::adapters::RapidJsonAdapter(text), schema_);
  }

  bool Allows(const Value& document) {
    const valijson::adapters::RapidJsonAdapter target(document);
    return validator_.validate(schema_, target, nullptr);
  }

 private:
  valijson::Schema schema_;
  valijson::Validator validator_;
};

std::string Text(const Value& value) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  value.Accept(writer);
  return {buffer.GetString(), buffer.GetSize()};
}

bool HasRepeatedKey(const Zelk::Analysis::Document& document) {
  for (Zelk::Analysis::NodeId id = 0; id < document.Size(); ++id) {
    if (document[id].kind != Zelk::Analysis::NodeKind::kObject) continue;
    std::set<std::string_view> keys;
    for (auto child = document[id].first_child; child != Zelk::Analysis::kNoNode;
         child = document[child].next) {
      if (!keys.insert(document.Key(child)).second) return true;
    }
  }
  return false;
}

/// Validators recurse, and so does the document that they are given.
bool IsDeep(const Zelk::Analysis::Document& document) {
  std::vector<int> depths(document.Size());
  for (Zelk::Analysis::NodeId id = 1; id < document.Size(); ++id) {
    depths[id] = depths[document[id].parent] + 1;
    if (depths[id] > 200) return true;
  }
  return false;
}

bool ListsUnknownScheme(const Zelk::Analysis::Document& document, Domain domain) {
  for (const auto& problem : Read(document, FormatOf(domain)).problems) {
    if (problem.message_id ==
        std::string("zelk.metadata.authentication.json.unknown.schema.name")) {
      return true;
    }
  }
  return false;
}

struct Count {
  std::size_t loaded = 0;
  std::size_t refused = 0;
  std::size_t strict = 0;
  std::size_t gaps = 0;
};

/// Compares verdicts on texts of one domain.
class Comparison {
 public:
  explicit Comparison(Domain domain)
      : domain_(domain),
        strict_(FormatOf(domain).root_key, Schema::Kind::kStrict),
        accepts_(FormatOf(domain).root_key, Schema::Kind::kAccepts) {}

  void Compare(const std::string& text) {
    const bool loads = Loads(domain_, text);
    const Zelk::Analysis::Document positions(text);
    const bool is_plain = text.find('\0') == std::string::npos &&
                          text.find("\\u0000") == std::string::npos && positions.IsJson() &&
                          !HasRepeatedKey(positions) && !IsDeep(positions);
    Document document;
    if (is_plain) document.Parse<rapidjson::kParseValidateEncodingFlag>(text.c_str());
    if (!is_plain || document.HasParseError()) {
      ++count.gaps;
      return;
    }
    const bool is_accepted = accepts_.Allows(document);
    if (strict_.Allows(document)) {
      ++count.strict;
      EXPECT_TRUE(is_accepted) << text;
    }
    if (ListsUnknownScheme(positions, domain_)) {
      ++count.gaps;
      EXPECT_TRUE(is_accepted || !loads) << text;
      return;
    }
    ++(loads ? count.loaded : count.refused);
    EXPECT_EQ(is_accepted, loads) << text;
  }

  Count count;

 private:
  const Domain domain_;
  Validator strict_;
  Validator accepts_;
};

using Random = std::mt19937;

std::size_t Below(Random& random, std::size_t limit) {
  return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
}

/// The pointers of all values in `value`.
void Collect(const Value& value, const Pointer& pointer, std::vector<Pointer>& all) {
  const auto add = [&](const Value& child, const Pointer& at) {
    all.push_back(at);
    Collect(child, at, all);
  };
  if (value.IsObject()) {
    for (const auto& member : value.GetObject()) {
      add(member.value, pointer.Append(member.name.GetString(), member.name.GetStringLength()));
    }
  } else if (value.IsArray()) {
    for (rapidjson::SizeType i = 0; i < value.Size(); ++i) add(value[i], pointer.Append(i));
  }
}

std::string OtherCase(std::string text, Random& random) {
  for (char& letter : text) {
    if (Below(random, 2) == 0 && std::isalpha(static_cast<unsigned char>(letter)) != 0) {
      letter = static_cast<char>(letter ^ 0x20);
    }
  }
  return text;
}

class Mutation {
 public:
  Mutation(Document& document, Random& random) : document_(document), random_(random) {
    Collect(document, Pointer(), all_);
  }

  void Do() {
    if (all_.empty()) return;
    const Pointer& at = all_[Below(random_, all_.size())];
    Value& value = *at.Get(document_);
    auto& allocator = document_.GetAllocator();
    switch (Below(random_, 6)) {
      case 0:
        at.Erase(document_);
        break;
      case 1:
        Rename(at);
        break;
      case 2:
        value.CopyFrom(Other(), allocator);
        break;
      case 3:
        if (value.IsString())
          value.SetString(OtherCase(value.GetString(), random_).c_str(), allocator);
        break;
      case 4:
        if (value.IsString()) value.SetString(Word(), allocator);
        break;
      default:
        Move(value);
        break;
    }
  }

 private:
  const char* Word() {
    static constexpr std::array kWords{"",
                                       "x",
                                       "a.b",
                                       "a.b.c",
                                       "a b",
                                       "BUILTIN",
                                       "GENERIC",
                                       "USER_DEFINED",
                                       "PRIMITIVE",
                                       "EXCEPTION",
                                       "ANY_ERROR",
                                       "SESSIONAWARE",
                                       "SESSIONLESS",
                                       "LIST",
                                       "MAP",
                                       "STRING",
                                       "LONG",
                                       "Structure",
                                       "command",
                                       "namespace",
                                       ".",
                                       "a.",
                                       ".a",
                                       "STRUCTURE"};
    return kWords.at(Below(random_, kWords.size()));
  }

  const Document& Other() {
    static constexpr std::array kTexts{"7",   "\"x\"", "[]",  "{}",     "true",
                                       "[7]", "null",  "1.5", "[\"x\"]"};
    other_.Parse(kTexts.at(Below(random_, kTexts.size())));
    return other_;
  }

  /// To a key of another object, or to any other key.
  void Rename(const Pointer& at) {
    const std::size_t count = at.GetTokenCount();
    Value& parent = *Pointer(at.GetTokens(), count - 1).Get(document_);
    if (!parent.IsObject()) return;
    const auto& other = all_[Below(random_, all_.size())];
    std::string name = other.GetTokens()[other.GetTokenCount() - 1].name;
    if (Below(random_, 4) == 0) name = OtherCase(at.GetTokens()[count - 1].name, random_);
    if (Below(random_, 8) == 0) name = Word();
    if (parent.HasMember(name.c_str())) return;
    parent.FindMember(at.GetTokens()[count - 1].name)
        ->name.SetString(name.c_str(), document_.GetAllocator());
  }

  /// Copies another value here.
  void Move(Value& value) {
    Document copy;
    copy.CopyFrom(*all_[Below(random_, all_.size())].Get(document_), copy.GetAllocator());
    value.CopyFrom(copy, document_.GetAllocator());
  }

  Document& document_;
  Random& random_;
  Document other_;
  std::vector<Pointer> all_;
};

Document Base(Domain domain) {
  Document document;
  document.Parse(FileText(kFolder + FormatOf(domain).root_key + ".json").c_str());
  return document;
}

constexpr std::array kDomains{Domain::kMetamodel, Domain::kAuthentication, Domain::kCli};

class Differential : public testing::TestWithParam<Domain> {};

/// What a validator and the library say about a CLI file.
struct Verdicts {
  bool loads;
  bool is_accepted;
};

Verdicts VerdictsOf(Domain domain, const std::string& text) {
  Document document;
  document.Parse(text.c_str());
  EXPECT_FALSE(document.HasParseError()) << text;
  Validator validator(FormatOf(domain).root_key, Schema::Kind::kAccepts);
  return {Loads(domain, text), validator.Allows(document)};
}

}  // namespace

TEST_P(Differential, ChangedDocumentsAreLoadedIfTheyAreAccepted) {
  constexpr std::size_t kMutants = 7000;
  Comparison comparison(GetParam());
  const Document base = Base(GetParam());
  Random random(1);
  for (std::size_t i = 0; i < kMutants && !testing::Test::HasFailure(); ++i) {
    Document mutant;
    mutant.CopyFrom(base, mutant.GetAllocator());
    for (std::size_t changes = 1 + Below(random, 2); changes > 0; --changes) {
      Mutation(mutant, random).Do();
    }
    comparison.Compare(Text(mutant));
  }
  const Count& count = comparison.count;
  EXPECT_GT(count.loaded, kMutants / 20);
  EXPECT_GT(count.refused, kMutants / 20);
  EXPECT_GT(count.strict, kMutants / 100);
  EXPECT_LT(count.gaps, kMutants / 3);
}

TEST_P(Differential, DocumentsOfTheCorpusAreLoadedIfTheyAreAccepted) {
  Comparison comparison(GetParam());
  const std::string folder =
      std::string(ZELK_SOURCE_DIR "/fuzz/corpus/") + FormatOf(GetParam()).root_key + "_parser";
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    comparison.Compare(FileText(entry.path().string()));
    ++files;
  }
  EXPECT_GT(files, 100U);
  EXPECT_GT(comparison.count.loaded, 0U);
  EXPECT_GT(comparison.count.refused, 0U);
}

INSTANTIATE_TEST_SUITE_P(OfEachDomain, Differential, testing::ValuesIn(kDomains),
                         [](const auto& domain) {
                           return std::string(FormatOf(domain.param).root_key);
                         });

TEST(Schema, CasesAreAsListed) {
  Document cases;
  cases.Parse(FileText(kFolder + "cases.json").c_str());
  ASSERT_TRUE(cases.IsArray());
  for (const auto& domain : kDomains) {
    const std::string name = FormatOf(domain).root_key;
    Validator strict(name, Schema::Kind::kStrict);
    Validator accepts(name, Schema::Kind::kAccepts);
    for (const auto& row : cases.GetArray()) {
      if (name != row["format"].GetString()) continue;
      Document document = Base(domain);
      const Pointer pointer(row["pointer"].GetString());
      if (row.HasMember("value")) {
        pointer.Set(document, row["value"]);
      } else {
        EXPECT_TRUE(pointer.Erase(document)) << Text(row);
      }
      EXPECT_EQ(strict.Allows(document), row["strict"].GetBool()) << Text(row);
      EXPECT_EQ(accepts.Allows(document), row["accepts"].GetBool()) << Text(row);
      EXPECT_EQ(Loads(domain, Text(document)), row["accepts"].GetBool()) << Text(row);
    }
  }
}

// What no schema can express.

TEST(SchemaGap, ListOfUnknownScheme) {
  const auto verdicts = VerdictsOf(
      Domain::kAuthentication,
      R"({"authentication": {"component": {"name": "a", "packages": {"p": ["unknown"]}}}})");
  EXPECT_FALSE(verdicts.loads);
  EXPECT_TRUE(verdicts.is_accepted);
}

TEST(SchemaGap, RepeatedKey) {
  // The library reads the first one; most readers give validators only the last one.
  EXPECT_TRUE(Loads(Domain::kCli, R"({"cli": [], "cli": 7})"));
  EXPECT_FALSE(VerdictsOf(Domain::kCli, R"({"cli": 7})").is_accepted);
}

TEST(SchemaGap, ZeroByteEndsKeys) {
  const auto verdicts = VerdictsOf(Domain::kCli, R"({"cli\u0000x": []})");
  EXPECT_TRUE(verdicts.loads);
  EXPECT_FALSE(verdicts.is_accepted);
}

TEST(SchemaGap, ZeroByteEndsTheText) {
  EXPECT_TRUE(Loads(Domain::kCli, std::string(R"({"cli": []})") + '\0' + "{"));
}

TEST(SchemaGap, ByteOrderMark) {
  // Some readers skip it.
  EXPECT_FALSE(Loads(Domain::kCli,
                     "\xEF\xBB\xBF"
                     R"({"cli": []})"));
  EXPECT_TRUE(VerdictsOf(Domain::kCli, R"({"cli": []})").is_accepted);
}

TEST(SchemaGap, BytesThatAreNotUtf8) {
  const std::string text = "{\"cli\": [], \"x\": \"\xFF\"}";
  EXPECT_TRUE(Loads(Domain::kCli, text));
  Document document;
  EXPECT_TRUE(document.Parse<rapidjson::kParseValidateEncodingFlag>(text.c_str()).HasParseError());
}

TEST(SchemaGap, Depth) {
  // Validators that recurse do not get to the end of this.
  const std::size_t depth = 100000;
  EXPECT_TRUE(Loads(Domain::kCli, R"({"cli": [], "x": )" + std::string(depth, '[') +
                                      std::string(depth, ']') + "}"));
}
