#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "stateful/disk.h"
#include "stateful/input.h"
#include "stateful/services.h"

namespace Zelk::Fuzzing {

/// A domain under test: how its parts are made.
struct Subject {
  const char* name;
  std::unique_ptr<Services> (*make_library)();
  std::unique_ptr<Services> (*make_model)(const Disk&);
  Json (*draw_document)(Input&);
  const Questions& (*questions)();
};

/// One container from empty to its end: steps that the input chooses, each done to the library and
/// to its model. Ends the process at the first answer in which they differ.
class Session {
 public:
  Session(const Subject& subject, Input& input, Disk& disk);

  void Run();

 private:
  void Step();

  // On the container.
  void Create();
  void Delete();
  void ReloadOne();
  void ReloadAll();

  // On the disk.
  void WriteDocument(std::size_t index);
  void BreakDocument(std::size_t index);
  void BreakText(std::size_t index);
  void ReplaceFile(std::size_t index);

  Spec DrawSpec();
  std::string DrawId();
  std::size_t DrawFile();

  /// The same call on both sides.
  void Change(const std::string& what, const std::function<std::string(Services&)>& call);

  void AskSome();
  void AskAll();
  void CompareAnswer(const Question& question, const std::string& expected);
  void Compare(const std::string& question, const std::string& expected, const std::string& got);

  const Subject& subject_;
  Input& input_;
  Disk& disk_;
  std::unique_ptr<Services> library_;
  std::unique_ptr<Services> model_;
  std::size_t next_question_ = 0;
  std::size_t errors_foretold_;
  std::vector<std::string> history_;
};

}  // namespace Zelk::Fuzzing
