#include "common/json/text_buffer.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <new>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <utility>

#include <gtest/gtest.h>

namespace Zelk::Provider::Metadata {
namespace {

// Sizes around those at which a text moves from the heap into a mapping, and into huge pages.
const std::size_t kSizes[] = {0,         1,         7,         131'070,   131'071,
                              131'072,   131'073,   524'287,   524'288,   2'097'150,
                              2'097'151, 2'097'152, 3'000'000, 4'194'304, 10'000'000};

TEST(TextBuffer, EndsTheTextWithAZeroByte) {
  for (const std::size_t size : kSizes) {
    const std::string bytes = std::string(size / 2, 'x') + std::string(size - size / 2, 'y');
    TextBuffer text(bytes);
    EXPECT_TRUE(text.View() == bytes) << size;
    EXPECT_EQ(text.Size(), size);
    EXPECT_EQ(text.Data()[size], '\0') << size;
  }
}

TEST(TextBuffer, IsWritable) {
  for (const std::size_t size : kSizes) {
    TextBuffer text(size);
    std::string_view("x").copy(text.Data(), size);
    if (size > 0) text.Data()[size - 1] = 'y';
    EXPECT_EQ(text.Data()[size], '\0') << size;
  }
}

TEST(TextBuffer, CanBeTruncated) {
  for (const std::size_t size : kSizes) {
    TextBuffer text(std::string(size, 'x'));
    text.Truncate(size / 2);
    EXPECT_TRUE(text.View() == std::string(size / 2, 'x')) << size;
    EXPECT_EQ(text.Data()[size / 2], '\0') << size;
  }
}

TEST(TextBuffer, HasAlignedRoomAfterTheText) {
  for (const std::size_t size : kSizes) {
    TextBuffer text(size);
    if (text.RoomSize() == 0) continue;
    auto* const room = static_cast<char*>(text.Room());
    EXPECT_GT(room, text.Data() + size) << size;
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(room) % alignof(std::max_align_t), 0U) << size;
    EXPECT_GE(text.RoomSize(), size) << size;
    room[0] = 'x';
    room[text.RoomSize() - 1] = 'x';
    EXPECT_EQ(text.Data()[size], '\0') << size;
  }
}

TEST(TextBuffer, HasRoomUnlessItIsSmall) {
  EXPECT_EQ(TextBuffer(std::size_t{1000}).RoomSize(), 0U);
  EXPECT_GT(TextBuffer(std::size_t{1'000'000}).RoomSize(), 0U);
}

TEST(TextBuffer, MovesWithItsBytes) {
  for (const std::size_t size : kSizes) {
    TextBuffer from(std::string(size, 'x'));
    TextBuffer to(std::string_view("foo"));
    to = std::move(from);
    EXPECT_TRUE(to.View() == std::string(size, 'x')) << size;
  }
}

TEST(TextBuffer, ReleasesItsMemory) {
  const auto address_space = [] {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages;
  };
  const auto before = address_space();
  for (int i = 0; i < 1000; ++i) TextBuffer(std::size_t{10'000'000});
  // All of them have 2.4 million pages of 4 KiB. An emulator of another machine keeps some
  // thousands.
  EXPECT_LT(address_space(), before + 100'000);
}

TEST(TextBuffer, RefusesATextTooLongForTheParserUnread) {
  constexpr std::size_t kSize = kMaxTextSize + 1;
  void* unreadable =
      mmap(nullptr, kSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(unreadable, MAP_FAILED);
  EXPECT_THROW(TextBuffer(std::string_view(static_cast<const char*>(unreadable), kSize)),
               std::bad_alloc);
  munmap(unreadable, kSize);
  EXPECT_THROW(TextBuffer{kSize}, std::bad_alloc);
  EXPECT_THROW(TextBuffer{SIZE_MAX}, std::bad_alloc);
}

TEST(TextBuffer, OnlyMapsTheLongestText) {
  EXPECT_EQ(TextBuffer(kMaxTextSize).Size(), kMaxTextSize);
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
