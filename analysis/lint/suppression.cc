#include "analysis/lint/suppression.h"

#include <algorithm>
#include <fnmatch.h>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

namespace Zelk::Analysis::Lint {
namespace {

constexpr char kLint[] = "$lint";

using RuleIds = std::set<std::string_view>;

RuleIds IdsOf(const std::vector<const Rule*>& rules) {
  RuleIds ids;
  for (const Rule* rule : rules) ids.insert(rule->id);
  return ids;
}

/// A "$lint" in a file.
struct Mark {
  NodeId node;
  /// The bytes that it covers.
  std::uint32_t begin;
  std::uint32_t end;
  /// Why it covers nothing; empty if it does.
  std::string_view problem;
  bool has_reason;
  /// The rules that it names, each with whether that hid something.
  std::map<std::string_view, bool> rules;
};

std::string_view ProblemOf(const Document& document, NodeId mark, const std::string& today) {
  const NodeId until = document.Find(mark, "until");
  if (until == kNoNode) return "";
  if (!IsDate(document.String(until))) return "its 'until' is not a date such as 2030-01-31";
  return HasEnded(document.String(until), today) ? "its last day has passed" : "";
}

Mark MarkOf(const Document& document, NodeId node, const std::string& today) {
  const Node& object = document[document[node].parent];
  const NodeId reason = document.Find(node, "reason");
  const bool has_reason = reason != kNoNode && !document.String(reason).empty();
  Mark mark{node, object.key_begin, object.end, ProblemOf(document, node, today), has_reason, {}};
  const NodeId ignore = document.Find(node, "ignore");
  if (ignore == kNoNode) return mark;
  for (NodeId rule = document[ignore].first_child; rule != kNoNode; rule = document[rule].next) {
    mark.rules.emplace(document.String(rule), false);
  }
  return mark;
}

/// In the order of their objects' first bytes.
std::vector<Mark> MarksOf(const Document& document, const std::string& today) {
  std::vector<Mark> marks;
  // Most files have none.
  if (document.Text().find("\"$lint\"") == std::string_view::npos) return marks;
  for (NodeId node = kRootNode; node < document.Size(); ++node) {
    if (document.Key(node) == kLint) marks.push_back(MarkOf(document, node, today));
  }
  std::sort(marks.begin(), marks.end(), [](const Mark& left, const Mark& right) {
    return std::pair(left.begin, right.end) < std::pair(right.begin, left.end);
  });
  return marks;
}

/// Goes through a file with the marks that cover the place that it has come to.
class Sweep {
 public:
  explicit Sweep(std::vector<Mark>& marks) : marks_(marks) {}

  /// Places must come in ascending order.
  void GoTo(std::uint32_t offset) {
    for (; next_ < marks_.size() && marks_[next_].begin <= offset; ++next_) {
      Close(marks_[next_].begin);
      Open(marks_[next_]);
    }
    Close(offset);
  }

  /// Whether a mark covers the place for the rule. The innermost one is then used.
  bool Use(const char* rule) {
    const auto found = covering_.find(rule);
    if (found == covering_.end() || found->second.empty()) return false;
    found->second.back()->rules.at(rule) = true;
    return true;
  }

 private:
  void Open(Mark& mark) {
    if (!mark.problem.empty()) return;
    open_.push_back(&mark);
    for (const auto& [rule, used] : mark.rules) covering_[rule].push_back(&mark);
  }

  void Close(std::uint32_t offset) {
    while (!open_.empty() && open_.back()->end <= offset) {
      for (const auto& [rule, used] : open_.back()->rules) covering_[rule].pop_back();
      open_.pop_back();
    }
  }

  std::vector<Mark>& marks_;
  std::size_t next_ = 0;
  std::vector<Mark*> open_;
  std::unordered_map<std::string_view, std::vector<Mark*>> covering_;
};

/// Why the mark has no effect for the rule; empty if it has one.
std::string ProblemOf(const Mark& mark, std::string_view rule, bool is_used, const RuleIds& ran) {
  const std::string name = "'" + std::string(rule) + "'";
  if (FindRule(rule) == nullptr) return "unknown rule " + name;
  if (!mark.problem.empty()) return std::string(mark.problem);
  return is_used || ran.count(rule) == 0 ? "" : "the rule " + name + " finds nothing here";
}

class MarkReport {
 public:
  MarkReport(const Model& model, std::uint32_t source, const Suppressions& suppressions,
             const RuleIds& ran, Findings& findings)
      : model_(model),
        source_(source),
        suppressions_(suppressions),
        ran_(ran),
        findings_(findings) {}

  void Report(const Mark& mark) {
    if (mark.rules.empty()) Add(mark, "'$lint' names no rule under 'ignore'", "");
    for (const auto& [rule, is_used] : mark.rules) {
      const std::string problem = ProblemOf(mark, rule, is_used, ran_);
      if (problem.empty()) continue;
      Add(mark, "'$lint' has no effect: " + problem, std::string(rule));
    }
    if (suppressions_.needs_reasons && !mark.has_reason) Add(mark, "'$lint' has no reason", "");
  }

 private:
  void Add(const Mark& mark, const std::string& message, const std::string& subject) {
    const Document& document = *model_.Sources()[source_].document;
    findings_.Add(
        {model_.GetDomain(), source_, kNoElement, mark.node, document[mark.node].key_begin},
        {message, subject});
  }

  const Model& model_;
  std::uint32_t source_;
  const Suppressions& suppressions_;
  const RuleIds& ran_;
  Findings& findings_;
};

/// The findings of each file in the order of their places.
std::vector<std::vector<Finding*>> ByFiles(const Workspace& workspace,
                                           std::vector<Finding>& findings) {
  std::vector<std::vector<Finding*>> files(workspace.Files().size());
  for (Finding& finding : findings) files[finding.file].push_back(&finding);
  for (auto& file : files) {
    std::stable_sort(file.begin(), file.end(), [](const Finding* left, const Finding* right) {
      return left->place.offset < right->place.offset;
    });
  }
  return files;
}

class ConfigurationUse {
 public:
  ConfigurationUse(const Workspace& workspace, const Suppressions& suppressions)
      : workspace_(workspace), suppressions_(suppressions), is_used_(suppressions.ignored.size()) {}

  void Suppress(Finding& finding) {
    std::string path;
    for (std::size_t i = 0; i < is_used_.size(); ++i) {
      const Ignored& ignored = suppressions_.ignored[i];
      if (ignored.rule != finding.rule->id || HasEnded(ignored.until, suppressions_.today))
        continue;
      if (path.empty()) path = PathOf(workspace_, finding.place);
      if (fnmatch(ignored.element.c_str(), path.c_str(), FNM_NOESCAPE) != 0) continue;
      finding.suppressed_by = SuppressedBy::kConfiguration;
      is_used_[i] = true;
    }
  }

  void AddUnused(const RuleIds& ran, std::vector<Unused>& unused) const {
    for (std::size_t i = 0; i < is_used_.size(); ++i) {
      const Ignored& ignored = suppressions_.ignored[i];
      const auto add = [&](const char* problem) {
        unused.push_back(
            {SuppressedBy::kConfiguration,
             "the entry for '" + ignored.rule + "' at '" + ignored.element + "' " + problem});
      };
      if (HasEnded(ignored.until, suppressions_.today)) {
        add("has ended");
      } else if (!is_used_[i] && ran.count(ignored.rule) != 0) {
        add("hides nothing");
      }
      if (suppressions_.needs_reasons && ignored.reason.empty()) add("has no reason");
    }
  }

 private:
  const Workspace& workspace_;
  const Suppressions& suppressions_;
  std::vector<bool> is_used_;
};

void NoRun(const Workspace& /*workspace*/, Findings& /*findings*/) {}

constexpr Rule kRules[] = {
    {"unused-suppression",
     Group::kSources,
     Severity::kWarning,
     DecidedBy::kFile,
     kAllDomains,
     0,
     "A suppression that has no effect",
     "A '$lint' of a file, an entry of the configuration or of the baseline hides nothing, has "
     "expired, names an unknown rule, or has no reason although the configuration asks for one. "
     "Rules that did not run are not mentioned. It never fails a run by itself.",
     "A mistake that was fixed since.",
     "Remove the suppression, or write the baseline again.",
     {{R"({"$lint": {"ignore": ["unknown-key"], "reason": "made by a program"}, "cli": []})"},
      "cli"},
     NoRun},
};

}  // namespace

const Rows<Rule> kSuppressionRules = kRules;

void SuppressInFiles(const Workspace& workspace, const Suppressions& suppressions,
                     const std::vector<const Rule*>& rules, Findings& findings) {
  const RuleIds ran = IdsOf(rules);
  const Rule& about = kSuppressionRules[0];
  // What is added below is not looked at again.
  std::vector<std::vector<Mark>> marks(workspace.Files().size());
  const auto by_files = ByFiles(workspace, findings.All());
  for (std::size_t file = 0; file < marks.size(); ++file) {
    marks[file] = MarksOf(*workspace.Files()[file].source.document, suppressions.today);
    if (marks[file].empty()) continue;
    Sweep sweep(marks[file]);
    for (Finding* finding : by_files[file]) {
      sweep.GoTo(finding->place.offset);
      if (sweep.Use(finding->rule->id)) finding->suppressed_by = SuppressedBy::kFile;
    }
  }
  if (ran.count(about.id) == 0) return;
  findings.Begin(about);
  for (const Domain domain : kDomains) {
    const Model& model = workspace.ModelOf(domain);
    for (std::uint32_t source = 0; source < model.Sources().size(); ++source) {
      if (!model.Loads(source)) continue;
      MarkReport report(model, source, suppressions, ran, findings);
      for (const Mark& mark : marks[workspace.FileOf(domain, source)]) report.Report(mark);
    }
  }
}

std::vector<Unused> SuppressElsewhere(const Workspace& workspace, const Suppressions& suppressions,
                                      const std::vector<const Rule*>& rules,
                                      std::vector<Finding>& findings) {
  ConfigurationUse configuration(workspace, suppressions);
  AcceptedUse baseline(suppressions.baseline, suppressions.today);
  for (Finding& finding : findings) {
    if (finding.suppressed_by == SuppressedBy::kNothing) configuration.Suppress(finding);
    if (finding.suppressed_by != SuppressedBy::kNothing) continue;
    const Accepted* const accepted = baseline.Use(finding.fingerprint);
    if (accepted != nullptr) finding.suppressed_by = SuppressedBy::kBaseline;
    finding.accepted = accepted == nullptr ? baseline.FindEnded(finding.fingerprint) : accepted;
  }
  const RuleIds ran = IdsOf(rules);
  std::vector<Unused> unused;
  configuration.AddUnused(ran, unused);
  baseline.ForEachUnused([&](const Accepted& accepted, bool has_ended) {
    if (ran.count(accepted.id) == 0) return;
    unused.push_back({SuppressedBy::kBaseline, "an entry for '" + accepted.id + "' " +
                                                   (has_ended ? "has ended" : "hides nothing")});
  });
  return unused;
}

}  // namespace Zelk::Analysis::Lint
