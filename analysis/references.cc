#include "analysis/references.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <tuple>

#include "analysis/definitions.h"
#include "analysis/format.h"
#include "analysis/resources.h"
#include "analysis/types.h"

namespace Zelk::Analysis {
namespace {

auto KeyOf(const DomainElement& element) {
  return std::tie(element.domain, element.element);
}

class ReferenceFinder {
 public:
  ReferenceFinder(const Models& models, const Definitions& definitions)
      : models_(models), definitions_(definitions) {}

  std::vector<Reference> Find() {
    // Most elements of Authentication files refer to something, and few others do so twice.
    all_.reserve(models_.authentication.Size());
    for (const Domain domain : {Domain::kMetamodel, Domain::kAuthentication, Domain::kCli}) {
      model_ = &models_.Of(domain);
      if (domain == Domain::kMetamodel) FindResources();
      for (ElementId id = 0; id < model_->Size(); ++id) {
        if (IsKept(Of(id)) && !Of(id).is_implied) FindIn(id);
      }
    }
    return std::move(all_);
  }

 private:
  const Element& Of(ElementId id) const { return (*model_)[id]; }

  const Document& DocumentOf(ElementId id) const { return model_->DocumentOf(id); }

  NodeId Member(ElementId id, const char* key) const {
    return DocumentOf(id).Find(Of(id).node, key);
  }

  void FindIn(ElementId id) {
    switch (Of(id).kind) {
      case ElementKind::kParameter:
      case ElementKind::kResult:
      case ElementKind::kField:
        return AddTypes(id);
      case ElementKind::kError:
        return AddError(id);
      case ElementKind::kAnnotation:
        return AddResources(id);
      case ElementKind::kScheme:
        return AddSessionManager(id);
      case ElementKind::kComponent:
        return AddComponent(id);
      case ElementKind::kPackageList:
        return AddListed(id, ElementKind::kPackage, Lookup(ElementKind::kPackage, Of(id).name));
      case ElementKind::kServiceList:
        return AddListed(id, ElementKind::kService, Lookup(ElementKind::kService, Of(id).name));
      case ElementKind::kOperationList:
        return AddListed(id, ElementKind::kOperation, OperationOf(Of(id).name));
      case ElementKind::kEntry:
        Add(ReferenceKind::kScheme, ElementKind::kScheme, id, Of(id).node,
            {Domain::kAuthentication, Of(id).target}, Of(id).name);
        return;
      case ElementKind::kCommand:
        return AddCommand(id);
      case ElementKind::kOption:
        return AddOption(id);
      case ElementKind::kOutput:
        return AddOutput(id);
      case ElementKind::kOutputField:
        return AddOutputField(id);
      default:
        return;
    }
  }

  void Add(ReferenceKind kind, ElementKind wanted, ElementId from, NodeId node,
           const DomainElement& target, std::string_view name) {
    all_.push_back({kind, wanted, {model_->GetDomain(), from}, node, target, name});
  }

  /// The name is the text of the node.
  void AddNamed(ReferenceKind kind, ElementKind wanted, ElementId from, NodeId node,
                ElementId target) {
    Add(kind, wanted, from, node, {Domain::kMetamodel, target}, DocumentOf(from).String(node));
  }

  ElementId Lookup(ElementKind kind, std::string_view name) const {
    return models_.metamodel.Find(kind, name);
  }

  ElementId LookupPart(ElementId owner, ElementKind kind, std::string_view name) const {
    return owner == kNoElement ? kNoElement : definitions_.Part(owner, kind, name);
  }

  void AddTypes(ElementId id) {
    const Document& document = DocumentOf(id);
    ForEachLevel(document, Member(id, "type"), [&](const TypeLevel& level) {
      if (level.form != TypeForm::kUserDefined) return;
      AddNamed(ReferenceKind::kType, level.wanted, id, level.name,
               definitions_.Definition(level.wanted, document.String(level.name)));
    });
  }

  void AddError(ElementId id) {
    AddNamed(ReferenceKind::kError, ElementKind::kStructure, id,
             Member(id, "user_defined_type_name"), Lookup(ElementKind::kStructure, Of(id).name));
  }

  /// The names of resources, and the first model that is answered for each.
  void FindResources() {
    const std::vector<ResourceUse> uses = ResourceUses(*model_);
    std::map<std::string_view, std::uint32_t> last_sources;
    for (const ResourceUse& use : uses) last_sources[use.resource] = use.source;
    for (const ResourceUse& use : uses) {
      if (use.model == kNoElement) {
        named_.push_back(use);
      } else if (use.source == last_sources[use.resource]) {
        models_of_resources_.emplace(use.resource, use.model);
      }
    }
  }

  void AddResources(ElementId annotation) {
    const auto first =
        std::lower_bound(named_.begin(), named_.end(), annotation,
                         [](const ResourceUse& use, ElementId id) { return use.annotation < id; });
    for (auto use = first; use != named_.end() && use->annotation == annotation; ++use) {
      const auto model = models_of_resources_.find(use->resource);
      AddNamed(ReferenceKind::kResource, ElementKind::kStructure, annotation, use->node,
               model == models_of_resources_.end() ? kNoElement : model->second);
    }
  }

  void AddSessionManager(ElementId scheme) {
    const NodeId manager = Member(scheme, "sessionManager");
    const std::string_view type = DocumentOf(scheme).String(Member(scheme, "type"));
    if (kSchemeTypes.Find(type) != std::string_view("SESSION_AWARE")) return;
    AddNamed(ReferenceKind::kSessionManager, ElementKind::kService, scheme, manager,
             Lookup(ElementKind::kService, DocumentOf(scheme).String(manager)));
  }

  void AddComponent(ElementId id) {
    if (model_->GetDomain() != Domain::kAuthentication) return;
    AddNamed(ReferenceKind::kListed, ElementKind::kComponent, id, Member(id, "name"),
             Lookup(ElementKind::kComponent, Of(id).name));
  }

  void AddListed(ElementId id, ElementKind wanted, ElementId target) {
    Add(ReferenceKind::kListed, wanted, id, Of(id).node, {Domain::kMetamodel, target}, Of(id).name);
  }

  ElementId OperationOf(std::string_view id) const {
    const std::string_view service = OwnerOf(id);
    return LookupPart(Lookup(ElementKind::kService, service), ElementKind::kOperation,
                      id.substr(service.size() + 1));
  }

  void AddCommand(ElementId id) {
    const Document& document = DocumentOf(id);
    const NodeId metadata = Member(id, "node_metadata");
    const NodeId service_id = document.Find(metadata, "service_id");
    const NodeId operation_id = document.Find(metadata, "operation_id");
    const ElementId service = Lookup(ElementKind::kService, document.String(service_id));
    AddNamed(ReferenceKind::kService, ElementKind::kService, id, service_id, service);
    operation_ = LookupPart(service, ElementKind::kOperation, document.String(operation_id));
    if (service == kNoElement) return;
    AddNamed(ReferenceKind::kOperation, ElementKind::kOperation, id, operation_id, operation_);
  }

  void AddOption(ElementId id) {
    const Document& document = DocumentOf(id);
    const NodeId type = Member(id, "type");
    const std::string_view text = document.String(type);
    if (kBuiltinTypes.Find(text) == nullptr) {
      AddNamed(ReferenceKind::kType, ElementKind::kNone, id, type,
               definitions_.Definition(ElementKind::kNone, text));
    }
    if (operation_ != kNoElement) AddFields(id);
  }

  void AddFields(ElementId option) {
    const NodeId node = Member(option, "field_name");
    const FieldPath path = definitions_.Follow(operation_, DocumentOf(option).String(node));
    ElementKind wanted = ElementKind::kParameter;
    const auto add = [&](ElementId target, std::string_view name) {
      Add(ReferenceKind::kField, wanted, option, node, {Domain::kMetamodel, target}, name);
      wanted = ElementKind::kField;
    };
    for (const ElementId found : path.found) add(found, models_.metamodel[found].name);
    if (path.end == FieldPath::kMissing || path.end == FieldPath::kNoStructure) {
      add(kNoElement, path.part);
    }
  }

  void AddOutput(ElementId id) {
    structure_ = Lookup(ElementKind::kStructure, Of(id).name);
    AddNamed(ReferenceKind::kOutput, ElementKind::kStructure, id, Member(id, "structure_id"),
             structure_);
  }

  void AddOutputField(ElementId id) {
    if (structure_ == kNoElement) return;
    AddNamed(ReferenceKind::kOutputField, ElementKind::kField, id, Member(id, "field_name"),
             LookupPart(structure_, ElementKind::kField, Of(id).name));
  }

  const Models& models_;
  const Definitions& definitions_;
  const Model* model_ = nullptr;
  std::vector<Reference> all_;
  /// Where resources are named, in the order of the annotations.
  std::vector<ResourceUse> named_;
  std::map<std::string_view, ElementId> models_of_resources_;
  // Parts come after what they are in: what the last command calls, and what the last output shows.
  ElementId operation_ = kNoElement;
  ElementId structure_ = kNoElement;
};

}  // namespace

const Model& Models::Of(Domain domain) const {
  switch (domain) {
    case Domain::kMetamodel:
      return metamodel;
    case Domain::kAuthentication:
      return authentication;
    case Domain::kCli:
      break;
  }
  return cli;
}

References::References(const Models& models, const Definitions& definitions)
    : all_(ReferenceFinder(models, definitions).Find()), by_target_(all_.size()) {
  std::iota(by_target_.begin(), by_target_.end(), 0);
  std::stable_sort(by_target_.begin(), by_target_.end(), [&](std::uint32_t a, std::uint32_t b) {
    return KeyOf(all_[a].target) < KeyOf(all_[b].target);
  });
}

ReferenceRange References::From(const DomainElement& from) const {
  const auto first = std::lower_bound(all_.begin(), all_.end(), from,
                                      [](const Reference& reference, const DomainElement& wanted) {
                                        return KeyOf(reference.from) < KeyOf(wanted);
                                      });
  const auto last = std::find_if(
      first, all_.end(), [&](const Reference& reference) { return !(reference.from == from); });
  return {all_.data() + (first - all_.begin()), all_.data() + (last - all_.begin())};
}

std::vector<const Reference*> References::To(const DomainElement& target) const {
  auto at = std::lower_bound(by_target_.begin(), by_target_.end(), target,
                             [&](std::uint32_t id, const DomainElement& wanted) {
                               return KeyOf(all_[id].target) < KeyOf(wanted);
                             });
  std::vector<const Reference*> found;
  for (; at != by_target_.end() && all_[*at].target == target; ++at) found.push_back(&all_[*at]);
  return found;
}

}  // namespace Zelk::Analysis
