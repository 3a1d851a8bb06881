#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <com/orvane/zelk/metadata/cli/enumerations.h>
#include <com/orvane/zelk/metadata/source_type.h>

// The records from which a command-line client builds its namespaces and commands. A record is
// complete when it is made, and is then shared as a pointer to const. Lists keep the order of the
// file.

namespace Com::Orvane::Zelk::Metadata::Cli {

/// The place of a namespace or a command in the tree. Identities order by path, then name, each by
/// its bytes.
struct ZELK_STD_BINDINGS_EXPORT TreeIdentity {
  TreeIdentity(std::string path, std::string name);

  /// The full name of the namespace that contains it, with full stops; empty at the top level.
  std::string path;

  std::string name;
};

ZELK_STD_BINDINGS_EXPORT bool operator==(const TreeIdentity& left, const TreeIdentity& right);
ZELK_STD_BINDINGS_EXPORT bool operator!=(const TreeIdentity& left, const TreeIdentity& right);
ZELK_STD_BINDINGS_EXPORT bool operator<(const TreeIdentity& left, const TreeIdentity& right);

namespace NamespaceSvc {

/// Identifies a namespace. Path and name of the root are empty.
struct ZELK_STD_BINDINGS_EXPORT Identity : TreeIdentity {
  using TreeIdentity::TreeIdentity;
};

/// A namespace and those directly in it.
struct ZELK_STD_BINDINGS_EXPORT Info {
  Info();
  Info(std::shared_ptr<const Identity> identity, std::string description,
       std::list<std::shared_ptr<const Identity>> children);

  /// Null in a default-constructed record only.
  std::shared_ptr<const Identity> identity;

  std::string description;

  /// The namespaces directly in this one, in the order of the file. The root lists itself too.
  std::list<std::shared_ptr<const Identity>> children;
};

}  // namespace NamespaceSvc

namespace CommandSvc {

/// Identifies a command.
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

  /// The name of the type as it is in the file; not interpreted.
  std::string type;

  GenericType generic;
};

/// One field of a result that a command shows, as a column or a line.
struct ZELK_STD_BINDINGS_EXPORT OutputFieldInfo {
  OutputFieldInfo(std::string field_name, std::string display_name);

  std::string field_name;
  std::string display_name;
};

/// The fields that are shown of one result structure.
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

  /// Empty if the file names none.
  boost::optional<FormatterType> formatter;

  std::list<std::shared_ptr<const OutputInfo>> output_field_list;
};

}  // namespace CommandSvc

namespace SourceSvc {

/// What a source is to be created with.
struct ZELK_STD_BINDINGS_EXPORT CreateSpec : SourceDescription {
  using SourceDescription::SourceDescription;
};

/// What a source was created with.
struct ZELK_STD_BINDINGS_EXPORT Info : SourceDescription {
  using SourceDescription::SourceDescription;
};

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Cli
