#pragma once

#include <list>
#include <memory>
#include <set>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/source_type.h>

#include "support/authentication_text.h"
#include "support/cli_text.h"
#include "support/record_dump.h"
#include "support/record_text.h"

// What a query answers, as text and as a demand for memory.

namespace Zelk::Testing {

inline std::string RecordText(const ::Com::Orvane::Zelk::Metadata::SourceDescription& source) {
  return Quoted(source.description) + EnumText(source.type) + Quoted(source.file_path) +
         Quoted(source.address);
}

inline std::string RecordText(const Bindings::Metamodel::ComponentData& component) {
  return component.fingerprint + Dump(*component.info);
}

inline std::string RecordText(const Bindings::Metamodel::PackageInfo& record) {
  return Dump(record);
}

inline std::string RecordText(const Bindings::Metamodel::ServiceInfo& record) {
  return Dump(record);
}

inline std::string RecordText(const Bindings::Metamodel::OperationInfo& record) {
  return Dump(record);
}

inline std::string RecordText(const Bindings::Metamodel::StructureInfo& record) {
  return Dump(record);
}

inline std::string RecordText(const Bindings::Metamodel::EnumerationInfo& record) {
  return Dump(record);
}

inline std::string RecordText(const Bindings::Authentication::ComponentData& component) {
  return ComponentText(component.fingerprint, *component.info);
}

inline std::string RecordText(const Bindings::Authentication::PackageInfo& package) {
  return PackageText("", package);
}

inline std::string RecordText(const Bindings::Authentication::ServiceInfo& service) {
  return ServiceText("", service);
}

inline std::string RecordText(const Bindings::Authentication::OperationInfo& operation) {
  return OperationText("", operation);
}

inline std::string RecordText(const Bindings::Cli::TreeIdentity& identity) {
  return CliText(identity);
}

inline std::string RecordText(const Bindings::Cli::NamespaceSvc::Info& info) {
  return CliText(info);
}

inline std::string RecordText(const Bindings::Cli::CommandSvc::Info& info) {
  return CliText(info);
}

inline std::string AnswerText(const std::string& text) {
  return Quoted(text);
}

/// Nothing for no record.
template <typename Record>
std::string AnswerText(const std::shared_ptr<const Record>& record) {
  return record ? RecordText(*record) : "nothing";
}

template <typename Elements>
std::string ElementsText(const Elements& elements) {
  std::string text;
  for (const auto& element : elements) text += AnswerText(element) + ";";
  return text;
}

template <typename Element>
std::string AnswerText(const std::list<Element>& elements) {
  return ElementsText(elements);
}

inline std::string AnswerText(const std::set<std::string>& elements) {
  return ElementsText(elements);
}

template <typename Answer>
std::string AnswerText(const boost::optional<Answer>& answer) {
  return answer ? AnswerText(*answer) : "nothing";
}

/// Whether the answer needs memory to be made or copied: records are shared and empty lists do not,
/// but components are put together for each answer.
inline bool TakesMemory(const std::string& text) {
  return text.size() > std::string().capacity();
}

template <typename Record>
bool TakesMemory(const std::shared_ptr<const Record>& /*record*/) {
  return false;
}

inline bool TakesMemory(
    const std::shared_ptr<const Bindings::Metamodel::ComponentData>& component) {
  return component != nullptr;
}

inline bool TakesMemory(
    const std::shared_ptr<const Bindings::Authentication::ComponentData>& component) {
  return component != nullptr;
}

template <typename Element>
bool TakesMemory(const std::list<Element>& elements) {
  return !elements.empty();
}

inline bool TakesMemory(const std::set<std::string>& elements) {
  return !elements.empty();
}

template <typename Answer>
bool TakesMemory(const boost::optional<Answer>& answer) {
  return answer && TakesMemory(*answer);
}

}  // namespace Zelk::Testing
