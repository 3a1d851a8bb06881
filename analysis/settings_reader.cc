#include "analysis/settings_reader.h"

#include <algorithm>
#include <array>
#include <set>

#include "analysis/near.h"

namespace Zelk::Analysis {

namespace {

/// Of digits.
int NumberOf(std::string_view digits) {
  int number = 0;
  for (const char digit : digits) number = number * 10 + (digit - '0');
  return number;
}

int DaysOf(int year, int month) {
  constexpr std::array<int, 13> kDays{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool is_leap_year = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && is_leap_year ? 29 : kDays.at(static_cast<std::size_t>(month));
}

}  // namespace

bool IsDate(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00";
  const bool has_form = std::equal(
      text.begin(), text.end(), kForm.begin(), kForm.end(),
      [](char byte, char form) { return form == '0' ? byte >= '0' && byte <= '9' : byte == form; });
  if (!has_form) return false;
  const int month = NumberOf(text.substr(5, 2));
  const int day = NumberOf(text.substr(8, 2));
  return month >= 1 && month <= 12 && day >= 1 && day <= DaysOf(NumberOf(text.substr(0, 4)), month);
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
  const NodeId member = Member(object, key, NodeKind::kString);
  if (member == kNoNode) return "";
  std::string text(document_.String(member));
  if (!IsDate(text))
    Complain(member, std::string("'") + key + "' must be a date such as 2030-01-31");
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

void SettingsReader::ExpectVersion(NodeId object) {
  const NodeId member = document_.Find(object, "version");
  if (member == kNoNode) return;
  const Node& node = document_[member];
  if (document_.Text().substr(node.begin, node.end - node.begin) == "1") return;
  Complain(member, "'version' must be 1");
}

void SettingsReader::ExpectKeys(NodeId object, const std::vector<std::string>& known) {
  EachChild(object, [&](NodeId member) {
    const std::string key(document_.Key(member));
    const bool is_known = std::find(known.begin(), known.end(), key) != known.end();
    if (is_known || key.substr(0, 1) == "$") return;
    Complain(member, "unknown key '" + key + "'" + Suggestion(key, known));
  });
  ExpectOnce(object);
}

void SettingsReader::ExpectOnce(NodeId object) {
  std::set<std::string_view> keys;
  EachChild(object, [&](NodeId member) {
    const std::string_view key = document_.Key(member);
    if (!keys.insert(key).second)
      Complain(member, "the key '" + std::string(key) + "' is repeated");
  });
}

bool SettingsReader::IsObject(NodeId node) {
  if (document_[node].kind == NodeKind::kObject) return true;
  Complain(node, "an object is needed here");
  return false;
}

}  // namespace Zelk::Analysis
