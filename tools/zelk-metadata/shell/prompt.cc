#include "shell/prompt.h"

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <histedit.h>
#include <langinfo.h>
#include <unistd.h>

#include "render/layout.h"
#include "render/page.h"
#include "render/terminal.h"
#include "render/utf8.h"
#include "shell/history.h"
#include "shell/session.h"

namespace Zelk::Tool::Shell {
namespace {

constexpr std::size_t kMostShown = 100;
constexpr std::size_t kGap = 2;

const char* PromptText(EditLine* /*editor*/) {
  return "zelk> ";
}

}  // namespace

struct Prompt::Editor {
  explicit Editor(const Session& its_session) : session(its_session) {}

  const Session& session;
  EditLine* line = nullptr;
  History* history = nullptr;
  HistoryFile kept;
  bool is_interrupted = false;
  void (*interrupt_before)(int) = SIG_DFL;

  static Editor& Of(EditLine* line) {
    void* editor = nullptr;
    el_get(line, EL_CLIENTDATA, &editor);
    return *static_cast<Editor*>(editor);
  }

  static unsigned char Interrupt(EditLine* line, wint_t /*key*/) {
    Of(line).is_interrupted = true;
    std::fputs("^C\n", stdout);
    return CC_NEWLINE;
  }

  static unsigned char CompleteWord(EditLine* line, wint_t /*key*/) {
    return Of(line).CompleteHere();
  }

  unsigned char CompleteHere() const;
};

namespace {

/// Below the line, each choice with its meaning, or the choices in columns if they have none.
void Show(const std::vector<Complete::Choice>& choices) {
  std::size_t widest = 0;
  for (const Complete::Choice& choice : choices)
    widest = std::max(widest, Render::Columns(choice.word));
  const std::size_t width = Render::TerminalOf(STDOUT_FILENO).width;
  const std::size_t count = std::min(choices.size(), kMostShown);
  std::vector<std::string> words;
  std::string text = "\n";
  for (std::size_t i = 0; i < count; ++i) words.push_back(choices[i].word);
  const bool has_summaries =
      std::any_of(choices.begin(), choices.end(),
                  [](const Complete::Choice& choice) { return !choice.summary.empty(); });
  for (std::size_t i = 0; has_summaries && i < count; ++i) {
    words[i].append(widest - Render::Columns(words[i]) + kGap, ' ');
    const std::size_t room = width > widest + kGap ? width - widest - kGap : 0;
    words[i] += Render::Wrapped(Render::ForTerminal(choices[i].summary), room).front();
    words[i].erase(words[i].find_last_not_of(' ') + 1);
  }
  for (const std::string& line : has_summaries ? words : Render::InColumns(words, width)) {
    text += line + '\n';
  }
  if (choices.size() > kMostShown) {
    text += "and " + std::to_string(choices.size() - kMostShown) + " more\n";
  }
  std::fputs(text.c_str(), stdout);
}

}  // namespace

unsigned char Prompt::Editor::CompleteHere() const {
  const LineInfo* const info = el_line(line);
  const std::string typed(info->buffer, info->cursor);
  const LineCompletion completion = session.Complete(typed);
  if (!completion.text.empty()) {
    // Counted in characters by the editor, in bytes by everybody else.
    std::size_t characters = 0;
    Render::ForEachCharacter(typed.substr(typed.size() - completion.replaced),
                             [&characters](std::uint32_t, std::string_view) { ++characters; });
    el_deletestr(line, static_cast<int>(characters));
    el_insertstr(line, completion.text.c_str());
  }
  if (completion.text.empty() && completion.choices.empty()) return CC_REFRESH_BEEP;
  if (!completion.text.empty()) return CC_REFRESH;
  Show(completion.choices);
  return CC_REDISPLAY;
}

Prompt::Prompt(const Session& session) : editor_(std::make_unique<Editor>(session)) {
  Editor& editor = *editor_;
  // The editor reads characters of the user's encoding, and drops those that it does not have.
  std::setlocale(LC_CTYPE, "");
  if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) std::setlocale(LC_CTYPE, "C.UTF-8");
  editor.line = el_init(Render::kProgramName, stdin, stdout, stderr);
  editor.history = history_init();
  HistEvent event{};
  history(editor.history, &event, H_SETSIZE, static_cast<int>(kHistorySize));
  history(editor.history, &event, H_SETUNIQUE, 1);
  const std::string& path = editor.kept.Path();
  if (!path.empty()) history(editor.history, &event, H_LOAD, path.c_str());
  el_set(editor.line, EL_CLIENTDATA, &editor);
  el_set(editor.line, EL_PROMPT, PromptText);
  el_set(editor.line, EL_EDITOR, "emacs");
  el_set(editor.line, EL_HIST, history, editor.history);
  // Given as wide texts, since the editor never frees the copies that it makes of others.
  el_wset(editor.line, EL_ADDFN, L"zelk-complete", L"Complete a word", Editor::CompleteWord);
  el_set(editor.line, EL_BIND, "^I", "zelk-complete", nullptr);
  // While a line is typed Ctrl-C is a key.
  el_set(editor.line, EL_SETTY, "-d", "-isig", nullptr);
  el_wset(editor.line, EL_ADDFN, L"zelk-interrupt", L"Give up the line", Editor::Interrupt);
  el_set(editor.line, EL_BIND, "^C", "zelk-interrupt", nullptr);
  editor.interrupt_before = std::signal(SIGINT, SIG_IGN);
}

Prompt::~Prompt() {
  history_end(editor_->history);
  el_end(editor_->line);
  std::signal(SIGINT, editor_->interrupt_before);
}

bool Prompt::Read(std::string& line) {
  editor_->is_interrupted = false;
  el_resize(editor_->line);
  int size = 0;
  const char* const typed = el_gets(editor_->line, &size);
  line.clear();
  if (editor_->is_interrupted) return true;
  if (typed == nullptr || size <= 0) {
    // The editor has written ^D.
    std::fputs("\b\b  \n", stdout);
    return false;
  }
  line.assign(typed, static_cast<std::size_t>(size));
  if (line.back() == '\n') line.pop_back();
  if (line.find_first_not_of(" \t") == std::string::npos) return true;
  HistEvent event{};
  history(editor_->history, &event, H_ENTER, line.c_str());
  editor_->kept.Append(line);
  return true;
}

}  // namespace Zelk::Tool::Shell
