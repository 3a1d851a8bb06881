#include "shell/session.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <ostream>

#include "domains/table.h"
#include "language/sources.h"
#include "render/utf8.h"
#include "shell/line.h"

namespace Zelk::Tool::Shell {
namespace {

namespace fs = std::filesystem;

/// The paths that begin with `typed`; folders end in '/', so that typing can go on.
std::vector<Complete::Choice> Paths(const std::string& typed, const std::string& before) {
  const std::string folder = typed.substr(0, typed.rfind('/') + 1);
  const std::string name = typed.substr(folder.size());
  std::vector<Complete::Choice> choices;
  std::error_code error;
  for (fs::directory_iterator at(folder.empty() ? "." : folder, error); !error && at != fs::end(at);
       at.increment(error)) {
    const std::string found = at->path().filename().string();
    if (found.compare(0, name.size(), name) != 0) continue;
    if (name.empty() && found.front() == '.') continue;
    std::error_code ignored;
    const char* const end = at->is_directory(ignored) ? "/" : "";
    choices.push_back({fmt::format("{}{}{}{}", before, folder, found, end), ""});
  }
  std::sort(choices.begin(), choices.end(),
            [](const Complete::Choice& left, const Complete::Choice& right) {
              return left.word < right.word;
            });
  return choices;
}

std::vector<Complete::Choice> ChoicesOf(const Complete::Completion& completion,
                                        const std::string& typed) {
  if (completion.of == Complete::Completion::Of::kWords) return completion.choices;
  if (completion.of == Complete::Completion::Of::kPath) return Paths(typed, "");
  const std::size_t slash = std::min(typed.find('/'), typed.size());
  const std::size_t equals = typed.substr(0, slash).find('=');
  const std::size_t path = equals == std::string::npos || equals == 0 ? 0 : equals + 1;
  return Paths(typed.substr(path), typed.substr(0, path));
}

std::string CommonBeginning(const std::vector<Complete::Choice>& choices) {
  std::string common = choices.front().word;
  for (const Complete::Choice& choice : choices) {
    const auto end =
        std::mismatch(common.begin(), common.end(), choice.word.begin(), choice.word.end());
    common.erase(end.first, common.end());
  }
  return common;
}

}  // namespace

Session::Session(const Language& language, const Streams& streams, const std::string& output)
    : language_(language), streams_(streams), state_{Host(Domains()), false, output} {}

bool Session::Load(const std::vector<std::string>& sources) {
  try {
    return LoadSources(state_.host, sources, streams_);
  } catch (const std::bad_alloc&) {
    streams_.Complain(kOutOfMemory);
    return false;
  }
}

ExitStatus Session::Run(const std::string& line) {
  const SplitLine split = Split(line);
  if (split.words.empty()) return ExitStatus::kOk;
  if (!split.is_open) return Perform(split.words, language_, streams_, &state_);
  streams_.Complain("a quote is not closed");
  return ExitStatus::kUsage;
}

LineCompletion Session::Complete(const std::string& line) const {
  SplitLine split = Split(line);
  if (split.is_comment) return {};
  if (split.last_word == line.size()) split.words.emplace_back();
  const std::string typed = split.words.back();
  const auto host_of = [this](const Arguments&) -> const Host& { return state_.host; };
  const Complete::Completion completion = Complete::CompleteWord(split.words, language_, host_of);
  std::vector<Complete::Choice> choices = ChoicesOf(completion, typed);
  choices.erase(std::remove_if(choices.begin(), choices.end(),
                               [](const Complete::Choice& choice) {
                                 return Render::ForTerminal(choice.word) != choice.word;
                               }),
                choices.end());
  if (choices.empty()) return {};
  const std::string common = CommonBeginning(choices);
  LineCompletion completed;
  if (common != typed || choices.size() == 1) {
    completed.replaced = line.size() - split.last_word;
    completed.text = Quoted(common);
  }
  const bool goes_on = common.empty() || common.back() == '/';
  if (choices.size() > 1) {
    completed.choices = std::move(choices);
  } else if (!goes_on) {
    completed.text += ' ';
  }
  return completed;
}

}  // namespace Zelk::Tool::Shell
