#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>
#include <string_view>

#include "diff/report.h"
#include "diff/words.h"
#include "render/utf8.h"

namespace Zelk::Tool::Diff {
namespace {

const char* AudienceHeading(Audience audience) {
  switch (audience) {
    case Audience::kWire:
      return "Programs that call, or are called";
    case Audience::kSource:
      return "Source code that uses generated bindings";
    case Audience::kCli:
      return "Command lines and scripts";
    case Audience::kAuth:
      return "Who may call";
    case Audience::kMetadata:
      break;
  }
  return "Programs that read the metadata";
}

/// The text as it is, whatever characters of Markdown or HTML are in it.
std::string Plain(const std::string& text) {
  std::string plain;
  for (const char byte : Render::ForTerminal(text)) {
    if (std::string_view(R"(\`*_{}[]<>#|&~)").find(byte) != std::string_view::npos) plain += '\\';
    plain += byte;
  }
  return plain;
}

/// A word that names somebody, or something with a number, notifies or links it wherever reports
/// are shown, however its characters are written. In code it does not.
bool IsMention(std::string_view word) {
  return word.find_first_of("@#") != std::string_view::npos;
}

/// As code, in more backquotes than it has in a row.
std::string Code(const std::string& text) {
  std::size_t longest = 0;
  std::size_t row = 0;
  for (const char byte : text) {
    row = byte == '`' ? row + 1 : 0;
    longest = std::max(longest, row);
  }
  const std::string fence(longest + 1, '`');
  const char* const blank = longest == 0 ? "" : " ";
  return fmt::format("{}{}{}{}{}", fence, blank, Render::ForTerminal(text), blank, fence);
}

/// Plain text, with mentions as code.
std::string Sentence(const std::string& text) {
  std::string sentence;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    const std::string word = text.substr(begin, end - begin);
    sentence += IsMention(word) ? Code(word) : Plain(word);
    if (end < text.size()) sentence += ' ';
    begin = end + 1;
  }
  return sentence;
}

class MarkdownWriter {
 public:
  MarkdownWriter(std::ostream& out, const Report& report) : out_(out), report_(report) {}

  void Write() {
    out_ << "# Changes\n\nFrom " << Code(report_.old_version.name) << " to "
         << Code(report_.new_version.name) << ".\n\nAssumed: "
         << Plain(fmt::format("{}", fmt::join(AssumptionTexts(report_.assumptions), ", ")))
         << ".\n";
    WriteOpened();
    for (const Audience audience : kAudiences) {
      if ((report_.audiences & SetOf(audience)) != 0) WriteAudience(audience);
    }
    out_ << '\n';
    for (const Side* side : {&report_.old_version, &report_.new_version}) {
      for (const FailedFile& file : side->failed) {
        out_ << "- " << Code(file.report.file) << " does not load.\n";
      }
    }
    for (const Unused& entry : report_.unused) {
      out_ << "- " << Code(entry.file) << ": warning: " << Sentence(entry.problem) << '\n';
    }
    for (const std::string& line : SummaryLines(report_)) out_ << "- " << Sentence(line) << '\n';
  }

 private:
  /// These are not repeated among those of who may call.
  static bool IsOpened(const Entry& entry, Audience audience) {
    return audience == Audience::kAuth && OpensAccess(*entry.change);
  }

  void WriteOpened() {
    if ((report_.audiences & SetOf(Audience::kAuth)) == 0) return;
    bool has_heading = false;
    for (const Entry& entry : report_.entries) {
      if (!IsOpened(entry, Audience::kAuth)) continue;
      if (!has_heading) out_ << "\n## " << GroupOf(entry) << "\n\n";
      has_heading = true;
      WriteEntry(entry);
    }
  }

  void WriteAudience(Audience audience) {
    bool has_heading = false;
    for (const Class worst : kShownClasses) {
      bool has_class = false;
      for (const Entry& entry : report_.entries) {
        const Class verdict = entry.change->verdicts.at(static_cast<std::size_t>(audience));
        if (verdict != worst || IsOpened(entry, audience)) continue;
        if (!has_heading) out_ << "\n## " << AudienceHeading(audience) << '\n';
        if (!has_class) out_ << "\n### " << HeadingOf(worst) << "\n\n";
        has_heading = has_class = true;
        WriteEntry(entry);
      }
    }
  }

  void WriteEntry(const Entry& entry) {
    const Change& change = *entry.change;
    out_ << "- " << Sentence(change.details.message) << " (" << Code(change.kind->id) << ')';
    if (entry.accepted != nullptr) out_ << ", accepted" << Sentence(ReasonText(*entry.accepted));
    out_ << '\n';
    WriteFact("Old", change.details.old_value);
    WriteFact("New", change.details.new_value);
    WriteFact("Assumed", change.details.assumption);
    WriteFact("Proof", change.details.witness);
    if (!change.details.hint.empty()) out_ << "  - " << Sentence(change.details.hint) << '\n';
  }

  void WriteFact(const char* name, const std::string& text) {
    if (!text.empty()) out_ << "  - " << name << ": " << Code(Analysis::Shortened(text)) << '\n';
  }

  std::ostream& out_;
  const Report& report_;
};

}  // namespace

void WriteMarkdown(std::ostream& out, const Report& report) {
  MarkdownWriter(out, report).Write();
}

}  // namespace Zelk::Tool::Diff
