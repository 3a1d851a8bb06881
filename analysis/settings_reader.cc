#include "analysis/settings_reader.h"

#include <algorithm>
#include <array>

#include "analysis/near.h"

namespace Zelk::Analysis {

bool IsDate(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00";
  return std::equal(text.begin(), text.end(), kForm.begin(), kForm.end(), [](char byte, char form) {
    return form == '0' ? byte >= '0' && byte <= '9' : byte == form;
  });
}

NodeId SettingsReader::Member(NodeId object, const char* key, NodeKind kind) {
  const NodeId member = document_.Find(object, key);
  if (member == kNoNode || document_[member].kind == kind) return member;
  constexpr std::array<const char*, 3> kKinds{"an object", "an array", "a string"};
  Complain(member,
           std::string("'") + key + "' must be " + kKinds.at(static_cast<std::size_t>(kind)));
  return kNoNode;
}

std::string SettingsReader::Text(NodeId object, const char* key) {
  const NodeId member = Member(object, key, NodeKind::kString);
  return member == kNoNode ? "" : std::string(document_.String(member));
}

bool SettingsReader::IsTrue(NodeId object, const char* key) {
  const NodeId member = document_.Find(object, key);
  if (member == kNoNode) return false;
  const char first = document_.Text()[document_[member].begin];
  if (first != 't' && first != 'f') {
    Complain(member, std::string("'") + key + "' must be true or false");
  }
  return first == 't';
}

std::vector<std::string> SettingsReader::Texts(NodeId object, const char* key) {
  std::vector<std::string> texts;
  EachChild(Member(object, key, NodeKind::kArray), [&](NodeId child) {
    if (document_[child].kind != NodeKind::kString) {
      Complain(child, std::string("'") + key + "' must hold strings");
    } else {
      texts.emplace_back(document_.String(child));
    }
  });
  return texts;
}

std::string SettingsReader::Date(NodeId object, const char* key) {
  std::string text = Text(object, key);
  if (!text.empty() && !IsDate(text)) {
    Complain(document_.Find(object, key),
             std::string("'") + key + "' must be a date such as 2030-01-31");
  }
  return text;
}

std::string SettingsReader::Choice(NodeId object, const char* key,
                                   const std::array<std::string, 2>& words) {
  const NodeId member = Member(object, key, NodeKind::kString);
  if (member == kNoNode) return words[0];
  std::string word(document_.String(member));
  if (word == words[0] || word == words[1]) return word;
  Complain(member, std::string("'") + key + "' is " + words[0] + " or " + words[1]);
  return words[0];
}

void SettingsReader::ExpectKeys(NodeId object, const std::vector<std::string>& known) {
  EachChild(object, [&](NodeId member) {
    const std::string key(document_.Key(member));
    const bool is_known = std::find(known.begin(), known.end(), key) != known.end();
    if (is_known || key.substr(0, 1) == "$") return;
    Complain(member, "unknown key '" + key + "'" + Suggestion(key, known));
  });
}

bool SettingsReader::IsObject(NodeId node) {
  if (document_[node].kind == NodeKind::kObject) return true;
  Complain(node, "an object is needed here");
  return false;
}

}  // namespace Zelk::Analysis
