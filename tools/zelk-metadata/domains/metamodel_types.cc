#include "domains/metamodel_types.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>
#include <vector>

#include "domains/metamodel_shapes.h"

namespace Zelk::Tool {
namespace {

using Bindings::Metamodel::EnumerationInfo;
using Bindings::Metamodel::FieldInfo;
using Bindings::Metamodel::StructureInfo;
using Bindings::Metamodel::Type;
using Render::JsonWriter;
using Render::Page;

/// Deeper pages could not be read, and their indents would take more room than their texts.
constexpr std::size_t kMostLevels = 50;

/// The names of structures and enumerations in a type, in the order of its text.
Names NamesIn(const Type& type) {
  Names names;
  std::vector<const Type*> pending{&type};
  while (!pending.empty()) {
    const Type* const next = pending.back();
    pending.pop_back();
    if (next == nullptr) continue;
    if (next->user_defined_type) names.push_back(next->user_defined_type->resource_id);
    if (!next->generic_instantiation) continue;
    const auto& generic = *next->generic_instantiation;
    for (const auto& inner : {generic.element_type, generic.map_value_type, generic.map_key_type}) {
      pending.push_back(inner.get());
    }
  }
  return names;
}

/// Writes the fields of a structure, below each the types in it. Nothing recurses.
class TypePage {
 public:
  TypePage(Page& page, const TypeLookups& lookups, std::size_t levels)
      : page_(page), lookups_(lookups), levels_(levels) {}

  void Write(const std::string& name) {
    Open(name, *lookups_.structure(name), 1);
    while (!pending_.empty()) {
      const Step step = pending_.back();
      pending_.pop_back();
      if (step.field) {
        WriteField(*step.field, step.indent);
      } else if (step.is_end) {
        open_.erase(step.name);
      } else {
        WriteType(step.name, step.indent);
      }
    }
  }

 private:
  struct Step {
    std::size_t indent;
    std::shared_ptr<const FieldInfo> field;
    std::string name;
    /// Whether all of the structure with the name is written.
    bool is_end;
  };

  void Open(const std::string& name, const StructureInfo& structure, std::size_t indent) {
    open_.insert(name);
    shown_.insert(name);
    pending_.push_back({indent, nullptr, name, true});
    for (auto field = structure.fields.rbegin(); field != structure.fields.rend(); ++field) {
      pending_.push_back({indent, *field, "", false});
    }
  }

  void WriteField(const FieldInfo& field, std::size_t indent) {
    page_.Line(indent, fmt::format("{}: {}", field.name, TypeText(*field.type)));
    const Names names = NamesIn(*field.type);
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
      pending_.push_back({indent + 1, nullptr, *name, false});
    }
  }

  void WriteType(const std::string& name, std::size_t indent) {
    if (const auto structure = lookups_.structure(name)) {
      const std::string why_not = WhyNotShown(name);
      page_.Line(indent, fmt::format("structure {}{}", name, why_not));
      if (why_not.empty()) Open(name, *structure, indent + 1);
    } else if (const auto enumeration = lookups_.enumeration(name)) {
      const bool is_first = shown_.insert(name).second;
      page_.Line(indent, fmt::format("enumeration {}{}", name, is_first ? "" : " (shown above)"));
      if (!is_first) return;
      for (const auto& value : enumeration->values) page_.Line(indent + 1, value->value);
    } else {
      page_.Line(indent, name + " (not loaded)");
    }
  }

  std::string WhyNotShown(const std::string& name) const {
    if (open_.count(name) != 0) return " (contains itself)";
    if (shown_.count(name) != 0) return " (shown above)";
    return open_.size() > levels_ ? " (at a deeper level)" : "";
  }

  Page& page_;
  const TypeLookups& lookups_;
  std::size_t levels_;
  std::vector<Step> pending_;
  /// The structures around the current line.
  std::set<std::string> open_;
  std::set<std::string> shown_;
};

/// The types below a structure, level by level.
class TypeList {
 public:
  TypeList(JsonWriter& json, const TypeLookups& lookups) : json_(json), lookups_(lookups) {}

  void Write(const std::string& root, std::size_t levels) {
    seen_.insert(root);
    Names level = NamesBelow(*lookups_.structure(root));
    for (std::size_t depth = 1; depth <= levels && !level.empty(); ++depth) {
      Names next;
      for (const std::string& name : level) {
        if (!seen_.insert(name).second) continue;
        const Names below = WriteOne(name, depth);
        next.insert(next.end(), below.begin(), below.end());
      }
      level = std::move(next);
    }
  }

 private:
  static Names NamesBelow(const StructureInfo& structure) {
    Names names;
    for (const auto& field : structure.fields) {
      const Names in_field = NamesIn(*field->type);
      names.insert(names.end(), in_field.begin(), in_field.end());
    }
    return names;
  }

  /// Returns the names in it.
  Names WriteOne(const std::string& name, std::size_t depth) {
    if (const auto structure = lookups_.structure(name)) {
      WriteEntry("structure", name, depth, *structure);
      return NamesBelow(*structure);
    }
    if (const auto enumeration = lookups_.enumeration(name)) {
      WriteEntry("enumeration", name, depth, *enumeration);
    }
    return {};
  }

  template <typename Info>
  void WriteEntry(const char* kind, const std::string& name, std::size_t depth,
                  const Info& record) {
    json_.StartObject();
    json_.Member("kind", std::string(kind));
    json_.Member("name", name);
    json_.Key("level").Number(depth);
    json_.Key("record");
    WriteRecord(json_, record);
    json_.EndObject();
  }

  JsonWriter& json_;
  const TypeLookups& lookups_;
  std::set<std::string> seen_;
};

}  // namespace

Record TypesInStructure(const std::string& name, const TypeLookups& lookups, std::size_t levels) {
  const std::size_t shown = std::min(levels, kMostLevels);
  return {[=](Page& page) {
            page.Heading("Types:");
            TypePage(page, lookups, shown).Write(name);
          },
          [=](JsonWriter& json) {
            json.StartArray();
            TypeList(json, lookups).Write(name, levels);
            json.EndArray();
          }};
}

}  // namespace Zelk::Tool
