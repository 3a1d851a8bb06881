#include "analysis/reader.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace Zelk::Analysis {
namespace {

constexpr char kMissingField[] = "zelk.metadata.json.missing.field";
constexpr char kInvalidEnumValue[] = "zelk.metadata.json.invalid.enum.value";
constexpr char kInvalidNodeType[] = "zelk.metadata.cli.json.invalid.node.type";
constexpr char kInvalidOperation[] = "zelk.metadata.authentication.json.invalid.operation.id";
constexpr char kInvalidService[] = "zelk.metadata.authentication.json.invalid.service.id";

constexpr std::size_t kMostFurtherProblems = 100;

constexpr ObjectForm kNoKeys{};
constexpr ValueForm kAnyText{Form::kText};

/// Reads with a stack of its own, because types nest deeper than a thread's stack reaches.
/// Functions that return bool return false when what they read fails its object.
class FormatReader {
 public:
  FormatReader(const Document& document, Extent extent, Reading& reading)
      : document_(document), extent_(extent), reading_(reading) {}

  bool Read(const Format& format) {
    Enter(kRootNode, format.root, format.root_key, kNoElement);
    while (!open_.empty()) {
      if (Step()) continue;
      NoteFailure();
      if (extent_ == Extent::kToFirstError) LeaveFailed();
    }
    return !has_failed_;
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
    if (ReadsSeparateKey(open)) has_part_failed_ = false;
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

  bool ReadKey(Open& open, const KeyForm& key) {
    const NodeId object = open.node;
    if (!Check(key.before, object)) return false;
    const NodeId value = document_.Find(object, key.name);
    const bool is_separate = key.presence == KeyForm::kSeparate;
    part_ = is_separate ? key.name : part_;
    if (value != kNoNode) return Enter(value, key.value, key.name, open.element);
    Problem problem{kMissingField, key.name, Severity::kError, document_[object].begin, object};
    problem.object = open.object;
    if (key.presence == KeyForm::kRequired) {
      // Of a value of another type, one missing key is enough.
      if (document_[object].kind != NodeKind::kObject) {
        open.object = &kNoKeys;
        open.next_key = 0;
      }
      return Fail(std::move(problem));
    }
    problem.severity = Severity::kNote;
    if (!IsFurther()) reading_.problems.push_back(std::move(problem));
    return true;
  }

  /// Goes on with the keys that the text under the deciding key asks for; it may ask for none.
  bool Decide(Open& open) {
    const ObjectForm& object = *open.object;
    open.object = &kNoKeys;
    open.next_key = 0;
    const NodeId value = document_.Find(open.node, object.decided_by);
    // A bad text under the key was reported when it was read.
    if (value == kNoNode || document_[value].kind != NodeKind::kString) return true;
    const std::string_view text = document_.String(value);
    const char* const word = object.words == nullptr ? nullptr : object.words->Find(text);
    const std::string_view wanted = word == nullptr ? text : word;
    const Rows<Variant>& variants = object.variants;
    const Variant* const variant = std::find_if(
        variants.begin(), variants.end(), [&](const Variant& row) { return row.text == wanted; });
    if (variant != variants.end()) {
      open.object = variant->object;
      open.element = Add(variant->element, open.node, open.element);
      return true;
    }
    if (object.words != nullptr) return true;
    Problem problem{kInvalidNodeType, object.decided_by, Severity::kError, document_[value].begin,
                    value};
    problem.object = &object;
    return Fail(std::move(problem));
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
               FailWord(node, *form.words, name);
      case Form::kSchemeName:
        if (!Is(node, NodeKind::kString, form, name)) return false;
        Add(form.element, node, element);
        return IsScheme(document_.String(node)) || Fail(node, kUnknownScheme, "id");
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
      has_schemes_ = false;
      operations_.clear();
    }
    if (form.each != nullptr && form.each->rule == Rule::kDefinesScheme) has_schemes_ = true;
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
        if (!CheckId(node, kInvalidOperation)) return false;
        operations_.emplace(OwnerOf(document_.Key(node)), node);
        break;
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
    const NodeId value = document_.Find(constant, "value");
    if (type == kNoNode || value == kNoNode) return;
    const bool is_text = ToUpper(TextOf(type, "category")) == "PRIMITIVE" &&
                         ToUpper(TextOf(type, "type")) == "STRING";
    if (!is_text || document_[value].kind == NodeKind::kString) return;
    Warn({kAnyText.invalid_id, "value", Severity::kWarning, document_[value].begin, value},
         "value");
  }

  bool CheckId(NodeId member, const char* message_id) {
    const std::string_view id = document_.Key(member);
    return !OwnerOf(id).empty() || FailKey(member, message_id, id);
  }

  void CheckServicesOfOperations() {
    for (const auto& [service, operation] : operations_) {
      if (!OwnerOf(service).empty()) continue;
      Warn({kInvalidService, std::string(service), Severity::kWarning,
            document_[operation].key_begin, operation},
           "service");
      return;
    }
  }

  /// A file without schemes is one mistake: not each name in it is reported as well.
  bool IsScheme(std::string_view name) const {
    return schemes_.count(name) != 0 || (IsFurther() && !has_schemes_);
  }

  bool IsCarried(NodeId authentication) const {
    const auto failed = [&](std::string_view part) {
      return std::find(failed_parts_.begin(), failed_parts_.end(), part) != failed_parts_.end();
    };
    if (!failed("component")) return true;
    return !failed("product") && document_.Find(authentication, "product") != kNoNode;
  }

  /// The step failed: the part that is read, or the file if it is in none.
  void NoteFailure() {
    if (IsFurther()) return;
    ElementId part = kNoElement;
    for (auto open = open_.rbegin(); open != open_.rend(); ++open) {
      if (ReadsSeparateKey(*open)) {
        reading_.left_out_part = open->object->keys[open->next_key - 1].name;
        failed_parts_.push_back(reading_.left_out_part);
        if (part != kNoElement) reading_.elements[part].fate = Fate::kIgnored;
        has_part_failed_ = true;
        return;
      }
      part = open->element;
    }
    has_failed_ = true;
  }

  /// Goes on after the part that failed, if it is one.
  void LeaveFailed() {
    while (!open_.empty() && !ReadsSeparateKey(open_.back())) open_.pop_back();
  }

  /// Whether the library has stopped reading here.
  bool IsFurther() const { return has_failed_ || has_part_failed_; }

  static bool ReadsSeparateKey(const Open& open) {
    return open.object != nullptr && open.next_key > 0 &&
           open.object->keys[open.next_key - 1].presence == KeyForm::kSeparate;
  }

  /// Always false.
  bool Fail(Problem problem) {
    problem.is_further = IsFurther();
    problem.left_out = part_;
    if (problem.is_further && ++further_ > kMostFurtherProblems) {
      ++reading_.unlisted;
    } else {
      reading_.problems.push_back(std::move(problem));
    }
    return false;
  }

  bool Fail(NodeId node, const char* message_id, std::string_view argument) {
    return Fail({message_id, std::string(argument), Severity::kError, document_[node].begin, node});
  }

  bool FailWord(NodeId node, const Words& words, const char* name) {
    Problem problem{kInvalidEnumValue, name, Severity::kError, document_[node].begin, node};
    problem.words = &words;
    return Fail(std::move(problem));
  }

  /// The same, about the key of the member.
  bool FailKey(NodeId member, const char* message_id, std::string_view argument) {
    return Fail(
        {message_id, std::string(argument), Severity::kError, document_[member].key_begin, member});
  }

  /// The load goes on without what is left out.
  void Warn(Problem problem, const char* left_out) {
    const char* const part = std::exchange(part_, left_out);
    Fail(std::move(problem));
    part_ = part;
  }

  const Document& document_;
  const Extent extent_;
  Reading& reading_;
  std::vector<Open> open_;
  /// The separate part that is read; or null.
  const char* part_ = nullptr;
  bool has_part_failed_ = false;
  bool has_failed_ = false;
  std::size_t further_ = 0;
  // Of the component that is being read: its schemes, and the first operation of each service that
  // is not listed itself.
  std::set<std::string_view> schemes_;
  bool has_schemes_ = false;
  std::map<std::string_view, NodeId> operations_;
  std::vector<std::string_view> failed_parts_;
};

}  // namespace

Reading Read(const Document& document, const Format& format, Extent extent) {
  Reading reading;
  reading.loads = FormatReader(document, extent, reading).Read(format);
  return reading;
}

}  // namespace Zelk::Analysis
