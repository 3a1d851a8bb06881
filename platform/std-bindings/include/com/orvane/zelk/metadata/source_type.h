#pragma once

#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <zelk/enum.h>

namespace Com::Orvane::Zelk::Metadata {

/// Where the metadata of a source comes from.
class ZELK_STD_BINDINGS_EXPORT SourceType : public ::Zelk::GeneratedEnum<SourceType> {
 public:
  enum Enumerator { LOCAL_FILE, REMOTE, UNKNOWN };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  SourceType() : GeneratedEnum(UNKNOWN) {}

  SourceType(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

/// The description of a source. Each domain derives its own SourceSvc::CreateSpec and
/// SourceSvc::Info, so that the compiler keeps the domains apart.
struct ZELK_STD_BINDINGS_EXPORT SourceDescription {
  SourceDescription(std::string description, SourceType type,
                    boost::optional<std::string> file_path, boost::optional<std::string> address);

  /// Free text for people.
  std::string description;

  SourceType type;

  /// The file that holds the metadata, for LOCAL_FILE.
  boost::optional<std::string> file_path;

  /// The address that serves the metadata, for REMOTE.
  boost::optional<std::string> address;
};

}  // namespace Com::Orvane::Zelk::Metadata
