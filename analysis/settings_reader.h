#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/document.h"

namespace Zelk::Analysis {

/// Something wrong with a value of a file that users write for this program.
struct SettingsProblem {
  NodeId node;
  std::string text;
};

using SettingsProblems = std::vector<SettingsProblem>;

/// Whether the text is a day of the calendar, as YYYY-MM-DD.
bool IsDate(std::string_view text);

/// Reads such a file and notes what is wrong with it.
class SettingsReader {
 public:
  SettingsReader(const Document& document, SettingsProblems& problems)
      : document_(document), problems_(problems) {}

  void Complain(NodeId node, const std::string& text) { problems_.push_back({node, text}); }

  /// The member; kNoNode if the object has none, or one of another kind, which is a problem.
  NodeId Member(NodeId object, const char* key, NodeKind kind);

  std::string Text(NodeId object, const char* key);

  bool IsTrue(NodeId object, const char* key);

  template <typename Take>
  void EachChild(NodeId container, const Take& take) {
    if (container == kNoNode) return;
    for (NodeId child = document_[container].first_child; child != kNoNode;
         child = document_[child].next) {
      take(child);
    }
  }

  std::vector<std::string> Texts(NodeId object, const char* key);

  /// A day, or an empty text if the object has none.
  std::string Date(NodeId object, const char* key);

  /// One of the two words, the first one if the object has none.
  std::string Choice(NodeId object, const char* key, const std::array<std::string, 2>& words);

  /// A member "version" must be 1, so that later forms of a file are not misread.
  void ExpectVersion(NodeId object);

  /// Keys that the object has twice are problems.
  void ExpectOnce(NodeId object);

  /// The same, and other keys are problems, too, but for those that begin with '$'.
  void ExpectKeys(NodeId object, const std::vector<std::string>& known);

  /// The same for the keys of a project file. Each command reads some of them.
  void ExpectProjectKeys() { ExpectKeys(kRootNode, {"sources", "lint", "diff"}); }

  /// Whether the node is an object. If not, that is a problem.
  bool IsObject(NodeId node);

 private:
  const Document& document_;
  SettingsProblems& problems_;
};

}  // namespace Zelk::Analysis
