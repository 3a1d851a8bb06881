#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/domains_under_test.h"

// Files that another thread changes while they are loaded. What a load sees is up to the system;
// that it ends, as a whole or as a catalogued error, is not.

namespace Zelk::Testing {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

/// How often each of the two outcomes of a race was seen.
class Seen {
 public:
  /// Whether one of them was seen too seldom to prove anything and there are loads left.
  bool NeedsMore() { return !Enough() && loads_++ < kMostLoads; }

  bool Enough() const { return first_ >= kTimes && second_ >= kTimes; }

  void Count(bool is_first) { ++(is_first ? first_ : second_); }

  std::string Text() const {
    return "seen " + std::to_string(first_) + " and " + std::to_string(second_) + " times";
  }

 private:
  static constexpr int kTimes = 20;
  static constexpr int kMostLoads = 20'000;

  int first_ = 0;
  int second_ = 0;
  int loads_ = 0;
};

/// Runs a function over and over on a thread of its own, until it is destroyed.
class Meanwhile {
 public:
  template <typename Function>
  explicit Meanwhile(Function function)
      : thread_([this, function] {
          do {
            function();
          } while (!done_);
        }) {}

  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

  ~Meanwhile() {
    done_ = true;
    thread_.join();
  }

 private:
  std::atomic<bool> done_{false};
  std::thread thread_;
};

void Overwrite(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text;
  if (!file.flush()) ADD_FAILURE() << "cannot write " << path;
}

template <typename Domain>
class ChangingFiles : public testing::Test {
 protected:
  std::string Path() const { return sources_.Path("m"); }

  /// Two good files, one much longer than the other.
  static std::string Short() { return Domain::File("foo"); }

  static std::string Long() { return Domain::File("bar") + std::string(300'000, ' '); }

  /// The record that the source answers; it is of one of the two files, whole, and so is the
  /// digest.
  std::string OneOfTheTwo() const {
    const Lines names = sources_.Names();
    EXPECT_EQ(names.size(), 1U);
    const std::string text = names.front() == "foo" ? Short() : Long();
    EXPECT_EQ(sources_->SourceFingerprint(Some("m")), Md5(Md5(text))) << names.front();
    return names.front();
  }

  const Sources<Domain> sources_{};
};

TYPED_TEST_SUITE(ChangingFiles, DomainsUnderTest, DomainName);

TYPED_TEST(ChangingFiles, AreOldOrNewIfReplaced) {
  const std::string path = this->Path();
  this->sources_.Write("m", this->Short());
  const Meanwhile replaced([path, next = path + ".next"] {
    for (const std::string& text : {TestFixture::Long(), TestFixture::Short()}) {
      Overwrite(next, text);
      fs::rename(next, path);
    }
  });
  Seen seen;
  while (!TestFixture::HasFailure() && seen.NeedsMore()) {
    ASSERT_EQ(this->sources_.CreateAt("m", path), Lines());
    seen.Count(this->OneOfTheTwo() == "foo");
    ASSERT_EQ(this->sources_->ReloadSource(Some("m")), nullptr);
    seen.Count(this->OneOfTheTwo() == "foo");
    ASSERT_EQ(this->sources_->ReloadSource(boost::none), nullptr);
    seen.Count(this->OneOfTheTwo() == "foo");
    ASSERT_EQ(this->sources_->DeleteSource("m"), nullptr);
  }
  if (!seen.Enough()) GTEST_SKIP() << "the short and the long file were " << seen.Text();
}

TYPED_TEST(ChangingFiles, AreWholeOrSyntaxErrorsIfRewritten) {
  const std::string path = this->Path();
  this->sources_.Write("m", this->Short());
  const Meanwhile rewritten([path] {
    Overwrite(path, TestFixture::Long());
    Overwrite(path, TestFixture::Short());
  });
  Seen seen;
  while (!TestFixture::HasFailure() && seen.NeedsMore()) {
    const Lines error = this->sources_.CreateAt("m", path);
    seen.Count(error.empty());
    if (!error.empty()) {
      ASSERT_THAT(error, ElementsAre(kInvalidArgumentError, HasSubstr(TypeParam::kParseError)));
      continue;
    }
    EXPECT_EQ(this->sources_.Names().size(), 1U);
    ASSERT_EQ(this->sources_->ReloadSource(Some("m")), nullptr);
    EXPECT_EQ(this->sources_.Names().size(), 1U);
    ASSERT_EQ(this->sources_->DeleteSource("m"), nullptr);
  }
  if (!seen.Enough()) GTEST_SKIP() << "a whole and a cut file were " << seen.Text();
}

TYPED_TEST(ChangingFiles, AreLoadedOrNotFoundIfRemoved) {
  const std::string path = this->Path();
  const Meanwhile vanishing([path, next = path + ".next"] {
    Overwrite(next, TestFixture::Short());
    fs::rename(next, path);
    fs::remove(path);
  });
  Seen seen;
  while (!TestFixture::HasFailure() && seen.NeedsMore()) {
    const Lines error = this->sources_.CreateAt("m", path);
    seen.Count(error.empty());
    if (!error.empty()) {
      ASSERT_EQ(error, FileNotFound<TypeParam>(path));
      continue;
    }
    EXPECT_THAT(this->sources_.Names(), ElementsAre("foo"));
    ASSERT_EQ(this->sources_->ReloadSource(Some("m")), nullptr);
    EXPECT_THAT(this->sources_.Names(), ElementsAre("foo"));
    ASSERT_EQ(this->sources_->DeleteSource("m"), nullptr);
  }
  if (!seen.Enough()) GTEST_SKIP() << "the file and its absence were " << seen.Text();
}

TYPED_TEST(ChangingFiles, EndEvenIfTheyGrow) {
  constexpr std::uintmax_t kMost = 64'000'000;
  const std::string path = this->sources_.Write("m", this->Short());
  const Meanwhile growing([path] {
    if (fs::file_size(path) < kMost) {
      std::ofstream(path, std::ios::binary | std::ios::app) << std::string(100'000, ' ');
    }
  });
  for (int load = 0; load < 10; ++load) {
    ASSERT_EQ(this->sources_.CreateAt("m", path), Lines());
    EXPECT_THAT(this->sources_.Names(), ElementsAre("foo"));
    ASSERT_EQ(this->sources_->DeleteSource("m"), nullptr);
  }
}

TYPED_TEST(ChangingFiles, KeepTheLoadedDataIfTruncated) {
  this->sources_.Write("m", this->Long());
  ASSERT_EQ(this->sources_.CreateAt("m", this->Path()), Lines());
  const std::string fingerprint = this->sources_->SourceFingerprint(Some("m"));
  for (const std::uintmax_t size : {0U, 1U, 10U, 30U}) {
    fs::resize_file(this->Path(), size);
    ASSERT_EQ(this->sources_->ReloadSource(Some("m")), nullptr) << size;
    EXPECT_THAT(this->sources_.Names(), ElementsAre("bar")) << size;
    EXPECT_EQ(this->sources_->SourceFingerprint(Some("m")), fingerprint) << size;
  }
}

}  // namespace
}  // namespace Zelk::Testing
