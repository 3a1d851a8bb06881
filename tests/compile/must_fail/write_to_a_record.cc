#include <zelk/provider/metadata/metamodel/metadata_container.h>

void Rename(const Zelk::Provider::Metadata::Metamodel::MetadataContainer& container) {
  const auto package = container.PackageInfo("foo");
#ifdef MUST_FAIL
  package->name = "bar";
#else
  static_cast<void>(package->name);
#endif
}
