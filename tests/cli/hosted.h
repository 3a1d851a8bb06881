#pragma once

#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <boost/none.hpp>
#include <boost/optional.hpp>

#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/cli/services.h>

#include "support/surface_recorder.h"
#include "support/temp_folder.h"

// What a host does with the domain: it makes a container, gives it to the services, and calls them.

namespace Zelk::Testing {

using CliCreateSpec = ::Com::Orvane::Zelk::Metadata::Cli::SourceSvc::CreateSpec;
using SourceTypeValue = ::Com::Orvane::Zelk::Metadata::SourceType;

inline constexpr char kDigestOfNothing[] = "d41d8cd98f00b204e9800998ecf8427e";

inline std::shared_ptr<const CliCreateSpec> FileSpec(const std::string& path) {
  return std::make_shared<const CliCreateSpec>("foo", SourceTypeValue::LOCAL_FILE, path,
                                               boost::none);
}

inline Lines NotFound(const std::string& id, const std::string& default_text,
                      const std::string& argument) {
  return {kNotFoundError, MessageLine(id, default_text, {argument})};
}

/// A container of sources, each with a file of its own called like it.
class CliHost {
 public:
  using Files = std::vector<std::pair<std::string, std::string>>;

  explicit CliHost(const Files& files = {}) {
    for (const auto& [id, text] : files) {
      const auto error = Create(id, text);
      if (error) throw std::invalid_argument(id + ": " + ErrorLines(error).back());
    }
  }

  Provider::Metadata::Cli::MetadataContainer& operator*() const { return *container_; }

  Provider::Metadata::Cli::MetadataContainer* operator->() const { return container_.get(); }

  const std::shared_ptr<Provider::Metadata::Cli::MetadataContainer>& Container() const {
    return container_;
  }

  std::string Write(const std::string& id, const std::string& text) const {
    return folder_.Write(id + ".json", text);
  }

  ErrorPtr Create(const std::string& id, const std::string& text) const {
    return container_->CreateSource(id, FileSpec(Write(id, text)));
  }

 private:
  TempFolder folder_;
  std::shared_ptr<Provider::Metadata::Cli::MetadataContainer> container_ =
      Provider::Metadata::Cli::MetadataContainer::GetInstance();
};

// --- files --------------------------------------------------------------------------------------

inline std::string NamespaceNode(const std::string& path, const std::string& name,
                                 const std::string& description = "") {
  return R"({"type": "namespace", "path": ")" + path + R"(", "name": ")" + name +
         R"(", "description": ")" + description + R"("})";
}

inline std::string CommandNode(const std::string& path, const std::string& name,
                               const std::string& description = "") {
  return R"({"type": "command", "path": ")" + path + R"(", "name": ")" + name +
         R"(", "description": ")" + description +
         R"(", "node_metadata": {"service_id": "", "operation_id": ""}})";
}

inline std::string CliFile(std::initializer_list<std::string> nodes) {
  std::string text;
  for (const auto& node : nodes) text += (text.empty() ? "" : ", ") + node;
  return R"({"cli": [)" + text + "]}";
}

}  // namespace Zelk::Testing
