#pragma once

#include <istream>
#include <memory>
#include <string>

#include <com/orvane/zelk/metadata/cli/records.h>

#include "common/json/json_member.h"

namespace Zelk::Provider::Metadata::Cli {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// Reads CLI files. Has no state. Every operation appends its messages to `errors`. The callbacks
/// are called with a pointer to the new Info of each namespace and each command, in document order.
class MetadataParser {
 public:
  /// Reads one file. Returns true if all of it was read. Stops at the first bad node, after the
  /// callbacks were called for those before it.
  template <typename NamespaceCallback, typename CommandCallback>
  static bool LoadMetadata(std::istream& in, const NamespaceCallback& on_namespace,
                           const CommandCallback& on_command, Errors& errors) {
    return LoadMetadata(TextBuffer(ReadAll(in)), on_namespace, on_command, errors);
  }

  template <typename NamespaceCallback, typename CommandCallback>
  static bool LoadMetadata(TextBuffer text, const NamespaceCallback& on_namespace,
                           const CommandCallback& on_command, Errors& errors) {
    JsonDocument document(std::move(text));
    if (!document.Parse(MessageId::kCliParseError, errors)) return false;
    const JsonValue* nodes = FindMember(document.Root(), "cli", errors);
    return nodes != nullptr && FillMaps(*nodes, on_namespace, on_command, errors);
  }

  template <typename NamespaceCallback, typename CommandCallback>
  static bool FillMaps(const JsonValue& value, const NamespaceCallback& on_namespace,
                       const CommandCallback& on_command, Errors& errors) {
    if (!value.IsArray()) return Fail(MessageId::kCliInvalidField, "cli", errors);
    for (const auto& node : value.GetArray()) {  // checked: above
      if (!ParseNode(node, on_namespace, on_command, errors)) return false;
    }
    return true;
  }

  template <typename NamespaceCallback, typename CommandCallback>
  static bool ParseNode(const JsonValue& value, const NamespaceCallback& on_namespace,
                        const CommandCallback& on_command, Errors& errors) {
    JsonMember<std::string> type(value, "type", errors);
    if (!type.Ok()) return false;
    if (type.Value() == "command") return ParseCommandNode(value, on_command, errors);
    // Intended(cli-message-words): the argument is the name of the key and not its value.
    if (type.Value() != "namespace") return Fail(MessageId::kCliInvalidNodeType, "type", errors);
    using Bindings::Cli::NamespaceSvc::Identity;
    using Bindings::Cli::NamespaceSvc::Info;
    const auto info = ParseInfoNode<Identity, Info>(value, errors);
    if (!info) return false;
    on_namespace(info);
    return true;
  }

  /// Reads the members that namespaces and commands have in common. Returns null on failure.
  template <typename Identity, typename Info>
  static std::shared_ptr<Info> ParseInfoNode(const JsonValue& value, Errors& errors) {
    JsonMember<std::string> path(value, "path", errors);
    if (!path.Ok()) return nullptr;
    JsonMember<std::string> name(value, "name", errors);
    if (!name.Ok()) return nullptr;
    JsonMember<std::string> description(value, "description", errors);
    if (!description.Ok()) return nullptr;
    auto info = std::make_shared<Info>();
    info->identity = std::make_shared<const Identity>(path.Take(), name.Take());
    info->description = description.Take();
    return info;
  }

  template <typename CommandCallback>
  static bool ParseCommandNode(const JsonValue& value, const CommandCallback& on_command,
                               Errors& errors) {
    using Bindings::Cli::CommandSvc::Identity;
    using Bindings::Cli::CommandSvc::Info;
    const auto info = ParseInfoNode<Identity, Info>(value, errors);
    if (!info) return false;
    const JsonValue* metadata = FindMember(value, "node_metadata", errors);
    if (metadata == nullptr || !ParseCommandMetadata(*metadata, *info, errors)) return false;
    on_command(info);
    return true;
  }

  static bool ParseCommandMetadata(const JsonValue& value, Bindings::Cli::CommandSvc::Info& info,
                                   Errors& errors);
  static std::shared_ptr<const Bindings::Cli::CommandSvc::OptionInfo> ParseOptionInfo(
      const JsonValue& value, Errors& errors);
  static std::shared_ptr<const Bindings::Cli::CommandSvc::OutputInfo> ParseFieldInfo(
      const JsonValue& value, Errors& errors);
  static std::shared_ptr<const Bindings::Cli::CommandSvc::OutputFieldInfo> ParseMemberInfo(
      const JsonValue& value, Errors& errors);

 private:
  /// Appends the message and returns false.
  static bool Fail(const char* message_id, const char* argument, Errors& errors);
};

}  // namespace Zelk::Provider::Metadata::Cli
