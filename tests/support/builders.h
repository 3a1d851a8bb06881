#pragma once

#include <initializer_list>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// Metamodel files for tests, built from the inside out:
//   MetamodelFile(Component("c", {Package("p", {Service("s", {Operation("o")})})}))
// Every key that the format requires is written. Names and texts are JSON text without its quotes,
// so they may have escapes such as \u0000.

namespace Zelk::Testing {

/// A named object of a Metamodel file, such as a package. It knows which array of the object around
/// it it belongs into, and which arrays it has itself.
class Part {
 public:
  /// `array` is the key around it, `arrays` are its own, `more` are further members as JSON text.
  Part(std::string array, std::string name, const std::vector<std::string>& arrays,
       std::initializer_list<Part> children, std::string more = "")
      : array_(std::move(array)), name_(std::move(name)), more_(std::move(more)) {
    for (const auto& own : arrays) arrays_[own];
    for (const auto& child : children) Add(child);
  }

  /// The same part with that documentation, which distinguishes parts of one name in a test.
  Part Doc(const std::string& text) const {
    Part part = *this;
    part.documentation_ = text;
    return part;
  }

  /// The same part with one more inside it.
  Part With(const Part& child) const {
    Part part = *this;
    part.Add(child);
    return part;
  }

  /// The same part with those annotations, as the members of its "metadata".
  Part Annotated(const std::string& annotations) const {
    Part part = *this;
    part.annotations_ = annotations;
    return part;
  }

  std::string Json() const {
    std::string json = R"({"name": ")" + name_ + R"(", "documentation": ")" + documentation_ +
                       R"(", "metadata": {)" + annotations_ + "}" + more_;
    for (const auto& [key, elements] : arrays_) {
      json += ",\n \"" + key + "\": [" + elements + "]";
    }
    return json + "}";
  }

 private:
  void Add(const Part& child) {
    const auto array = arrays_.find(child.array_);
    if (array == arrays_.end()) {
      throw std::invalid_argument(name_ + " has no " + child.array_);
    }
    array->second += (array->second.empty() ? "" : ",\n ") + child.Json();
  }

  std::string array_;
  std::string name_;
  std::string more_;
  std::string documentation_;
  std::string annotations_;
  std::map<std::string, std::string> arrays_;
};

using Parts = std::initializer_list<Part>;

inline constexpr char kStringType[] = R"({"category": "BUILTIN", "primitive_type": "STRING"})";

inline Part Component(const std::string& name, Parts packages = {}) {
  return {"components", name, {"packages"}, packages};
}

/// Its parts are enumerations, structures and services.
inline Part Package(const std::string& name, Parts parts = {}) {
  return {"packages", name, {"enumerations", "structures", "services"}, parts};
}

/// Its parts are enumerations, structures, constants and operations.
inline Part Service(const std::string& name, Parts parts = {}) {
  return {"services", name, {"enumerations", "structures", "constants", "operations"}, parts};
}

/// Its parts are parameters; `result_annotations` are those of its result.
inline Part Operation(const std::string& name, Parts params = {},
                      const std::string& result_annotations = "") {
  return {"operations",
          name,
          {"params", "errors"},
          params,
          R"(, "result": {"documentation": "", "metadata": {)" + result_annotations +
              R"(}, "type": )" + kStringType + "}"};
}

/// Its parts are enumerations, constants and fields.
inline Part Structure(const std::string& name, Parts parts = {}) {
  return {"structures",
          name,
          {"enumerations", "constants", "fields"},
          parts,
          R"(, "type": "STRUCTURE")"};
}

/// Its parts are values.
inline Part Enumeration(const std::string& name, Parts values = {}) {
  return {"enumerations", name, {"values"}, values};
}

inline Part EnumerationValue(const std::string& name) {
  return {"values", name, {}, {}};
}

inline Part Field(const std::string& name) {
  return {"fields", name, {}, {}, std::string(R"(, "type": )") + kStringType};
}

inline Part Param(const std::string& name) {
  return {"params", name, {}, {}, std::string(R"(, "type": )") + kStringType};
}

inline Part Constant(const std::string& name) {
  return {"constants",
          name,
          {},
          {},
          R"(, "type": {"category": "PRIMITIVE", "type": "STRING"}, "value": "")"};
}

/// The annotation that names a resource.
inline std::string Resource(const std::string& resource) {
  return R"("Resource": {"value": ")" + resource + R"("})";
}

/// The field by which a structure is the model of a resource.
inline Part ModelKey(const std::string& field, const std::string& resource) {
  return Field(field).Annotated(R"("ModelKey": {}, )" + Resource(resource));
}

/// A structure that is the model of a resource.
inline Part ModelOf(const std::string& structure, const std::string& resource) {
  return Structure(structure, {ModelKey("id", resource)}).Annotated(R"("Model": {})");
}

inline std::string MetamodelFile(const Part& component) {
  return R"({"metamodel": {"component": )" + component.Json() + "}}";
}

}  // namespace Zelk::Testing
