#pragma once

#include <list>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <boost/none.hpp>
#include <boost/optional.hpp>

#include <zelk/data/values.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>

#include "support/surface_recorder.h"

namespace Zelk::Testing {

/// What a fake container throws.
class FakeFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// How a fake container answers.
enum class FakeMood {
  kKnowsAll,      // with the member that is there for it; changes succeed
  kKnowsNothing,  // with the result for an unknown key; changes fail with `error`
  kThrows,        // not at all
};

/// A container that knows no sources. It writes down every call, arguments included.
class FakeContainer final : public ::Zelk::Provider::Metadata::Metamodel::MetadataContainer {
 public:
  using Names = std::list<std::string>;
  using OptionalId = boost::optional<std::string>;
  using SpecPtr = std::shared_ptr<const Bindings::Metamodel::SourceSvc::CreateSpec>;
  template <typename Record>
  using Ptr = std::shared_ptr<const Record>;

  explicit FakeContainer(FakeMood mood = FakeMood::kKnowsAll) : mood_(mood) {}

  /// The calls so far, such as "OperationInfo(s, o)".
  Lines Calls() const { return calls_; }

  /// The names in a list are in no order, and one is there twice.
  const Names names{"b", "", "a", "b"};
  const std::set<std::string> set{"y", "x"};
  const std::string fingerprint = "digits";
  const ErrorPtr error = std::make_shared<const Data::ErrorValue>("foo");
  const Ptr<Bindings::Metamodel::SourceSvc::Info> source =
      std::make_shared<const Bindings::Metamodel::SourceSvc::Info>(
          "", ::Com::Orvane::Zelk::Metadata::SourceType(), boost::none, boost::none);
  const Ptr<Bindings::Metamodel::ComponentData> component =
      std::make_shared<const Bindings::Metamodel::ComponentData>(nullptr, "");
  const Ptr<Bindings::Metamodel::PackageInfo> package =
      std::make_shared<const Bindings::Metamodel::PackageInfo>(
          "", Children<Bindings::Metamodel::StructureInfo>(),
          Children<Bindings::Metamodel::EnumerationInfo>(),
          Children<Bindings::Metamodel::ServiceInfo>(), Bindings::Metamodel::MetadataMap(), "");
  const Ptr<Bindings::Metamodel::ServiceInfo> service =
      std::make_shared<const Bindings::Metamodel::ServiceInfo>(
          "", Children<Bindings::Metamodel::OperationInfo>(),
          Children<Bindings::Metamodel::StructureInfo>(),
          Children<Bindings::Metamodel::EnumerationInfo>(),
          Children<Bindings::Metamodel::ConstantInfo>(), Bindings::Metamodel::MetadataMap(), "");
  const Ptr<Bindings::Metamodel::OperationInfo> operation =
      std::make_shared<const Bindings::Metamodel::OperationInfo>(
          "", std::list<Ptr<Bindings::Metamodel::FieldInfo>>(), nullptr,
          std::list<Ptr<Bindings::Metamodel::ErrorInfo>>(), Bindings::Metamodel::MetadataMap(), "");
  const Ptr<Bindings::Metamodel::EnumerationInfo> enumeration =
      std::make_shared<const Bindings::Metamodel::EnumerationInfo>(
          "", std::list<Ptr<Bindings::Metamodel::EnumerationValueInfo>>(),
          Bindings::Metamodel::MetadataMap(), "");
  const Ptr<Bindings::Metamodel::StructureInfo> structure =
      std::make_shared<const Bindings::Metamodel::StructureInfo>(
          "", Bindings::Metamodel::StructureInfoEnumerations::Type::STRUCTURE,
          Children<Bindings::Metamodel::EnumerationInfo>(),
          Children<Bindings::Metamodel::ConstantInfo>(),
          std::list<Ptr<Bindings::Metamodel::FieldInfo>>(), Bindings::Metamodel::MetadataMap(), "");

  ErrorPtr CreateSource(const std::string& id, const SpecPtr& spec) override {
    return Change("CreateSource(" + id + ", " + (spec ? spec->description : "null") + ")");
  }

  ErrorPtr DeleteSource(const std::string& id) override {
    return Change("DeleteSource(" + id + ")");
  }

  ErrorPtr ReloadSource(const OptionalId& id) override {
    return Change("ReloadSource(" + id.value_or("none") + ")");
  }

  Names ListSources() const override { return List("ListSources()"); }

  Ptr<Bindings::Metamodel::SourceSvc::Info> SourcesInfo(const std::string& id) const override {
    return Known("SourcesInfo(" + id + ")") ? source : nullptr;
  }

  std::string SourceFingerprint(const OptionalId& id) const override {
    return Known("SourceFingerprint(" + id.value_or("none") + ")") ? fingerprint : "";
  }

  Names ListComponents() const override { return List("ListComponents()"); }

  Ptr<Bindings::Metamodel::ComponentData> ComponentInfo(const std::string& id) const override {
    return Known("ComponentInfo(" + id + ")") ? component : nullptr;
  }

  std::string ComponentFingerprint(const std::string& id) const override {
    return Known("ComponentFingerprint(" + id + ")") ? fingerprint : "";
  }

  Names ListPackages() const override { return List("ListPackages()"); }

  Ptr<Bindings::Metamodel::PackageInfo> PackageInfo(const std::string& id) const override {
    return Known("PackageInfo(" + id + ")") ? package : nullptr;
  }

  Names ListServices() const override { return List("ListServices()"); }

  Ptr<Bindings::Metamodel::ServiceInfo> ServiceInfo(const std::string& id) const override {
    return Known("ServiceInfo(" + id + ")") ? service : nullptr;
  }

  boost::optional<Names> ListOperations(const std::string& service_id) const override {
    return boost::make_optional(Known("ListOperations(" + service_id + ")"), names);
  }

  Ptr<Bindings::Metamodel::OperationInfo> OperationInfo(
      const std::string& service_id, const std::string& operation_id) const override {
    return Known("OperationInfo(" + service_id + ", " + operation_id + ")") ? operation : nullptr;
  }

  Names ListHiddens() const override { return List("ListHiddens()"); }

  Names ListEnumerations() const override { return List("ListEnumerations()"); }

  Ptr<Bindings::Metamodel::EnumerationInfo> EnumerationInfo(const std::string& id) const override {
    return Known("EnumerationInfo(" + id + ")") ? enumeration : nullptr;
  }

  Names ListStructures() const override { return List("ListStructures()"); }

  Ptr<Bindings::Metamodel::StructureInfo> StructureInfo(const std::string& id) const override {
    return Known("StructureInfo(" + id + ")") ? structure : nullptr;
  }

  std::set<std::string> ListResources() const override {
    return Known("ListResources()") ? set : std::set<std::string>();
  }

  boost::optional<std::set<std::string>> ListModels(const std::string& id) const override {
    return boost::make_optional(Known("ListModels(" + id + ")"), set);
  }

 private:
  template <typename Record>
  using Children = std::map<std::string, Ptr<Record>>;

  bool Known(const std::string& call) const {
    calls_.push_back(call);
    if (mood_ == FakeMood::kThrows) throw FakeFailure(call);
    return mood_ == FakeMood::kKnowsAll;
  }

  Names List(const std::string& call) const { return Known(call) ? names : Names(); }

  ErrorPtr Change(const std::string& call) { return Known(call) ? nullptr : error; }

  FakeMood mood_;
  mutable Lines calls_;
};

}  // namespace Zelk::Testing
