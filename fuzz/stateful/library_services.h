#pragma once

#include <memory>
#include <string>

#include <boost/none.hpp>

#include <com/orvane/zelk/metadata/source_type.h>
#include <zelk/async_result.h>

#include "stateful/answer_text.h"
#include "stateful/services.h"
#include "support/surface_recorder.h"

namespace Zelk::Fuzzing {

/// What a call delivered: the text of its value, the lines of its error, or that it kept silent.
template <typename T, typename ToText>
std::string Delivered(const Testing::Delivery<T>& delivery, ToText to_text) {
  if (delivery.calls == 0) return kSilence;
  if (delivery.calls > 1) return "delivered " + std::to_string(delivery.calls) + " times";
  if (delivery.value && delivery.error) return "a value and an error";
  if (delivery.error) return ErrorText(Testing::ErrorLines(delivery.error));
  return delivery.value ? to_text(*delivery.value) : "neither a value nor an error";
}

inline std::string Delivered(const Testing::Delivery<Void>& delivery) {
  return Delivered(delivery, [](const Void&) { return std::string(kSuccess); });
}

inline std::string Delivered(const Testing::Delivery<std::string>& delivery) {
  return Delivered(delivery, [](const std::string& text) { return Testing::Quoted(text); });
}

/// A list or set of names.
template <typename Names>
std::string DeliveredNames(const Testing::Delivery<Names>& delivery) {
  return Delivered(delivery, [](const Names& names) { return NamesText(names); });
}

/// The services of the sources of one domain, which has the type of the service, of its container
/// and of the spec.
template <typename Domain>
class LibraryServices : public Services {
 public:
  std::string Create(const std::string& id, const Spec& spec) override {
    return Delivered(Testing::Ask(sources_, &Sources::Create, id, LibrarySpec(spec)));
  }

  std::string Delete(const std::string& id) override {
    return Delivered(Testing::Ask(sources_, &Sources::Delete, id));
  }

  std::string Reload(const boost::optional<std::string>& id) override {
    return Delivered(Testing::Ask(sources_, &Sources::Reload, id));
  }

 protected:
  using Sources = typename Domain::Sources;
  using Container = typename Domain::Container;

  const std::shared_ptr<Container>& Shared() const { return container_; }

  std::string AskSources(const Question& question) {
    using Id = boost::optional<std::string>;
    switch (question.operation) {
      case Operation::kListSources:
        return DeliveredNames(Testing::Ask(sources_, &Sources::List));
      case Operation::kGetSource:
        return Delivered(Testing::Ask(sources_, &Sources::Get, question.key),
                         [](const auto& info) { return InfoText(*info); });
      case Operation::kFingerprintOfSource:
        return Delivered(Testing::Ask(sources_, &Sources::Fingerprint, Id(question.key)));
      case Operation::kFingerprintOfAllSources:
        return Delivered(Testing::Ask(sources_, &Sources::Fingerprint, Id()));
      default:
        return kNoSuchOperation;
    }
  }

 private:
  using SourceType = ::Com::Orvane::Zelk::Metadata::SourceType;

  static std::shared_ptr<const typename Domain::CreateSpec> LibrarySpec(const Spec& spec) {
    const SourceType type(static_cast<SourceType::Enumerator>(spec.type));
    return std::make_shared<const typename Domain::CreateSpec>(spec.description, type,
                                                               spec.file_path, spec.address);
  }

  template <typename Info>
  static std::string InfoText(const Info& info) {
    return TextBuffer(info.description, info.type.Value(), info.file_path, info.address);
  }

  std::shared_ptr<Container> container_ = Container::GetInstance();
  Sources sources_{container_};
};

}  // namespace Zelk::Fuzzing
