#include <fmt/format.h>
#include <map>
#include <ostream>
#include <sstream>

#include "lint/report.h"
#include "render/utf8.h"

namespace Zelk::Tool::Lint {
namespace {

/// As an attribute or text of XML, which has no control characters but these.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char byte : Render::ForTerminal(text)) {
    switch (byte) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += byte;
    }
  }
  return escaped;
}

/// The test cases of a file.
struct Suite {
  std::string cases;
  std::size_t tests = 0;
  std::size_t failures = 0;
};

void Add(Suite& suite, const Entry& entry) {
  const auto [line, column] = entry.position.value_or(Analysis::Position{0, 0});
  const std::string place = fmt::format("{}:{}:{}", entry.file, line, column);
  const std::string text = entry.message + (entry.hint.empty() ? "" : "; " + entry.hint);
  suite.cases += fmt::format("    <testcase classname=\"{}\" name=\"{}\">\n", Escaped(entry.rule),
                             Escaped(place + (entry.element.empty() ? "" : " " + entry.element)));
  const std::string severity = Analysis::Lint::Word(entry.severity);
  suite.cases +=
      entry.fails
          ? fmt::format("      <failure type=\"{}\" message=\"{}\"/>\n", severity, Escaped(text))
          : fmt::format("      <system-out>{}: {}</system-out>\n", severity, Escaped(text));
  suite.cases += "    </testcase>\n";
  ++suite.tests;
  if (entry.fails) ++suite.failures;
}

}  // namespace

void WriteJunit(std::ostream& out, const Report& report) {
  std::map<std::string, Suite> suites;
  for (const auto& file : report.workspace->Files()) suites[file.name];
  report.ForEach([&](const Entry& entry) {
    if (entry.suppressed_by != SuppressedBy::kNothing) return;
    Add(suites[entry.file], entry);
  });
  for (const Unreadable& source : report.unreadable) {
    Entry entry;
    entry.message = source.reason;
    entry.file = source.file;
    entry.fails = true;
    Add(suites[entry.file], entry);
  }
  std::size_t tests = 0;
  std::size_t failures = 0;
  for (const auto& [file, suite] : suites) {
    tests += suite.tests;
    failures += suite.failures;
  }
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      << fmt::format("<testsuites name=\"lint\" tests=\"{}\" failures=\"{}\">\n", tests, failures);
  for (const auto& [file, suite] : suites) {
    out << fmt::format("  <testsuite name=\"{}\" tests=\"{}\" failures=\"{}\" errors=\"0\">\n",
                       Escaped(file), suite.tests, suite.failures)
        << suite.cases << "  </testsuite>\n";
  }
  out << "</testsuites>\n";
}

}  // namespace Zelk::Tool::Lint
