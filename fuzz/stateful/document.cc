#include "stateful/document.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace Zelk::Fuzzing {
namespace {

/// The first values are drawn most.
Json OtherValue(Input& input) {
  switch (input.Below(8)) {
    case 0:
      return JsonNull();
    case 1:
      return JsonString("none of these");
    case 2:
      return JsonArray({});
    case 3:
      return JsonObject({});
    case 4:
      return JsonArray({JsonNumber()});
    case 5:
      return JsonObject({{"value", JsonNumber()}});
    case 6:
      return JsonBoolean();
    default:
      return JsonNumber();
  }
}

void Erase(Json& json, std::size_t index) {
  const auto place = static_cast<std::ptrdiff_t>(index);
  json.elements.erase(json.elements.begin() + place);
  if (json.kind == Json::Kind::kObject) json.keys.erase(json.keys.begin() + place);
}

}  // namespace

Json Arranged(Input& input, std::vector<std::pair<std::string, Json>> members) {
  switch (input.Below(24)) {
    case 20:
      std::reverse(members.begin(), members.end());
      break;
    case 21:
      members.insert(members.begin(), {"remark", OtherValue(input)});
      break;
    case 22:
      members.emplace_back(members[input.Below(members.size())].first, OtherValue(input));
      break;
    case 23:
      members[input.Below(members.size())].first += std::string("\0z", 2);
      break;
    default:
      break;
  }
  return JsonObject(std::move(members));
}

void Damage(Input& input, Json& document) {
  Json* json = &document;
  for (int depth = 0; depth < 20 && !json->elements.empty(); ++depth) {
    const auto index = input.Below(json->elements.size());
    const auto choice = input.Below(8);
    if (choice == 7) return Erase(*json, index);
    json = &json->elements[index];
    if (choice == 6) break;
  }
  *json = OtherValue(input);
}

void DamageText(Input& input, std::string& text) {
  constexpr std::array<char, 10> kBytes = {'\0', '"', '{', '}', '[', ']', ',', ':', '\\', '\xff'};
  const auto place = text.empty() ? 0 : (256 * input.Byte() + input.Byte()) % text.size();
  switch (input.Below(6)) {
    case 0:
      text.resize(place);
      return;
    case 1:
      text.insert(place, 1, input.Pick(kBytes));
      return;
    case 2:
      if (!text.empty()) text.erase(place, 1);
      return;
    case 3:
      text += input.Pick(kBytes);
      return;
    case 4:
      text.insert(0, "\xef\xbb\xbf");
      return;
    default:
      text += " \n";
  }
}

std::string AnyCase(Input& input, std::string text) {
  const auto choice = input.Below(4);
  for (auto& character : text) {
    if (choice == 2) character = static_cast<char>(std::tolower(character));
  }
  if (choice == 3 && !text.empty()) text[0] = static_cast<char>(std::tolower(text[0]));
  return text;
}

}  // namespace Zelk::Fuzzing
