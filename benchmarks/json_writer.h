#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Zelk::Benchmarks {

/// How a file is laid out: without a blank, or with an indented line for each value.
enum class Layout { kCompact, kPretty };

/// Writes JSON text in either layout. The caller says what is written; nothing checks that it is
/// one document.
class JsonWriter {
 public:
  explicit JsonWriter(Layout layout) : layout_(layout) {}

  void OpenObject() { Open('{'); }

  void CloseObject() { Close('}'); }

  void OpenArray() { Open('['); }

  void CloseArray() { Close(']'); }

  void Key(std::string_view key);
  void String(std::string_view text);
  void Member(std::string_view key, std::string_view text);

  /// Members with nothing in them.
  void EmptyObject(std::string_view key);
  void EmptyArray(std::string_view key);

  /// How much has been written so far.
  std::size_t Size() const { return text_.size(); }

  std::string Take() { return std::move(text_); }

 private:
  void Open(char bracket);
  void Close(char bracket);
  void BeginValue();
  void NewLine();
  void Quoted(std::string_view text);

  Layout layout_;
  std::string text_;
  std::size_t depth_ = 0;
  bool is_first_ = true;
  bool is_after_key_ = false;
};

}  // namespace Zelk::Benchmarks
