// A host whose threads ask one container at the same time while its files change.
//
// The library locks nothing. Const operations may run at the same time; a change (create, reload,
// delete) must run alone. So queries lock a std::shared_mutex shared, and changes lock it
// exclusively. An answer belongs to the caller and is read without the lock.
#include <array>
#include <atomic>
#include <iostream>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <thread>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/metamodel/services.h>
#include <com/orvane/zelk/metadata/source_type.h>
#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>
#include <zelk/data/values.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>
#include <zelk/provider/metadata/metamodel/services.h>

namespace Bindings = Com::Orvane::Zelk::Metadata;
namespace Metamodel = Zelk::Provider::Metadata::Metamodel;

using ServicePtr = std::shared_ptr<const Bindings::Metamodel::ServiceInfo>;

class Host {
 public:
  void Create(const std::string& id, const std::string& file) {
    const auto spec = std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
        "our own interface", Bindings::SourceType::LOCAL_FILE, file, boost::none);
    const std::unique_lock<std::shared_mutex> alone(mutex_);
    sources_.Create(id, spec, activation_, Report());
  }

  void Reload(const std::string& id) {
    const std::unique_lock<std::shared_mutex> alone(mutex_);
    sources_.Reload(id, activation_, Report());
  }

  void Delete(const std::string& id) {
    const std::unique_lock<std::shared_mutex> alone(mutex_);
    sources_.Delete(id, activation_, Report());
  }

  /// Null for a service that no source describes at the moment.
  ServicePtr Find(const std::string& service) {
    ServicePtr found;
    const std::shared_lock<std::shared_mutex> together(mutex_);
    // The operation calls its result before it returns, while the lock is held. So the result must
    // not lock again: it only keeps the answer.
    services_.Get(
        service, activation_,
        Zelk::AsyncResult<ServicePtr>([&found](const auto& answer, const auto&, const auto&) {
          found = answer.value_or(nullptr);
        }));
    return found;
  }

  /// Whether every change so far has succeeded.
  bool Ok() const { return failures_ == 0; }

 private:
  Zelk::AsyncResult<Zelk::Void> Report() {
    return Zelk::AsyncResult<Zelk::Void>([this](const auto&, const auto& error, const auto&) {
      if (!error) return;
      ++failures_;
      std::cerr << error->Name() << '\n';
    });
  }

  std::shared_mutex mutex_;
  std::atomic<int> failures_{0};
  // One container for the services of the domain, and so one mutex for all of them.
  const std::shared_ptr<Metamodel::MetadataContainer> container_ =
      Metamodel::MetadataContainer::GetInstance();
  Metamodel::SourceSvc::AsyncServiceImpl sources_{container_};
  Metamodel::ServiceSvc::AsyncServiceImpl services_{container_};
  const std::shared_ptr<Zelk::Core::AsyncActivation> activation_ =
      std::make_shared<Zelk::Core::AsyncActivation>();
};

int main(int argc, char** argv) {
  const std::string file = argc > 1 ? argv[1] : "metadata/metamodel/zelk-metadata.json";
  Host host;
  host.Create("own", file);

  std::atomic<bool> done{false};
  std::atomic<int> wrong{0};
  const auto read = [&] {
    while (!done) {
      const auto service = host.Find("com.orvane.zelk.metadata.metamodel.component");
      // Between delete and create the service does not exist. A record that was found stays as it
      // is.
      if (service && service->operations.size() != 3) ++wrong;
      std::this_thread::yield();
    }
  };
  std::array<std::thread, 4> readers;
  for (auto& reader : readers) reader = std::thread(read);
  for (int round = 0; round < 5; ++round) {
    host.Reload("own");
    host.Delete("own");
    host.Create("own", file);
  }
  done = true;
  for (auto& reader : readers) reader.join();

  const auto service = host.Find("com.orvane.zelk.metadata.metamodel.component");
  if (!host.Ok() || wrong > 0 || !service) return 1;
  for (const auto& [name, operation] : service->operations) std::cout << name << '\n';
}
