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
    Append(source, reading.elements);
    kDecide.at(static_cast<std::size_t>(domain))({elements_, begin, order});
  }
  LoseParts(elements_);
  found_ = DecideShadows(elements_);
  IndexChildren(order);
}

void Model::Append(std::uint32_t source, const std::deque<Element>& elements) {
  const ElementId begin = Size();
  elements_.insert(elements_.end(), elements.begin(), elements.end());
  for (ElementId id = begin; id < Size(); ++id) {
    Element& element = elements_[id];
    element.source = source;
    element.parent = Moved(element.parent, begin);
    element.owner = Moved(element.owner, begin);
  }
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

ElementIds Model::Children(ElementId owner) const {
  const ElementId* const all = children_.data();
  return {all + child_begin_[owner], all + child_begin_[owner + 1]};
}

ElementId Model::Find(ElementKind kind, std::string_view name, std::string_view path) const {
  const LookupKey key{kind, path, name};
  const auto found = std::lower_bound(
      found_.begin(), found_.end(), key,
      [&](ElementId id, const LookupKey& wanted) { return KeyOf(elements_[id]) < wanted; });
  return found != found_.end() && KeyOf(elements_[*found]) == key ? *found : kNoElement;
}

ElementIds Model::Found(ElementKind kind) const {
  const auto is_before = [&](ElementId id, ElementKind wanted) {
    return elements_[id].kind < wanted;
  };
  const auto next = static_cast<ElementKind>(static_cast<std::uint8_t>(kind) + 1);
  const auto begin = std::lower_bound(found_.begin(), found_.end(), kind, is_before);
  const auto end = std::lower_bound(begin, found_.end(), next, is_before);
  return {found_.data() + (begin - found_.begin()), found_.data() + (end - found_.begin())};
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
