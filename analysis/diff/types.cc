#include "analysis/diff/types.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "analysis/diff/shapes.h"
#include "analysis/diff/verdicts.h"

namespace Zelk::Analysis::Diff {
namespace {

constexpr std::string_view kAnyType = "anything";

constexpr TypeVerdict kRows[] = {
    {"LIST", "SET", kD, kD},
    {"SET", "LIST", kD, kD},
    {"STRING", "ID", kD, kD},
    {"ID", "STRING", kD, kD},
    {"STRING", "URI", kD, kD},
    {"URI", "STRING", kD, kD},
    {"SECRET", "STRING", kD, kD},
    {"STRING", "SECRET", kD, kD},
    {"LONG", "DOUBLE", kD, kB},
    {"DOUBLE", "LONG", kB, kD},
    {"STRING", "enumeration", kD, kD},
    {"enumeration", "STRING", kD, kD},
    {"structure", "DYNAMIC_STRUCTURE", kD, kB},
    {"anything", "anything", kB, kB},
};

bool IsWord(std::string_view wanted, std::string_view word) {
  return wanted == kAnyType || wanted == word;
}

const TypeVerdict& VerdictOf(std::string_view old_word, std::string_view new_word) {
  return *std::find_if(std::begin(kRows), std::end(kRows), [&](const TypeVerdict& row) {
    return IsWord(row.old_type, old_word) && IsWord(row.new_type, new_word);
  });
}

/// What the level is in the table.
std::string_view WordOf(const TypeLevel& level) {
  if (level.form != TypeForm::kUserDefined) return level.word;
  if (level.wanted == ElementKind::kNone) return "other";
  return level.wanted == ElementKind::kEnumeration ? "enumeration" : "structure";
}

class TypeComparison {
 public:
  TypeComparison(const TypeOf& old_type, const TypeOf& new_type)
      : old_(old_type), new_(new_type), open_{{old_type.node, new_type.node, false}} {}

  TypeChange Compare() {
    while (!open_.empty()) {
      const Step step = open_.back();
      open_.pop_back();
      CompareLevel(step);
    }
    return change_;
  }

 private:
  struct Step {
    NodeId old_node;
    NodeId new_node;
    /// Whether it is in a type that both have.
    bool is_inner;
  };

  void CompareLevel(const Step& step) {
    const TypeLevel old_level = ReadType(old_.document, step.old_node);
    const TypeLevel new_level = ReadType(new_.document, step.new_node);
    const std::string_view old_word = WordOf(old_level);
    const std::string_view new_word = WordOf(new_level);
    const bool was_optional = old_level.word == "OPTIONAL";
    const bool is_optional = new_level.word == "OPTIONAL";
    if (was_optional != is_optional) {
      if (is_optional) {
        Note(step, TypeChange::kBecameOptional, kC, kB);
        open_.push_back({step.old_node, new_level.element, step.is_inner});
      } else {
        Note(step, TypeChange::kBecameRequired, kB, kC);
        open_.push_back({old_level.element, step.new_node, step.is_inner});
      }
      return;
    }
    if (old_word != new_word) {
      const TypeVerdict& verdict = VerdictOf(old_word, new_word);
      Note(step, TypeChange::kOther, verdict.input, verdict.output);
    }
    if (old_level.form == TypeForm::kUserDefined && new_level.form == TypeForm::kUserDefined) {
      CompareNames(step, old_level, new_level);
    }
    if (old_level.element == kNoNode || new_level.element == kNoNode) return;
    if ((old_level.key == kNoNode) != (new_level.key == kNoNode)) return;
    open_.push_back({old_level.element, new_level.element, true});
    if (old_level.key != kNoNode) open_.push_back({old_level.key, new_level.key, true});
  }

  void CompareNames(const Step& step, const TypeLevel& old_level, const TypeLevel& new_level) {
    const std::string_view old_name = old_.document.String(old_level.name);
    const std::string_view new_name = new_.document.String(new_level.name);
    const bool is_same_kind =
        KindText(old_.document, old_level) == KindText(new_.document, new_level);
    if (!is_same_kind) return Note(step, TypeChange::kOther, kB, kB);
    if (old_name == new_name) return;
    const ElementId old_id = old_.definitions.Definition(old_level.wanted, old_name);
    const ElementId new_id = new_.definitions.Definition(new_level.wanted, new_name);
    const bool is_known = old_id != kNoElement && new_id != kNoElement;
    const bool is_same = is_known && old_.shapes.Of(old_id) == new_.shapes.Of(new_id);
    if (is_same) change_.is_renamed = true;
    Note(step, TypeChange::kOther, is_same ? kD : kB, is_same ? kD : kB);
  }

  void Note(const Step& step, TypeChange::Form form, Class input, Class output) {
    if (step.is_inner) {
      form = TypeChange::kOther;
      input = std::max(input, kD);
      output = std::max(output, kD);
    }
    change_.form = change_.form == TypeChange::kNone ? form : TypeChange::kOther;
    change_.input = std::max(change_.input, input);
    change_.output = std::max(change_.output, output);
  }

  const TypeOf& old_;
  const TypeOf& new_;
  std::vector<Step> open_;
  TypeChange change_;
};

}  // namespace

const Rows<TypeVerdict> kTypeVerdicts = kRows;

TypeChange CompareTypes(const TypeOf& old_type, const TypeOf& new_type) {
  return TypeComparison(old_type, new_type).Compare();
}

std::string_view KindText(const Document& document, const TypeLevel& level) {
  const std::string_view word = WordOf(level);
  return word == "other" ? document.String(level.kind) : word;
}

std::string TypeText(const Document& document, NodeId type, Names names) {
  struct Part {
    NodeId type;
    const char* text;
  };

  std::string text;
  std::vector<Part> open{{type, nullptr}};
  while (!open.empty()) {
    const Part part = open.back();
    open.pop_back();
    if (part.text != nullptr) {
      text += part.text;
      continue;
    }
    const TypeLevel level = ReadType(document, part.type);
    const bool is_named = level.form == TypeForm::kUserDefined;
    if (is_named && names == Names::kWithKinds) {
      text.append(KindText(document, level)).append(" ");
    }
    text += is_named ? document.String(level.name) : level.word;
    if (level.form != TypeForm::kGeneric) continue;
    text += '<';
    open.push_back({kNoNode, ">"});
    open.push_back({level.element, nullptr});
    if (level.key == kNoNode) continue;
    open.push_back({kNoNode, ", "});
    open.push_back({level.key, nullptr});
  }
  return text;
}

}  // namespace Zelk::Analysis::Diff
