#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "analysis/document.h"
#include "analysis/element.h"
#include "analysis/format.h"

namespace Zelk::Analysis {

inline constexpr char kUnknownScheme[] = "zelk.metadata.authentication.json.unknown.schema.name";

/// What a problem means for the load.
enum class Severity : std::uint8_t {
  /// It is why the load failed, or why a part of the file was left out.
  kError,
  /// Something is wrong, but the load went on without it.
  kWarning,
  /// An optional key is absent, which does no harm.
  kNote,
};

/// A message that the library gives about a document.
struct Problem {
  const char* message_id;
  std::string argument;
  Severity severity;
  /// Where the value begins; for a message about the key of a member, where the key does.
  std::size_t offset;
  /// The value; for a missing key, the object without it.
  NodeId node;
  /// Whether it comes after the first error, at which the library stops reading.
  bool is_further = false;
  /// What the library leaves out because of it if the file loads all the same, in a word; or null.
  const char* left_out = nullptr;
  /// The words that are allowed in place of the text; or null.
  const Words* words = nullptr;
  /// The form of the object that lacks a key, or whose text decides nothing; or null.
  const ObjectForm* object = nullptr;
};

enum class Extent : std::uint8_t {
  /// As far as the library reads.
  kToFirstError,
  /// After an error, the reading goes on with the next key or element. Checks that depend on what
  /// is
  /// missing are skipped.
  kWholeFile,
};

/// What the library makes of a document as a file of one domain.
struct Reading {
  bool loads = false;
  /// The key of the last part that is left out; or empty.
  std::string_view left_out_part = {};
  /// The messages of the library, in its order. It gives them if the file does not load. Further
  /// problems are where they were found.
  std::vector<Problem> problems;
  /// How many further problems there are that are not in the list, which is of limited length.
  std::size_t unlisted = 0;
  /// What was read, in document order except that keys are in the order of the format. If the file
  /// does not load, only what was before the first error; nothing of it is answered then. Their
  /// fates, owners and targets are not decided yet, except that of parts that are left out. There
  /// may be many, and a deque grows without a copy of them.
  std::deque<Element> elements;
};

/// Reads the document, which must be JSON, key by key in the order in which the library does.
Reading Read(const Document& document, const Format& format, Extent extent = Extent::kToFirstError);

}  // namespace Zelk::Analysis
