#pragma once

#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <zelk/provider/metadata/metamodel/metadata_container.h>
#include <zelk/provider/metadata/metamodel/services.h>

#include "support/builders.h"
#include "support/record_dump.h"
#include "support/surface_recorder.h"
#include "surface/sources.h"

namespace Zelk::Testing {

namespace MetamodelProvider = ::Zelk::Provider::Metadata::Metamodel;

/// The Metamodel domain for the tests of what all domains do alike. Its record is a component.
struct MetamodelUnderTest {
  using Container = MetamodelProvider::MetadataContainer;
  using SourceService = MetamodelProvider::SourceSvc::AsyncServiceImpl;
  using CreateSpec = Bindings::Metamodel::SourceSvc::CreateSpec;
  using Record = Bindings::Metamodel::ComponentData;

  static constexpr char kName[] = "Metamodel";
  static constexpr char kRootKey[] = "metamodel";
  static constexpr char kExists[] = "zelk.metada.metamodel.source.exists";
  static constexpr char kNotFound[] = "zelk.metada.metamodel.source.not.found";
  static constexpr char kFileNotFound[] = "zelk.metada.metamodel.source.file.not.found";
  static constexpr char kParseError[] = "zelk.metadata.metamodel.parse.error";
  static constexpr bool kDeliversSuccess = false;

  static std::string File(const std::string& name) {
    return MetamodelFile(Component(name, {Package("p")}));
  }

  /// What a root key of the wrong type gives.
  static Lines InvalidRoot() { return InvalidFieldError(kRootKey); }

  static Lines Names(const Container& container) {
    const auto names = container.ListComponents();
    return {names.begin(), names.end()};
  }

  static std::shared_ptr<const Record> Find(const Container& container, const std::string& name) {
    return container.ComponentInfo(name);
  }

  static std::string Text(const Record& record) {
    return Dump(*record.info) + "fingerprint " + record.fingerprint;
  }
};

using MetamodelSources = Sources<MetamodelUnderTest>;

/// Metamodel sources of one component each.
class ComponentSources : public MetamodelSources {
 public:
  /// Creates the sources in the order given; throws when one is refused.
  ComponentSources(std::initializer_list<std::pair<std::string, Part>> components) {
    for (const auto& [id, component] : components) {
      const Lines error = Create(id, MetamodelFile(component));
      if (!error.empty()) throw std::runtime_error(id + ": " + error.back());
    }
  }
};

/// The documentation of a record, which distinguishes records of one name; "none" for no
/// record.
template <typename Record>
std::string DocOf(const std::shared_ptr<const Record>& record) {
  return record ? record->documentation : "none";
}

inline std::string DocOf(
    const std::shared_ptr<const Bindings::Metamodel::ComponentData>& component) {
  return component ? component->info->documentation : "none";
}

}  // namespace Zelk::Testing
