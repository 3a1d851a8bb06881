#pragma once

#include <com/orvane/zelk/export.h>
#include <zelk/enum.h>

namespace Com::Orvane::Zelk::Metadata::Authentication {

namespace AuthenticationInfoEnumerations {

/// Whether a scheme authenticates every call by itself or opens a session first.
class ZELK_STD_BINDINGS_EXPORT SchemeType : public ::Zelk::GeneratedEnum<SchemeType> {
 public:
  enum Enumerator { SESSIONLESS, SESSION_AWARE, UNKNOWN };

  struct ZELK_STD_BINDINGS_EXPORT Strings {
    static const char* const values[];
  };

  SchemeType() : GeneratedEnum(UNKNOWN) {}

  SchemeType(Enumerator value) : GeneratedEnum(value) {}  // NOLINT(google-explicit-constructor)
};

}  // namespace AuthenticationInfoEnumerations

}  // namespace Com::Orvane::Zelk::Metadata::Authentication
