#include <string>

#include <gmock/gmock.h>

#include "analysis/diffed.h"
#include "analysis/small_model.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to write files

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Operations(const std::string& operations) {
  return MetamodelFile({"", "", operations});
}

}  // namespace

TEST(OperationChanges, AreFoundByTheNamesOfOperations) {
  EXPECT_THAT(
      Changed({Operations(Operation("a", "") + "," + Operation("b", ""))},
              {Operations(Operation("b", "") + "," + Operation("c", ""))}),
      ElementsAre("BB--B operation-removed operation:a: the operation 'c.p.s.a' was removed",
                  "cB--c operation-added operation:c: the operation 'c.p.s.c' was added"));
  EXPECT_THAT(Changed({Operations(Operation("a", "") + "," + Operation("b", ""))},
                      {Operations(Operation("b", "") + "," + Operation("a", ""))}),
              IsEmpty());
}
