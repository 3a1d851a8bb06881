#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/domains_under_test.h"

// What a source makes of the bytes of its file.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <typename Domain>
class SourceContents : public testing::Test {
 protected:
  /// A file with that text is refused with that error and leaves nothing.
  void ExpectRefused(const std::string& text, const Lines& error) const {
    EXPECT_EQ(sources_.Create("m", text), error) << Quoted(text);
    EXPECT_THAT(sources_->ListSources(), IsEmpty()) << Quoted(text);
    EXPECT_THAT(sources_.Names(), IsEmpty()) << Quoted(text);
  }

  /// A file with that text is accepted and has the one record `name`.
  void ExpectAccepted(const std::string& text, const std::string& name) const {
    ASSERT_EQ(sources_.Create("m", text), Lines()) << Quoted(text);
    EXPECT_THAT(sources_.Names(), ElementsAre(name)) << Quoted(text);
    ASSERT_EQ(sources_->DeleteSource("m"), nullptr) << Quoted(text);
  }

  static std::string Good() { return Domain::File("foo"); }

  /// The root key as in a good file.
  static std::string RootKey() { return "\"" + std::string(Domain::kRootKey) + "\""; }

  const Sources<Domain> sources_{};
};

TYPED_TEST_SUITE(SourceContents, DomainsUnderTest, DomainName);

TYPED_TEST(SourceContents, TooLargeFileIsASyntaxErrorAndNotRead) {
  const std::string path = this->sources_.Write("m", this->Good());
  for (const auto size : {std::uintmax_t{1} << 32U, std::uintmax_t{1} << 40U}) {
    std::filesystem::resize_file(path, size);
    EXPECT_EQ(this->sources_.CreateAt("m", path), (ParseError<TypeParam>(16, 4294967295))) << size;
    EXPECT_THAT(this->sources_->ListSources(), IsEmpty()) << size;
  }
}

TYPED_TEST(SourceContents, TooLargeFileKeepsTheOldDataOnReload) {
  this->sources_.Create("m", this->Good());
  std::filesystem::resize_file(this->sources_.Path("m"), std::uintmax_t{1} << 32U);
  EXPECT_EQ(this->sources_->ReloadSource(boost::none), nullptr);
  EXPECT_THAT(this->sources_.Names(), ElementsAre("foo"));
}

/// A text that is not JSON, the code of its syntax error and the offset.
struct SyntaxError {
  std::string text;
  int code;
  std::size_t offset;
};

const std::vector<SyntaxError> kSyntaxErrors = {
    {"", 1, 0},
    {" \r\n\t", 1, 4},
    {std::string(1, '\0') + "{}", 1, 0},
    {"\xef\xbb\xbf{}", 3, 0},
    {"\xff\xfe{", 3, 0},
    {"foo", 3, 1},
    {"]", 3, 0},
    {":", 3, 0},
    {"{", 4, 1},
    {"{foo: 1}", 4, 1},
    {R"({"foo": 1,})", 4, 10},
    {R"({"foo" 1})", 5, 7},
    {R"({"foo": 1)", 6, 9},
    {"[1 2]", 7, 3},
    {R"(["\u12x4"])", 8, 2},
    {R"(["\ud800"])", 9, 2},
    {R"(["\x"])", 10, 2},
    {R"(["foo)", 11, 5},
    {"[1e999]", 13, 1},
    {"[1.]", 14, 3},
    {"[1e]", 15, 3},
};

TYPED_TEST(SourceContents, InvalidJsonReportsCodeAndOffset) {
  for (const auto& row : kSyntaxErrors) {
    this->ExpectRefused(row.text, ParseError<TypeParam>(row.code, row.offset));
  }
}

TYPED_TEST(SourceContents, ByteOrderMarkIsASyntaxError) {
  this->ExpectRefused("\xef\xbb\xbf" + this->Good(), ParseError<TypeParam>(3, 0));
}

TYPED_TEST(SourceContents, TrailingTextIsASyntaxError) {
  const std::string good = this->Good();
  this->ExpectRefused(good + "x", ParseError<TypeParam>(2, good.size()));
  this->ExpectRefused(good + "\n" + good, ParseError<TypeParam>(2, good.size() + 1));
}

TYPED_TEST(SourceContents, TruncationIsASyntaxErrorAtAnyByte) {
  const std::string good = this->Good();
  for (std::size_t size = 0; size < good.size(); ++size) {
    const auto error = this->sources_.Create("m", good.substr(0, size));
    ASSERT_EQ(error.size(), 2U) << size;
    EXPECT_EQ(error.front(), kInvalidArgumentError) << size;
    EXPECT_THAT(error.back(), testing::StartsWith(TypeParam::kParseError)) << size;
  }
  EXPECT_THAT(this->sources_->ListSources(), IsEmpty());
  this->ExpectAccepted(good, "foo");
}

TYPED_TEST(SourceContents, MissingRootKeyIsReported) {
  const std::string good = this->Good();
  for (const std::string& text :
       {std::string("{}"), std::string("[]"), std::string("null"), std::string("true"),
        std::string("1"), this->RootKey(), "[" + good + "]", R"({"foo": )" + good + "}",
        Replaced(good, this->RootKey(), R"("Foo")")}) {
    this->ExpectRefused(text, MissingFieldError(TypeParam::kRootKey));
  }
}

TYPED_TEST(SourceContents, RootKeyOfAnotherTypeIsInvalid) {
  for (const std::string value : {"null", "false", "1", "1.5", R"("foo")"}) {
    this->ExpectRefused("{" + this->RootKey() + ": " + value + "}", TypeParam::InvalidRoot());
  }
}

TYPED_TEST(SourceContents, RepeatedRootKeyUsesTheFirst) {
  const std::string good = this->Good();
  const std::string key = this->RootKey();
  this->ExpectAccepted(good.substr(0, good.size() - 1) + ", " + key + ": 1}", "foo");
  this->ExpectRefused("{" + key + ": 1, " + good.substr(1), TypeParam::InvalidRoot());
}

TYPED_TEST(SourceContents, KeysAreComparedUpToTheirFirstZeroByte) {
  const std::string key = std::string("\"") + TypeParam::kRootKey;
  this->ExpectAccepted(Replaced(this->Good(), this->RootKey(), key + R"(\u0000bar")"), "foo");
  this->ExpectRefused(Replaced(this->Good(), this->RootKey(), R"("\u0000bar")"),
                      MissingFieldError(TypeParam::kRootKey));
}

TYPED_TEST(SourceContents, UnknownKeysAreIgnored) {
  const std::string good = this->Good();
  this->ExpectAccepted(R"({"": [null, {"a": 1.5}], "foo": "bar", )" + good.substr(1), "foo");
}

TYPED_TEST(SourceContents, SurroundingSpaceIsIgnored) {
  this->ExpectAccepted(" \t\r\n" + this->Good() + "\r\n\t ", "foo");
}

TYPED_TEST(SourceContents, ZeroByteEndsTheText) {
  this->ExpectAccepted(this->Good() + '\0' + "{", "foo");
  this->ExpectRefused("{" + std::string(1, '\0') + this->Good().substr(1),
                      ParseError<TypeParam>(4, 1));
}

TYPED_TEST(SourceContents, InvalidUtf8IsKept) {
  for (const std::string name : {"\xff\xfe", "\xc0\x80", "\xed\xa0\x80", "foo\xe2\x82", "\x80"}) {
    this->ExpectAccepted(TypeParam::File(name), name);
  }
}

TYPED_TEST(SourceContents, EscapesAreDecoded) {
  this->ExpectAccepted(TypeParam::File(R"(f\u0000o)"), std::string("f\0o", 3));
  this->ExpectAccepted(TypeParam::File(R"(\"\\\/\b\f\n\r\t)"), "\"\\/\b\f\n\r\t");
  this->ExpectAccepted(TypeParam::File(R"(\u00e9\u20AC\ud83d\ude00)"),
                       "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80");
  this->ExpectAccepted(TypeParam::File(""), "");
}

}  // namespace
}  // namespace Zelk::Testing
