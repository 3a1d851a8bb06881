#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zelk/core/async_activation.h>
#include <zelk/provider/metadata/metamodel/services.h>

#include "surface/metamodel_fake_container.h"
#include "surface/metamodel_under_test.h"

// What the services ask of their container, and what they make of its answers.

namespace Zelk::Testing {
namespace {

namespace Provider = MetamodelProvider;
using testing::ElementsAre;
using ComponentService = Provider::ComponentSvc::AsyncServiceImpl;
using EnumerationService = Provider::EnumerationSvc::AsyncServiceImpl;
using HiddenService = Provider::Service::HiddenSvc::AsyncServiceImpl;
using ModelService = Provider::Resource::ModelSvc::AsyncServiceImpl;
using OperationService = Provider::Service::OperationSvc::AsyncServiceImpl;
using PackageService = Provider::PackageSvc::AsyncServiceImpl;
using ResourceService = Provider::ResourceSvc::AsyncServiceImpl;
using ServiceService = Provider::ServiceSvc::AsyncServiceImpl;
using SourceService = Provider::SourceSvc::AsyncServiceImpl;
using StructureService = Provider::StructureSvc::AsyncServiceImpl;

using ContainerPtr = std::shared_ptr<Provider::MetadataContainer>;
using Activation = std::shared_ptr<Core::AsyncActivation>;

/// What came of a call of any operation of any service.
struct Outcome {
  int values = 0;
  int errors = 0;
};

/// How often an operation delivers when the container knows all, and when it knows nothing.
struct Expected {
  Outcome known;
  Outcome unknown;
};

constexpr Expected kAlwaysAValue = {{1, 0}, {1, 0}};
constexpr Expected kAValueOrNotFound = {{1, 0}, {0, 1}};
constexpr Expected kAnErrorOrSilence = {{0, 0}, {0, 1}};

/// An operation of a service and what it should ask of the container.
struct Row {
  std::string container_call;
  Expected expected;
  /// Calls the operation of a new service with a result that counts, or with an empty one.
  std::function<void(const ContainerPtr&, const Activation&, Outcome&)> call;
  std::function<void(const ContainerPtr&)> call_without_result;
};

template <typename Service, typename... Parameters, typename... Arguments>
Row MakeRow(const std::string& container_call, const Expected& expected,
            void (Service::*operation)(Parameters...), const Arguments&... arguments) {
  using Answer = AnswerOf<Parameters...>;
  const auto call = [=](const ContainerPtr& container, const Activation& activation,
                        Outcome& outcome) {
    Service service(container);
    (service.*operation)(arguments..., activation,
                         AsyncResult<Answer>([&](const auto& value, const auto& error, auto&&) {
                           outcome.values += value.has_value() ? 1 : 0;
                           outcome.errors += error != nullptr ? 1 : 0;
                         }));
  };
  const auto call_without_result = [=](const ContainerPtr& container) {
    Service service(container);
    (service.*operation)(arguments..., nullptr, AsyncResult<Answer>());
  };
  return {container_call, expected, call, call_without_result};
}

std::vector<Row> Rows() {
  const std::string x = "x";
  const auto spec = std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
      "foo", SourceType::LOCAL_FILE, boost::none, boost::none);
  const auto value = kAlwaysAValue;
  const auto lookup = kAValueOrNotFound;
  const auto change = kAnErrorOrSilence;
  return {
      MakeRow("ListComponents()", value, &ComponentService::List),
      MakeRow("ComponentInfo(x)", lookup, &ComponentService::Get, x),
      MakeRow("ComponentFingerprint(x)", lookup, &ComponentService::Fingerprint, x),
      MakeRow("ListEnumerations()", value, &EnumerationService::List),
      MakeRow("EnumerationInfo(x)", lookup, &EnumerationService::Get, x),
      MakeRow("ListPackages()", value, &PackageService::List),
      MakeRow("PackageInfo(x)", lookup, &PackageService::Get, x),
      MakeRow("ListResources()", value, &ResourceService::List),
      MakeRow("ListModels(x)", lookup, &ModelService::List, x),
      MakeRow("ListServices()", value, &ServiceService::List),
      MakeRow("ServiceInfo(x)", lookup, &ServiceService::Get, x),
      MakeRow("ListOperations(x)", lookup, &OperationService::List, x),
      MakeRow("OperationInfo(x, y)", lookup, &OperationService::Get, x, std::string("y")),
      MakeRow("ListHiddens()", value, &HiddenService::List),
      MakeRow("ListStructures()", value, &StructureService::List),
      MakeRow("StructureInfo(x)", lookup, &StructureService::Get, x),
      MakeRow("CreateSource(x, foo)", change, &SourceService::Create, x, spec),
      MakeRow("CreateSource(x, null)", change, &SourceService::Create, x, nullptr),
      MakeRow("DeleteSource(x)", change, &SourceService::Delete, x),
      MakeRow("SourcesInfo(x)", lookup, &SourceService::Get, x),
      MakeRow("ListSources()", value, &SourceService::List),
      MakeRow("ReloadSource(x)", change, &SourceService::Reload, Some(x)),
      MakeRow("ReloadSource(none)", change, &SourceService::Reload, boost::none),
      MakeRow("SourceFingerprint(x)", lookup, &SourceService::Fingerprint, Some(x)),
      MakeRow("SourceFingerprint(none)", lookup, &SourceService::Fingerprint, boost::none),
  };
}

void ExpectOutcome(const Outcome& outcome, const Outcome& expected, const Row& row) {
  EXPECT_EQ(outcome.values, expected.values) << row.container_call;
  EXPECT_EQ(outcome.errors, expected.errors) << row.container_call;
}

TEST(EveryMetamodelOperation, CallsTheContainerOnce) {
  for (const auto& row : Rows()) {
    for (const auto mood : {FakeMood::kKnowsAll, FakeMood::kKnowsNothing}) {
      const auto container = std::make_shared<FakeContainer>(mood);
      Outcome outcome;
      row.call(container, nullptr, outcome);
      EXPECT_THAT(container->Calls(), ElementsAre(row.container_call));
    }
  }
}

TEST(EveryMetamodelOperation, DeliversOnceExceptTheSuccessOfAChange) {
  for (const auto& row : Rows()) {
    Outcome known;
    row.call(std::make_shared<FakeContainer>(FakeMood::kKnowsAll), nullptr, known);
    ExpectOutcome(known, row.expected.known, row);
    Outcome unknown;
    row.call(std::make_shared<FakeContainer>(FakeMood::kKnowsNothing), nullptr, unknown);
    ExpectOutcome(unknown, row.expected.unknown, row);
  }
}

TEST(EveryMetamodelOperation, PassesOnAnExceptionAndDeliversNothing) {
  for (const auto& row : Rows()) {
    const auto container = std::make_shared<FakeContainer>(FakeMood::kThrows);
    Outcome outcome;
    try {
      row.call(container, nullptr, outcome);
      ADD_FAILURE() << row.container_call << " returned";
    } catch (const FakeFailure& failure) {
      EXPECT_EQ(failure.what(), row.container_call);
    }
    ExpectOutcome(outcome, {0, 0}, row);
  }
}

TEST(EveryMetamodelOperation, ThrowsOnAnEmptyResultOnlyIfItDelivers) {
  for (const auto& row : Rows()) {
    const auto unknowing = std::make_shared<FakeContainer>(FakeMood::kKnowsNothing);
    EXPECT_THROW(row.call_without_result(unknowing), std::bad_function_call) << row.container_call;
    const auto knowing = std::make_shared<FakeContainer>();
    if (row.expected.known.values == 0) {
      EXPECT_NO_THROW(row.call_without_result(knowing)) << row.container_call;
    } else {
      EXPECT_THROW(row.call_without_result(knowing), std::bad_function_call) << row.container_call;
    }
    EXPECT_THAT(knowing->Calls(), ElementsAre(row.container_call));
  }
}

TEST(EveryMetamodelOperation, KeepsNeitherTheActivationNorTheContainer) {
  for (const auto& row : Rows()) {
    const auto activation = std::make_shared<Core::AsyncActivation>();
    const auto container = std::make_shared<FakeContainer>();
    Outcome outcome;
    row.call(container, activation, outcome);
    EXPECT_EQ(activation.use_count(), 1) << row.container_call;
    EXPECT_EQ(container.use_count(), 1) << row.container_call;
  }
}

class MetamodelAnswers : public testing::Test {
 protected:
  /// What an operation of a service that has `container_` delivers as its value.
  template <typename Service, typename... Parameters, typename... Arguments>
  AnswerOf<Parameters...> Value(void (Service::*operation)(Parameters...),
                                const Arguments&... arguments) const {
    Service service(container_);
    return ValueOf(Ask(service, operation, arguments...));
  }

  const std::shared_ptr<FakeContainer> container_ = std::make_shared<FakeContainer>();
};

TEST_F(MetamodelAnswers, KeepTheListsOfTheContainer) {
  EXPECT_EQ(Value(&ComponentService::List), container_->names);
  EXPECT_EQ(Value(&EnumerationService::List), container_->names);
  EXPECT_EQ(Value(&PackageService::List), container_->names);
  EXPECT_EQ(Value(&ServiceService::List), container_->names);
  EXPECT_EQ(Value(&OperationService::List, "x"), container_->names);
  EXPECT_EQ(Value(&HiddenService::List), container_->names);
  EXPECT_EQ(Value(&StructureService::List), container_->names);
  EXPECT_EQ(Value(&SourceService::List), container_->names);
  EXPECT_EQ(Value(&ResourceService::List), container_->set);
  EXPECT_EQ(Value(&ModelService::List, "x"), container_->set);
}

TEST_F(MetamodelAnswers, KeepTheRecordsOfTheContainer) {
  EXPECT_EQ(Value(&ComponentService::Get, "x"), container_->component);
  EXPECT_EQ(Value(&EnumerationService::Get, "x"), container_->enumeration);
  EXPECT_EQ(Value(&PackageService::Get, "x"), container_->package);
  EXPECT_EQ(Value(&ServiceService::Get, "x"), container_->service);
  EXPECT_EQ(Value(&OperationService::Get, "x", "y"), container_->operation);
  EXPECT_EQ(Value(&StructureService::Get, "x"), container_->structure);
  EXPECT_EQ(Value(&SourceService::Get, "x"), container_->source);
}

TEST_F(MetamodelAnswers, KeepTheFingerprintsOfTheContainer) {
  EXPECT_EQ(Value(&ComponentService::Fingerprint, "x"), container_->fingerprint);
  EXPECT_EQ(Value(&SourceService::Fingerprint, boost::none), container_->fingerprint);
}

TEST(MetamodelChanges, DeliverTheErrorOfTheContainer) {
  const auto container = std::make_shared<FakeContainer>(FakeMood::kKnowsNothing);
  SourceService service(container);
  EXPECT_EQ(Ask(service, &SourceService::Create, "x", nullptr).error, container->error);
  EXPECT_EQ(Ask(service, &SourceService::Delete, "x").error, container->error);
  EXPECT_EQ(Ask(service, &SourceService::Reload, boost::none).error, container->error);
}

TEST(EmptyFingerprint, IsReportedWithoutAnId) {
  SourceService service(std::make_shared<FakeContainer>(FakeMood::kKnowsNothing));
  EXPECT_EQ(ErrorOf(Ask(service, &SourceService::Fingerprint, boost::none)),
            SourceNotFound<MetamodelUnderTest>("--"));
}

TEST(MetamodelServicesTogether, KeepTheirContainerAlive) {
  auto container = std::make_shared<FakeContainer>();
  const std::weak_ptr<FakeContainer> observer = container;
  auto first = std::make_unique<ComponentService>(container);
  auto second = std::make_unique<SourceService>(container);
  container.reset();
  EXPECT_EQ(observer.use_count(), 2);
  first.reset();
  EXPECT_EQ(ValueOf(Ask(*second, &SourceService::List)), observer.lock()->names);
  second.reset();
  EXPECT_TRUE(observer.expired());
}

TEST(MetamodelServicesTogether, CanBeCalledThroughTheirInterface) {
  ComponentService service(std::make_shared<FakeContainer>());
  Bindings::Metamodel::ComponentSvc::AsyncServiceInterface& interface = service;
  Delivery<std::string> delivery;
  interface.Fingerprint("x", nullptr, RecordIn(delivery));
  EXPECT_EQ(ValueOf(delivery), "digits");
}

}  // namespace
}  // namespace Zelk::Testing
