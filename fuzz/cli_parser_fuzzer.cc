#include <cstdint>
#include <memory>
#include <string>

#include "cli/metadata_parser.h"
#include "cli/source_data.h"
#include "fuzz/support/parser_check.h"
#include "support/as_source.h"
#include "support/cli_text.h"

namespace Zelk::Provider::Metadata::Cli {
namespace {

using Fuzzing::Check;
using Fuzzing::Outcome;
using Testing::CliText;

std::string DumpOf(const SourceData& source) {
  std::string text;
  for (const auto& [identity, info] : source.namespaces) text += CliText(*info) + "\n";
  for (const auto& [identity, info] : source.commands) text += CliText(*info) + "\n";
  return text;
}

/// The namespace that a path names, split at its last full stop; the root for an empty path.
NamespaceIdentityPtr ParentOf(const Bindings::Cli::TreeIdentity& identity) {
  const auto& path = identity.path;
  const auto name_begin = path.find_last_of('.') + 1;  // 0 when there is none
  return std::make_shared<Bindings::Cli::NamespaceSvc::Identity>(
      path.substr(0, name_begin == 0 ? 0 : name_begin - 1), path.substr(name_begin));
}

/// The namespaces are one tree: from each of them the way up ends at the root.
void CheckTree(const SourceData& source) {
  for (const auto& [identity, info] : source.namespaces) {
    Check(*identity == *info->identity, "a namespace is known by its identity");
    Check(source.namespaces.count(ParentOf(*identity)) == 1,
          "the namespace around " + CliText(*identity) + " is there");
    for (const auto& child : info->children) {
      Check(*ParentOf(*child) == *identity, "children are listed where their path says");
      Check(source.namespaces.count(child) == 1, "children are there");
    }
  }
  for (const auto& [identity, info] : source.commands) {
    Check(*identity == *info->identity, "a command is known by its identity");
  }
}

template <typename Source>
Outcome Load(Source&& in) {
  SourceData source(std::make_shared<const Bindings::Cli::SourceSvc::CreateSpec>(
      "", ::Com::Orvane::Zelk::Metadata::SourceType::LOCAL_FILE, boost::none, boost::none));
  Errors errors;
  const bool ok = MetadataParser::LoadMetadata(
      Testing::AsSource(in), [&](const NamespacePtr& info) { source.RegisterNsNode(info); },
      [&](const std::shared_ptr<Bindings::Cli::CommandSvc::Info>& info) {
        source.commands[info->identity] = info;
      },
      errors);
  CheckTree(source);
  return {ok, DumpOf(source), Testing::MessageTexts(errors)};
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Cli

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Zelk::Fuzzing::CheckParser(Zelk::Fuzzing::TextOf(data, size), "zelk.metadata.cli.parse.error",
                             [](auto&& in) { return Zelk::Provider::Metadata::Cli::Load(in); });
  return 0;
}
