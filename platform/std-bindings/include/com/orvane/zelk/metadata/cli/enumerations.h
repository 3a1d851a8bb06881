#pragma once

#include <com/orvane/zelk/export.h>
#include <zelk/enum.h>

namespace Com::Orvane::Zelk::Metadata::Cli {

namespace CommandSvc {

/// How a client shows the result of a command.
class ZELK_STD_BINDINGS_EXPORT FormatterType : public ::Zelk::GeneratedEnum<FormatterType> {
 public:
  enum Enumerator { SIMPLE, TABLE, JSON, XML, CSV, HTML, UNKNOWN };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  FormatterType() : GeneratedEnum(UNKNOWN) {}

  FormatterType(Enumerator value)  // NOLINT(google-explicit-constructor)
      : GeneratedEnum(value) {}
};

/// The generic type that is put around the type of an option.
class ZELK_STD_BINDINGS_EXPORT GenericType : public ::Zelk::GeneratedEnum<GenericType> {
 public:
  enum Enumerator { NONE, OPTIONAL, LIST, OPTIONAL_LIST, LIST_OPTIONAL, UNKNOWN };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  GenericType() : GeneratedEnum(UNKNOWN) {}

  GenericType(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

}  // namespace CommandSvc

}  // namespace Com::Orvane::Zelk::Metadata::Cli
