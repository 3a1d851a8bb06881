#include "analysis/reader.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string_view>

namespace Zelk::Analysis {
namespace {

constexpr char kMissingField[] = "zelk.metadata.json.missing.field";
constexpr char kInvalidEnumValue[] = "zelk.metadata.json.invalid.enum.value";
constexpr char kInvalidNodeType[] = "zelk.metadata.cli.json.invalid.node.type";
constexpr char kInvalidOperation[] = "zelk.metadata.authentication.json.invalid.operation.id";
constexpr char kInvalidService[] = "zelk.metadata.authentication.json.invalid.service.id";
constexpr char kUnknownScheme[] = "zelk.metadata.authentication.json.unknown.schema.name";

constexpr ObjectForm kNoKeys{};
constexpr ValueForm kAnyText{Form::kText};

/// Reads with a stack of its own, because types nest deeper than a thread's stack reaches.
/// Functions that return bool return false when what they read fails its object.
class FormatReader {
 public:
  FormatReader(const Document& document, Reading& reading)
      : document_(document), reading_(reading) {}

  bool Read(const Format& format) {
    bool ok = Enter(kRootNode, format.root, format.root_key, kNoElement);
    while (ok && !open_.empty()) ok = Step() || GoOnAfterPart();
    return ok;
  }

 private:
  /// An object, array or map that is being read.
  struct Open {
    NodeId node;
    const ValueForm* form;
    const char* name;
    /// The element that it is or is in.
    ElementId element;
    /// The keys of an object that are read now, and the next one of them.
    const ObjectForm* object;
    std::size_t next_key;
    /// The next value of an array or map.
    NodeId next_child;
  };

  bool Step() {
    Open& open = open_.back();
    if (open.object != nullptr) {
      if (open.next_key < open.object->keys.Size()) {
        const KeyForm& key = open.object->keys[open.next_key++];
        return ReadKey(open, key);
      }
      if (open.object->decided_by != nullptr) return Decide(open);
    } else if (open.next_child != kNoNode) {
      const NodeId child = open.next_child;
      open.next_child = document_[child].next;
      return Enter(child, *open.form->each, open.name, open.element);
    }
    const Open done = open;
    open_.pop_back();
    return Check(done.form->rule, done.node);
  }

  bool ReadKey(const Open& open, const KeyForm& key) {
    const NodeId object = open.node;
    const ElementId element = open.element;
    if (!Check(key.before, object)) return false;
    const NodeId value = document_.Find(object, key.name);
    if (value != kNoNode) return Enter(value, key.value, key.name, element);
    Fail(object, kMissingField, key.name);
    if (key.presence == KeyForm::kRequired) return false;
    reading_.problems.back().severity = Severity::kNote;
    return true;
  }

  /// Goes on with the keys that the text under the deciding key asks for; it may ask for none.
  bool Decide(Open& open) {
    const NodeId value = document_.Find(open.node, open.object->decided_by);
    const std::string_view text = document_.String(value);
    const Words* const words = open.object->words;
    const std::string_view wanted = words == nullptr ? text : words->Find(text);
    const Rows<Variant>& variants = open.object->variants;
    const Variant* const variant = std::find_if(
        variants.begin(), variants.end(), [&](const Variant& row) { return row.text == wanted; });
    if (variant == variants.end() && words == nullptr) {
      return Fail(value, kInvalidNodeType, open.object->decided_by);
    }
    static constexpr Variant kNoMoreKeys{"", &kNoKeys};
    const Variant& chosen = variant == variants.end() ? kNoMoreKeys : *variant;
    open.object = chosen.object;
    open.next_key = 0;
    open.element = Add(chosen.element, open.node, open.element);
    return true;
  }

  /// Reads a value that has no parts, and opens one that has.
  bool Enter(NodeId node, const ValueForm& form, const char* name, ElementId element) {
    if (form.called != nullptr) name = form.called;
    switch (form.form) {
      case Form::kAnything:
        return true;
      case Form::kText:
        return Is(node, NodeKind::kString, form, name);
      case Form::kWord:
        if (!Is(node, NodeKind::kString, form, name)) return false;
        return form.words->Find(document_.String(node)) != nullptr ||
               Fail(node, kInvalidEnumValue, name);
      case Form::kSchemeName:
        if (!Is(node, NodeKind::kString, form, name)) return false;
        Add(form.element, node, element);
        return schemes_.count(document_.String(node)) != 0 || Fail(node, kUnknownScheme, "id");
      case Form::kTextOrList:
        if (document_[node].kind == NodeKind::kString) return true;
        return Is(node, NodeKind::kArray, form, name) && Push(node, form, name, element);
      case Form::kList:
        return Is(node, NodeKind::kArray, form, name) && Push(node, form, name, element);
      case Form::kMembers:
      case Form::kObject:
        return Is(node, NodeKind::kObject, form, name) && Push(node, form, name, element);
      case Form::kElement:
        break;
    }
    return Push(node, form, name, element);
  }

  bool Is(NodeId node, NodeKind kind, const ValueForm& form, const char* name) {
    return document_[node].kind == kind || Fail(node, form.invalid_id, name);
  }

  bool Push(NodeId node, const ValueForm& form, const char* name, ElementId element) {
    if (form.element == ElementKind::kComponent) {
      schemes_.clear();
      operations_.clear();
    }
    open_.push_back({node, &form, name, Add(form.element, node, element), form.object, 0,
                     document_[node].first_child});
    return true;
  }

  /// The new element; `parent` if values of the form are not elements.
  ElementId Add(ElementKind kind, NodeId node, ElementId parent) {
    if (kind == ElementKind::kNone) return parent;
    Element element;
    element.kind = kind;
    element.node = node;
    element.parent = parent;
    element.owner = parent;
    if (const char* const key = NameKey(kind)) {
      element.name = TextOf(node, key);
    } else {
      element.name = kind == ElementKind::kEntry ? document_.String(node) : document_.Key(node);
    }
    if (kind == ElementKind::kNamespace || kind == ElementKind::kCommand) {
      element.path = TextOf(node, "path");
    }
    reading_.elements.push_back(element);
    return static_cast<ElementId>(reading_.elements.size() - 1);
  }

  /// Empty if there is no such text.
  std::string_view TextOf(NodeId object, const char* key) const {
    const NodeId found = document_.Find(object, key);
    return found == kNoNode ? std::string_view() : document_.String(found);
  }

  bool Check(Rule rule, NodeId node) {
    switch (rule) {
      case Rule::kNone:
        break;
      case Rule::kConstant:
        CheckConstant(node);
        break;
      case Rule::kDefinesScheme:
        schemes_.insert(document_.Key(node));
        break;
      case Rule::kOperationId:
        operations_.emplace(OwnerOf(document_.Key(node)), node);
        return CheckId(node, kInvalidOperation);
      case Rule::kServiceId:
        operations_.erase(document_.Key(node));
        return CheckId(node, kInvalidService);
      case Rule::kServicesOfOperations:
        CheckServicesOfOperations();
        break;
      case Rule::kProductOrComponent:
        return IsCarried(node);
    }
    return true;
  }

  void CheckConstant(NodeId constant) {
    const NodeId type = document_.Find(constant, "type");
    const bool is_text = ToUpper(TextOf(type, "category")) == "PRIMITIVE" &&
                         ToUpper(TextOf(type, "type")) == "STRING";
    const NodeId value = document_.Find(constant, "value");
    if (is_text && !Is(value, NodeKind::kString, kAnyText, "value")) WentOn();
  }

  bool CheckId(NodeId member, const char* message_id) {
    const std::string_view id = document_.Key(member);
    return !OwnerOf(id).empty() || FailKey(member, message_id, id);
  }

  void CheckServicesOfOperations() {
    for (const auto& [service, operation] : operations_) {
      if (!OwnerOf(service).empty()) continue;
      FailKey(operation, kInvalidService, service);
      WentOn();
      return;
    }
  }

  bool IsCarried(NodeId authentication) const {
    const auto failed = [&](std::string_view part) {
      return std::find(failed_parts_.begin(), failed_parts_.end(), part) != failed_parts_.end();
    };
    if (!failed("component")) return true;
    return !failed("product") && document_.Find(authentication, "product") != kNoNode;
  }

  /// Whether what failed was within a part that fails only itself. The reading goes on after it.
  bool GoOnAfterPart() {
    ElementId part = kNoElement;
    for (; !open_.empty(); open_.pop_back()) {
      const Open& open = open_.back();
      if (ReadsSeparateKey(open)) {
        failed_parts_.emplace_back(open.object->keys[open.next_key - 1].name);
        if (part != kNoElement) reading_.elements[part].fate = Fate::kIgnored;
        return true;
      }
      part = open.element;
    }
    return false;
  }

  static bool ReadsSeparateKey(const Open& open) {
    return open.object != nullptr && open.next_key > 0 &&
           open.object->keys[open.next_key - 1].presence == KeyForm::kSeparate;
  }

  /// Always false.
  bool Fail(NodeId node, const char* message_id, std::string_view argument) {
    reading_.problems.push_back(
        {message_id, std::string(argument), Severity::kError, document_[node].begin, node});
    return false;
  }

  /// The same, about the key of the member.
  bool FailKey(NodeId member, const char* message_id, std::string_view argument) {
    Fail(member, message_id, argument);
    reading_.problems.back().offset = document_[member].key_begin;
    return false;
  }

  /// The last problem did not end the load.
  void WentOn() { reading_.problems.back().severity = Severity::kWarning; }

  const Document& document_;
  Reading& reading_;
  std::vector<Open> open_;
  // Of the component that is being read: its schemes, and the first operation of each service that
  // is not listed itself.
  std::set<std::string_view> schemes_;
  std::map<std::string_view, NodeId> operations_;
  std::vector<std::string_view> failed_parts_;
};

}  // namespace

Reading Read(const Document& document, const Format& format) {
  Reading reading;
  reading.loads = FormatReader(document, reading).Read(format);
  return reading;
}

}  // namespace Zelk::Analysis
