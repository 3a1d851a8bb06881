#include <array>
#include <cstddef>
#include <initializer_list>

#include "fuzz/seeds/seed_folder.h"

namespace Zelk::Fuzzing {
namespace {

/// An input of the fuzzer: one byte for each decision, in the order in which stateful/session.cc
/// makes them.
class Steps {
 public:
  explicit Steps(int domain) { Add({domain, kNoSourceAtStart}); }

  const std::string& Bytes() const { return bytes_; }

  Steps& Create(int id, int file, int document) {
    Add({kCreate, kNewDocument, file}).Document(document);
    return Add({kLocalFile, file, kPlainPath, id});
  }

  /// Of a file that is already there, or is missing.
  Steps& CreateOf(int id, int type, int file, int path) {
    return Add({kCreate, kOldDocument, file, type, file, path, id});
  }

  Steps& Delete(int id) { return Add({kDelete, id}); }

  Steps& Reload(int id) { return Add({kReload, id}); }

  Steps& ReloadAll() { return Add({kReloadAll, kNoChanges}); }

  Steps& Write(int file, int document) { return Add({kWrite, file}).Document(document); }

  /// Replaces the value at the end of a path through the document, or removes it.
  Steps& BreakDocument(int file, const std::string& path, bool is_removed) {
    constexpr int kDown = 0;
    constexpr int kReplaceValue = 6;
    constexpr int kRemoveValue = 7;
    Add({kBreakDocument, file});
    for (const char index : path.substr(0, path.size() - 1)) Add({index - '0', kDown});
    Add({path.back() - '0', is_removed ? kRemoveValue : kReplaceValue});
    return is_removed ? *this : Add({kOtherValue});
  }

  Steps& BreakText(int file, int damage) {
    constexpr int kInsert = 1;
    constexpr int kAppend = 3;
    Add({kBreakText, file, kPlaceHigh, kPlaceLow, damage});
    return damage == kInsert || damage == kAppend ? Add({kOtherByte}) : *this;
  }

  Steps& Replace(int file, int kind) { return Add({kReplace, file, kind}); }

 private:
  static constexpr int kNoSourceAtStart = 0;

  // What a step does.
  static constexpr int kCreate = 0;
  static constexpr int kDelete = 5;
  static constexpr int kReload = 6;
  static constexpr int kReloadAll = 9;
  static constexpr int kWrite = 11;
  static constexpr int kBreakDocument = 13;
  static constexpr int kBreakText = 14;
  static constexpr int kReplace = 15;

  // How it is done.
  static constexpr int kNewDocument = 0;
  static constexpr int kOldDocument = 3;
  static constexpr int kRandomDocument = 0;
  static constexpr int kLocalFile = 0;
  static constexpr int kPlainPath = 0;
  static constexpr int kNoChanges = 0;
  static constexpr int kOtherValue = 1;
  static constexpr int kOtherByte = 1;
  static constexpr int kPlaceHigh = 0;
  static constexpr int kPlaceLow = 40;

  Steps& Document(int seed) { return Add({kRandomDocument, seed, seed}); }

  Steps& Add(std::initializer_list<int> decisions) {
    for (const int decision : decisions) bytes_ += static_cast<char>(decision);
    return *this;
  }

  std::string bytes_;
};

/// Bytes that make larger documents than most.
constexpr std::array<int, 6> kDocuments = {3, 29, 71, 113, 167, 211};

void AddSourceSeeds(const SeedFolder& seeds, const std::string& name, int domain) {
  const auto add = [&](const std::string& what, const Steps& steps) {
    seeds.Add(name + "-" + what, steps.Bytes());
  };
  const auto steps = [&] { return Steps(domain).Create(0, 0, kDocuments[0]); };
  add("nothing", Steps(domain));
  for (const int document : kDocuments) {
    add("document-" + std::to_string(document), Steps(domain).Create(0, 0, document));
  }
  add("two-sources", steps().Create(1, 1, kDocuments[1]));
  add("five-sources", steps()
                          .Create(4, 1, kDocuments[1])
                          .Create(3, 2, kDocuments[2])
                          .Create(2, 3, kDocuments[3])
                          .Create(1, 0, kDocuments[4]));
  add("two-sources-of-one-file", steps().CreateOf(1, 0, 0, 0));
  add("repeated-id", steps().Create(0, 1, kDocuments[1]));
  add("delete", steps().Delete(0));
  add("delete-unknown", steps().Delete(1));
  add("delete-and-create", steps().Delete(0).Create(0, 1, kDocuments[1]));
  add("reload", steps().Write(0, kDocuments[1]).Reload(0));
  add("reload-unknown", steps().Reload(1));
  add("reload-all", steps()
                        .Create(1, 1, kDocuments[1])
                        .Write(0, kDocuments[2])
                        .Write(1, kDocuments[3])
                        .ReloadAll());
  add("reload-all-after-failure", steps()
                                      .Create(1, 1, kDocuments[1])
                                      .Create(2, 2, kDocuments[2])
                                      .Write(0, kDocuments[3])
                                      .BreakText(1, 0)
                                      .Write(2, kDocuments[4])
                                      .ReloadAll());
}

void AddFileSeeds(const SeedFolder& seeds, const std::string& name, int domain) {
  constexpr int kTypes = 16;
  constexpr int kPaths = 16;
  constexpr int kDamages = 6;
  constexpr int kKinds = 4;
  const auto add = [&](const std::string& what, int number, const Steps& steps) {
    seeds.Add(name + "-" + what + "-" + std::to_string(number), steps.Bytes());
  };
  const auto steps = [&] { return Steps(domain).Create(0, 0, kDocuments[0]); };
  for (int type = kTypes - 2; type < kTypes; ++type) {
    add("type", type, steps().CreateOf(1, type, 0, 0));
  }
  for (int path = kPaths - 4; path < kPaths; ++path) {
    add("path", path, steps().CreateOf(1, 0, 0, path));
  }
  for (int damage = 0; damage < kDamages; ++damage) {
    add("damaged-text", damage, steps().BreakText(0, damage).Reload(0));
  }
  for (int kind = 0; kind < kKinds; ++kind) {
    add("replaced-file", kind, steps().Replace(0, kind).Reload(0));
  }
  int number = 0;
  for (const auto* path : {"0", "00", "000", "001", "003", "0030", "00301", "00303"}) {
    add("replaced-value", number, steps().BreakDocument(0, path, false).Reload(0));
    add("missing-value", number++, steps().BreakDocument(0, path, true).Reload(0));
  }
}

}  // namespace

void MakeStatefulSeeds(const std::filesystem::path& corpus) {
  const SeedFolder seeds(corpus / "stateful");
  int domain = 0;
  for (const auto* name : {"metamodel", "authentication", "cli"}) {
    AddSourceSeeds(seeds, name, domain);
    AddFileSeeds(seeds, name, domain++);
  }
}

}  // namespace Zelk::Fuzzing
