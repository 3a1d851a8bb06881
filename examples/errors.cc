// A host that shows all of an error: its name and, of each message, the id, the default text, the
// arguments, and the text with the arguments filled in.
#include <cstddef>
#include <iostream>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/cli/services.h>
#include <com/orvane/zelk/metadata/source_type.h>
#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>
#include <zelk/data/values.h>
#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/cli/services.h>

namespace Bindings = Com::Orvane::Zelk::Metadata;
namespace Cli = Zelk::Provider::Metadata::Cli;
namespace Data = Zelk::Data;

using ValuePtr = std::shared_ptr<const Data::DataValue>;

struct Message {
  std::string id;
  std::string default_text;
  std::vector<std::string> arguments;
};

template <typename T>
const T& As(const ValuePtr& value) {
  return dynamic_cast<const T&>(*value);
}

// An error's field "messages" is a list of structures with these three fields. It is empty for an
// error whose name says everything.
std::vector<Message> MessagesOf(const Data::ErrorValue& error) {
  std::vector<Message> messages;
  for (const ValuePtr& element : As<Data::ListValue>(error.Field("messages")).Elements()) {
    const auto& fields = As<Data::StructValue>(element);
    Message message{As<Data::StringValue>(fields.Field("id")).Value(),
                    As<Data::StringValue>(fields.Field("default_text")).Value(),
                    {}};
    for (const ValuePtr& argument : As<Data::ListValue>(fields.Field("arguments")).Elements()) {
      message.arguments.push_back(As<Data::StringValue>(argument).Value());
    }
    messages.push_back(message);
  }
  return messages;
}

// The text with "%1%" replaced by the first argument, "%2%" by the second, and so on. It is read
// once from left to right, since an argument may itself contain a "%1%".
std::string FilledIn(const std::string& text, const std::vector<std::string>& arguments) {
  std::string filled;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool placeholder = text[at] == '%' && at + 2 < text.size() && text[at + 2] == '%';
    const std::size_t index = placeholder ? static_cast<std::size_t>(text[at + 1] - '1') : 0;
    if (placeholder && index < arguments.size()) {
      filled += arguments[index];
      at += 2;
    } else {
      filled += text[at];
    }
  }
  return filled;
}

void Show(const Data::ErrorValue& error) {
  std::cout << error.Name() << '\n';
  for (const Message& message : MessagesOf(error)) {
    std::cout << "  " << message.id << '\n' << "    default text: " << message.default_text << '\n';
    for (const std::string& argument : message.arguments) {
      std::cout << "    argument:     " << argument << '\n';
    }
    std::cout << "    filled in:    " << FilledIn(message.default_text, message.arguments) << '\n';
  }
}

int main(int argc, char** argv) {
  const std::string file = argc > 1 ? argv[1] : "metadata/cli/zelk-metadata.json";
  Cli::SourceSvc::AsyncServiceImpl sources(Cli::MetadataContainer::GetInstance());
  const auto activation = std::make_shared<Zelk::Core::AsyncActivation>();
  const auto create = [&](const std::string& id, const Bindings::SourceType& type) {
    const auto spec = std::make_shared<const Bindings::Cli::SourceSvc::CreateSpec>(
        "a client", type, file, boost::none);
    sources.Create(id, spec, activation,
                   Zelk::AsyncResult<Zelk::Void>([&](const auto&, const auto& error, const auto&) {
                     if (error) {
                       Show(*error);
                     } else {
                       std::cout << "loaded " << file << '\n';
                     }
                   }));
  };
  create("client", Bindings::SourceType::LOCAL_FILE);
  create("client", Bindings::SourceType::LOCAL_FILE);  // If the file was loaded, the id is taken.
  create("remote", Bindings::SourceType::REMOTE);      // Not supported, and has no message.
}
