#include <string>

#include "metadata_file.h"
#include "random_text.h"

namespace Zelk::Benchmarks {
namespace {

constexpr const char* kFormatters[] = {"simple", "table", "json", "xml", "csv", "html"};
constexpr const char* kGenerics[] = {"none", "none", "optional", "list", "optional_list"};
constexpr const char* kTypes[] = {"STRING", "STRING", "ID", "LONG", "BOOLEAN", "com.example.kind"};

class CliWriter {
 public:
  explicit CliWriter(const FileSpec& spec)
      : size_(spec.bytes),
        root_("c" + std::to_string(spec.number)),
        json_(spec.layout),
        random_(0x434C'0000'0000 + spec.number) {}

  std::string Write() {
    json_.OpenObject();
    json_.Key("cli");
    json_.OpenArray();
    Namespace("", root_);
    for (std::size_t number = 0; number == 0 || json_.Size() < size_; ++number) {
      Group(random_.Name(number));
    }
    json_.CloseArray();
    json_.CloseObject();
    return json_.Take();
  }

 private:
  void Head(const char* type, const std::string& path, const std::string& name) {
    json_.OpenObject();
    json_.Member("type", type);
    json_.Member("path", path);
    json_.Member("name", name);
    json_.Member("description", random_.Description());
  }

  void Namespace(const std::string& path, const std::string& name) {
    Head("namespace", path, name);
    json_.CloseObject();
  }

  /// A namespace, those in it, and the commands of each.
  void Group(const std::string& name) {
    Namespace(root_, name);
    const std::size_t namespaces = random_.Between(2, 5);
    for (std::size_t number = 0; number < namespaces; ++number) {
      const std::string inner = random_.Name(number);
      Namespace(root_ + "." + name, inner);
      const std::size_t commands = random_.Between(2, 7);
      for (std::size_t command = 0; command < commands; ++command) {
        Command(root_ + "." + name + "." + inner, random_.Name(command));
      }
    }
  }

  void Command(const std::string& path, const std::string& name) {
    Head("command", path, name);
    json_.Key("node_metadata");
    json_.OpenObject();
    json_.Member("service_id", "com.example." + path);
    json_.Member("operation_id", name);
    json_.Member("formatter", random_.OneOf(kFormatters));
    json_.Key("options");
    json_.OpenArray();
    const std::size_t options = random_.Between(0, 6);
    for (std::size_t number = 0; number < options; ++number) Option(random_.Name(number));
    json_.CloseArray();
    json_.Key("output_field_list");
    json_.OpenArray();
    if (!random_.OneIn(3)) Output("com.example." + path + ".info");
    json_.CloseArray();
    json_.CloseObject();
    json_.CloseObject();
  }

  void Option(const std::string& name) {
    json_.OpenObject();
    json_.Member("long_option", name);
    if (random_.OneIn(2)) json_.Member("short_option", name.substr(0, 1));
    json_.Member("field_name", "spec." + name);
    json_.Member("description", random_.Documentation());
    json_.Member("type", random_.OneOf(kTypes));
    json_.Member("generic", random_.OneOf(kGenerics));
    json_.CloseObject();
  }

  void Output(const std::string& structure) {
    json_.OpenObject();
    json_.Member("structure_id", structure);
    json_.Key("output_fields");
    json_.OpenArray();
    const std::size_t fields = random_.Between(1, 6);
    for (std::size_t number = 0; number < fields; ++number) {
      const std::string name = random_.Name(number);
      json_.OpenObject();
      json_.Member("field_name", name);
      json_.Member("display_name", name);
      json_.CloseObject();
    }
    json_.CloseArray();
    json_.CloseObject();
  }

  std::size_t size_;
  std::string root_;
  JsonWriter json_;
  RandomText random_;
};

}  // namespace

std::string CliFile(const FileSpec& spec) {
  return CliWriter(spec).Write();
}

}  // namespace Zelk::Benchmarks
