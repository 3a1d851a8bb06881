#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/repeat.h"
#include "support/small_stack.h"
#include "surface/domains_under_test.h"

// Files nested so deep that whatever spends stack on a level ends the process: while they are
// parsed, answered and released.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kLevels = ZELK_MILLION;
constexpr std::size_t kSmallStack = std::size_t{256} * 1024;

/// One way to nest: what opens a level, what is inside the last and what closes a level.
struct Nesting {
  const char* name;
  std::string open;
  std::string inside;
  std::string close;
  /// The syntax error where a level that holds something is neither continued nor closed.
  int not_closed;

  std::string Opened() const { return Repeat(open, kLevels); }

  /// Opened whole and closed that often.
  std::string Closed(std::size_t levels) const { return Opened() + inside + Repeat(close, levels); }

  std::string Whole() const { return Closed(kLevels); }
};

const std::vector<Nesting> kNestings = {
    {"arrays", "[", "[]", "]", 7},
    {"objects", R"({"a":)", "1", "}", 6},
    {"objects in arrays", R"([{"a":)", "1", "}]", 6},
    {"arrays in objects", R"({"a":[)", "[]", "]}", 7},
    {"objects after others", R"({"a":{},"b":)", "1", "}", 6},
};

template <typename Domain>
class DeepNesting : public testing::Test {
 protected:
  static std::string Good() { return Domain::File("foo"); }

  /// A good file with a member in front of its record's name, which only the domain's own reader
  /// of records comes by.
  static std::string WithMember(const std::string& member) {
    return Replaced(Good(), R"("name": "foo")", member + R"(, "name": "foo")");
  }

  void ExpectAccepted(const std::string& text) const {
    ASSERT_EQ(sources_.Create("m", text), Lines());
    EXPECT_THAT(sources_.Names(), ElementsAre("foo"));
    ASSERT_EQ(sources_->DeleteSource("m"), nullptr);
  }

  void ExpectRefused(const std::string& text, const Lines& error) const {
    EXPECT_EQ(sources_.Create("m", text), error);
    EXPECT_THAT(sources_->ListSources(), IsEmpty());
  }

  /// Runs the check for every way to nest, on a small stack.
  template <typename Check>
  static void ForEachNesting(const Check& check) {
    for (const auto& nesting : kNestings) {
      SCOPED_TRACE(nesting.name);
      RunOnSmallStack(kSmallStack, [&] { check(nesting); });
    }
  }

  const Sources<Domain> sources_{};
};

TYPED_TEST_SUITE(DeepNesting, DomainsUnderTest, DomainName);

TYPED_TEST(DeepNesting, ReportsTheRootKeyAsMissing) {
  this->ForEachNesting([this](const Nesting& nesting) {
    this->ExpectRefused(nesting.Whole(), MissingFieldError(TypeParam::kRootKey));
  });
}

TYPED_TEST(DeepNesting, IsIgnoredUnderUnknownKeys) {
  this->ForEachNesting([this](const Nesting& nesting) {
    const std::string ignored = R"("ignored": )" + nesting.Whole();
    const std::string good = this->Good();
    this->ExpectAccepted("{" + ignored + ", " + good.substr(1));
    this->ExpectAccepted(good.substr(0, good.size() - 1) + ", " + ignored + "}");
    this->ExpectAccepted(this->WithMember(ignored));
  });
}

TYPED_TEST(DeepNesting, ReportsMissingClosesAtTheEnd) {
  this->ForEachNesting([this](const Nesting& nesting) {
    const std::string opened = nesting.Opened();
    this->ExpectRefused(opened, ParseError<TypeParam>(3, opened.size()));
    std::string in_good = this->WithMember(R"("ignored": )" + opened);
    in_good.resize(in_good.rfind(R"(, "name": "foo")"));
    this->ExpectRefused(in_good, ParseError<TypeParam>(3, in_good.size()));
  });
}

TYPED_TEST(DeepNesting, ReportsOneMissingCloseAtTheEnd) {
  this->ForEachNesting([this](const Nesting& nesting) {
    std::string text = nesting.Whole();
    text.pop_back();
    const int not_closed = text.front() == '[' ? 7 : 6;
    this->ExpectRefused(text, ParseError<TypeParam>(not_closed, text.size()));
  });
}

TYPED_TEST(DeepNesting, ReportsASuperfluousClose) {
  this->ForEachNesting([this](const Nesting& nesting) {
    const std::string text = nesting.Whole();
    this->ExpectRefused(text + nesting.close, ParseError<TypeParam>(2, text.size()));
  });
}

TYPED_TEST(DeepNesting, ReportsAWrongClose) {
  this->ForEachNesting([this](const Nesting& nesting) {
    const std::string wrong = nesting.close.front() == ']' ? "}" : "]";
    for (const std::size_t levels : {std::size_t{0}, kLevels / 2, kLevels - 1}) {
      const std::string text = nesting.Closed(levels);
      this->ExpectRefused(text + wrong + nesting.close,
                          ParseError<TypeParam>(nesting.not_closed, text.size()));
    }
  });
}

TYPED_TEST(DeepNesting, IsReloaded) {
  this->ForEachNesting([this](const Nesting& nesting) {
    const std::string deep = this->WithMember(R"("ignored": )" + nesting.Whole());
    ASSERT_EQ(this->sources_.Create("m", this->Good()), Lines());
    for (const std::string& text : {deep, this->Good(), deep}) {
      this->sources_.Write("m", text);
      EXPECT_EQ(this->sources_->ReloadSource(boost::none), nullptr);
      EXPECT_EQ(this->sources_->SourceFingerprint(Some("m")), Md5(Md5(text)));
    }
    this->sources_.Write("m", nesting.Opened());
    EXPECT_EQ(this->sources_->ReloadSource(Some("m")), nullptr);
    EXPECT_THAT(this->sources_.Names(), ElementsAre("foo"));
    EXPECT_EQ(this->sources_->SourceFingerprint(Some("m")), Md5(Md5(deep)));
    ASSERT_EQ(this->sources_->DeleteSource("m"), nullptr);
  });
}

using DeepMetamodel = DeepNesting<MetamodelUnderTest>;
using DeepAuthentication = DeepNesting<AuthenticationUnderTest>;
using DeepCli = DeepNesting<CliUnderTest>;

std::string AsTheName(const Nesting& nesting) {
  return R"("name": )" + nesting.Whole();
}

TEST_F(DeepMetamodel, IsInvalidInPlaceOfAText) {
  ForEachNesting([this](const Nesting& nesting) {
    ExpectRefused(WithMember(AsTheName(nesting)), InvalidFieldError("name"));
  });
}

TEST_F(DeepMetamodel, IsInvalidInAnAnnotation) {
  ForEachNesting([this](const Nesting& nesting) {
    ExpectRefused(WithMember(R"("metadata": {"A": {"b": )" + nesting.Whole() + "}}"),
                  InvalidFieldError("ElementValue"));
  });
}

TEST_F(DeepAuthentication, IsInvalidInPlaceOfAText) {
  ForEachNesting([this](const Nesting& nesting) {
    ExpectRefused(
        WithMember(AsTheName(nesting)),
        {kInvalidArgumentError, MissingFieldMessage("product"), InvalidFieldMessage("name")});
  });
}

TEST_F(DeepCli, IsInvalidInPlaceOfAText) {
  ForEachNesting([this](const Nesting& nesting) {
    ExpectRefused(WithMember(AsTheName(nesting)), InvalidFieldError("name"));
  });
}

constexpr char kListOf[] = R"({"category":"GENERIC","generic_type":"LIST","element_type":)";
constexpr char kMapTo[] = R"({"category":"GENERIC","generic_type":"MAP","map_key_type":)"
                          R"({"category":"BUILTIN","primitive_type":"ID"},"map_value_type":)";
constexpr char kMapFrom[] = R"({"category":"GENERIC","generic_type":"MAP","map_key_type":)";
constexpr char kToId[] = R"(,"map_value_type":{"category":"BUILTIN","primitive_type":"ID"}})";
constexpr char kUnknownType[] = R"({"category":"BUILTIN","primitive_type":"FOO"})";

const std::vector<Nesting> kTypes = {
    {"element_type", kListOf, kStringType, "}", 6},
    {"map_value_type", kMapTo, kStringType, "}", 6},
    {"map_key_type", kMapFrom, kStringType, kToId, 6},
    {"lists of maps", std::string(kListOf) + kMapTo, kStringType, "}}", 6},
};

/// The generic types around the innermost one, whichever way they nest.
std::size_t CountLevels(std::shared_ptr<const Bindings::Metamodel::Type> type) {
  std::size_t levels = 0;
  while (type->generic_instantiation) {
    const auto generic = type->generic_instantiation;
    const auto& key = generic->map_key_type;
    type = generic->element_type               ? generic->element_type
           : key && key->generic_instantiation ? key
                                               : generic->map_value_type;
    ++levels;
  }
  return levels;
}

/// The lists of maps have two types a level.
std::size_t TypesIn(const Nesting& nesting) {
  return nesting.close == "}}" ? 2 * kLevels : kLevels;
}

/// A component with a field of that type.
std::string FileOfType(const std::string& type) {
  return Replaced(MetamodelFile(Component("foo", {Package("p", {Structure("t", {Field("f")})})})),
                  kStringType, type);
}

template <typename Check>
void ForEachType(const Check& check) {
  for (const auto& nesting : kTypes) {
    SCOPED_TRACE(nesting.name);
    RunOnSmallStack(kSmallStack, [&] { check(nesting); });
  }
}

TEST(DeepTypes, KeepAllLevelsAndOutliveTheirSource) {
  ForEachType([](const Nesting& nesting) {
    const MetamodelSources sources;
    ASSERT_EQ(sources.Create("m", FileOfType(nesting.Whole())), Lines());
    const auto structure = sources->StructureInfo("t");
    ASSERT_EQ(sources->DeleteSource("m"), nullptr);
    EXPECT_EQ(CountLevels(structure->fields.front()->type), TypesIn(nesting));
  });
}

TEST(DeepTypes, AreReleasedByAReloadAndWithTheirContainer) {
  const std::string type = kTypes.front().Whole();
  std::string text = MetamodelFile(
      Component("foo", {Package("p", {Service("s", {Operation("o", {Param("a")})})})}));
  text = Replaced(Replaced(text, kStringType, "<type>"), kStringType, type);
  text = Replaced(text, "<type>", type);
  RunOnSmallStack(kSmallStack, [&text] {
    const MetamodelSources sources;
    ASSERT_EQ(sources.Create("m", text), Lines());
    ASSERT_EQ(sources->ReloadSource(Some("m")), nullptr);
    const auto operation = sources->OperationInfo("s", "o");
    EXPECT_EQ(CountLevels(operation->params.front()->type), kLevels);
    EXPECT_EQ(CountLevels(operation->output->type), kLevels);
  });
}

TEST(DeepTypes, ReportAnUnknownInnermostTypeOnce) {
  ForEachType([](const Nesting& nesting) {
    const MetamodelSources sources;
    Nesting unknown = nesting;
    unknown.inside = kUnknownType;
    EXPECT_EQ(sources.Create("m", FileOfType(unknown.Whole())),
              InvalidEnumValueError("primitive_type"));
    EXPECT_THAT(sources->ListSources(), IsEmpty());
  });
}

TEST(DeepTypes, AreReleasedIfALaterPartFails) {
  const std::string file =
      MetamodelFile(Component("foo", {Package("p", {Structure("t", {Field("f"), Field("g")})})}));
  const std::string refused =
      Replaced(Replaced(file, kStringType, "<type>"), kStringType, kUnknownType);
  ForEachType([&refused](const Nesting& nesting) {
    const MetamodelSources sources;
    EXPECT_EQ(sources.Create("m", Replaced(refused, "<type>", nesting.Whole())),
              InvalidEnumValueError("primitive_type"));
  });
}

TEST(DeepTypes, ReportMissingClosesAtTheEnd) {
  ForEachType([](const Nesting& nesting) {
    const MetamodelSources sources;
    std::string text = FileOfType("<cut>");
    text = text.substr(0, text.find("<cut>")) + nesting.Opened();
    EXPECT_EQ(sources.Create("m", text), ParseError<MetamodelUnderTest>(3, text.size()));
  });
}

}  // namespace
}  // namespace Zelk::Testing
