#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "analysis/element.h"

// The three file formats as tables: the keys of each object in the order in which the library reads
// them, what the value of each must be, and what authors should know of it. reader.h reads files by
// them. They are in metamodel_format.cc, authentication_format.cc and cli_format.cc.

namespace Zelk::Analysis {

/// A table that is in static storage.
template <typename T>
class Rows {
 public:
  constexpr Rows() = default;

  template <std::size_t kSize>
  // NOLINTNEXTLINE(google-explicit-constructor): a table is written where rows are wanted
  constexpr Rows(const T (&rows)[kSize]) : begin_(rows), size_(kSize) {}

  constexpr const T* begin() const { return begin_; }

  constexpr const T* end() const { return begin_ + size_; }

  constexpr std::size_t Size() const { return size_; }

  constexpr const T& operator[](std::size_t index) const { return begin_[index]; }

 private:
  const T* begin_ = nullptr;
  std::size_t size_ = 0;
};

/// The texts that an enumeration allows, upper and lower case alike.
struct Words {
  /// In the order of the enumerators; ends with a null.
  const char* const* texts;
  /// One more text, and the one of `texts` that it is taken for; or null.
  const char* alias;
  const char* meaning;
  /// What each of `texts` means, in the same order; or null.
  const char* const* documentation = nullptr;

  /// The one of `texts` that the text is taken for; null if it is not allowed.
  const char* Find(std::string_view text) const;

  /// The same for a text that is written exactly so.
  const char* FindExact(std::string_view text) const;
};

// What types, structures and schemes are called. Types of constants have none of the aliases.
extern const Words kTypeCategories;
extern const Words kBuiltinTypes;
extern const Words kGenericTypes;
extern const Words kStructureTypes;
extern const Words kSchemeTypes;

// What the library knows in CLI files, as its enumerators are spelt. It accepts any other text,
// too.
extern const Words kFormatterTypes;
extern const Words kOptionGenerics;

/// What a value must be.
enum class Form : std::uint8_t {
  kAnything,
  kText,
  /// A text that `words` allows.
  kWord,
  /// The name of a scheme of the same component.
  kSchemeName,
  /// A text or an array of `each`.
  kTextOrList,
  /// An array of `each`. Its first bad element ends it.
  kList,
  /// An object whose keys are names; its values are `each`.
  kMembers,
  /// An object with the keys of `object`.
  kObject,
  /// The same, but anything else is read as an object without members.
  kElement,
};

/// What else the library looks at once it has read a value, or before it reads a key.
enum class Rule : std::uint8_t {
  kNone,
  /// The value of a string constant is a text; a bad one is left out without any harm.
  kConstant,
  kDefinesScheme,
  kOperationId,
  kServiceId,
  /// Services that only operations name are made. The first one without a package ends that, but
  /// not the component.
  kServicesOfOperations,
  /// A good component, or none, carries the file; a good product carries it otherwise.
  kProductOrComponent,
};

/// How authors should write a text, or the keys of kMembers. The library takes any text.
enum class Style : std::uint8_t {
  kAny,
  kNotEmpty,
  /// Without full stops and blanks.
  kSimpleName,
  /// The same, or empty.
  kSimpleNameOrEmpty,
  /// Simple names with full stops between them.
  kFullName,
  /// The same, or empty.
  kPath,
  /// A full name of two parts or more.
  kServiceId,
  /// A full name of three parts or more.
  kOperationId,
  /// One of `words`, or a full name of two parts or more.
  kWordOrFullName,
  /// One of `words`.
  kWord,
  /// Any text that is not empty; `words` are examples.
  kExamples,
};

struct ObjectForm;

struct ValueForm {
  Form form;
  ElementKind element = ElementKind::kNone;
  const ObjectForm* object = nullptr;
  const ValueForm* each = nullptr;
  /// The allowed texts. If any text is allowed, those that authors should write; of kMembers, keys
  /// that have a meaning.
  const Words* words = nullptr;
  /// What messages call the value in place of its key.
  const char* called = nullptr;
  Rule rule = Rule::kNone;
  /// The id of the message about a value of another JSON type.
  const char* invalid_id = "zelk.metadata.json.invalid.field";
  Style style = Style::kAny;
};

struct KeyForm {
  enum Presence : std::uint8_t {
    kRequired,
    kOptional,
    /// Optional, but authors should write it.
    kAdvised,
    /// Optional, and what is wrong within it fails only itself.
    kSeparate,
  };

  const char* name;
  ValueForm value;
  /// For authors: what the value is.
  const char* documentation;
  Presence presence = kRequired;
  Rule before = Rule::kNone;
};

/// What follows in an object if the text under the deciding key is `text`.
struct Variant {
  const char* text;
  const ObjectForm* object;
  ElementKind element = ElementKind::kNone;
};

struct ObjectForm {
  /// What authors call the object; null for the keys of a variant, which have the name of the
  /// whole.
  const char* name = nullptr;
  Rows<KeyForm> keys = {};
  /// The key that decides how the object goes on; or null.
  const char* decided_by = nullptr;
  /// How its text is read; if null, exactly one of the variants' texts is needed.
  const Words* words = nullptr;
  Rows<Variant> variants = {};
};

struct Format {
  Domain domain;
  /// The key of the root by which files of the format are known; the name of the domain, too.
  const char* root_key;
  /// What people call a file of the format.
  const char* title;
  ValueForm root;
  /// Whether a file may load without a part that is broken.
  bool has_separate_parts = false;
};

extern const Format kMetamodelFormat;
extern const Format kAuthenticationFormat;
extern const Format kCliFormat;

const Format& FormatOf(Domain domain);

/// Null for any other key.
const Format* FindFormat(std::string_view root_key);

/// `text` in upper case, by the rules of the global locale, as the library compares it.
std::string ToUpper(std::string_view text);

/// The text before the last full stop of an id of a service or an operation in Authentication;
/// empty unless there is text on both sides of it.
std::string_view OwnerOf(std::string_view id);

}  // namespace Zelk::Analysis
