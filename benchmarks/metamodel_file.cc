#include <string>
#include <vector>

#include "metadata_file.h"
#include "random_text.h"

namespace Zelk::Benchmarks {
namespace {

constexpr const char* kBuiltinTypes[] = {"STRING", "STRING", "STRING",    "LONG",  "LONG",
                                         "ID",     "ID",     "BOOLEAN",   "URI",   "DOUBLE",
                                         "BINARY", "SECRET", "DATE_TIME", "OPAQUE"};
constexpr const char* kElementTypes[] = {"LIST", "LIST", "SET", "OPTIONAL", "OPTIONAL", "OPTIONAL"};
constexpr const char* kErrors[] = {"not_found",    "already_exists",  "invalid_argument",
                                   "unauthorized", "unauthenticated", "service_unavailable",
                                   "unsupported",  "internal_error"};

class MetamodelWriter {
 public:
  explicit MetamodelWriter(const FileSpec& spec)
      : size_(spec.bytes),
        number_(spec.number),
        json_(spec.layout),
        random_(0x4D45'0000'0000 + spec.number) {}

  std::string Write() {
    json_.OpenObject();
    json_.Key("metamodel");
    json_.OpenObject();
    json_.Key("component");
    Component("com.example.c" + std::to_string(number_));
    json_.CloseObject();
    json_.CloseObject();
    return json_.Take();
  }

 private:
  bool IsFull() const { return json_.Size() >= size_; }

  /// The members that everything begins with.
  void Head(const std::string& name) {
    json_.Member("name", name);
    json_.Member("documentation", random_.Documentation());
  }

  void Component(const std::string& name) {
    json_.OpenObject();
    Head(name);
    json_.EmptyObject("metadata");
    json_.Key("packages");
    json_.OpenArray();
    for (std::size_t number = 0; number == 0 || !IsFull(); ++number) {
      Package(name + "." + random_.Name(number));
    }
    json_.CloseArray();
    json_.CloseObject();
  }

  void Package(const std::string& name) {
    structures_.clear();
    enumerations_.clear();
    json_.OpenObject();
    Head(name);
    json_.EmptyObject("metadata");
    Enumerations(name, random_.Between(1, 3));
    Structures(name, random_.Between(3, 8));
    json_.Key("services");
    json_.OpenArray();
    const std::size_t services = random_.Between(6, 12);
    for (std::size_t number = 0; number < services && (number == 0 || !IsFull()); ++number) {
      Service(name + "." + random_.Name(number));
    }
    json_.CloseArray();
    json_.CloseObject();
  }

  void Service(const std::string& name) {
    json_.OpenObject();
    Head(name);
    json_.EmptyObject("metadata");
    Enumerations(name, random_.Between(0, 1));
    Structures(name, random_.Between(1, 4));
    Constants(name, random_.Between(0, 1));
    json_.Key("operations");
    json_.OpenArray();
    const std::size_t operations = random_.Between(3, 8);
    for (std::size_t number = 0; number < operations; ++number) {
      Operation(random_.Name(number), name);
    }
    json_.CloseArray();
    json_.CloseObject();
  }

  void Operation(const std::string& name, const std::string& resource) {
    json_.OpenObject();
    Head(name);
    json_.EmptyObject("metadata");
    json_.Key("params");
    Fields(random_.Between(1, 6), resource, "");
    json_.Key("result");
    json_.OpenObject();
    json_.Member("documentation", random_.Documentation());
    json_.EmptyObject("metadata");
    json_.Key("type");
    Type();
    json_.CloseObject();
    json_.Key("errors");
    json_.OpenArray();
    const std::size_t first = random_.Between(0, 4);
    const std::size_t count = random_.Between(1, 4);
    for (std::size_t error = first; error < first + count; ++error) {
      json_.OpenObject();
      json_.Member("user_defined_type_name", std::string("com.example.errors.") + kErrors[error]);
      json_.Member("documentation", random_.Documentation());
      json_.CloseObject();
    }
    json_.CloseArray();
    json_.CloseObject();
  }

  /// `key` is the annotation, if any, that makes the first field the key of a model.
  void Fields(std::size_t count, const std::string& resource, const std::string& key) {
    json_.OpenArray();
    for (std::size_t number = 0; number < count; ++number) {
      json_.OpenObject();
      Head(random_.Name(number));
      const bool is_key = number == 0 && !key.empty();
      const bool is_identifier = is_key || random_.OneIn(5);
      json_.Key("metadata");
      json_.OpenObject();
      if (is_identifier) Annotation("Resource", resource);
      if (is_key) json_.EmptyObject(key);
      json_.CloseObject();
      json_.Key("type");
      if (is_identifier) {
        Builtin("ID");
      } else {
        Type();
      }
      json_.CloseObject();
    }
    json_.CloseArray();
  }

  void Annotation(const std::string& name, const std::string& value) {
    json_.Key(name);
    json_.OpenObject();
    json_.Member("value", value);
    json_.CloseObject();
  }

  void Enumerations(const std::string& parent, std::size_t count) {
    json_.Key("enumerations");
    json_.OpenArray();
    for (std::size_t number = 0; number < count; ++number) {
      enumerations_.push_back(parent + ".e" + random_.Name(number));
      Enumeration(enumerations_.back());
    }
    json_.CloseArray();
  }

  void Enumeration(const std::string& name) {
    json_.OpenObject();
    Head(name);
    json_.EmptyObject("metadata");
    json_.Key("values");
    json_.OpenArray();
    const std::size_t values = random_.Between(2, 7);
    for (std::size_t number = 0; number < values; ++number) {
      json_.OpenObject();
      Head("V_" + random_.Name(number));
      json_.EmptyObject("metadata");
      json_.CloseObject();
    }
    json_.CloseArray();
    json_.CloseObject();
  }

  void Structures(const std::string& parent, std::size_t count) {
    json_.Key("structures");
    json_.OpenArray();
    for (std::size_t number = 0; number < count; ++number) {
      Structure(parent + ".s" + random_.Name(number), parent);
    }
    json_.CloseArray();
  }

  void Structure(const std::string& name, const std::string& resource) {
    const bool is_model = random_.OneIn(6);
    json_.OpenObject();
    json_.Member("name", name);
    json_.Member("type", random_.OneIn(10) ? "ERROR" : "STRUCTURE");
    json_.Member("documentation", random_.Documentation());
    json_.Key("metadata");
    json_.OpenObject();
    if (is_model) json_.EmptyObject("Model");
    json_.CloseObject();
    Enumerations(name, random_.OneIn(8) ? 1 : 0);
    Constants(name, random_.OneIn(20) ? 1 : 0);
    json_.Key("fields");
    Fields(random_.Between(2, 8), resource, is_model ? "ModelKey" : "");
    json_.CloseObject();
    structures_.push_back(name);
  }

  void Constants(const std::string& value, std::size_t count) {
    json_.Key("constants");
    json_.OpenArray();
    for (std::size_t number = 0; number < count; ++number) {
      json_.OpenObject();
      Head("K_" + random_.Name(number));
      json_.Key("type");
      json_.OpenObject();
      json_.Member("category", "PRIMITIVE");
      json_.Member("type", "STRING");
      json_.CloseObject();
      json_.Member("value", value);
      json_.CloseObject();
    }
    json_.CloseArray();
  }

  /// Of ten types six are built in, two are defined in this package, and two hold others.
  void Type() {
    const std::size_t kind = random_.Between(1, 10);
    if (kind <= 6) {
      Builtin(random_.OneOf(kBuiltinTypes));
    } else if (kind <= 8) {
      UserDefined();
    } else {
      Generic();
    }
  }

  void Builtin(const char* type) {
    json_.OpenObject();
    json_.Member("category", "BUILTIN");
    json_.Member("primitive_type", type);
    json_.CloseObject();
  }

  void UserDefined() {
    const bool is_enumeration = structures_.empty() || (!enumerations_.empty() && random_.OneIn(4));
    json_.OpenObject();
    json_.Member("category", "USER_DEFINED");
    json_.Member("user_defined_type", is_enumeration ? "Enumeration" : "Structure");
    json_.Member("user_defined_type_name",
                 random_.OneOf(is_enumeration ? enumerations_ : structures_));
    json_.CloseObject();
  }

  void Generic() {
    json_.OpenObject();
    json_.Member("category", "GENERIC");
    if (random_.OneIn(8)) {
      json_.Member("generic_type", "MAP");
      json_.Key("map_key_type");
      Builtin("STRING");
      json_.Key("map_value_type");
    } else {
      json_.Member("generic_type", random_.OneOf(kElementTypes));
      json_.Key("element_type");
    }
    Type();
    json_.CloseObject();
  }

  std::size_t size_;
  std::size_t number_;
  JsonWriter json_;
  RandomText random_;
  /// What types in the package that is being written may refer to.
  std::vector<std::string> structures_;
  std::vector<std::string> enumerations_;
};

}  // namespace

std::string MetamodelFile(const FileSpec& spec) {
  return MetamodelWriter(spec).Write();
}

}  // namespace Zelk::Benchmarks
