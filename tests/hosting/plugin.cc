#include "hosting/plugin.h"

#include <zelk/provider/metadata/metamodel/metadata_container.h>

namespace Metamodel = Zelk::Provider::Metadata::Metamodel;
namespace Bindings = ::Com::Orvane::Zelk::Metadata;

extern "C" __attribute__((visibility("default"))) int ServicesOf(const char* file) {
  const auto container = Metamodel::MetadataContainer::GetInstance();
  const auto spec = std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
      "foo", Bindings::SourceType::LOCAL_FILE, std::string(file), boost::none);
  if (const auto error = container->CreateSource("foo", spec)) {
    const auto messages = error->Field("messages");
    const auto& list = dynamic_cast<const Zelk::Data::ListValue&>(*messages);
    return -static_cast<int>(list.Elements().size());
  }
  container->ReloadSource(boost::none);
  return static_cast<int>(container->ListServices().size());
}
