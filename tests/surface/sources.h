#pragma once

#include <cstddef>
#include <initializer_list>
#include <list>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <boost/none.hpp>
#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/source_type.h>
#include <zelk/md5.h>

#include "support/surface_recorder.h"
#include "support/temp_folder.h"

// Sources of any domain, as a host makes them. A `Domain` is a struct of facts such as
// MetamodelUnderTest.

namespace Zelk::Testing {

using OptionalText = boost::optional<std::string>;
using ::Com::Orvane::Zelk::Metadata::SourceType;

/// An engaged optional; distinguishes the id "" from no id.
inline OptionalText Some(const std::string& text) {
  return OptionalText(text);
}

inline std::string Md5(const std::string& text) {
  MD5 digest;
  digest.Update(text);
  return digest.hexdigest();
}

/// MD5 of no bytes.
inline constexpr char kDigestOfNothing[] = "d41d8cd98f00b204e9800998ecf8427e";

/// The same text with the first occurrence of `from` replaced.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const auto place = text.find(from);
  if (place == std::string::npos) throw std::invalid_argument("nothing to replace: " + from);
  return text.replace(place, from.size(), to);
}

/// A container and a folder with a file for each of its sources.
template <typename Domain>
class Sources {
 public:
  using Container = typename Domain::Container;
  using CreateSpec = typename Domain::CreateSpec;
  using Files = std::initializer_list<std::pair<std::string, std::string>>;

  Sources() = default;

  /// Creates the sources in the order given; throws when one is refused.
  Sources(Files files) {
    for (const auto& [id, text] : files) {
      const Lines error = Create(id, text);
      if (!error.empty()) throw std::runtime_error(id + ": " + error.back());
    }
  }

  Container* operator->() const { return container_.get(); }

  const std::shared_ptr<Container>& Shared() const { return container_; }

  const TempFolder& Folder() const { return folder_; }

  /// Where the file of a source is.
  std::string Path(const std::string& id) const { return folder_.Path(id + ".json"); }

  std::string Write(const std::string& id, const std::string& text) const {
    return folder_.Write(id + ".json", text);
  }

  /// Gives a source a file with one record called `name`.
  std::string WriteRecord(const std::string& id, const std::string& name) const {
    return Write(id, Domain::File(name));
  }

  /// A source in a local file.
  static std::shared_ptr<const CreateSpec> At(const OptionalText& path) {
    return std::make_shared<const CreateSpec>("foo", SourceType::LOCAL_FILE, path, boost::none);
  }

  /// Writes the file and creates the source; the error, nothing for success.
  Lines Create(const std::string& id, const std::string& text) const {
    return CreateAt(id, Write(id, text));
  }

  Lines CreateAt(const std::string& id, const OptionalText& path) const {
    return ErrorLines(container_->CreateSource(id, At(path)));
  }

  /// The names of all records of all sources.
  Lines Names() const { return Domain::Names(*container_); }

 private:
  TempFolder folder_;
  std::shared_ptr<Container> container_ = Domain::Container::GetInstance();
};

// The messages that every domain has, with their texts.

template <typename Domain>
std::string ExistsMessage(const std::string& argument) {
  return MessageLine(Domain::kExists, std::string(Domain::kName) + " source already exists: %1%",
                     {argument});
}

template <typename Domain>
Lines AlreadyExists(const std::string& id) {
  return {kAlreadyExistsError, ExistsMessage<Domain>(id)};
}

/// Reload of an unknown id has the message of one that exists.
template <typename Domain>
Lines CannotReload(const std::string& id) {
  return {kNotFoundError, ExistsMessage<Domain>(" " + id)};
}

template <typename Domain>
Lines SourceNotFound(const std::string& argument) {
  return {kNotFoundError,
          MessageLine(Domain::kNotFound, std::string(Domain::kName) + " source not found: %1%",
                      {argument})};
}

/// What a query reports of an unknown record of a kind such as "package".
template <typename Domain>
Lines NotFound(const std::string& kind, const std::string& placeholders,
               const std::list<std::string>& keys) {
  return {
      kNotFoundError,
      MessageLine("zelk.metada." + std::string(Domain::kRootKey) + "." + kind + ".not.found",
                  std::string(Domain::kName) + " " + kind + " not found: " + placeholders, keys)};
}

template <typename Domain>
Lines NotFound(const std::string& kind, const std::string& key) {
  return NotFound<Domain>(kind, "%1%", {key});
}

template <typename Domain>
Lines FileNotFound(const std::string& path) {
  return {kNotFoundError,
          MessageLine(Domain::kFileNotFound,
                      std::string(Domain::kName) + " source file not found: %1%", {path})};
}

template <typename Domain>
Lines ParseError(int code, std::size_t offset) {
  return {kInvalidArgumentError,
          MessageLine(Domain::kParseError,
                      std::string(Domain::kName) + " source file parse error : %1% at %2%",
                      {std::to_string(code), std::to_string(offset)})};
}

inline std::string MissingFieldMessage(const std::string& key) {
  return MessageLine("zelk.metadata.json.missing.field", "Json parse missing field: %1%", {key});
}

inline std::string InvalidFieldMessage(const std::string& key) {
  return MessageLine("zelk.metadata.json.invalid.field", "Json parse invalid field: %1%", {key});
}

inline Lines MissingFieldError(const std::string& key) {
  return {kInvalidArgumentError, MissingFieldMessage(key)};
}

inline Lines InvalidFieldError(const std::string& key) {
  return {kInvalidArgumentError, InvalidFieldMessage(key)};
}

inline Lines InvalidEnumValueError(const std::string& key) {
  return {kInvalidArgumentError, MessageLine("zelk.metadata.json.invalid.enum.value",
                                             "Json parse invalid enum value: %1%", {key})};
}

}  // namespace Zelk::Testing
