#include <cstddef>
#include <dlfcn.h>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" int __lsan_do_recoverable_leak_check();  // its header is not always there
#endif
#include <malloc.h>

#include "hosting/plugin.h"
#include "support/builders.h"
#include "support/temp_folder.h"
#include "support/threads.h"

// A host loads the library while it needs it, and is then rid of it: of its code and of its memory.

namespace Zelk::Testing {
namespace {

constexpr const char* kLibraries[] = {"libzelk-metadata-services.so.2", "libzelk-std-bindings.so.2",
                                      "libzelk-core.so.2"};

// A sanitizer has a heap of its own, for which this is nothing.
std::size_t BytesInUse() {
  const auto heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
}

bool IsLoaded(const char* library) {
  void* handle = dlopen(library, RTLD_NOW | RTLD_NOLOAD);
  if (handle != nullptr) dlclose(handle);
  return handle != nullptr;
}

/// Loads the plug-in, and the library with it, for one call.
int CallOnce(const char* file, int mode) {
  void* plugin = dlopen(ZELK_PLUGIN, RTLD_NOW | mode);
  if (plugin == nullptr) throw std::runtime_error(dlerror());
  void* symbol = dlsym(plugin, "ServicesOf");
  if (symbol == nullptr) throw std::runtime_error(dlerror());
  const int services = reinterpret_cast<decltype(&ServicesOf)>(symbol)(file);
  for (const char* library : kLibraries) EXPECT_TRUE(IsLoaded(library)) << library;
  dlclose(plugin);
  return services;
}

/// Uses the library that often and answers what memory is in use after that. On a thread of its
/// own, since blocks that a thread keeps for its next allocations count as in use until it ends.
std::size_t BytesInUseAfter(int rounds, int mode) {
  InThreads(1, [&](std::size_t) {
    const TempFolder folder;
    const std::string good = folder.Write(
        "good.json",
        MetamodelFile(Component("c", {Package("p", {Service("foo"), Service("bar")})})));
    const std::string broken = folder.Write("broken.json", "{");
    for (int round = 1; round <= rounds; ++round) {
      ASSERT_EQ(CallOnce(good.c_str(), mode), 2);
      ASSERT_EQ(CallOnce(broken.c_str(), mode), -1);
      for (const char* library : kLibraries) {
        ASSERT_FALSE(IsLoaded(library)) << library << " in round " << round;
      }
    }
  });
  return BytesInUse();
}

void LoadsAndUnloads(int mode) {
  constexpr int kRounds = 190;
  // What the loader and other libraries keep for themselves is there after a few rounds.
  const std::size_t warm = BytesInUseAfter(10, mode);
  // The heap rounds sizes as it likes, but the smallest block lost in every round would show.
  constexpr std::size_t kSmallestBlock = 32;
  EXPECT_LT(BytesInUseAfter(kRounds, mode), warm + kRounds * kSmallestBlock / 2);
#ifdef __SANITIZE_ADDRESS__
  EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0);
#endif
}

TEST(UnloadedLibrary, LeavesNoMemory) {
  LoadsAndUnloads(RTLD_LOCAL);
}

TEST(UnloadedLibrary, IsGoneAfterAGlobalLoad) {
  LoadsAndUnloads(RTLD_GLOBAL);
}

}  // namespace
}  // namespace Zelk::Testing
