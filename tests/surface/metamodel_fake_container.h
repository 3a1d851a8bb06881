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
  kKnowsNothing,  // with what stands for an unknown key; changes fail with `error`
  kThrows,        // not at all
};

/// A container that knows no sources. It writes down every call, arguments included.
class FakeContainer final : public ::Zelk::Provider::Metadata::Metamodel::MetadataContainer {
 public:
  using Names = std::list<std::string>;
  using OptionalId = boost::optional<std::string>;
  using SpecPtr = std::shared_ptr<const Model::SourceSvc::CreateSpec>;
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
  const Ptr<Model::SourceSvc::Info> source = std::make_shared<const Model::SourceSvc::Info>(
      "", ::Com::Orvane::Zelk::Metadata::SourceType(), boost::none, boost::none);
  const Ptr<Model::ComponentData> component =
      std::make_shared<const Model::ComponentData>(nullptr, "");
  const Ptr<Model::PackageInfo> package = std::make_shared<const Model::PackageInfo>(
      "", Children<Model::StructureInfo>(), Children<Model::EnumerationInfo>(),
      Children<Model::ServiceInfo>(), Model::MetadataMap(), "");
  const Ptr<Model::ServiceInfo> service = std::make_shared<const Model::ServiceInfo>(
      "", Children<Model::OperationInfo>(), Children<Model::StructureInfo>(),
      Children<Model::EnumerationInfo>(), Children<Model::ConstantInfo>(), Model::MetadataMap(),
      "");
  const Ptr<Model::OperationInfo> operation = std::make_shared<const Model::OperationInfo>(
      "", std::list<Ptr<Model::FieldInfo>>(), nullptr, std::list<Ptr<Model::ErrorInfo>>(),
      Model::MetadataMap(), "");
  const Ptr<Model::EnumerationInfo> enumeration = std::make_shared<const Model::EnumerationInfo>(
      "", std::list<Ptr<Model::EnumerationValueInfo>>(), Model::MetadataMap(), "");
  const Ptr<Model::StructureInfo> structure = std::make_shared<const Model::StructureInfo>(
      "", Model::StructureInfoEnumerations::Type::STRUCTURE, Children<Model::EnumerationInfo>(),
      Children<Model::ConstantInfo>(), std::list<Ptr<Model::FieldInfo>>(), Model::MetadataMap(),
      "");

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

  Ptr<Model::SourceSvc::Info> SourcesInfo(const std::string& id) const override {
    return Known("SourcesInfo(" + id + ")") ? source : nullptr;
  }

  std::string SourceFingerprint(const OptionalId& id) const override {
    return Known("SourceFingerprint(" + id.value_or("none") + ")") ? fingerprint : "";
  }

  Names ListComponents() const override { return List("ListComponents()"); }

  Ptr<Model::ComponentData> ComponentInfo(const std::string& id) const override {
    return Known("ComponentInfo(" + id + ")") ? component : nullptr;
  }

  std::string ComponentFingerprint(const std::string& id) const override {
    return Known("ComponentFingerprint(" + id + ")") ? fingerprint : "";
  }

  Names ListPackages() const override { return List("ListPackages()"); }

  Ptr<Model::PackageInfo> PackageInfo(const std::string& id) const override {
    return Known("PackageInfo(" + id + ")") ? package : nullptr;
  }

  Names ListServices() const override { return List("ListServices()"); }

  Ptr<Model::ServiceInfo> ServiceInfo(const std::string& id) const override {
    return Known("ServiceInfo(" + id + ")") ? service : nullptr;
  }

  boost::optional<Names> ListOperations(const std::string& service_id) const override {
    return boost::make_optional(Known("ListOperations(" + service_id + ")"), names);
  }

  Ptr<Model::OperationInfo> OperationInfo(const std::string& service_id,
                                          const std::string& operation_id) const override {
    return Known("OperationInfo(" + service_id + ", " + operation_id + ")") ? operation : nullptr;
  }

  Names ListHiddens() const override { return List("ListHiddens()"); }

  Names ListEnumerations() const override { return List("ListEnumerations()"); }

  Ptr<Model::EnumerationInfo> EnumerationInfo(const std::string& id) const override {
    return Known("EnumerationInfo(" + id + ")") ? enumeration : nullptr;
  }

  Names ListStructures() const override { return List("ListStructures()"); }

  Ptr<Model::StructureInfo> StructureInfo(const std::string& id) const override {
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
