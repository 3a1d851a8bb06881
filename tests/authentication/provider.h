#pragma once

#include <memory>
#include <string>

#include <boost/none.hpp>
#include <boost/optional.hpp>

#include <zelk/async_result.h>
#include <zelk/md5.h>
#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/authentication/services.h>

#include "authentication/component_text.h"
#include "support/message_texts.h"
#include "support/temp_folder.h"

// The Authentication domain as a host sees it, for tests that include public headers only.

namespace Zelk::Testing {

namespace AuthProvider = ::Zelk::Provider::Metadata::Authentication;
using ::Com::Orvane::Zelk::Metadata::SourceType;
using SpecPtr = std::shared_ptr<const Bindings::Authentication::SourceSvc::CreateSpec>;

inline SpecPtr FileSpec(const std::string& path) {
  return std::make_shared<const Bindings::Authentication::SourceSvc::CreateSpec>(
      "foo", SourceType::LOCAL_FILE, path, boost::none);
}

/// What a service delivered: how often, and the last value or error.
template <typename T>
struct Delivery {
  int values = 0;
  int errors = 0;
  boost::optional<T> value;
  Lines error;
};

/// Calls `operation` of `service` with `arguments`, an activation and a result.
template <typename T, typename Service, typename Operation, typename... Arguments>
Delivery<T> Call(Service& service, Operation operation, const Arguments&... arguments) {
  Delivery<T> delivery;
  const AsyncResult<T> result([&delivery](const boost::optional<T>& value,
                                          const std::shared_ptr<const Data::ErrorValue>& error,
                                          const Core::AsyncContext&) {
    ++(error ? delivery.errors : delivery.values);
    delivery.value = value;
    if (error) delivery.error = ErrorTexts(*error);
  });
  (service.*operation)(arguments..., nullptr, result);
  return delivery;
}

/// The name of an error class and the one message of the error.
inline Lines NotFound(const std::string& id, const std::list<std::string>& arguments) {
  return {"com.orvane.zelk.std.errors.not_found", MessageText(id, arguments)};
}

inline std::string Md5(const std::string& text) {
  MD5 digest;
  digest.Update(text);
  return digest.hexdigest();
}

/// A container and files for it.
class Sources {
 public:
  AuthProvider::MetadataContainer* operator->() const { return container_.get(); }

  const std::shared_ptr<AuthProvider::MetadataContainer>& Container() const { return container_; }

  std::string Path(const std::string& id) const { return folder_.Path(id + ".json"); }

  void Write(const std::string& id, const std::string& json) const {
    folder_.Write(id + ".json", json);
  }

  /// Writes a source's file and registers it; the error's texts, none for success.
  Lines Create(const std::string& id, const std::string& json) const {
    Write(id, json);
    const auto error = container_->CreateSource(id, FileSpec(Path(id)));
    return error ? ErrorTexts(*error) : Lines();
  }

 private:
  TempFolder folder_;
  std::shared_ptr<AuthProvider::MetadataContainer> container_ =
      AuthProvider::MetadataContainer::GetInstance();
};

/// A file with one component; the schemes "x" and "y" are there to be named.
inline std::string ComponentFile(const std::string& name, const std::string& members) {
  return R"({"authentication": {"component": {"name": ")" + name + R"(", "schemes": {
      "x": {"authenticationScheme": "ex", "type": "SESSIONLESS"},
      "y": {"authenticationScheme": "why", "type": "SESSION_AWARE", "sessionManager": "sm"}},)" +
         members + "}}}";
}

}  // namespace Zelk::Testing
