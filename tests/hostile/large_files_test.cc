#include <cstddef>
#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zelk/md5.h>

#include "surface/domains_under_test.h"

// Very large files: loaded whole, with everything in them, or refused with the exact place.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kMegabyte = 1'000'000;

/// A file that is written piece by piece, digested on the way.
class LargeFile {
 public:
  explicit LargeFile(const std::string& path) : file_(path, std::ios::binary) {}

  LargeFile& operator<<(const std::string& text) {
    file_ << text;
    digest_.Update(text);
    size_ += text.size();
    return *this;
  }

  /// That many bytes, all the same.
  void Fill(char byte, std::size_t megabytes) {
    const std::string chunk(kMegabyte, byte);
    while (megabytes-- > 0) *this << chunk;
  }

  std::size_t Size() const { return size_; }

  /// Ends the file; the MD5 of all of it.
  std::string Close() {
    file_.close();
    EXPECT_TRUE(file_.good());
    return digest_.hexdigest();
  }

 private:
  std::ofstream file_;
  MD5 digest_;
  std::size_t size_ = 0;
};

template <typename Domain>
class LargeFiles : public testing::Test {
 protected:
  std::string Path() const { return sources_.Path("m"); }

  /// The rest of a good file of which the opening brace is already written.
  static std::string RestOfGood() { return Domain::File("foo").substr(1); }

  /// The file is loaded, with its one record and its digest.
  void ExpectLoaded(const std::string& digest) const {
    ASSERT_EQ(sources_.CreateAt("m", Path()), Lines());
    EXPECT_THAT(sources_.Names(), ElementsAre("foo"));
    EXPECT_EQ(sources_->SourceFingerprint(Some("m")), Md5(digest));
  }

  void ExpectSyntaxError(int code, std::size_t offset) const {
    EXPECT_EQ(sources_.CreateAt("m", Path()), (ParseError<Domain>(code, offset)));
    EXPECT_THAT(sources_->ListSources(), IsEmpty());
  }

  const Sources<Domain> sources_{};
};

TYPED_TEST_SUITE(LargeFiles, DomainsUnderTest, DomainName);

TYPED_TEST(LargeFiles, MayHaveFiveHundredMegabytesOfSpaces) {
  LargeFile file(this->Path());
  file << "{";
  file.Fill(' ', 250);
  file << this->RestOfGood();
  file.Fill('\n', 250);
  this->ExpectLoaded(file.Close());
}

TYPED_TEST(LargeFiles, MayHaveATextOfFiveHundredMegabytes) {
  LargeFile file(this->Path());
  file << R"({"ignored": ")";
  file.Fill('x', 500);
  file << R"(", )" + this->RestOfGood();
  this->ExpectLoaded(file.Close());
}

TYPED_TEST(LargeFiles, MayHaveAKeyOfAHundredMegabytes) {
  LargeFile file(this->Path());
  file << R"({")";
  file.Fill('x', 100);
  file << R"(": 1, )" + this->RestOfGood();
  this->ExpectLoaded(file.Close());
}

TYPED_TEST(LargeFiles, MayHaveANameOfAHundredMegabytes) {
  const std::string name(100 * kMegabyte, 'x');
  const std::string text = TypeParam::File(name);
  ASSERT_EQ(this->sources_.Create("m", text), Lines());
  const Lines names = this->sources_.Names();
  ASSERT_EQ(names.size(), 1U);
  EXPECT_TRUE(names.front() == name) << names.front().size();
  EXPECT_NE(TypeParam::Find(*this->sources_.Shared(), name), nullptr);
  EXPECT_EQ(TypeParam::Find(*this->sources_.Shared(), name.substr(1)), nullptr);
  EXPECT_EQ(this->sources_->SourceFingerprint(Some("m")), Md5(Md5(text)));
}

TYPED_TEST(LargeFiles, ReportTruncationAtTheEnd) {
  LargeFile file(this->Path());
  file << R"({"ignored": ")";
  file.Fill('x', 100);
  file.Close();
  this->ExpectSyntaxError(11, file.Size());
}

TYPED_TEST(LargeFiles, ReportAWrongLastByte) {
  LargeFile file(this->Path());
  file << this->RestOfGood().insert(0, "{");
  file.Fill(' ', 100);
  const std::size_t offset = file.Size();
  file << "]";
  file.Close();
  this->ExpectSyntaxError(2, offset);
}

TYPED_TEST(LargeFiles, MayHaveAMillionMembers) {
  LargeFile file(this->Path());
  file << "{";
  for (int member = 0; member < 1'000'000; ++member) {
    file << R"("k)" << std::to_string(member) << R"(": [],)";
  }
  file << this->RestOfGood();
  this->ExpectLoaded(file.Close());
}

TYPED_TEST(LargeFiles, MayHaveAMillionMembersOfOneName) {
  LargeFile file(this->Path());
  file << "{";
  for (int member = 0; member < 1'000'000; ++member) file << R"("k": {},)";
  file << this->RestOfGood();
  this->ExpectLoaded(file.Close());
}

TYPED_TEST(LargeFiles, MayHaveAMillionElements) {
  LargeFile file(this->Path());
  file << R"({"ignored": [0)";
  for (int element = 1; element < 1'000'000; ++element) file << ",1";
  file << "], " + this->RestOfGood();
  this->ExpectLoaded(file.Close());
}

TEST(LargeKeys, MayNameAnAnnotation) {
  const std::string key(100 * kMegabyte, 'x');
  const MetamodelSources sources;
  ASSERT_EQ(sources.Create("m", MetamodelFile(Component("foo").Annotated("\"" + key +
                                                                         R"(": {"bar": "baz"})"))),
            Lines());
  const auto component = sources->ComponentInfo("foo")->info;
  ASSERT_EQ(component->metadata.count(key), 1U);
  EXPECT_EQ(*component->metadata.at(key)->elements.at("bar")->string_value, "baz");
}

TEST(LargeKeys, MayNameASchemeAndAPackage) {
  const std::string key(100 * kMegabyte, 'x');
  const Sources<AuthenticationUnderTest> sources;
  ASSERT_EQ(
      sources.Create("m", R"({"authentication": {"component": {"name": "foo", "schemes": {")" +
                              key + R"(": {"authenticationScheme": "s",
                                          "type": "SESSIONLESS"}},
                                    "packages": {")" +
                              key + R"(": [")" + key + R"("]}}}})"),
      Lines());
  ASSERT_NE(sources->PackageInfo(key), nullptr);
  EXPECT_EQ(sources->PackageInfo(key)->schemes.front()->scheme, "s");
}

}  // namespace
}  // namespace Zelk::Testing
