// A host that loads one metadata file and lists the services it describes.
#include <iostream>

#include <zelk/provider/metadata/metamodel/services.h>

namespace Bindings = Com::Orvane::Zelk::Metadata;
namespace Metamodel = Zelk::Provider::Metadata::Metamodel;

int main(int argc, char** argv) {
  const std::string file = argc > 1 ? argv[1] : "metadata/metamodel/zelk-metadata.json";
  const auto container = Metamodel::MetadataContainer::GetInstance();  // one for the whole domain
  Metamodel::SourceSvc::AsyncServiceImpl sources(container);
  Metamodel::ServiceSvc::AsyncServiceImpl services(container);
  const auto activation = std::make_shared<Zelk::Core::AsyncActivation>();

  const auto spec = std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
      "our own interface", Bindings::SourceType::LOCAL_FILE, file, boost::none);
  sources.Create("own", spec, activation,
                 Zelk::AsyncResult<Zelk::Void>([](const auto&, const auto& error, const auto&) {
                   if (error) std::cerr << error->Name() << '\n';
                 }));
  services.List(activation, Zelk::AsyncResult<std::list<std::string>>(
                                [](const auto& names, const auto&, const auto&) {
                                  for (const auto& name : *names) std::cout << name << '\n';
                                }));
}
