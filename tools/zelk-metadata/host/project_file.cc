#include "host/project_file.h"

#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <system_error>

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>

#include "analysis/json_heap.h"
#include "host/input_file.h"

namespace Zelk::Tool {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = ".zelk-metadata.json";
constexpr std::uintmax_t kMostBytes = 1U << 20U;

std::string PlaceText(const std::string& path, const Analysis::Position& position) {
  return fmt::format("{}:{}:{}: ", path, position.line, position.column);
}

/// Why it is not JSON, with the place.
std::string SyntaxComplaint(const std::string& path, const Analysis::Document& document) {
  rapidjson::MemoryStream stream(document.Text().data(), document.Text().size());
  rapidjson::BaseReaderHandler<> ignored;
  Analysis::JsonReader reader;
  const rapidjson::ParseResult result =
      reader.Parse<rapidjson::kParseIterativeFlag>(stream, ignored);
  return PlaceText(path, document.PositionAt(result.Offset())) +
         rapidjson::GetParseError_En(result.Code());
}

std::string WhyNotRead(const std::string& path) {
  std::error_code error;
  const bool is_file = fs::is_regular_file(path, error);
  if (error) return error.message();
  if (!is_file) return "it is not a regular file";
  if (fs::file_size(path, error) > kMostBytes) return "it is larger than 1 MiB";
  return WhyUnreadable(path);
}

}  // namespace

std::string ProjectFile::Complaint(Analysis::NodeId node, const std::string& text) const {
  return PlaceText(path, document->PositionAt((*document)[node].begin)) + text;
}

std::string ProjectFile::Resolve(const std::string& relative) const {
  return (fs::path(path).parent_path() / relative).string();
}

std::optional<std::string> FindProjectFile() {
  std::error_code error;
  fs::path folder;
  for (;;) {
    // A link that leads nowhere is there, too, and then reported.
    if (fs::symlink_status(folder / kName, error).type() != fs::file_type::not_found) {
      return (folder / kName).string();
    }
    const fs::path above = folder / "..";
    const fs::path here = folder.empty() ? fs::path(".") : folder;
    if (fs::equivalent(above, here, error) || error) return std::nullopt;
    folder = above;
  }
}

ProjectFile ReadProjectFile(const std::string& path) {
  ProjectFile project{path, nullptr, WhyNotRead(path)};
  if (!project.failure.empty()) {
    project.failure = path + ": " + project.failure;
    return project;
  }
  std::ifstream file(path, std::ios::binary);
  auto document = std::make_unique<const Analysis::Document>(
      std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
  if (!document->IsJson()) {
    project.failure = SyntaxComplaint(path, *document);
    return project;
  }
  project.document = std::move(document);
  if ((*project.document)[Analysis::kRootNode].kind != Analysis::NodeKind::kObject) {
    project.failure = project.Complaint(Analysis::kRootNode, "it is not an object");
    project.document = nullptr;
  }
  return project;
}

}  // namespace Zelk::Tool
