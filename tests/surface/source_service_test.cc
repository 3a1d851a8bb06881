#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/domains_under_test.h"

// The source service, with the container that a host gives it.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <typename Domain>
class SourceService : public testing::Test {
 protected:
  using Service = typename Domain::SourceService;
  using Change = Delivery<Void>;

  Change Create(const std::string& id, const std::string& text) {
    return Ask(service_, &Service::Create, id, sources_.At(sources_.Write(id, text)));
  }

  Change Delete(const std::string& id) { return Ask(service_, &Service::Delete, id); }

  Change Reload(const OptionalText& id) { return Ask(service_, &Service::Reload, id); }

  auto Get(const std::string& id) { return Ask(service_, &Service::Get, id); }

  auto List() { return Ask(service_, &Service::List); }

  auto Fingerprint(const OptionalText& id) { return Ask(service_, &Service::Fingerprint, id); }

  /// The change succeeded; success was delivered once or not at all, as in its domain.
  static void ExpectDone(const Change& change) {
    EXPECT_EQ(change.calls, Domain::kDeliversSuccess ? 1 : 0);
    EXPECT_EQ(change.error, nullptr);
    EXPECT_EQ(change.value.has_value(), Domain::kDeliversSuccess);
  }

  const Sources<Domain> sources_{};
  Service service_{sources_.Shared()};
};

TYPED_TEST_SUITE(SourceService, DomainsUnderTest, DomainName);

TYPED_TEST(SourceService, DeliversSuccessIfItsDomainDoes) {
  this->ExpectDone(this->Create("m", TypeParam::File("foo")));
  EXPECT_THAT(this->sources_.Names(), ElementsAre("foo"));
  this->sources_.WriteRecord("m", "bar");
  this->ExpectDone(this->Reload(Some("m")));
  EXPECT_THAT(this->sources_.Names(), ElementsAre("bar"));
  this->sources_.WriteRecord("m", "qux");
  this->ExpectDone(this->Reload(boost::none));
  EXPECT_THAT(this->sources_.Names(), ElementsAre("qux"));
  this->ExpectDone(this->Delete("m"));
  EXPECT_THAT(this->sources_->ListSources(), IsEmpty());
}

TYPED_TEST(SourceService, DeliversNoErrorForAFailedReload) {
  this->ExpectDone(this->Create("m", TypeParam::File("foo")));
  this->sources_.Write("m", "{");
  this->ExpectDone(this->Reload(Some("m")));
  this->ExpectDone(this->Reload(boost::none));
  EXPECT_THAT(this->sources_.Names(), ElementsAre("foo"));
}

TYPED_TEST(SourceService, DeliversErrorsOfCreate) {
  const auto missing = this->sources_.At(this->sources_.Path("missing"));
  EXPECT_EQ(ErrorOf(this->Create("m", "{")), (ParseError<TypeParam>(4, 1)));
  EXPECT_EQ(ErrorOf(this->Create("m", "{}")), MissingFieldError(TypeParam::kRootKey));
  EXPECT_EQ(ErrorOf(Ask(this->service_, &TypeParam::SourceService::Create, "m", missing)),
            FileNotFound<TypeParam>(this->sources_.Path("missing")));
  this->ExpectDone(this->Create("m", TypeParam::File("foo")));
  EXPECT_EQ(ErrorOf(this->Create("m", TypeParam::File("bar"))), AlreadyExists<TypeParam>("m"));
  EXPECT_THAT(this->sources_.Names(), ElementsAre("foo"));
}

TYPED_TEST(SourceService, RefusesOtherSourceTypes) {
  const std::string path = this->sources_.WriteRecord("m", "foo");
  const auto create = [&](const SourceType& type) {
    return ErrorOf(Ask(
        this->service_, &TypeParam::SourceService::Create, "m",
        std::make_shared<const typename TypeParam::CreateSpec>("foo", type, path, boost::none)));
  };
  EXPECT_EQ(create(SourceType::REMOTE), Lines{kUnsupportedError});
  EXPECT_EQ(create(SourceType()), Lines{kInvalidArgumentError});
  EXPECT_EQ(create(SourceType::Unknown("FOO")), Lines{kInvalidArgumentError});
  EXPECT_THAT(this->sources_->ListSources(), IsEmpty());
}

TYPED_TEST(SourceService, ReportsUnknownSources) {
  this->ExpectDone(this->Create("m", TypeParam::File("foo")));
  for (const std::string id : {"x", "", "M", "a b"}) {
    EXPECT_EQ(ErrorOf(this->Delete(id)), SourceNotFound<TypeParam>(id)) << id;
    EXPECT_EQ(ErrorOf(this->Get(id)), SourceNotFound<TypeParam>(id)) << id;
    EXPECT_EQ(ErrorOf(this->Fingerprint(Some(id))), SourceNotFound<TypeParam>(" " + id)) << id;
    EXPECT_EQ(ErrorOf(this->Reload(Some(id))), CannotReload<TypeParam>(id)) << id;
  }
}

TYPED_TEST(SourceService, DeliversListsRecordsAndFingerprints) {
  this->ExpectDone(this->Create("n", TypeParam::File("foo")));
  this->ExpectDone(this->Create("m", TypeParam::File("bar")));
  EXPECT_THAT(ValueOf(this->List()), ElementsAre("m", "n"));
  EXPECT_EQ(ValueOf(this->Get("n")), this->sources_->SourcesInfo("n"));
  const std::string foo = Md5(TypeParam::File("foo"));
  const std::string bar = Md5(TypeParam::File("bar"));
  EXPECT_EQ(ValueOf(this->Fingerprint(Some("n"))), Md5(foo));
  EXPECT_EQ(ValueOf(this->Fingerprint(boost::none)), Md5(bar + foo));
}

TYPED_TEST(SourceService, DeliversAnEmptyListWithoutSources) {
  EXPECT_THAT(ValueOf(this->List()), IsEmpty());
  EXPECT_EQ(ValueOf(this->Fingerprint(boost::none)), kDigestOfNothing);
  this->ExpectDone(this->Reload(boost::none));
}

TYPED_TEST(SourceService, ThrowsOnAnEmptyResultOnlyIfItDelivers) {
  const AsyncResult<Void> empty_result;
  const auto spec = this->sources_.At(this->sources_.WriteRecord("m", "foo"));
  const std::vector<std::function<void()>> changes = {
      [&] { this->service_.Create("m", spec, nullptr, empty_result); },
      [&] { this->service_.Reload(Some("m"), nullptr, empty_result); },
      [&] { this->service_.Reload(boost::none, nullptr, empty_result); },
      [&] { this->service_.Delete("m", nullptr, empty_result); },
  };
  for (std::size_t index = 0; index < changes.size(); ++index) {
    if (TypeParam::kDeliversSuccess) {
      EXPECT_THROW(changes[index](), std::bad_function_call) << index;
    } else {
      EXPECT_NO_THROW(changes[index]()) << index;
    }
  }
  EXPECT_THAT(this->sources_->ListSources(), IsEmpty());
}

TYPED_TEST(SourceService, ThrowsOnAnEmptyResultForAnErrorOrAnswer) {
  const AsyncResult<Void> empty_result;
  EXPECT_THROW(this->service_.Create("m", nullptr, nullptr, empty_result), std::bad_function_call);
  EXPECT_THROW(this->service_.Delete("m", nullptr, empty_result), std::bad_function_call);
  EXPECT_THROW(this->service_.Reload(Some("m"), nullptr, empty_result), std::bad_function_call);
  ASSERT_EQ(this->sources_.Create("n", TypeParam::File("foo")), Lines());
  EXPECT_THROW(this->service_.Get("n", nullptr, {}), std::bad_function_call);
  EXPECT_THROW(this->service_.Get("m", nullptr, {}), std::bad_function_call);
  EXPECT_THROW(this->service_.List(nullptr, {}), std::bad_function_call);
  EXPECT_THROW(this->service_.Fingerprint(boost::none, nullptr, {}), std::bad_function_call);
  EXPECT_THROW(this->service_.Fingerprint(Some("m"), nullptr, {}), std::bad_function_call);
}

TYPED_TEST(SourceService, PassesOnAnExceptionOfTheCallback) {
  const AsyncResult<std::list<std::string>> list(
      [](const auto&, const auto&, const auto&) { throw std::domain_error("foo"); });
  const AsyncResult<Void> change(
      [](const auto&, const auto&, const auto&) { throw std::domain_error("bar"); });
  EXPECT_THROW(this->service_.List(nullptr, list), std::domain_error);
  EXPECT_THROW(this->service_.Delete("m", nullptr, change), std::domain_error);
}

TYPED_TEST(SourceService, SharesItsContainer) {
  typename TypeParam::SourceService other(this->sources_.Shared());
  typename TypeParam::SourceService stranger(TypeParam::Container::GetInstance());
  this->ExpectDone(this->Create("m", TypeParam::File("foo")));
  EXPECT_THAT(ValueOf(Ask(other, &TypeParam::SourceService::List)), ElementsAre("m"));
  EXPECT_THAT(ValueOf(Ask(stranger, &TypeParam::SourceService::List)), IsEmpty());
}

TYPED_TEST(SourceService, KeepsItsContainerAlive) {
  std::weak_ptr<typename TypeParam::Container> container;
  {
    auto instance = TypeParam::Container::GetInstance();
    container = instance;
    typename TypeParam::SourceService service(std::move(instance));
    EXPECT_EQ(container.use_count(), 1);
    EXPECT_THAT(ValueOf(Ask(service, &TypeParam::SourceService::List)), IsEmpty());
  }
  EXPECT_TRUE(container.expired());
}

}  // namespace
}  // namespace Zelk::Testing
