#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/domains_under_test.h"

// Paths of anything but a file: a read of it would wait, never end, or take away what another
// program is to read. Each is reported as a file that cannot be opened.

namespace Zelk::Testing {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

void Check(int outcome) {
  if (outcome < 0) throw std::system_error(errno, std::generic_category());
}

void MakePipe(const std::string& path) {
  Check(mkfifo(path.c_str(), S_IRUSR | S_IWUSR));
}

void MakeSocket(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.copy(address.sun_path, sizeof address.sun_path) == sizeof address.sun_path) {
    throw std::runtime_error("a socket cannot have so long a path");
  }
  const int socket_fd = socket(AF_UNIX, SOCK_STREAM, 0);
  Check(socket_fd);
  const void* bare_address = &address;
  const int bound = bind(socket_fd, static_cast<const sockaddr*>(bare_address), sizeof address);
  close(socket_fd);
  Check(bound);
}

void LinkTo(const std::string& target, const std::string& path) {
  fs::create_symlink(target, path);
}

/// Something other than a regular file.
struct Special {
  const char* what;
  void (*make)(const std::string& path);
};

const std::vector<Special> kSpecials = {
    {"a pipe", MakePipe},
    {"a socket", MakeSocket},
    {"the endless device", [](const std::string& path) { LinkTo("/dev/zero", path); }},
    {"the empty device", [](const std::string& path) { LinkTo("/dev/null", path); }},
    {"the full device", [](const std::string& path) { LinkTo("/dev/full", path); }},
    {"a link to nothing", [](const std::string& path) { LinkTo("nowhere", path); }},
    {"a link to itself", [](const std::string& path) { LinkTo(path, path); }},
    {"a link with too long a name",
     [](const std::string& path) { LinkTo(std::string(300, 'x'), path); }},
    {"a link through a file",
     [](const std::string& path) {
       LinkTo(path + ".file/foo", path);
       Check(close(creat((path + ".file").c_str(), S_IRUSR)));
     }},
};

/// A pipe with an unread text.
class FullPipe {
 public:
  explicit FullPipe(const std::string& text) {
    Check(pipe2(ends_, O_CLOEXEC));
    Check(static_cast<int>(write(ends_[1], text.data(), text.size())));
  }

  FullPipe(const FullPipe&) = delete;
  FullPipe& operator=(const FullPipe&) = delete;

  ~FullPipe() {
    close(ends_[0]);
    close(ends_[1]);
  }

  /// A path that leads to the end from which the text can be taken.
  std::string Path() const { return "/proc/self/fd/" + std::to_string(ends_[0]); }

  /// How many bytes wait.
  std::size_t Waiting() const {
    int count = 0;
    Check(ioctl(ends_[0], FIONREAD, &count));
    return static_cast<std::size_t>(count);
  }

 private:
  int ends_[2] = {-1, -1};
};

template <typename Domain>
class SpecialFiles : public testing::Test {
 protected:
  void ExpectNotFound(const std::string& path) const {
    EXPECT_EQ(sources_.CreateAt("m", path), FileNotFound<Domain>(path));
    EXPECT_THAT(sources_->ListSources(), IsEmpty());
  }

  std::string Path(const std::string& name) const { return sources_.Folder().Path(name); }

  const Sources<Domain> sources_{};
};

TYPED_TEST_SUITE(SpecialFiles, DomainsUnderTest, DomainName);

TYPED_TEST(SpecialFiles, AreNotFound) {
  for (const auto& special : kSpecials) {
    SCOPED_TRACE(special.what);
    special.make(this->Path("foo"));
    this->ExpectNotFound(this->Path("foo"));
    fs::remove(this->Path("foo"));
  }
}

TYPED_TEST(SpecialFiles, AreNotFoundByAPathBelowThem) {
  for (const std::string path : {"/dev/zero", "/dev/null", "/dev/full"}) {
    SCOPED_TRACE(path);
    this->ExpectNotFound(path);
  }
}

TYPED_TEST(SpecialFiles, AreNotFoundThroughLinks) {
  LinkTo("foo", this->Path("link"));
  LinkTo("link", this->Path("link to link"));
  for (const auto& special : kSpecials) {
    SCOPED_TRACE(special.what);
    special.make(this->Path("foo"));
    this->ExpectNotFound(this->Path("link"));
    this->ExpectNotFound(this->Path("link to link"));
    fs::remove(this->Path("foo"));
  }
}

TYPED_TEST(SpecialFiles, DoNotReplaceALoadedSource) {
  const std::string good = TypeParam::File("foo");
  ASSERT_EQ(this->sources_.Create("m", good), Lines());
  for (const auto& special : kSpecials) {
    SCOPED_TRACE(special.what);
    fs::remove(this->sources_.Path("m"));
    special.make(this->sources_.Path("m"));
    EXPECT_EQ(this->sources_->ReloadSource(Some("m")), nullptr);
    EXPECT_EQ(this->sources_->ReloadSource(boost::none), nullptr);
    EXPECT_THAT(this->sources_.Names(), ElementsAre("foo"));
    EXPECT_EQ(this->sources_->SourceFingerprint(Some("m")), Md5(Md5(good)));
  }
  fs::remove(this->sources_.Path("m"));
  this->sources_.WriteRecord("m", "bar");
  EXPECT_EQ(this->sources_->ReloadSource(Some("m")), nullptr);
  EXPECT_THAT(this->sources_.Names(), ElementsAre("bar"));
}

TYPED_TEST(SpecialFiles, KeepTheirUnreadBytes) {
  const std::string good = TypeParam::File("foo");
  const FullPipe pipe(good);
  ASSERT_EQ(pipe.Waiting(), good.size());
  this->ExpectNotFound(pipe.Path());
  LinkTo(pipe.Path(), this->Path("link"));
  this->ExpectNotFound(this->Path("link"));
  EXPECT_EQ(pipe.Waiting(), good.size());
}

}  // namespace
}  // namespace Zelk::Testing
