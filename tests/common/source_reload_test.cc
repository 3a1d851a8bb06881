#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/authentication/records.h>

#include "common/sources/source_record.h"
#include "common/sources/source_registry.h"
#include "support/temp_folder.h"

namespace Zelk::Provider::Metadata {
namespace {

using ::Com::Orvane::Zelk::Metadata::SourceType;

using Spec = ::Com::Orvane::Zelk::Metadata::Authentication::SourceSvc::CreateSpec;
using Description = ::Com::Orvane::Zelk::Metadata::Authentication::SourceSvc::Info;

/// A domain whose sources are counted.
struct CountedDomain {
  class SourceData : public SourceRecord<Spec, Description> {
   public:
    explicit SourceData(const std::shared_ptr<const Spec>& create_spec)
        : SourceRecord(create_spec) {
      ++made;
      ++alive;
      if (alive > most_alive) most_alive = alive;
    }

    SourceData(const SourceData&) = delete;
    SourceData& operator=(const SourceData&) = delete;

    ~SourceData() { --alive; }

    static inline int made = 0;
    static inline int alive = 0;
    static inline int most_alive = 0;
  };

  using CreateSpec = Spec;
  using Info = Description;

  static constexpr const char* kExists = "exists";
  static constexpr const char* kFileNotFound = "file.not.found";
  static constexpr const char* kParseError = "parse.error";

  static bool Parse(TextBuffer text, const std::shared_ptr<SourceData>& /*source*/,
                    Errors& /*errors*/) {
    return text.View() == "good";
  }

  static void PushNames(const SourceData& /*source*/, std::vector<NameMark>& /*names*/) {}

  static void SetFingerprint(SourceData& source, const std::string& digest) {
    source.fingerprint = digest;
  }
};

using Counted = CountedDomain::SourceData;

/// A registry of four sources "a" to "d".
class ReloadOfAll : public testing::Test {
 protected:
  ReloadOfAll() {
    for (const std::string id : {"a", "b", "c", "d"}) {
      const std::string path = folder_.Write(id, "good");
      EXPECT_EQ(registry_.Create(id, std::make_shared<const Spec>("", SourceType::LOCAL_FILE, path,
                                                                  boost::none)),
                nullptr);
    }
    Counted::made = 0;
    Counted::most_alive = Counted::alive;
  }

  ~ReloadOfAll() override { EXPECT_EQ(Counted::alive, 4); }

  const Testing::TempFolder folder_;
  SourceRegistry<CountedDomain> registry_;
};

TEST_F(ReloadOfAll, ReleasesEachOldSourceOnceItIsReplaced) {
  registry_.Reload(boost::none);
  EXPECT_EQ(Counted::most_alive, 5);
}

TEST_F(ReloadOfAll, DropsTheSourcesAfterABadOne) {
  const auto before = registry_.Sources();
  folder_.Write("b", "bad");
  registry_.Reload(boost::none);
  EXPECT_EQ(Counted::made, 4);
  for (const auto& [id, source] : registry_.Sources()) {
    EXPECT_EQ(source == before.at(id), id != "a") << id;
  }
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
