// A host that loads one metadata file and lists the services it describes.
#include <iostream>
#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/metamodel/services.h>
#include <com/orvane/zelk/metadata/source_type.h>
#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>
#include <zelk/data/values.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>
#include <zelk/provider/metadata/metamodel/services.h>

namespace Bindings = Com::Orvane::Zelk::Metadata;
namespace Data = Zelk::Data;
namespace Metamodel = Zelk::Provider::Metadata::Metamodel;

template <typename T>
const T& As(const std::shared_ptr<const Data::DataValue>& value) {
  return dynamic_cast<const T&>(*value);
}

// Prints the error's name and, of each message, the default text and the arguments.
void Print(const Data::ErrorValue& error) {
  std::cerr << error.Name() << '\n';
  for (const auto& element : As<Data::ListValue>(error.Field("messages")).Elements()) {
    const auto& message = As<Data::StructValue>(element);
    std::cerr << "  " << As<Data::StringValue>(message.Field("default_text")).Value();
    for (const auto& argument : As<Data::ListValue>(message.Field("arguments")).Elements()) {
      std::cerr << " | " << As<Data::StringValue>(argument).Value();
    }
    std::cerr << '\n';
  }
}

int main(int argc, char** argv) {
  const std::string file = argc > 1 ? argv[1] : "metadata/metamodel/zelk-metadata.json";
  const auto container = Metamodel::MetadataContainer::GetInstance();  // one for the whole domain
  Metamodel::SourceSvc::AsyncServiceImpl sources(container);
  Metamodel::ServiceSvc::AsyncServiceImpl services(container);
  const auto activation = std::make_shared<Zelk::Core::AsyncActivation>();

  const auto spec = std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
      "our own interface", Bindings::SourceType::LOCAL_FILE, file, boost::none);
  bool failed = false;
  sources.Create("own", spec, activation,
                 Zelk::AsyncResult<Zelk::Void>([&](const auto&, const auto& error, const auto&) {
                   // Called for an error only: this domain does not report the success of a change.
                   failed = true;
                   Print(*error);
                 }));
  services.List(activation, Zelk::AsyncResult<std::list<std::string>>(
                                [](const auto& names, const auto&, const auto&) {
                                  for (const auto& name : *names) std::cout << name << '\n';
                                }));
  return failed ? 1 : 0;
}
