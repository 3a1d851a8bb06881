#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fault/fault_fixture.h"

// Changes of the sources, through the container and through the service, while memory runs out.

namespace Zelk::Testing {
namespace {

template <typename Domain>
class ChangeWithoutMemory : public FaultTest<Domain> {
 protected:
  using Undo = std::function<void()>;
  using typename FaultTest<Domain>::Spec;

  std::size_t FailCreate(const std::string& name, const std::string& id, const Spec& spec,
                         const Undo& undo = nullptr) {
    const auto failures = this->Fail({name, [&] { this->sources_->CreateSource(id, spec); }, undo});
    EXPECT_GT(failures, 0U) << name;
    const auto call = [&] { this->service_.Create(id, spec, this->activation_, result_); };
    return failures + this->Fail({name + " by the service", call, undo});
  }

  std::size_t FailReload(const std::string& name, const OptionalText& id,
                         const Undo& undo = nullptr, const std::vector<std::string>& between = {}) {
    const auto failures =
        this->Fail({name, [&] { this->sources_->ReloadSource(id); }, undo, between});
    EXPECT_GT(failures, 0U) << name;
    const auto call = [&] { this->service_.Reload(id, this->activation_, result_); };
    return failures + this->Fail({name + " by the service", call, undo, between});
  }

  std::size_t FailDelete(const std::string& name, const std::string& id,
                         const Undo& undo = nullptr) {
    const auto failures = this->Fail({name, [&] { this->sources_->DeleteSource(id); }, undo});
    const auto call = [&] { this->service_.Delete(id, this->activation_, result_); };
    return failures + this->Fail({name + " by the service", call, undo});
  }

  /// A spec of a new file with that text.
  Spec SpecOf(const std::string& text) const {
    return this->sources_.At(this->sources_.Write(kNewSource, text));
  }

  /// Tries to make a source of a file that is refused.
  void FailRefusedFile(const std::string& name, const std::string& text) {
    const auto spec = SpecOf(text);
    ASSERT_NE(this->sources_->CreateSource(kNewSource, spec), nullptr) << name;
    FailCreate(name, kNewSource, spec);
  }

  /// Writes new files: to overwrite one may wait for the disk.
  void WriteBoth(const std::string& first, const std::string& last) const {
    std::filesystem::remove(this->sources_.Path(kFirstSource));
    std::filesystem::remove(this->sources_.Path(kLastSource));
    this->sources_.Write(kFirstSource, first);
    this->sources_.Write(kLastSource, last);
  }

  void WriteEditedFiles() const { WriteBoth(this->EditedFile(), this->EditedSmallFile()); }

  /// Goes back to the data before, with edited files on the disk.
  void TakeBackReload() const {
    WriteBoth(this->WholeFile(), this->SmallFile());
    this->sources_->ReloadSource(boost::none);
    WriteEditedFiles();
  }

  const AsyncResult<Void> result_{[](const auto&, const auto&, const auto&) {}};
};

TYPED_TEST_SUITE(ChangeWithoutMemory, DomainsWithoutMemory, DomainName);

TYPED_TEST(ChangeWithoutMemory, CreatesAWholeSourceOrNone) {
  this->FailCreate("create", kNewSource, this->SpecOf(this->EditedFile()),
                   [this] { this->sources_->DeleteSource(kNewSource); });
}

TYPED_TEST(ChangeWithoutMemory, CreatesAWholeLargeSourceOrNone) {
  const std::string blanks(300'000, ' ');  // so many that the text is mapped
  this->FailCreate("create from a large file", kNewSource,
                   this->SpecOf(blanks + this->EditedFile()),
                   [this] { this->sources_->DeleteSource(kNewSource); });
}

TYPED_TEST(ChangeWithoutMemory, ReloadsAWholeSourceOrNone) {
  this->WriteEditedFiles();
  this->FailReload("reload", Some(kFirstSource), [this] { this->TakeBackReload(); });
}

TYPED_TEST(ChangeWithoutMemory, ReloadsEachWholeSourceOrKeepsIt) {
  this->WriteEditedFiles();
  this->sources_->ReloadSource(Some(kFirstSource));
  const std::string first_is_new = this->State();
  this->TakeBackReload();
  this->FailReload("reload of all", boost::none, [this] { this->TakeBackReload(); },
                   {first_is_new});
}

TYPED_TEST(ChangeWithoutMemory, KeepsTheDataIfTheFileIsBad) {
  this->WriteBoth(this->EditedFile(), "{");
  this->FailReload("reload of a bad file", Some(kLastSource));
}

TYPED_TEST(ChangeWithoutMemory, DeletesWithoutAllocating) {
  const auto spec = this->sources_.At(this->sources_.Path(kLastSource));
  const auto undo = [&] { this->sources_->CreateSource(kLastSource, spec); };
  EXPECT_EQ(this->FailDelete("delete", kLastSource, undo), 0U);
}

TYPED_TEST(ChangeWithoutMemory, RefusesInvalidJson) {
  this->FailRefusedFile("no JSON", this->WholeFile() + "}");
}

TYPED_TEST(ChangeWithoutMemory, RefusesAFileWithoutTheRootKey) {
  this->FailRefusedFile("no root", "{}");
  this->FailRefusedFile("a wrong root", "{\"" + std::string(TypeParam::kRootKey) + "\": 1}");
}

TYPED_TEST(ChangeWithoutMemory, RefusesAFileWithAMistakeNearItsEnd) {
  for (const auto& [right, wrong] : TypeParam::Mistakes()) {
    this->FailRefusedFile(wrong + " for " + right, Replaced(this->WholeFile(), right, wrong));
  }
}

TYPED_TEST(ChangeWithoutMemory, RefusesInvalidSpecs) {
  using CreateSpec = typename TypeParam::CreateSpec;
  const auto known = this->sources_.At(this->sources_.Path(kLastSource));
  this->FailCreate("existing id", kFirstSource, known);
  this->FailCreate("missing file", kNewSource, this->sources_.At(this->sources_.Path("missing")));
  this->FailCreate("no path", kNewSource, this->sources_.At(boost::none));
  this->FailCreate("no spec", kNewSource, nullptr);
  for (const auto& type : {SourceType(SourceType::REMOTE), SourceType::Unknown("FOO")}) {
    this->FailCreate("source type", kNewSource,
                     std::make_shared<const CreateSpec>("foo", type, boost::none, boost::none));
  }
}

TYPED_TEST(ChangeWithoutMemory, ReportsAnUnknownSource) {
  this->FailReload("reload of an unknown id", Some(kUnknownKey));
  EXPECT_GT(this->FailDelete("delete of an unknown id", kUnknownKey), 0U);
}

}  // namespace
}  // namespace Zelk::Testing
