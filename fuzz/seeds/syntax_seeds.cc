#include "fuzz/seeds/seed_folder.h"

namespace Zelk::Fuzzing {
namespace {

struct Row {
  const char* name;
  std::string text;
};

}  // namespace

void AddSyntaxSeeds(const SeedFolder& seeds, const std::string& before) {
  using namespace std::string_literals;
  const std::vector<Row> rows = {
      {"no-text", ""},
      {"blanks", " \t\r\n"},
      {"two-roots", "{} {}"},
      {"half-a-word", "nul"},
      {"no-value", "[1,]"},
      {"no-key", "{1:2}"},
      {"no-colon", R"({"a" 1})"},
      {"open-object", R"({"a":1)"},
      {"open-array", "[1 2]"},
      {"bad-hex", R"(["\u12g4"])"},
      {"half-a-surrogate", R"(["\ud800"])"},
      {"bad-escape", R"(["\x"])"},
      {"open-string", R"({"a)"},
      {"control-character", "[\"\n\"]"},
      {"number-too-large", "1e999"},
      {"no-fraction", "[1.]"},
      {"no-exponent", "[1e]"},
      {"closed-only", "]"},
      {"byte-order-mark", "\xef\xbb\xbf{}"},
      {"zero-byte-after", "{}\0]]"s},
      {"zero-byte-inside", "[\"\0\"]"s},
      {"bad-utf8", "{\"\xff\xc0\":\"\xff\"}"},
      {"deep-arrays", std::string(600, '[') + std::string(600, ']')},
      {"open-deep-arrays", std::string(600, '[')},
      {"all-escapes", R"({"\"\\\/\b\f\n\r\t\u0000\u00e4\ud83d\ude00":[0,-0,-1,1.5e-9,true,null]})"},
  };
  for (const auto& row : rows) seeds.Add(std::string("syntax-") + row.name, before + row.text);
}

}  // namespace Zelk::Fuzzing
