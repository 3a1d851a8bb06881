#include "docs/details.h"

#include <utility>

#include "analysis/format.h"
#include "analysis/types.h"

namespace Zelk::Tool::Docs {
namespace {

using Analysis::Document;
using Analysis::Domain;
using Analysis::ElementId;
using Analysis::ElementKind;
using Analysis::kNoElement;
using Analysis::kNoNode;
using Analysis::Model;
using Analysis::NodeId;
using Analysis::NodeKind;

class DetailReader {
 public:
  DetailReader(const DetailContext& context, const Model& model, ElementId id)
      : context_(context), document_(model.DocumentOf(id)), node_(model[id].node) {}

  Detail Read(ElementKind kind) {
    switch (kind) {
      case ElementKind::kParameter:
      case ElementKind::kResult:
      case ElementKind::kField:
        ReadType(Member("type"));
        break;
      case ElementKind::kStructure:
        AddMembers(node_, {"type"});
        break;
      case ElementKind::kConstant:
        ReadConstant();
        break;
      case ElementKind::kAnnotation:
        ReadAnnotation();
        break;
      case ElementKind::kScheme:
        AddMembers(node_, {"authenticationScheme", "type", "sessionManager"});
        break;
      case ElementKind::kCommand:
        AddMembers(Member("node_metadata"), {"service_id", "operation_id", "formatter"});
        break;
      case ElementKind::kOption:
        AddMembers(node_, {"short_option", "field_name", "type", "generic"});
        break;
      case ElementKind::kOutputField:
        AddMembers(node_, {"display_name"});
        break;
      default:
        break;
    }
    return std::move(detail_);
  }

 private:
  NodeId Member(const char* key) const { return document_.Find(node_, key); }

  void AddText(std::string_view text) { detail_.push_back(context_.texts.Add(text)); }

  /// The texts of the members; an empty one for a member that is not there.
  void AddMembers(NodeId object, std::initializer_list<const char*> keys) {
    for (const char* key : keys) {
      const NodeId member = document_.Find(object, key);
      AddText(member == kNoNode ? std::string_view() : document_.String(member));
    }
  }

  /// The type and what it is made of, outermost first, each twice as large: words as even numbers,
  /// definitions as odd ones. In front of a name that is not loaded is an empty word.
  void ReadType(NodeId type) {
    std::vector<NodeId> work{type};
    while (!work.empty()) {
      const Analysis::TypeLevel level = Analysis::ReadType(document_, work.back());
      work.pop_back();
      if (level.form == Analysis::TypeForm::kUserDefined) {
        AddDefinition(level);
        continue;
      }
      detail_.push_back(context_.texts.Add(level.word) * 2);
      if (level.element != kNoNode) work.push_back(level.element);
      if (level.key != kNoNode) work.push_back(level.key);
    }
  }

  void AddDefinition(const Analysis::TypeLevel& level) {
    const std::string_view name = document_.String(level.name);
    const ElementId definition = context_.workspace.GetDefinitions().Definition(level.wanted, name);
    if (definition == kNoElement) detail_.push_back(context_.texts.Add("") * 2);
    detail_.push_back(
        LinkTo(context_.numbers, context_.texts, {Domain::kMetamodel, definition}, name));
  }

  /// Of the values, the library keeps those of single strings only.
  void ReadConstant() {
    const NodeId type = Member("type");
    AddMembers(type, {"category", "type"});
    const NodeId value = Member("value");
    const bool is_text = document_[value].kind == NodeKind::kString;
    if (is_text && IsKeptConstant(type)) AddText(document_.String(value));
  }

  bool IsKeptConstant(NodeId type) const {
    const auto is = [&](const char* key, const char* word) {
      return Analysis::ToUpper(std::string(document_.String(document_.Find(type, key)))) == word;
    };
    return is("category", "PRIMITIVE") && is("type", "STRING");
  }

  /// Of each member its name and its texts: how many, or 0 for one that is not in an array.
  void ReadAnnotation() {
    for (NodeId member = document_[node_].first_child; member != kNoNode;
         member = document_[member].next) {
      AddText(document_.Key(member));
      if (document_[member].kind == NodeKind::kString) {
        detail_.push_back(0);
        AddText(document_.String(member));
        continue;
      }
      const std::size_t count = detail_.size();
      detail_.push_back(1);
      for (NodeId text = document_[member].first_child; text != kNoNode;
           text = document_[text].next) {
        AddText(document_.String(text));
        ++detail_[count];
      }
    }
  }

  const DetailContext& context_;
  const Document& document_;
  NodeId node_;
  Detail detail_;
};

}  // namespace

Numbers::Numbers(const Analysis::Workspace& workspace) {
  for (std::size_t domain = 1; domain < elements_.size(); ++domain) {
    const Model& before = workspace.ModelOf(static_cast<Domain>(domain - 1));
    elements_.at(domain) = elements_.at(domain - 1) + before.Size();
    sources_.at(domain) = sources_.at(domain - 1) + before.Sources().size();
  }
}

std::uint64_t Texts::Add(std::string_view text) {
  const auto known = numbers_.find(text);
  if (known != numbers_.end()) return known->second;
  const std::uint64_t number = texts_.size();
  numbers_.emplace(texts_.emplace_back(text), number);
  return number;
}

void Texts::Write(Render::JsonWriter& json) const {
  json.StringArray(texts_);
}

std::uint64_t Details::Add(Detail detail) {
  return numbers_.emplace(std::move(detail), numbers_.size()).first->second;
}

void Details::WriteRows(Render::JsonWriter& json) const {
  std::vector<const Detail*> rows(numbers_.size());
  for (const auto& [detail, number] : numbers_) rows[number] = &detail;
  json.StartArray();
  for (const Detail* row : rows) {
    json.StartArray();
    for (const std::uint64_t number : *row) json.Number(number);
    json.EndArray();
  }
  json.EndArray();
}

std::uint64_t LinkTo(const Numbers& numbers, Texts& texts, const Analysis::DomainElement& target,
                     std::string_view name) {
  if (target.element == kNoElement) return texts.Add(name) * 2;
  return numbers.Of(target.domain, target.element) * 2 + 1;
}

Detail DetailOf(const DetailContext& context, const Model& model, ElementId id) {
  // What is made has the place of something else.
  if (model[id].is_implied) return {};
  return DetailReader(context, model, id).Read(model[id].kind);
}

}  // namespace Zelk::Tool::Docs
