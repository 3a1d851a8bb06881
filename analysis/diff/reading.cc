#include "analysis/diff/reading.h"

#include <algorithm>
#include <array>

#include "analysis/diff/verdicts.h"

namespace Zelk::Analysis::Diff {
namespace {

constexpr std::array<Reading, 6> kReadings{{
    {"SIMPLE", kD, kB, kD},
    {"TABLE", kD, kB, kB},
    {"CSV", kD, kB, kB},
    {"JSON", kC, kC, kD},
    {"XML", kC, kC, kD},
    {"HTML", kC, kC, kT},
}};

/// Without a formatter, or with one that is not known, the client decides.
constexpr Reading kUnknown{"", kD, kD, kD};

}  // namespace

NodeId FormatterNode(const Model& cli, ElementId command) {
  const Document& document = cli.DocumentOf(command);
  return document.Find(document.Find(cli[command].node, "node_metadata"), "formatter");
}

std::optional<std::string> FormatterOf(const Model& cli, ElementId command) {
  const NodeId node = FormatterNode(cli, command);
  if (node == kNoNode) return std::nullopt;
  return ToUpper(cli.DocumentOf(command).String(node));
}

const Reading& ReadingOf(const std::optional<std::string>& formatter) {
  const auto* const found =
      std::find_if(kReadings.begin(), kReadings.end(),
                   [&](const Reading& row) { return formatter && row.formatter == *formatter; });
  return found == kReadings.end() ? kUnknown : *found;
}

}  // namespace Zelk::Analysis::Diff
