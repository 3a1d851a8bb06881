#include <dlfcn.h>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "hosting/host_json.h"
#include "hosting/plugin.h"
#include "support/builders.h"
#include "support/temp_folder.h"

// A host that has RapidJSON of its own, with other choices, and shows its symbols to everybody. The
// library's copy and the host's never meet.

namespace Zelk::Testing {
namespace {

constexpr char kLenient[] = R"({"a": [1, 2, 3,], /* comment */ "s": "a text that is not short"})";

// Two functions of the host's rapidjson::GenericReader that call each other, with its own flags; a
// compiler may put one into the other.
constexpr const char* kParsers[] = {
    "_ZN9rapidjson13GenericReaderINS_4UTF8IcEES2_NS_12CrtAllocatorEE10ParseValueILj160E"
    "NS_19GenericStringStreamIS2_EENS_15GenericDocumentIS2_NS_19MemoryPoolAllocatorIS3_EES3_EEEE"
    "vRT0_RT1_",
    "_ZN9rapidjson13GenericReaderINS_4UTF8IcEES2_NS_12CrtAllocatorEE10ParseArrayILj160E"
    "NS_19GenericStringStreamIS2_EENS_15GenericDocumentIS2_NS_19MemoryPoolAllocatorIS3_EES3_EEEE"
    "vRT0_RT1_"};

#ifdef ZELK_PLUGIN
int AskLibrary(const std::string& file) {
  static void* const plugin = dlopen(ZELK_PLUGIN, RTLD_NOW | RTLD_GLOBAL);
  if (plugin == nullptr) throw std::runtime_error(dlerror());
  return reinterpret_cast<decltype(&ServicesOf)>(dlsym(plugin, "ServicesOf"))(file.c_str());
}
#else
int AskLibrary(const std::string& file) {
  return ServicesOf(file.c_str());
}
#endif

void ExpectHostIsLenient() {
  EXPECT_EQ(HostSum(kLenient), 30);
  EXPECT_EQ(HostSum("{"), -1);
}

TEST(TwoCopiesOfRapidJson, KeepTheirOwnRules) {
  const TempFolder folder;
  const std::string good = folder.Write(
      "good.json", MetamodelFile(Component("c", {Package("p", {Service("foo"), Service("bar")})})));
  const std::string comment = folder.Write("comment.json", R"({"metamodel": /* c */ {}})");
  const std::string comma = folder.Write("comma.json", R"({"metamodel": [1,]})");
  ExpectHostIsLenient();
  EXPECT_EQ(AskLibrary(good), 2);
  ExpectHostIsLenient();
  EXPECT_EQ(AskLibrary(comment), -1);
  EXPECT_EQ(AskLibrary(comma), -1);
  ExpectHostIsLenient();
  EXPECT_EQ(AskLibrary(good), 2);
  ExpectHostIsLenient();
}

// Without it, nothing above could go wrong.
TEST(TwoCopiesOfRapidJson, AreExportedByTheHost) {
  void* shown = nullptr;
  for (const char* parser : kParsers) {
    if (shown == nullptr) shown = dlsym(RTLD_DEFAULT, parser);
  }
  EXPECT_NE(shown, nullptr);
}

}  // namespace
}  // namespace Zelk::Testing
