#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <rapidjson/error/error.h>

#include <com/orvane/zelk/metadata/source_type.h>
#include <zelk/md5.h>

#include "common/messages/errors.h"
#include "common/sources/name_filter.h"
#include "common/sources/source_file.h"

namespace Zelk::Provider::Metadata {

// The life cycle of a domain's sources. A `Domain` is a struct with these members:
//
// - SourceData, CreateSpec, Info: the record of a source, what it is made from and described by;
// - kExists, kNotFound, kFileNotFound, kParseError: message ids;
// - static bool Parse(text, source, errors): fills a new SourceData from a file's text, which it
//   may write over;
// - static void PushNames(source, names): appends the names that lookups can find in the source;
// - static void SetFingerprint(source, digest): called once the file has parsed.

/// Reads and parses the file of `spec` into a new source. On failure sets `error` and returns null.
/// The digest is that of the bytes that were parsed, even if the file changes meanwhile.
template <typename Domain>
std::shared_ptr<const typename Domain::SourceData> LoadSource(
    const std::shared_ptr<const typename Domain::CreateSpec>& spec, ErrorPtr& error) {
  using ::Com::Orvane::Zelk::Metadata::SourceType;
  using ::Zelk::Data::ErrorFactory;

  // Intended(source-type-without-message): the class of the error says everything.
  if (spec && spec->type == SourceType::REMOTE) {
    error = ErrorFactory::GetError<StdErrors::Unsupported>();
    return nullptr;
  }
  if (!spec || spec->type != SourceType::LOCAL_FILE) {
    error = ErrorFactory::GetError<StdErrors::InvalidArgument>(StdErrors::InvalidArgument());
    return nullptr;
  }
  const std::string path = spec->file_path.value_or(std::string());
  bool is_too_large = false;
  auto text = ReadSourceFile(path, is_too_large);
  if (!text) {
    // Intended(too-large-file): the error of a file that the parser stopped reading at the last
    // offset that it can count.
    error = is_too_large ? MakeError<StdErrors::InvalidArgument>(
                               Domain::kParseError, rapidjson::kParseErrorTermination, kLastOffset)
                         : MakeError<StdErrors::NotFound>(Domain::kFileNotFound, path);
    return nullptr;
  }
  const auto source = std::make_shared<typename Domain::SourceData>(spec);
  ::Zelk::MD5 digest;
  digest.Update(text->Data(), text->Size());
  Errors messages;
  if (!Domain::Parse(std::move(*text), source, messages)) {
    error = ErrorFactory::GetError<StdErrors::InvalidArgument>(messages);
    return nullptr;
  }
  std::vector<NameMark> names;
  Domain::PushNames(*source, names);
  source->names = NameFilter(names);
  Domain::SetFingerprint(*source, digest.hexdigest());
  return source;
}

/// Loads a table entry again from its spec. On failure the entry keeps its old data.
/// Intended(reload-after-failure): an error is kept from entry to entry, so one object that goes
/// through several entries replaces none after the first that failed. From there on, a broken set
/// of files stays in its old state.
template <typename Domain>
class ReloadEntry {
 public:
  template <typename Entry>
  void operator()(Entry& entry) {
    auto fresh = LoadSource<Domain>(entry.second->spec, error_);
    if (!error_) {
      entry.second = std::move(fresh);
    }
  }

 private:
  ErrorPtr error_;
};

/// Returns the digest of one digest text of each source, in the order of the table.
template <typename Table, typename Source>
std::string DigestOfSources(const Table& sources, std::string Source::*digest_text) {
  ::Zelk::MD5 digest;
  for (const auto& entry : sources) digest.Update((*entry.second).*digest_text);
  return digest.hexdigest();
}

/// A domain's table of sources, in ascending id order. Nothing is locked: the host serialises
/// changes.
template <typename Domain>
class SourceRegistry {
 public:
  using Table = std::map<std::string, std::shared_ptr<const typename Domain::SourceData>>;

  const Table& Sources() const { return sources_; }

  ErrorPtr Create(const std::string& id,
                  const std::shared_ptr<const typename Domain::CreateSpec>& spec) {
    if (sources_.count(id) != 0) {
      return MakeError<StdErrors::AlreadyExists>(Domain::kExists, id);
    }
    ErrorPtr error;
    if (auto source = LoadSource<Domain>(spec, error)) {
      sources_.emplace(id, std::move(source));
    }
    return error;
  }

  ErrorPtr Delete(const std::string& id) {
    if (sources_.erase(id) == 0) {
      return MakeError<StdErrors::NotFound>(Domain::kNotFound, id);
    }
    return nullptr;
  }

  /// Intended(reload-failure-unreported): a source that fails to load keeps its old data, and hosts
  /// do not expect an error for it.
  ErrorPtr Reload(const boost::optional<std::string>& id) {
    ReloadEntry<Domain> reload;
    if (!id) {
      // In place, so that at most one source is in memory twice. When memory runs out, the sources
      // before it are new and the others are old; each is whole.
      for (auto& entry : sources_) reload(entry);
      return nullptr;
    }
    const auto found = sources_.find(*id);
    if (found == sources_.end()) {
      // Intended(reload-unknown-id): NotFound with the exists message; clients recognise a failed
      // reload by it.
      return MakeError<StdErrors::NotFound>(Domain::kExists, id);
    }
    reload(*found);
    return nullptr;
  }

  std::list<std::string> Ids() const {
    std::list<std::string> ids;
    for (const auto& entry : sources_) ids.push_back(entry.first);
    return ids;
  }

  /// Returns what the source was created with, or null for an unknown id.
  std::shared_ptr<const typename Domain::Info> Info(const std::string& id) const {
    const auto found = sources_.find(id);
    return found == sources_.end() ? nullptr : found->second->info;
  }

  /// Returns the digest of the fingerprint of one source, or without an id of all. Empty for an
  /// unknown id. Intended(digest-of-digest): the hex texts are digested again, so that one source
  /// and all sources are treated alike.
  std::string Fingerprint(const boost::optional<std::string>& id) const {
    if (!id) return DigestOfSources(sources_, &Domain::SourceData::fingerprint);
    const auto found = sources_.find(*id);
    if (found == sources_.end()) return std::string();
    ::Zelk::MD5 digest;
    digest.Update(found->second->fingerprint);
    return digest.hexdigest();
  }

 private:
  Table sources_;
};

}  // namespace Zelk::Provider::Metadata
