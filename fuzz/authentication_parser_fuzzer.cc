#include <cstdint>
#include <memory>
#include <string>

#include "authentication/json_metadata_parser.h"
#include "authentication/source_data.h"
#include "fuzz/support/parser_check.h"
#include "support/as_source.h"
#include "support/authentication_text.h"

namespace Zelk::Provider::Metadata::Authentication {
namespace {

using Fuzzing::Check;
using Fuzzing::Outcome;

std::string DumpOf(const SourceData& source) {
  std::string text;
  for (const auto& [name, component] : source.components) {
    text += Testing::ComponentText(name, *component);
  }
  return text;
}

/// Services know their package by their id, which is split at its last full stop.
void CheckIds(const SourceData& source) {
  for (const auto& [component_name, component] : source.components) {
    for (const auto& [package_name, package] : component->packages) {
      for (const auto& [id, service] : package->services) {
        Check(id.size() > package_name.size() + 1 && id.rfind('.') == package_name.size() &&
                  id.compare(0, package_name.size(), package_name) == 0,
              "a service is in its own package: " + id + " in " + package_name);
        for (const auto& [operation_name, operation] : service->operations) {
          Check(!operation_name.empty() && operation_name.find('.') == std::string::npos,
                "an operation is known by its name alone: " + operation_name);
        }
      }
    }
  }
}

void CheckSource(const SourceData& source) {
  Check(source.components.size() <= 2, "a file has two components at most");
  CheckIds(source);
  Fuzzing::CheckComplete(DumpOf(source), {"!", "UNKNOWN", "@none"});
}

template <typename Source>
Outcome Load(Source&& in) {
  SourceData source(std::make_shared<const Bindings::Authentication::SourceSvc::CreateSpec>(
      "", ::Com::Orvane::Zelk::Metadata::SourceType::LOCAL_FILE, boost::none, boost::none));
  Errors errors;
  const bool ok = JsonMetadataParser::LoadMetadata(
      Testing::AsSource(in),
      [&](const std::string& name,
          const std::shared_ptr<Bindings::Authentication::ComponentInfo>& component) {
        source.RegisterComponentNode(name, component);
      },
      errors);
  Check(ok || source.components.empty(), "a refused file has no good component");
  CheckSource(source);
  return {ok, DumpOf(source), Testing::MessageTexts(errors)};
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Authentication

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Zelk::Fuzzing::CheckParser(
      Zelk::Fuzzing::TextOf(data, size), "zelk.metadata.authentication.parse.error",
      [](auto&& in) { return Zelk::Provider::Metadata::Authentication::Load(in); });
  return 0;
}
