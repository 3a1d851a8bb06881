#include <algorithm>

#include <rapidjson/encodings.h>
#include <rapidjson/memorystream.h>

#include "analysis/lint/loader_rules.h"
#include "analysis/near.h"
#include "analysis/text.h"

namespace Zelk::Analysis::Lint {
namespace {

bool HasEmptyPart(std::string_view path) {
  return path.front() == '.' || path.back() == '.' || path.find("..") != std::string_view::npos;
}

bool IsBlank(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

bool IsControl(char byte) {
  return static_cast<unsigned char>(byte) < ' ' || byte == '\x7f';
}

/// Whether elements of the kind have names whose form is looked at here.
bool HasOwnName(ElementKind kind) {
  switch (kind) {
    case ElementKind::kResult:
    case ElementKind::kError:
    case ElementKind::kEntry:
    case ElementKind::kOption:
    case ElementKind::kOutput:
    case ElementKind::kOutputField:
      return false;
    default:
      return true;
  }
}

/// What is wrong with the name; empty if nothing is.
std::string ProblemOf(const Model& model, const Element& element) {
  const std::string_view name = element.name;
  if (name.empty()) {
    const bool is_root = element.kind == ElementKind::kNamespace && element.path.empty();
    return is_root ? "" : "is empty";
  }
  for (const std::string_view text : {name, element.path}) {
    if (std::any_of(text.begin(), text.end(), IsControl)) return "has a control character";
  }
  if (IsBlank(name.front()) || IsBlank(name.back())) return "has a blank at an end";
  // In CLI, this makes a node that cannot be reached.
  const bool has_parts = model.GetDomain() != Domain::kCli;
  return has_parts && HasEmptyPart(name) ? "has an empty part between full stops" : "";
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool IsUtf8(std::string_view text) {
  rapidjson::MemoryStream stream(text.data(), text.size());
  unsigned code = 0;
  while (stream.Tell() < text.size()) {
    if (!rapidjson::UTF8<>::Decode(stream, &code)) return false;
  }
  return true;
}

std::string_view Raw(const Document& document, std::uint32_t begin, std::uint32_t end) {
  return document.Text().substr(begin, end - begin);
}

/// Calls `look(node)` with each string that the library reads under the key.
template <typename Look>
void ForEachTextUnder(const OpenFile& file, std::string_view key, const Look& look) {
  for (NodeId node = kRootNode; node < file.document.Size(); ++node) {
    const bool is_text = file.document[node].kind == NodeKind::kString;
    if (is_text && file.shape.FormOf(node) != nullptr && file.document.Key(node) == key) look(node);
  }
}

void LookAtWord(const OpenFile& file, const char* key, const Words& words, bool may_be_empty,
                Findings& findings) {
  std::vector<std::string> known;
  for (const char* const* word = words.texts; *word != nullptr; ++word) known.emplace_back(*word);
  ForEachTextUnder(file, key, [&](NodeId node) {
    const std::string text(file.document.String(node));
    if (words.Find(text) != nullptr || (text.empty() && may_be_empty)) return;
    findings.Add(file.PlaceOf(node), {std::string("the ") + key + " '" + text + "' is unknown",
                                      text, findings.Hint(text, known)});
  });
}

void LookAtTypeKind(const OpenFile& file, Findings& findings) {
  constexpr std::size_t kMostErrors = 2;
  ForEachTextUnder(file, "user_defined_type", [&](NodeId node) {
    const std::string text(file.document.String(node));
    for (const char* const meant : {"Structure", "Enumeration"}) {
      const std::string lower = LowerCase(meant);
      if (text == meant || EditDistance(LowerCase(text), lower, kMostErrors) > kMostErrors)
        continue;
      findings.Add(file.PlaceOf(node),
                   {"'" + text + "' is taken for the name of a resource", text,
                    std::string("did you mean '") + meant + "'?", Severity::kWarning});
    }
  });
}

/// The words that the library knows for the value; null for a value of another kind.
const Words* WordsOf(const OpenFile& file, NodeId node) {
  const ValueForm* const form = file.shape.FormOf(node);
  if (form == nullptr || file.document[node].kind != NodeKind::kString) return nullptr;
  if (file.model.GetDomain() != Domain::kCli) return form->words;
  if (file.document.Key(node) == "formatter") return &kFormatterTypes;
  return file.document.Key(node) == "generic" ? &kOptionGenerics : nullptr;
}

}  // namespace

void UnreachableNode(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    const bool is_node =
        element.kind == ElementKind::kNamespace || element.kind == ElementKind::kCommand;
    if (!is_node || element.is_implied || !IsKept(element)) continue;
    if (element.name.find('.') != std::string_view::npos) {
      findings.Add(PlaceOf(model, id), {Called(model, id) + " has a full stop in its name, so no "
                                                            "path leads to it"});
    } else if (!element.path.empty() && HasEmptyPart(element.path)) {
      const NodeId path = model.DocumentOf(id).Find(element.node, "path");
      findings.Add(PlaceOf(model, id, path),
                   {"the path of " + Called(model, id) + " has an empty part"});
    }
  }
}

void TextAfterZeroByte(const OpenFile& file, Findings& findings) {
  const std::string_view text = file.document.Text();
  const std::size_t zero = text.find('\0', file.document[kRootNode].end);
  if (zero == std::string_view::npos) return;
  const std::string_view rest = text.substr(zero + 1);
  if (std::all_of(rest.begin(), rest.end(), IsBlank)) return;
  findings.Add({file.model.GetDomain(), file.source, kNoElement, kRootNode,
                static_cast<std::uint32_t>(zero)},
               {"a zero byte ends the file, and the text after it is not read"});
}

void MalformedName(const Workspace& workspace, Findings& findings) {
  for (const Domain domain : kDomains) {
    const Model& model = workspace.ModelOf(domain);
    for (ElementId id = 0; id < model.Size(); ++id) {
      const Element& element = model[id];
      if (element.is_implied || !IsKept(element) || !HasOwnName(element.kind)) continue;
      const std::string problem = ProblemOf(model, element);
      if (problem.empty()) continue;
      findings.Add(PlaceOf(model, id), {"the name of " + Called(model, id) + " " + problem});
    }
  }
}

void InvalidUtf8(const OpenFile& file, Findings& findings) {
  const Document& document = file.document;
  if (IsAscii(document.Text())) return;
  for (NodeId node = kRootNode; node < document.Size(); ++node) {
    if (file.shape.FormOf(node) == nullptr) continue;
    const Node& value = document[node];
    if (!IsUtf8(Raw(document, value.key_begin, value.key_end))) {
      findings.Add(file.PlaceOfKey(node), {"the key is not valid UTF-8"});
    }
    if (value.kind == NodeKind::kString && !IsUtf8(Raw(document, value.begin, value.end))) {
      findings.Add(file.PlaceOf(node), {"the string is not valid UTF-8"});
    }
  }
}

void UnknownEnumerator(const OpenFile& file, Findings& findings) {
  if (file.model.GetDomain() == Domain::kMetamodel) return LookAtTypeKind(file, findings);
  LookAtWord(file, "formatter", kFormatterTypes, false, findings);
  LookAtWord(file, "generic", kOptionGenerics, true, findings);
}

void NoncanonicalSpelling(const OpenFile& file, Findings& findings) {
  for (NodeId node = kRootNode; node < file.document.Size(); ++node) {
    const Words* const words = WordsOf(file, node);
    if (words == nullptr) continue;
    const std::string text(file.document.String(node));
    const char* const word = text.empty() && words == &kOptionGenerics ? "NONE" : words->Find(text);
    if (word == nullptr || text == word) continue;
    findings.Add(file.PlaceOf(node), {"'" + text + "' is read as '" + word + "'", text});
  }
}

}  // namespace Zelk::Analysis::Lint
