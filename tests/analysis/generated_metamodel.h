#pragma once

#include <string>

#include "analysis/choices.h"

namespace Zelk::Testing::Generated {

// Files are written from the inside out, each object with its keys in the order of the format.

inline std::string Annotation(Choices& choices) {
  const auto text = [&] {
    return choices.OneIn(2) ? "\"" + choices.Unique() + "\"" : choices.Of({"\"r1\"", "\"r2\""});
  };
  return "{" + choices.Several(2, [&] {
    const std::string value =
        choices.OneIn(3) ? "[" + choices.Several(2, text) + "]" : std::string(text());
    return choices.Of({"\"value\"", "\"value\"", "\"y\""}) + ": " + value;
  }) + "}";
}

/// Every second object has the one of that name.
inline std::string Annotations(Choices& choices, const std::string& name = "X") {
  std::string list = choices.Several(3, [&] {
    return choices.Of({"\"Resource\"", "\"Model\"", "\"ModelKey\"", "\"X\""}) + ": " +
           Annotation(choices);
  });
  if (list.empty() || choices.OneIn(2)) return R"("metadata": {)" + list + "}";
  return R"("metadata": {")" + name + R"(": {}, )" + list + "}";
}

/// The members that most objects begin with.
inline std::string Head(Choices& choices, const std::string& name,
                        const std::string& annotation = "X") {
  std::string head = R"({"name": ")" + name + "\"";
  // The second of one key does not count.
  if (choices.OneIn(20)) head += R"(, "name": "other")";
  return head + R"(, "documentation": ")" + choices.Unique() + "\", " +
         Annotations(choices, annotation);
}

inline std::string Type(Choices& choices) {
  return choices.Of({R"({"category": "primitive", "primitive_type": "STRING"})",
                     R"({"category": "USER_DEFINED", "user_defined_type": "Structure",
                         "user_defined_type_name": "s"})",
                     R"({"category": "GENERIC", "generic_type": "map",
                         "map_key_type": {"category": "BUILTIN", "primitive_type": "ID"},
                         "map_value_type": {"category": "BUILTIN", "primitive_type": "void"}})",
                     R"({"category": "GENERIC", "generic_type": "SET",
                         "element_type": {"category": "BUILTIN", "primitive_type": "EXCEPTION"}})"});
}

inline std::string Field(Choices& choices) {
  return Head(choices, choices.Of({"f", "g"}), "ModelKey") + R"(, "type": )" + Type(choices) + "}";
}

inline std::string Enumeration(Choices& choices) {
  return Head(choices, choices.Of({"e.a", "e.b", "same"})) + R"(, "values": [)" +
         choices.Several(2,
                         [&] {
                           return Head(choices, choices.Of({"V", "W"})) + "}";
                         }) +
         "]}";
}

inline std::string Constant(Choices& choices) {
  // A broken type is rare, since the whole file is refused for it.
  const std::string type = choices.OneIn(200) ? "EXCEPTION" : choices.Of({"STRING", "long"});
  return R"({"name": ")" + choices.Of({"k", "l"}) + R"(", "documentation": ")" + choices.Unique() +
         R"(", "type": {"category": ")" + choices.Of({"PRIMITIVE", "list"}) + R"(", "type": ")" +
         type + R"("}, "value": )" + choices.Of({"1", "\"v\"", "[]"}) + "}";
}

inline std::string Structure(Choices& choices) {
  return Head(choices, choices.Of({"s.a", "s.b", "same"}), "Model") + R"(, "type": "ERROR")" +
         R"(, "enumerations": [)" + choices.Several(2, [&] { return Enumeration(choices); }) +
         R"(], "constants": [)" + choices.Several(2, [&] { return Constant(choices); }) +
         R"(], "fields": [)" + choices.Several(2, [&] { return Field(choices); }) + "]}";
}

inline std::string Operation(Choices& choices) {
  return Head(choices, choices.Of({"get", "set"})) + R"(, "params": [)" +
         choices.Several(2, [&] { return Field(choices); }) +
         R"(], "result": {"documentation": ")" + choices.Unique() + "\", " + Annotations(choices) +
         R"(, "type": )" + Type(choices) + R"(}, "errors": [)" +
         choices.Several(2,
                         [&] {
                           return R"({"user_defined_type_name": "s", "documentation": ")" +
                                  choices.Unique() + "\"}";
                         }) +
         "]}";
}

inline std::string Service(Choices& choices) {
  return Head(choices, choices.Of({"p.v", "p.w", "same"})) + R"(, "enumerations": [)" +
         choices.Several(1, [&] { return Enumeration(choices); }) + R"(], "structures": [)" +
         choices.Several(2, [&] { return Structure(choices); }) + R"(], "constants": [)" +
         choices.Several(1, [&] { return Constant(choices); }) + R"(], "operations": [)" +
         choices.Several(3, [&] { return Operation(choices); }) + "]}";
}

inline std::string Package(Choices& choices) {
  return Head(choices, choices.Of({"p", "q", "r"})) + R"(, "enumerations": [)" +
         choices.Several(1, [&] { return Enumeration(choices); }) + R"(], "structures": [)" +
         choices.Several(1, [&] { return Structure(choices); }) + R"(], "services": [)" +
         choices.Several(3, [&] { return Service(choices); }) + "]}";
}

/// A file with few names, so that many repeat.
inline std::string MetamodelText(Choices& choices) {
  return R"({"metamodel": {"component": )" + Head(choices, choices.Of({"c", "d"})) +
         R"(, "packages": [)" + choices.Several(4, [&] { return Package(choices); }) + "]}}}";
}

}  // namespace Zelk::Testing::Generated
