#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <com/orvane/zelk/metadata/cli/enumerations.h>
#include <com/orvane/zelk/metadata/source_type.h>

// The records from which a command-line client builds its namespaces and commands. A record is
// built whole and then shared as a pointer to const. Lists keep the order of the definition.

namespace Com::Orvane::Zelk::Metadata::Cli {

/// The place of a namespace or a command in the tree. Identities order by path, then name, each by
/// its bytes.
struct ZELK_STD_BINDINGS_EXPORT TreeIdentity {
  TreeIdentity(std::string path, std::string name);

  /// The dotted full name of the namespace around it; empty at the top level.
  std::string path;

  std::string name;
};

ZELK_STD_BINDINGS_EXPORT bool operator==(const TreeIdentity& left, const TreeIdentity& right);
ZELK_STD_BINDINGS_EXPORT bool operator!=(const TreeIdentity& left, const TreeIdentity& right);
ZELK_STD_BINDINGS_EXPORT bool operator<(const TreeIdentity& left, const TreeIdentity& right);

namespace NamespaceSvc {

/// Of the root namespace, path and name are both empty.
struct ZELK_STD_BINDINGS_EXPORT Identity : TreeIdentity {
  using TreeIdentity::TreeIdentity;
};

struct ZELK_STD_BINDINGS_EXPORT Info {
  Info();
  Info(std::shared_ptr<const Identity> identity, std::string description,
       std::list<std::shared_ptr<const Identity>> children);

  /// Null in a default-constructed record only.
  std::shared_ptr<const Identity> identity;

  std::string description;

  /// The namespaces directly in this one, in the order registered. The root lists itself too.
  std::list<std::shared_ptr<const Identity>> children;
};

}  // namespace NamespaceSvc

namespace CommandSvc {

struct ZELK_STD_BINDINGS_EXPORT Identity : TreeIdentity {
  using TreeIdentity::TreeIdentity;
};

/// One option of a command and the input field that it fills.
struct ZELK_STD_BINDINGS_EXPORT OptionInfo {
  OptionInfo(std::string long_option, boost::optional<std::string> short_option,
             std::string field_name, std::string description, std::string type,
             GenericType generic);

  std::string long_option;
  boost::optional<std::string> short_option;
  std::string field_name;
  std::string description;

  /// As written in the file.
  std::string type;

  GenericType generic;
};

/// One column or line of what a command shows.
struct ZELK_STD_BINDINGS_EXPORT OutputFieldInfo {
  OutputFieldInfo(std::string field_name, std::string display_name);

  std::string field_name;
  std::string display_name;
};

/// What is shown of one result structure.
struct ZELK_STD_BINDINGS_EXPORT OutputInfo {
  OutputInfo(std::string structure_id,
             std::list<std::shared_ptr<const OutputFieldInfo>> output_fields);

  std::string structure_id;
  std::list<std::shared_ptr<const OutputFieldInfo>> output_fields;
};

/// A command and the service operation that it calls.
struct ZELK_STD_BINDINGS_EXPORT Info {
  Info();
  Info(std::shared_ptr<const Identity> identity, std::string description, std::string service_id,
       std::string operation_id, std::list<std::shared_ptr<const OptionInfo>> options,
       boost::optional<FormatterType> formatter,
       std::list<std::shared_ptr<const OutputInfo>> output_field_list);

  /// Null in a default-constructed record only.
  std::shared_ptr<const Identity> identity;

  std::string description;
  std::string service_id;
  std::string operation_id;
  std::list<std::shared_ptr<const OptionInfo>> options;

  /// Empty when the command names none.
  boost::optional<FormatterType> formatter;

  std::list<std::shared_ptr<const OutputInfo>> output_field_list;
};

}  // namespace CommandSvc

namespace SourceSvc {

/// What a client gives to register a source.
struct ZELK_STD_BINDINGS_EXPORT CreateSpec : SourceDescription {
  using SourceDescription::SourceDescription;
};

/// What a registered source was made from.
struct ZELK_STD_BINDINGS_EXPORT Info : SourceDescription {
  using SourceDescription::SourceDescription;
};

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Cli
