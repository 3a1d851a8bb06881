#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "analysis/element_model.h"

namespace Zelk::Analysis {

enum class ReferenceKind : std::uint8_t {
  /// A user-defined type, or the type of an option that is not built in.
  kType,
  /// An error of an operation.
  kError,
  /// An annotation names a resource; the target is the first structure that is a model of it.
  kResource,
  /// A component, package, service or operation of Authentication has the name of one in Metamodel.
  kListed,
  kSessionManager,
  /// A list names a scheme.
  kScheme,
  /// A command calls an operation of a service.
  kService,
  kOperation,
  /// An option fills a parameter, or a field in it. Each part of the name is a reference.
  kField,
  kOutput,
  kOutputField,
};

/// An element of the model of a domain.
struct DomainElement {
  Domain domain = Domain::kMetamodel;
  ElementId element = kNoElement;

  bool operator==(const DomainElement& other) const {
    return domain == other.domain && element == other.element;
  }
};

/// One element names another.
struct Reference {
  ReferenceKind kind;
  /// What kind of element is named; kNone if the file leaves it open.
  ElementKind wanted;
  DomainElement from;
  /// The value that has the name; a member whose key has it.
  NodeId node;
  /// Its element is kNoElement if nothing that is loaded has the name.
  DomainElement target;
  /// As written; of a field name with several parts, the part.
  std::string_view name;
};

/// The models of the three domains. Those without sources are empty.
struct Models {
  const Model& metamodel;
  const Model& authentication;
  const Model& cli;

  const Model& Of(Domain domain) const;
};

/// Several references, one after another in memory.
class ReferenceRange {
 public:
  ReferenceRange(const Reference* begin, const Reference* end) : begin_(begin), end_(end) {}

  const Reference* begin() const { return begin_; }

  const Reference* end() const { return end_; }

 private:
  const Reference* begin_;
  const Reference* end_;
};

class Definitions;

/// All references of the elements that are kept, each resolved as lookups of the library resolve
/// its name. The models must outlive them. What is in something unresolved, such as the operation
/// of an unknown service, is left out.
class References {
 public:
  /// `definitions` are those of the Metamodel model.
  References(const Models& models, const Definitions& definitions);

  /// By domains, then in the order of the elements that refer.
  const std::vector<Reference>& All() const { return all_; }

  /// Those that the element itself has.
  ReferenceRange From(const DomainElement& from) const;

  /// Those to the element, in the same order.
  std::vector<const Reference*> To(const DomainElement& target) const;

 private:
  std::vector<Reference> all_;
  /// Positions in all_, by targets.
  std::vector<std::uint32_t> by_target_;
};

}  // namespace Zelk::Analysis
