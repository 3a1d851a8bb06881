#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "analysis/element_model.h"

// Short ways to write Metamodel files.

namespace Zelk::Testing {

inline Analysis::Model ModelOf(Analysis::Domain domain, std::vector<std::string> texts) {
  std::vector<Analysis::Source> sources;
  for (std::string& text : texts) {
    sources.push_back({std::string(1, static_cast<char>('a' + sources.size())),
                       std::make_shared<const Analysis::Document>(std::move(text))});
  }
  return {domain, std::move(sources)};
}

inline std::string Builtin(const std::string& name) {
  return R"({"category": "BUILTIN", "primitive_type": ")" + name + R"("})";
}

inline std::string Named(const std::string& kind, const std::string& name) {
  return R"({"category": "USER_DEFINED", "user_defined_type": ")" + kind +
         R"(", "user_defined_type_name": ")" + name + R"("})";
}

inline std::string Of(const std::string& generic, const std::string& element) {
  return R"({"category": "GENERIC", "generic_type": ")" + generic + R"(", "element_type": )" +
         element + "}";
}

inline std::string MapOf(const std::string& key, const std::string& value) {
  return R"({"category": "GENERIC", "generic_type": "MAP", "map_key_type": )" + key +
         R"(, "map_value_type": )" + value + "}";
}

/// A parameter or a field.
inline std::string Field(const std::string& name, const std::string& type,
                         const std::string& metadata = "") {
  return R"({"name": ")" + name + R"(", "documentation": "", "metadata": {)" + metadata +
         R"(}, "type": )" + type + "}";
}

inline std::string Structure(const std::string& name, const std::string& fields,
                             const std::string& metadata = "") {
  return R"({"name": ")" + name + R"(", "type": "STRUCTURE", "documentation": "", "metadata": {)" +
         metadata + R"(}, "enumerations": [], "constants": [], "fields": [)" + fields + "]}";
}

inline std::string EnumerationValue(const std::string& name) {
  return R"({"name": ")" + name + R"(", "documentation": "", "metadata": {}})";
}

inline std::string Enumeration(const std::string& name, const std::string& values = "") {
  return R"({"name": ")" + name + R"(", "documentation": "", "metadata": {}, "values": [)" +
         values + "]}";
}

inline std::string Operation(const std::string& name, const std::string& parameters,
                             const std::string& result = Builtin("VOID"),
                             const std::string& errors = "") {
  return R"({"name": ")" + name + R"(", "documentation": "", "metadata": {}, "params": [)" +
         parameters + R"(], "result": {"documentation": "", "metadata": {}, "type": )" + result +
         R"(}, "errors": [)" + errors + "]}";
}

/// What the package c.p of the component c, and its service c.p.s, are made of.
struct Parts {
  std::string structures;
  std::string enumerations;
  std::string operations;
};

inline std::string MetamodelFile(const Parts& parts) {
  return R"({"metamodel": {"component": {"name": "c", "documentation": "", "metadata": {},
    "packages": [{"name": "c.p", "documentation": "", "metadata": {}, "enumerations": [)" +
         parts.enumerations + R"(], "structures": [)" + parts.structures +
         R"(], "services": [{"name": "c.p.s", "documentation": "", "metadata": {},
    "enumerations": [], "structures": [], "constants": [], "operations": [)" +
         parts.operations + "]}]}]}}}";
}

}  // namespace Zelk::Testing
