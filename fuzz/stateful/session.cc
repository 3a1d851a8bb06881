#include "stateful/session.h"

#include <array>
#include <utility>

#include "stateful/difference.h"
#include "stateful/document.h"
#include "stateful/names.h"
#include "support/record_text.h"

namespace Zelk::Fuzzing {
namespace {

constexpr int kMostSteps = 32;
constexpr std::size_t kQuestionsAfterAStep = 6;

// At the end most keys are unknown; this part of them is enough over many runs.
constexpr std::size_t kAskedOfUnknown = 4;

bool IsError(const std::string& answer) {
  return answer.compare(0, 6, "error\n") == 0;
}

}  // namespace

Session::Session(const Subject& subject, Input& input, Disk& disk)
    : subject_(subject),
      input_(input),
      disk_(disk),
      library_(subject.make_library()),
      model_(subject.make_model(disk)),
      errors_foretold_(input.Size()) {}

void Session::Run() {
  // Most rules show only between sources.
  for (auto count = input_.Below(4); count > 0; --count) Create();
  for (int step = 0; step < kMostSteps && !input_.Empty(); ++step) {
    Step();
    AskSome();
  }
  AskAll();
}

void Session::Step() {
  const auto choice = input_.Below(16);
  if (choice <= 4) return Create();
  if (choice == 5) return Delete();
  if (choice <= 8) return ReloadOne();
  if (choice <= 10) return ReloadAll();
  const auto file = DrawFile();
  if (choice <= 12) return WriteDocument(file);
  if (choice == 13) return BreakDocument(file);
  if (choice == 14) return BreakText(file);
  ReplaceFile(file);
}

void Session::Create() {
  // Mostly of a new document, so that few steps make several sources.
  const bool is_new = !input_.OnceIn(4);
  const auto file = DrawFile();
  if (is_new) WriteDocument(file);
  Spec spec = DrawSpec();
  if (is_new) spec.file_path = disk_.Path(file);
  const std::string id = DrawId();
  Change("create " + Testing::Quoted(id) + " of " + Testing::Quoted(spec.file_path),
         [&](Services& services) { return services.Create(id, spec); });
}

void Session::Delete() {
  const std::string id = DrawId();
  Change("delete " + Testing::Quoted(id), [&](Services& services) { return services.Delete(id); });
}

void Session::ReloadOne() {
  const std::string id = DrawId();
  Change("reload " + Testing::Quoted(id), [&](Services& services) { return services.Reload(id); });
}

void Session::ReloadAll() {
  // What matters is which files are good or broken at that moment, so several change at once.
  const auto changes = input_.Byte();
  for (std::size_t index = 0; index < Disk::kFiles; ++index) {
    const auto change = changes >> (2 * index) & 3U;
    if (change == 1) WriteDocument(index);
    if (change == 2) BreakText(index);
  }
  Change("reload all", [](Services& services) { return services.Reload(boost::none); });
}

void Session::WriteDocument(std::size_t index) {
  // Whole documents need more bytes than are easily found, so most are random.
  if (!input_.OnceIn(4)) input_.BeginRandom();
  File file{File::Kind::kText, "", subject_.draw_document(input_)};
  input_.EndRandom();
  file.text = WriteJson(*file.document);
  disk_.Put(index, std::move(file));
  history_.push_back("write file " + std::to_string(index));
}

void Session::BreakDocument(std::size_t index) {
  File file = disk_.At(index);
  if (file.kind != File::Kind::kText || !file.document) return;
  Damage(input_, *file.document);
  file.text = WriteJson(*file.document);
  disk_.Put(index, std::move(file));
  history_.push_back("damage the document of file " + std::to_string(index));
}

void Session::BreakText(std::size_t index) {
  File file = disk_.At(index);
  if (file.kind != File::Kind::kText) return;
  DamageText(input_, file.text);
  file.document = boost::none;
  disk_.Put(index, std::move(file));
  history_.push_back("damage the text of file " + std::to_string(index));
}

void Session::ReplaceFile(std::size_t index) {
  constexpr std::array<File::Kind, 4> kKinds = {File::Kind::kNothing, File::Kind::kFolder,
                                                File::Kind::kPipe, File::Kind::kUnreadableText};
  File file;
  file.kind = input_.Pick(kKinds);
  if (file.kind == File::Kind::kUnreadableText) file.text = disk_.At(index).text;
  disk_.Put(index, std::move(file));
  history_.push_back("replace file " + std::to_string(index));
}

Spec Session::DrawSpec() {
  Spec spec;
  spec.description = input_.FreshText();
  const auto type = input_.Below(16);
  if (type >= 14) spec.type = static_cast<int>(type) - 13;
  spec.file_path = disk_.Path(DrawFile());
  switch (input_.Below(16)) {
    case 12:
      spec.file_path = boost::none;
      break;
    case 13:
      *spec.file_path += WithZero("", "x");
      break;
    case 14:
      *spec.file_path += ".not";
      break;
    case 15:
      spec.address = input_.FreshText();
      break;
    default:
      break;
  }
  return spec;
}

std::string Session::DrawId() {
  return input_.Pick(kSourceIds);
}

std::size_t Session::DrawFile() {
  return input_.Below(Disk::kFiles);
}

void Session::Change(const std::string& what, const std::function<std::string(Services&)>& call) {
  history_.push_back(what);
  const std::string expected = call(*model_);
  Compare(what, expected, call(*library_));
}

void Session::AskSome() {
  const auto& questions = subject_.questions();
  // A stride that shares no divisor with most counts comes by all of them in the end.
  for (std::size_t count = 0; count < kQuestionsAfterAStep; ++count) {
    next_question_ = (next_question_ + 37) % questions.size();
    CompareAnswer(questions[next_question_], model_->Ask(questions[next_question_]));
  }
}

void Session::AskAll() {
  for (const auto& question : subject_.questions()) {
    const std::string expected = model_->Ask(question);
    if (IsError(expected) && ++errors_foretold_ % kAskedOfUnknown != 0) continue;
    CompareAnswer(question, expected);
  }
}

void Session::CompareAnswer(const Question& question, const std::string& expected) {
  const std::string got = library_->Ask(question);
  if (expected == got) return;
  Compare(std::string(OperationName(question.operation)) + " " + Testing::Quoted(question.key) +
              " " + Testing::Quoted(question.second_key),
          expected, got);
}

void Session::Compare(const std::string& question, const std::string& expected,
                      const std::string& got) {
  if (expected == got) return;
  EndWithDifference({subject_.name, history_, question, expected, got}, disk_);
}

}  // namespace Zelk::Fuzzing
