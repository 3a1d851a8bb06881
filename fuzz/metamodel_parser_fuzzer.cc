#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "fuzz/support/parser_check.h"
#include "metamodel/json_metadata_parser.h"
#include "metamodel/source_data.h"
#include "support/as_source.h"
#include "support/record_dump.h"

namespace Zelk::Provider::Metadata::Metamodel {
namespace {

using Fuzzing::Check;
using Fuzzing::Outcome;
using Testing::Quoted;

std::string DumpOf(const SourceData& source) {
  std::string text = Testing::DumpAll(source.components);
  for (const auto& [resource, models] : source.resources) {
    text += "resource " + Quoted(resource);
    for (const auto& model : models) text += " " + Quoted(model);
    text += "\n";
  }
  return text;
}

void CheckSource(const SourceData& source, bool ok) {
  Check(source.components.size() == (ok ? 1 : 0),
        "a good file gives one component, a bad one none");
  for (const auto& [name, component] : source.components) {
    Check(component != nullptr && component->name == name, "a component is known by its name");
  }
  Fuzzing::CheckComplete(Testing::DumpAll(source.components),
                         {"null", "!", "nothing", "UNKNOWN", "<>", "<,", ", >", ": \n",
                          ":  =", "=none", "=structure", "STRING none"});
}

template <typename Source>
Outcome Load(Source&& in) {
  SourceData source(std::make_shared<const Bindings::Metamodel::SourceSvc::CreateSpec>(
      "", ::Com::Orvane::Zelk::Metadata::SourceType::LOCAL_FILE, boost::none, boost::none));
  const JsonMetadataParser::RegisterCallbacks callbacks{
      [&](const std::shared_ptr<Bindings::Metamodel::ComponentInfo>& component) {
        source.RegisterComponentNode(component);
      },
      [&](const std::string& resource_id) { source.RegisterResoure(resource_id); },
      [&](const std::string& resource_id, const std::string& structure) {
        source.RegisterModel(resource_id, structure);
      }};
  Errors errors;
  const bool ok = JsonMetadataParser::LoadMetadata(Testing::AsSource(in), callbacks, errors);
  CheckSource(source, ok);
  return {ok, DumpOf(source), Testing::MessageTexts(errors)};
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Metamodel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Zelk::Fuzzing::CheckParser(
      Zelk::Fuzzing::TextOf(data, size), "zelk.metadata.metamodel.parse.error",
      [](auto&& in) { return Zelk::Provider::Metadata::Metamodel::Load(in); });
  return 0;
}
