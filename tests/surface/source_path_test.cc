#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <system_error>
#include <unistd.h>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/domains_under_test.h"

// What a source makes of the path that it is given.

namespace Zelk::Testing {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// While it lives, the process may not open what only the superuser may.
class WithoutPrivileges {
 public:
  WithoutPrivileges() : user_(geteuid()) { Become(user_ == 0 ? kNobody : user_); }

  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

  ~WithoutPrivileges() { static_cast<void>(seteuid(user_)); }

 private:
  static constexpr uid_t kNobody = 65534;

  static void Become(uid_t user) {
    if (seteuid(user) != 0) throw std::system_error(errno, std::generic_category());
  }

  uid_t user_;
};

std::ptrdiff_t OpenFiles() {
  return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

template <typename Domain>
class SourcePath : public testing::Test {
 protected:
  /// A source at that path is refused as one that cannot be opened.
  void ExpectNotFound(const std::string& path) const {
    EXPECT_EQ(sources_.CreateAt("m", path), FileNotFound<Domain>(path)) << Quoted(path);
    EXPECT_THAT(sources_->ListSources(), IsEmpty()) << Quoted(path);
  }

  /// A source at that path is read as an empty file.
  void ExpectReadAsEmpty(const std::string& path) const {
    EXPECT_EQ(sources_.CreateAt("m", path), (ParseError<Domain>(1, 0))) << Quoted(path);
    EXPECT_THAT(sources_->ListSources(), IsEmpty()) << Quoted(path);
  }

  /// A source at that path is created and has the one record "foo".
  void ExpectCreated(const std::string& path) const {
    EXPECT_EQ(sources_.CreateAt("m", path), Lines()) << Quoted(path);
    EXPECT_THAT(sources_.Names(), ElementsAre("foo")) << Quoted(path);
  }

  std::string Path(const std::string& name) const { return sources_.Folder().Path(name); }

  /// The path of a good file with that name.
  std::string Good(const std::string& name) const {
    return sources_.Folder().Write(name, Domain::File("foo"));
  }

  const Sources<Domain> sources_{};
};

TYPED_TEST_SUITE(SourcePath, DomainsUnderTest, DomainName);

TYPED_TEST(SourcePath, IsNotFoundWithoutAFile) {
  this->ExpectNotFound(this->Path("missing"));
  this->ExpectNotFound(this->Path("missing/foo"));
  this->ExpectNotFound("");
}

TYPED_TEST(SourcePath, IsReportedAsEmptyIfAbsent) {
  EXPECT_EQ(this->sources_.CreateAt("m", boost::none), FileNotFound<TypeParam>(""));
  const auto with_address = std::make_shared<const typename TypeParam::CreateSpec>(
      "foo", SourceType::LOCAL_FILE, boost::none, std::string("bar"));
  EXPECT_EQ(ErrorLines(this->sources_->CreateSource("m", with_address)),
            FileNotFound<TypeParam>(""));
  EXPECT_THAT(this->sources_->ListSources(), IsEmpty());
}

TYPED_TEST(SourcePath, IsNotFoundIfUnresolvable) {
  this->ExpectNotFound(this->Good("foo") + "/bar");
  this->ExpectNotFound(this->Path(std::string(300, 'x')));
  fs::create_symlink("nowhere", this->Path("dangling"));
  this->ExpectNotFound(this->Path("dangling"));
  fs::create_symlink("loop", this->Path("loop"));
  this->ExpectNotFound(this->Path("loop"));
}

TYPED_TEST(SourcePath, IsNotFoundWithoutPermission) {
  const std::string path = this->Good("foo");
  fs::permissions(path, fs::perms::none);
  const WithoutPrivileges without_privileges;
  this->ExpectNotFound(path);
}

TYPED_TEST(SourcePath, IsNotFoundWithAZeroByte) {
  const std::string path = this->Good("foo");
  this->ExpectNotFound(path + '\0');
  this->ExpectNotFound(path + '\0' + "bar");
  this->ExpectNotFound('\0' + path);
}

TYPED_TEST(SourcePath, IsReadAsAnEmptyFileIfAFolder) {
  this->ExpectReadAsEmpty(this->Path(""));
  this->ExpectReadAsEmpty("/");
  fs::create_directory_symlink(this->Path(""), this->Path("link"));
  this->ExpectReadAsEmpty(this->Path("link"));
}

TYPED_TEST(SourcePath, IsReadAsAnEmptyFileIfUnreadable) {
  this->ExpectReadAsEmpty("/proc/self/mem");
}

TYPED_TEST(SourcePath, MayHaveAnyOtherBytes) {
  this->ExpectCreated(this->Good(" a\nb\t\\\"%1%\xff\xc3\xa9.foo"));
}

TYPED_TEST(SourcePath, MayBeRelative) {
  this->ExpectCreated(fs::relative(this->Good("foo")).string());
}

TYPED_TEST(SourcePath, IsFollowedAgainByEachReloadIfALink) {
  const std::string link = this->Path("link");
  fs::create_symlink(this->Good("foo"), link);
  this->ExpectCreated(link);
  fs::remove(link);
  fs::create_symlink(this->sources_.WriteRecord("n", "bar"), link);
  EXPECT_EQ(this->sources_->ReloadSource(Some("m")), nullptr);
  EXPECT_THAT(this->sources_.Names(), ElementsAre("bar"));
}

TYPED_TEST(SourcePath, MayBeSharedBySources) {
  const std::string path = this->Good("foo");
  this->ExpectCreated(path);
  EXPECT_EQ(this->sources_.CreateAt("n", path), Lines());
  EXPECT_THAT(this->sources_.Names(), ElementsAre("foo", "foo"));
}

TYPED_TEST(SourcePath, IsClosedAfterTheLoad) {
  const std::string good = this->Good("foo");
  const std::string bad = this->sources_.Folder().Write("bad", "{");
  const auto before = OpenFiles();
  this->ExpectCreated(good);
  EXPECT_EQ(this->sources_->ReloadSource(Some("m")), nullptr);
  for (const auto& path : {bad, this->Path(""), this->Path("missing"), std::string("/dev/zero")}) {
    EXPECT_NE(this->sources_.CreateAt("n", path), Lines()) << path;
  }
  EXPECT_EQ(OpenFiles(), before);
}

}  // namespace
}  // namespace Zelk::Testing
