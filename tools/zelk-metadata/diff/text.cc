#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "check/output.h"
#include "diff/report.h"
#include "diff/words.h"
#include "render/layout.h"
#include "render/utf8.h"

namespace Zelk::Tool::Diff {
namespace {

using Render::Style;
using Render::Styled;
using Render::Terminal;
using Render::Wrapped;

Style StyleOf(Class worst) {
  switch (worst) {
    case Class::kBreaking:
      return Style::kError;
    case Class::kDangerous:
      return Style::kWarning;
    default:
      return Style::kNote;
  }
}

class TextWriter {
 public:
  TextWriter(std::ostream& out, const Report& report, const Terminal& terminal)
      : out_(out), report_(report), terminal_(terminal) {}

  void Write() {
    WriteHead();
    for (const Side* side : {&report_.old_version, &report_.new_version}) {
      for (const FailedFile& file : side->failed) {
        Check::WriteCheckedText(out_, file.report, terminal_);
      }
    }
    for (const Entry& entry : report_.entries) {
      if (entry.accepted == nullptr) WriteEntry(entry);
    }
    WriteAcceptedOnes();
    WriteSummary();
  }

 private:
  void WriteLines(std::size_t indent, const std::string& text, std::size_t hanging = 2) {
    const std::string line = std::string(indent, ' ') + Render::ForTerminal(text);
    for (const std::string& part : Wrapped(line, terminal_.width, hanging)) out_ << part << '\n';
  }

  void WriteHead() {
    WriteVersion("old", report_.old_version);
    WriteVersion("new", report_.new_version);
    WriteLines(0,
               fmt::format("assumed: {}", fmt::join(AssumptionTexts(report_.assumptions), ", ")));
  }

  /// With the number of its files that were compared.
  void WriteVersion(const char* which, const Side& side) {
    const std::size_t count = side.workspace->Files().size();
    const std::string files = count > 0 ? fmt::format(" ({})", Counted(count, "file")) : "";
    WriteLines(0, fmt::format("{}: {}{}", which, side.name, files));
  }

  void WriteEntry(const Entry& entry) {
    const std::string group = GroupOf(entry);
    if (group != group_) {
      group_ = group;
      element_.clear();
      out_ << '\n' << Styled(terminal_, StyleOf(entry.worst), group) << '\n';
    }
    const Change& change = *entry.change;
    if (change.element != element_) {
      element_ = change.element;
      WriteLines(2, Analysis::Shortened(element_));
    }
    WriteLines(4, fmt::format("{} [{}]", change.details.message, change.kind->id));
    WriteFact("old", ValueText(change.details.old_value, report_.old_version, change.old_place));
    WriteFact("new", ValueText(change.details.new_value, report_.new_version, change.new_place));
    WriteFact("for", ConcernedText(entry, report_.audiences));
    WriteFact("assumed", change.details.assumption);
    WriteFact("proof", change.details.witness);
    WriteFact("hint", change.details.hint);
  }

  void WriteFact(const char* name, const std::string& text) {
    constexpr std::size_t kIndent = 6;
    if (!text.empty()) WriteLines(kIndent, fmt::format("{}: {}", name, text));
  }

  void WriteAcceptedOnes() {
    const Summary summary = Summarize(report_);
    if (summary.accepted > 0) out_ << '\n' << Styled(terminal_, Style::kBold, "Accepted") << '\n';
    for (const Entry& entry : report_.entries) {
      if (entry.accepted == nullptr) continue;
      WriteLines(2, fmt::format("{}: {} [{}]{}", Word(entry.worst), entry.change->details.message,
                                entry.change->kind->id, ReasonText(*entry.accepted)));
    }
    for (const Unused& entry : report_.unused) {
      WriteLines(0, fmt::format("{}: warning: {}", entry.file, entry.problem));
    }
  }

  void WriteSummary() {
    if (!report_.entries.empty()) out_ << '\n';
    for (const std::string& line : SummaryLines(report_)) WriteLines(0, line);
  }

  std::ostream& out_;
  const Report& report_;
  const Terminal& terminal_;
  std::string group_;
  std::string element_;
};

}  // namespace

void WriteText(std::ostream& out, const Report& report, const Terminal& terminal) {
  TextWriter(out, report, terminal).Write();
}

}  // namespace Zelk::Tool::Diff
