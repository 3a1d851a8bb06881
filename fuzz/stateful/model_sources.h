#pragma once

#include <cstddef>
#include <string>
#include <unistd.h>
#include <utility>
#include <variant>
#include <vector>

#include <boost/optional.hpp>

#include <zelk/md5.h>

#include "stateful/answer_text.h"
#include "stateful/disk.h"
#include "stateful/model_messages.h"
#include "stateful/model_reader.h"
#include "stateful/services.h"
#include "support/surface_recorder.h"

namespace Zelk::Fuzzing {

inline std::string Md5Of(const std::string& text) {
  MD5 digest;
  digest.Update(text);
  return digest.hexdigest();
}

/// A source in the model: what it was made from, and what its file said when it was read last.
template <typename Content>
struct ModelSource {
  std::string id;
  Spec spec;
  std::string digest;
  Content content;
};

/// The sources of one domain in a plain vector. A domain has
/// - kWord and kTitle, as in message ids and texts, and kDeliversSuccess;
/// - Content, and static Content Read(document, reader), which throws GivenUp;
/// - static std::string Ask(sources, question).
template <typename Domain>
class ModelSources final : public Services {
 public:
  explicit ModelSources(const Disk& disk) : disk_(disk) {}

  std::string Create(const std::string& id, const Spec& spec) override {
    if (IndexOf(id) != sources_.size()) {
      return ErrorText({Testing::kAlreadyExistsError, Message(Id("source.exists"), {id})});
    }
    Source source{id, spec, "", {}};
    const std::string error = Load(source);
    if (!error.empty()) return error;
    auto place = sources_.begin();
    while (place != sources_.end() && place->id < id) ++place;
    sources_.insert(place, std::move(source));
    return Done();
  }

  std::string Delete(const std::string& id) override {
    const auto index = IndexOf(id);
    if (index == sources_.size()) return NotFound(Id("source.not.found"), {id});
    sources_.erase(sources_.begin() + static_cast<std::ptrdiff_t>(index));
    return Done();
  }

  std::string Reload(const boost::optional<std::string>& id) override {
    if (!id) {
      for (auto& source : sources_) {
        // From the first that fails on, all keep what they have.
        if (!Load(source).empty()) break;
      }
      return Done();
    }
    const auto index = IndexOf(*id);
    if (index == sources_.size()) return NotFound(Id("source.exists"), {" " + *id});
    Load(sources_[index]);
    return Done();
  }

  std::string Ask(const Question& question) override {
    switch (question.operation) {
      case Operation::kListSources:
        return ListSources();
      case Operation::kGetSource:
        return GetSource(question.key);
      case Operation::kFingerprintOfSource:
        return FingerprintOf(question.key);
      case Operation::kFingerprintOfAllSources:
        return Testing::Quoted(DigestOfAll(sources_));
      default:
        return Domain::Ask(sources_, question);
    }
  }

  /// The digest of the files' digests, one after another.
  static std::string DigestOfAll(const std::vector<ModelSource<typename Domain::Content>>& all) {
    std::string digests;
    for (const auto& source : all) digests += source.digest;
    return Md5Of(digests);
  }

 private:
  using Source = ModelSource<typename Domain::Content>;

  static std::string Id(const std::string& rest) {
    return std::string("zelk.metada.") + Domain::kWord + "." + rest;
  }

  static std::string Done() { return Domain::kDeliversSuccess ? kSuccess : kSilence; }

  std::size_t IndexOf(const std::string& id) const {
    std::size_t index = 0;
    while (index < sources_.size() && sources_[index].id != id) ++index;
    return index;
  }

  /// Reads the file of a source anew; changes nothing when there is an error.
  std::string Load(Source& source) const {
    if (source.spec.type == 1) return ErrorText({Testing::kUnsupportedError});
    if (source.spec.type != 0) return ErrorText({Testing::kInvalidArgumentError});
    const std::string path = source.spec.file_path.value_or("");
    const File& file = disk_.Find(path);
    switch (file.kind) {
      case File::Kind::kText:
        return LoadText(file, source);
      case File::Kind::kFolder:
        return LoadText(File(), source);
      case File::Kind::kUnreadableText:
        if (geteuid() == 0) return LoadText(file, source);
        [[fallthrough]];
      default:
        return NotFound(Id("source.file.not.found"), {path});
    }
  }

  static std::string LoadText(const File& file, Source& source) {
    ModelReader reader;
    try {
      source.content = file.document ? Domain::Read(*file.document, reader)
                                     : Domain::Read(Tree(file.text, reader), reader);
    } catch (const GivenUp&) {
      std::vector<std::string> lines = reader.Messages();
      lines.insert(lines.begin(), Testing::kInvalidArgumentError);
      return ErrorText(lines);
    }
    source.digest = Md5Of(file.text);
    return "";
  }

  static Json Tree(const std::string& text, ModelReader& reader) {
    auto result = ReadJson(text);
    if (const auto* error = std::get_if<SyntaxError>(&result)) {
      reader.GiveUp(std::string("zelk.metadata.") + Domain::kWord + ".parse.error",
                    {std::to_string(error->code), std::to_string(error->offset)});
    }
    return std::get<Json>(std::move(result));
  }

  std::string ListSources() const {
    std::vector<std::string> ids;
    for (const auto& source : sources_) ids.push_back(source.id);
    return NamesText(ids);
  }

  std::string GetSource(const std::string& id) const {
    const auto index = IndexOf(id);
    if (index == sources_.size()) return NotFound(Id("source.not.found"), {id});
    const Spec& spec = sources_[index].spec;
    return TextBuffer(spec.description, spec.type, spec.file_path, spec.address);
  }

  std::string FingerprintOf(const std::string& id) const {
    const auto index = IndexOf(id);
    if (index == sources_.size()) return NotFound(Id("source.not.found"), {" " + id});
    return Testing::Quoted(Md5Of(sources_[index].digest));
  }

  const Disk& disk_;
  std::vector<Source> sources_;
};

}  // namespace Zelk::Fuzzing
