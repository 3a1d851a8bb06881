#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "analysis/call.h"
#include "analysis/lint/cli_rules.h"

namespace Zelk::Analysis::Lint {
namespace {

using Path = std::vector<ElementId>;

/// The required parameters and fields of each operation and structure. Of several with one name,
/// options fill the first one.
class RequiredParts {
 public:
  explicit RequiredParts(const Workspace& workspace)
      : model_(workspace.ModelOf(Domain::kMetamodel)) {
    const Definitions& definitions = workspace.GetDefinitions();
    for (ElementId id = 0; id < model_.Size(); ++id) {
      const ElementKind kind = model_[id].kind;
      const bool is_part = kind == ElementKind::kParameter || kind == ElementKind::kField;
      if (!is_part || model_[id].fate != Fate::kFound || IsOptional(workspace, id)) continue;
      if (definitions.Part(model_[id].owner, kind, model_[id].name) == id) parts_.push_back(id);
    }
  }

  ElementIds Of(ElementId owner) const {
    // Parts are in the order of what they are in.
    const auto is_before = [&](ElementId part, ElementId wanted) {
      return model_[part].owner < wanted;
    };
    const auto begin = std::lower_bound(parts_.begin(), parts_.end(), owner, is_before);
    const auto end = std::lower_bound(begin, parts_.end(), owner + 1, is_before);
    return {parts_.data() + (begin - parts_.begin()), parts_.data() + (end - parts_.begin())};
  }

 private:
  const Model& model_;
  std::vector<ElementId> parts_;
};

/// What one command does not fill.
class UnfilledParts {
 public:
  UnfilledParts(const Workspace& workspace, const RequiredParts& required, Findings& findings)
      : model_(workspace.ModelOf(Domain::kMetamodel)),
        commands_(workspace.ModelOf(Domain::kCli)),
        definitions_(workspace.GetDefinitions()),
        required_(required),
        findings_(findings) {}

  void Look(const Call& call, std::vector<Path> filled) {
    std::sort(filled.begin(), filled.end());
    missing_ = 0;
    pending_.assign(1, {call.operation, 0, filled.size(), 0});
    // A command that forgets one may forget thousands.
    while (!pending_.empty() && missing_ < kMostOfOne) {
      const Level level = pending_.back();
      pending_.pop_back();
      LookAt(call, level, filled);
    }
  }

 private:
  /// An operation or a structure, and the paths into it: `begin` up to `end`, which have `depth`
  /// parts in front.
  struct Level {
    ElementId owner;
    std::size_t begin;
    std::size_t end;
    std::size_t depth;
  };

  void LookAt(const Call& call, const Level& level, const std::vector<Path>& filled) {
    for (const ElementId part : required_.Of(level.owner)) {
      if (IsFilled(level, filled, part)) continue;
      if (++missing_ > kMostOfOne) return;
      Report(call, NameOf(level, filled, part), part);
    }
    for (std::size_t i = level.begin; i < level.end;) {
      const Path& path = filled[i];
      const ElementId part = path[level.depth];
      std::size_t next = i;
      while (next < level.end && filled[next][level.depth] == part) ++next;
      // The shortest path comes first; one that ends here fills all of the part.
      if (path.size() > level.depth + 1) {
        pending_.push_back({definitions_.ContentOf(part).definition, i, next, level.depth + 1});
      }
      i = next;
    }
  }

  /// As options write it.
  std::string NameOf(const Level& level, const std::vector<Path>& filled, ElementId part) const {
    std::string name;
    for (std::size_t i = 0; i < level.depth; ++i) {
      name += std::string(model_[filled[level.begin][i]].name) + ".";
    }
    return name + std::string(model_[part].name);
  }

  bool IsFilled(const Level& level, const std::vector<Path>& filled, ElementId part) const {
    const auto begin = filled.begin() + static_cast<std::ptrdiff_t>(level.begin);
    const auto end = filled.begin() + static_cast<std::ptrdiff_t>(level.end);
    const auto found = std::lower_bound(begin, end, part, [&](const Path& path, ElementId wanted) {
      return path[level.depth] < wanted;
    });
    return found != end && (*found)[level.depth] == part;
  }

  void Report(const Call& call, const std::string& name, ElementId part) {
    Remark remark{"no option fills '" + name + "', which the operation requires", name};
    if (MayBeEmpty(part)) {
      remark.message = "no option fills '" + name + "', which is then empty";
      remark.severity = Severity::kWarning;
    }
    findings_.Add(PlaceOf(commands_, call.command), std::move(remark));
  }

  /// Lists, and structures all of whose fields are optional.
  bool MayBeEmpty(ElementId part) const {
    const Content& content = definitions_.ContentOf(part);
    if (content.shape.arity != Arity::kOne) return true;
    if (content.definition == kNoElement) return false;
    if (model_[content.definition].kind != ElementKind::kStructure) return false;
    const ElementIds parts = required_.Of(content.definition);
    return parts.begin() == parts.end();
  }

  static constexpr std::size_t kMostOfOne = 10;

  const Model& model_;
  const Model& commands_;
  const Definitions& definitions_;
  const RequiredParts& required_;
  Findings& findings_;
  std::vector<Level> pending_;
  std::size_t missing_ = 0;
};

}  // namespace

void ParameterWithoutOption(const Workspace& workspace, Findings& findings) {
  const RequiredParts required(workspace);
  UnfilledParts unfilled(workspace, required, findings);
  for (const Call& call : CallsOf(workspace)) {
    if (call.operation == kNoElement) continue;
    std::vector<Path> filled;
    for (Filling& filling : FillingsOf(workspace, call)) {
      if (!filling.path.found.empty()) filled.push_back(std::move(filling.path.found));
    }
    unfilled.Look(call, std::move(filled));
  }
}

}  // namespace Zelk::Analysis::Lint
