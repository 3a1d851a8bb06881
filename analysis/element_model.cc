#include "analysis/element_model.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "analysis/fates.h"
#include "analysis/format.h"
#include "analysis/reader.h"

namespace Zelk::Analysis {
namespace {

using Decide = void (*)(const SourceElements&);

// In the order of Domain.
constexpr std::array<Decide, 3> kDecide{&DecideMetamodel, &DecideAuthentication, &DecideCli};

ElementId Moved(ElementId id, ElementId by) {
  return id == kNoElement ? id : id + by;
}

}  // namespace

Model::Model(Domain domain, std::vector<Source> sources)
    : domain_(domain), sources_(std::move(sources)) {
  std::sort(sources_.begin(), sources_.end(),
            [](const Source& left, const Source& right) { return left.id < right.id; });
  std::vector<ElementId> order;
  for (std::uint32_t source = 0; source < sources_.size(); ++source) {
    const Document& document = *sources_[source].document;
    Reading reading;
    if (document.IsJson()) reading = Read(document, FormatOf(domain));
    loads_.push_back(reading.loads);
    if (!reading.loads) continue;
    const ElementId begin = Size();
    for (Element element : reading.elements) {
      element.source = source;
      element.parent = Moved(element.parent, begin);
      element.owner = Moved(element.owner, begin);
      elements_.push_back(element);
    }
    kDecide.at(static_cast<std::size_t>(domain))({elements_, begin, order});
  }
  LoseParts(elements_);
  DecideShadows(elements_);
  IndexChildren(order);
  IndexNames();
}

void Model::IndexChildren(const std::vector<ElementId>& order) {
  child_begin_.assign(elements_.size() + 1, 0);
  for (const Element& element : elements_) {
    if (element.owner != kNoElement) ++child_begin_[element.owner + 1];
  }
  std::partial_sum(child_begin_.begin(), child_begin_.end(), child_begin_.begin());
  children_.resize(child_begin_.back());
  std::vector<std::size_t> next = child_begin_;
  for (const ElementId id : order) {
    const ElementId owner = elements_[id].owner;
    if (owner != kNoElement) children_[next[owner]++] = id;
  }
}

void Model::IndexNames() {
  for (ElementId id = 0; id < Size(); ++id) {
    if (elements_[id].fate == Fate::kFound && HasLookup(elements_[id].kind)) found_.push_back(id);
  }
  std::sort(found_.begin(), found_.end(), [&](ElementId left, ElementId right) {
    return KeyOf(elements_[left]) < KeyOf(elements_[right]);
  });
}

ElementIds Model::Children(ElementId owner) const {
  const ElementId* const all = children_.data();
  return {all + child_begin_[owner], all + child_begin_[owner + 1]};
}

ElementId Model::Find(ElementKind kind, std::string_view name, std::string_view path) const {
  const Key key{kind, path, name};
  const auto found = std::lower_bound(
      found_.begin(), found_.end(), key,
      [&](ElementId id, const Key& wanted) { return KeyOf(elements_[id]) < wanted; });
  return found != found_.end() && KeyOf(elements_[*found]) == key ? *found : kNoElement;
}

std::vector<ElementId> Model::Around(ElementId id) const {
  std::vector<ElementId> around;
  for (; id != kNoElement; id = OwnerAround(elements_, id)) around.push_back(id);
  return around;
}

std::string Model::FullName(ElementId id) const {
  std::vector<ElementId> around = Around(id);
  // These have full names in the file.
  const auto outermost = std::find_if(around.begin(), around.end(), [&](ElementId step) {
    return HasLookup(elements_[step].kind);
  });
  around.erase(outermost + 1, around.end());
  std::string name(elements_[around.back()].path);
  for (auto step = around.rbegin(); step != around.rend(); ++step) {
    if (!name.empty()) name += '.';
    name += elements_[*step].name;
  }
  return name;
}

std::string_view Model::SimpleName(ElementId id) const {
  const Element& element = elements_[id];
  const bool has_full_name = HasLookup(element.kind) && domain_ != Domain::kCli;
  return has_full_name ? element.name.substr(element.name.rfind('.') + 1) : element.name;
}

std::string Model::Path(ElementId id) const {
  const std::vector<ElementId> around = Around(id);
  std::string path = FormatOf(domain_).root_key;
  for (auto step = around.rbegin(); step != around.rend(); ++step) {
    const Element& element = elements_[*step];
    path += std::string("/") + Word(element.kind) + ":";
    path += HasLookup(element.kind) ? FullName(*step) : std::string(element.name);
  }
  return path;
}

}  // namespace Zelk::Analysis
