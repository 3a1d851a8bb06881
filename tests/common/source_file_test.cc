#include "common/sources/source_file.h"

#include <filesystem>
#include <random>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

#include <boost/optional.hpp>
#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

#include "support/file_text.h"
#include "support/temp_folder.h"

namespace Zelk::Provider::Metadata {
namespace {

using Bytes = boost::optional<std::string>;
using Testing::TempFolder;

Bytes Contents(const std::string& path) {
  bool is_too_large = false;
  const auto text = ReadSourceFile(path, is_too_large);
  EXPECT_FALSE(is_too_large) << path;
  return text ? Bytes(std::string(text->View())) : boost::none;
}

std::string RandomBytes(std::size_t size) {
  std::mt19937 random(20);
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

TEST(ReadSourceFile, KeepsEveryByte) {
  const TempFolder folder;
  const std::string bytes("\xef\xbb\xbf{\r\n\0\"\xff\"\n\r\0}\0", 15);
  EXPECT_EQ(Contents(folder.Write("foo", bytes)), Bytes(bytes));
}

TEST(ReadSourceFile, ReadsAnEmptyFile) {
  const TempFolder folder;
  EXPECT_EQ(Contents(folder.Write("foo", "")), Bytes(""));
}

TEST(ReadSourceFile, ReadsWholeFilesOfAnySize) {
  const TempFolder folder;
  for (const std::size_t size : {1U, 2U, 4095U, 4096U, 4097U, 65536U, 3'000'001U}) {
    const std::string bytes = RandomBytes(size);
    EXPECT_TRUE(Contents(folder.Write("foo", bytes)) == Bytes(bytes)) << size;
  }
}

TEST(ReadSourceFile, ReadsAFileLargerThanItsReportedSize) {
  const std::string path = "/proc/version";
  ASSERT_EQ(std::filesystem::file_size(path), 0U);
  EXPECT_GT(Contents(path).value_or("").size(), 8U);
  EXPECT_EQ(Contents(path), Bytes(Testing::FileText(path)));
}

TEST(ReadSourceFile, ReadsTwoHundredMegabytes) {
  const TempFolder folder;
  const std::string path = folder.Write("foo", "[");
  constexpr std::size_t kSize = 200'000'000;
  std::filesystem::resize_file(path, kSize);
  const auto bytes = Contents(path);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(bytes->size(), kSize);
  EXPECT_EQ(bytes->substr(0, 2), std::string("[\0", 2));
  EXPECT_EQ(bytes->find_first_not_of('\0', 1), std::string::npos);
}

TEST(ReadSourceFile, RefusesAFileTooLargeForTheParserUnread) {
  const TempFolder folder;
  const std::string path = folder.Write("foo", "{}");
  constexpr std::uintmax_t kTooLarge = std::uintmax_t{kMaxTextSize} + 1;
  constexpr std::uintmax_t kExbibyte = std::uintmax_t{1} << 60U;
  for (const std::uintmax_t size : {kTooLarge, 16 * kTooLarge, kExbibyte}) {
    std::error_code too_large_for_the_file_system;
    std::filesystem::resize_file(path, size, too_large_for_the_file_system);
    if (too_large_for_the_file_system) break;
    bool is_too_large = false;
    EXPECT_FALSE(ReadSourceFile(path, is_too_large)) << size;
    EXPECT_TRUE(is_too_large) << size;
  }
  EXPECT_GT(std::filesystem::file_size(path), kMaxTextSize);
}

TEST(ReadSourceFile, ReadsFromTheBeginningEveryTime) {
  const TempFolder folder;
  const std::string path = folder.Write("foo", "bar");
  EXPECT_EQ(Contents(path), Bytes("bar"));
  EXPECT_EQ(Contents(path), Bytes("bar"));
  folder.Write("foo", "qux and more");
  EXPECT_EQ(Contents(path), Bytes("qux and more"));
}

TEST(ReadSourceFile, FollowsLinks) {
  const TempFolder folder;
  folder.Write("foo", "bar");
  std::filesystem::create_symlink("foo", folder.Path("link"));
  std::filesystem::create_symlink("link", folder.Path("link to link"));
  EXPECT_EQ(Contents(folder.Path("link to link")), Bytes("bar"));
}

TEST(ReadSourceFile, ReadsAFolderAsAnEmptyFile) {
  const TempFolder folder;
  std::filesystem::create_directory_symlink(folder.Path(""), folder.Path("link"));
  EXPECT_EQ(Contents(folder.Path("")), Bytes(""));
  EXPECT_EQ(Contents(folder.Path("link")), Bytes(""));
  EXPECT_EQ(Contents("/"), Bytes(""));
}

TEST(ReadSourceFile, FailsIfTheFileIsMissing) {
  const TempFolder folder;
  EXPECT_EQ(Contents(folder.Path("foo")), boost::none);
  EXPECT_EQ(Contents(""), boost::none);
  EXPECT_EQ(Contents(folder.Path(std::string(300, 'x'))), boost::none);
}

TEST(ReadSourceFile, FailsForAPathThroughAFile) {
  const TempFolder folder;
  EXPECT_EQ(Contents(folder.Write("foo", "bar") + "/baz"), boost::none);
}

TEST(ReadSourceFile, FailsForADanglingLink) {
  const TempFolder folder;
  std::filesystem::create_symlink("there", folder.Path("here"));
  std::filesystem::create_symlink("here", folder.Path("there"));
  std::filesystem::create_symlink("nowhere", folder.Path("broken"));
  EXPECT_EQ(Contents(folder.Path("here")), boost::none);
  EXPECT_EQ(Contents(folder.Path("broken")), boost::none);
}

TEST(ReadSourceFile, FailsForAPathWithAZeroByte) {
  const TempFolder folder;
  const std::string path = folder.Write("foo", "bar");
  EXPECT_EQ(Contents(path + '\0'), boost::none);
  EXPECT_EQ(Contents(path + '\0' + "baz"), boost::none);
  EXPECT_EQ(Contents(std::string(1, '\0') + path), boost::none);
}

TEST(ReadSourceFile, DoesNotBlockOnAPipeWithoutAWriter) {
  const TempFolder folder;
  const std::string path = folder.Path("foo");
  ASSERT_EQ(mkfifo(path.c_str(), S_IRUSR | S_IWUSR), 0);
  EXPECT_EQ(Contents(path), boost::none);
}

TEST(ReadSourceFile, DoesNotReadADevice) {
  EXPECT_EQ(Contents("/dev/zero"), boost::none);
  EXPECT_EQ(Contents("/dev/null"), boost::none);
}

TEST(ReadSourceFile, DoesNotReadASocket) {
  const TempFolder folder;
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  folder.Path("foo").copy(address.sun_path, sizeof address.sun_path - 1);
  const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
  const auto* bare_address = static_cast<const void*>(&address);
  ASSERT_EQ(bind(descriptor, static_cast<const sockaddr*>(bare_address), sizeof address), 0);
  EXPECT_EQ(Contents(folder.Path("foo")), boost::none);
  close(descriptor);
}

TEST(ReadSourceFile, ClosesItsFiles) {
  const TempFolder folder;
  const std::string file = folder.Write("foo", "bar");
  const int before = dup(0);
  close(before);
  for (const auto& path : {file, folder.Path(""), folder.Path("baz"), std::string("/dev/zero")}) {
    Contents(path);
    const int after = dup(0);
    close(after);
    EXPECT_EQ(after, before) << path;
  }
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
