#include <cstddef>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "metamodel/parse_recorder.h"
#include "metamodel/sample_component.h"
#include "support/as_source.h"
#include "support/repeat.h"
#include "support/small_stack.h"

// Files nested so deep that whatever recurses once a level overflows its stack: while they are
// parsed, while records are built and while those are released.

namespace Zelk::Testing {
namespace {

using Provider::Metadata::Metamodel::TypePtr;

// A recursion takes 16 bytes a level at least, three times this stack. A million levels are loaded
// by tests/hostile.
constexpr std::size_t kLevels = 50'000;
constexpr std::size_t kStack = std::size_t{256} * 1024;

/// One way to nest: what opens a level, what is inside the last and what closes a level.
struct Nesting {
  std::string name;
  std::string open;
  std::string inside;
  std::string close;

  std::string Whole() const { return Repeat(open, kLevels) + inside + Repeat(close, kLevels); }

  std::string CutOff() const { return Repeat(open, kLevels); }
};

void PrintTo(const Nesting& nesting, std::ostream* out) {
  *out << nesting.name;
}

std::string ParameterName(const testing::TestParamInfo<Nesting>& parameter) {
  return parameter.param.name;
}

/// What is left of a load once everything that it made is released again.
struct Summary {
  bool ok = false;
  bool has_component = false;
  Lines messages;
};

template <typename Source>
Summary LoadAndRelease(Source&& source) {
  ParseRecorder recorder;
  const bool ok = MetamodelParser::LoadMetadata(Testing::AsSource(source), recorder.Callbacks(),
                                                recorder.errors);
  return {ok, recorder.component != nullptr, MessageTexts(recorder.errors)};
}

Summary LoadOnSmallStack(const std::string& text) {
  Summary summary;
  RunOnSmallStack(kStack, [&] { summary = LoadAndRelease(std::string_view(text)); });
  return summary;
}

Lines ValueInvalidAt(std::size_t offset) {
  return {MessageText("zelk.metadata.metamodel.parse.error", {"3", std::to_string(offset)})};
}

/// The sample with a text in front of its component's first key.
std::string BeforeTheName(const std::string& member) {
  std::string json = kSampleComponent;
  return json.insert(json.find(R"("name": "foo")"), member);
}

class DeepJson : public testing::TestWithParam<Nesting> {};

INSTANTIATE_TEST_SUITE_P(HostileFiles, DeepJson,
                         testing::Values(Nesting{"Arrays", "[", "", "]"},
                                         Nesting{"Objects", R"({"a":)", "1", "}"},
                                         Nesting{"ArraysOfObjects", R"([{"a":)", "1", "}]"}),
                         ParameterName);

TEST_P(DeepJson, ReportsTheRootKeyAsMissing) {
  const Summary summary = LoadOnSmallStack(GetParam().Whole());
  EXPECT_FALSE(summary.ok);
  EXPECT_EQ(summary.messages, Lines{MissingField("metamodel")});
}

TEST_P(DeepJson, ReportsTruncationAtTheEnd) {
  const std::string text = GetParam().CutOff();
  const Summary summary = LoadOnSmallStack(text);
  EXPECT_FALSE(summary.ok);
  EXPECT_EQ(summary.messages, ValueInvalidAt(text.size()));
}

TEST_P(DeepJson, IsReadAlikeFromAStream) {
  std::istringstream whole(GetParam().Whole());
  std::istringstream cut_off(GetParam().CutOff());
  RunOnSmallStack(kStack, [&] {
    EXPECT_EQ(LoadAndRelease(whole).messages, Lines{MissingField("metamodel")});
    EXPECT_EQ(LoadAndRelease(cut_off).messages, ValueInvalidAt(GetParam().CutOff().size()));
  });
}

TEST_P(DeepJson, IsIgnoredUnderAnUnknownKey) {
  const Summary summary =
      LoadOnSmallStack(BeforeTheName(R"("ignored": )" + GetParam().Whole() + ","));
  EXPECT_TRUE(summary.ok);
  EXPECT_TRUE(summary.has_component);
  EXPECT_EQ(summary.messages, Lines());
}

TEST_P(DeepJson, ReportsTruncationUnderAnUnknownKey) {
  std::string text = BeforeTheName(R"("ignored": )" + GetParam().CutOff());
  text.resize(text.find(R"("name": "foo")"));
  const Summary summary = LoadOnSmallStack(text);
  EXPECT_FALSE(summary.ok);
  EXPECT_FALSE(summary.has_component);
  EXPECT_EQ(summary.messages, ValueInvalidAt(text.size()));
}

TEST_P(DeepJson, ReportsAnInvalidElementValueInAnAnnotation) {
  const std::string text =
      BeforeTheName(R"("metadata": {"Foo": {"bar": )" + GetParam().Whole() + "}},");
  const Summary summary = LoadOnSmallStack(text);
  EXPECT_FALSE(summary.ok);
  EXPECT_EQ(summary.messages, Lines{InvalidField("ElementValue")});
}

constexpr char kInnermost[] = R"({"category":"BUILTIN","primitive_type":"ID"})";
constexpr char kUnknown[] = R"({"category":"BUILTIN","primitive_type":"FOO"})";

/// A component whose only operation answers that type.
std::string ComponentWithResult(const std::string& type) {
  return R"({"metamodel":{"component":{"name":"foo","documentation":"","metadata":{},"packages":[
      {"name":"bar","documentation":"","metadata":{},"enumerations":[],"structures":[],"services":[
      {"name":"baz","documentation":"","metadata":{},"enumerations":[],"structures":[],
       "constants":[],"operations":[
      {"name":"get","documentation":"","metadata":{},"params":[],"errors":[],
       "result":{"documentation":"","metadata":{},"type":)" +
         type + "}}]}]}]}}}";
}

class DeepType : public testing::TestWithParam<Nesting> {};

INSTANTIATE_TEST_SUITE_P(
    HostileFiles, DeepType,
    testing::Values(Nesting{"ElementTypes",
                            R"({"category":"GENERIC","generic_type":"LIST","element_type":)",
                            kInnermost, "}"},
                    Nesting{"MapValueTypes",
                            R"({"category":"GENERIC","generic_type":"MAP","map_key_type":)" +
                                std::string(kInnermost) + R"(,"map_value_type":)",
                            kInnermost, "}"},
                    Nesting{"MapKeyTypes",
                            R"({"category":"GENERIC","generic_type":"MAP","map_key_type":)",
                            kInnermost, R"(,"map_value_type":)" + std::string(kInnermost) + "}"}),
    ParameterName);

/// The number of generic types around the innermost type.
std::size_t CountLevels(TypePtr type) {
  std::size_t levels = 0;
  while (type->generic_instantiation) {
    const auto generic = type->generic_instantiation;
    const bool is_key_deep = generic->map_key_type && generic->map_key_type->generic_instantiation;
    type = generic->element_type ? generic->element_type
           : is_key_deep         ? generic->map_key_type
                                 : generic->map_value_type;
    ++levels;
  }
  return levels;
}

TEST_P(DeepType, IsLoadedWholeAndReleased) {
  const std::string text = ComponentWithResult(GetParam().Whole());
  RunOnSmallStack(kStack, [&] {
    ParseRecorder recorder;
    EXPECT_TRUE(MetamodelParser::LoadMetadata(Testing::AsSource(text), recorder.Callbacks(),
                                              recorder.errors));
    EXPECT_EQ(MessageTexts(recorder.errors), Lines());
    const auto& service = recorder.component->packages.at("bar")->services.at("baz");
    EXPECT_EQ(CountLevels(service->operations.at("get")->output->type), kLevels);
  });
}

TEST_P(DeepType, ReportsTruncationAtTheEnd) {
  std::string text = ComponentWithResult(GetParam().CutOff());
  text.resize(text.rfind(':') + 1);
  const Summary summary = LoadOnSmallStack(text);
  EXPECT_FALSE(summary.ok);
  EXPECT_FALSE(summary.has_component);
  EXPECT_EQ(summary.messages, ValueInvalidAt(text.size()));
}

TEST_P(DeepType, ReportsAFailureOfTheInnermostTypeOnce) {
  Nesting nesting = GetParam();
  nesting.inside = kUnknown;
  const Summary summary = LoadOnSmallStack(ComponentWithResult(nesting.Whole()));
  EXPECT_FALSE(summary.ok);
  EXPECT_FALSE(summary.has_component);
  EXPECT_EQ(summary.messages, Lines{InvalidEnumValue("primitive_type")});
}

TEST(DeepTypes, AreReleasedIfALaterPartFails) {
  const std::string optional = R"({"category":"GENERIC","generic_type":"OPTIONAL","element_type":)";
  const std::string key = Nesting{"", optional, kInnermost, "}"}.Whole();
  const Summary summary = LoadOnSmallStack(
      ComponentWithResult(R"({"category":"GENERIC","generic_type":"MAP","map_key_type":)" + key +
                          R"(,"map_value_type":)" + kUnknown + "}"));
  EXPECT_FALSE(summary.ok);
  EXPECT_EQ(summary.messages, Lines{InvalidEnumValue("primitive_type")});
}

}  // namespace
}  // namespace Zelk::Testing
