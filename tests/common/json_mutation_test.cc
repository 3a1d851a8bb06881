#include <algorithm>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

#include "common/json/json_document.h"
#include "support/json_text.h"
#include "support/message_texts.h"

// Broken files get the messages that RapidJSON's default parse of a stream gives rise to, although
// they are parsed in another mode and from memory.

namespace Zelk::Provider::Metadata {
namespace {

using Testing::JsonText;
using Testing::Lines;
using Testing::MessageText;
using Testing::MessageTexts;

/// What a parse comes to: the document written anew, or its messages.
struct Outcome {
  bool ok;
  std::string document;
  Lines messages;
};

bool operator==(const Outcome& left, const Outcome& right) {
  return left.ok == right.ok && left.document == right.document && left.messages == right.messages;
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << (outcome.ok ? outcome.document : testing::PrintToString(outcome.messages));
}

Outcome ParseAsFilesAre(const std::string& text) {
  JsonDocument document{TextBuffer(text)};
  Errors errors;
  const bool ok = document.Parse("foo", errors);
  return {ok, ok ? JsonText(document.Root()) : "", MessageTexts(errors)};
}

Outcome ParseByDefault(const std::string& text) {
  std::istringstream in(text);
  rapidjson::IStreamWrapper wrapper(in);
  rapidjson::Document document;
  document.ParseStream(wrapper);
  if (!document.HasParseError()) return {true, JsonText(document), {}};
  const auto code = static_cast<int>(document.GetParseError());
  return {false,
          "",
          {MessageText("foo", {std::to_string(code), std::to_string(document.GetErrorOffset())})}};
}

const std::vector<std::string> kOriginals = {
    R"({"metamodel": {"component": {"name": "foo", "documentation": "", "metadata": {}}}})",
    R"({"category":"GENERIC","generic_type":"MAP","map_key_type":{},"map_value_type":{"a":[]}})",
    R"([0, -1, 12.5, 1e10, -2.25E-3, 18446744073709551616, 4294967296, -9223372036854775808])",
    R"(["", "\"\\\/\b\f\n\r\t", "\u0041\u00e4\u20ac", "\ud83d\ude00", "plain text"])",
    R"([true, false, null, [[]], [{}], {"a": {"b": {"c": [[[1]]]}}}])",
    "\r\n\t {\t\"foo\" :\r\n[ 1 , 2 ]\n,\"bar\" : { } } \n",
    "[\"\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80\", \"\xc3\xa4\"]",
    R"({"foo": 1, "foo": 2, "": 3, "\u0000": 4})",
    "[[[[[[[[]]]]]]]]",
    R"({"a":{"a":{"a":{"a":null}}}})",
    R"("foo")",
    "-0.5e+7",
    "true",
};

const std::string kStructuralBytes = "[]{},:\"\\ \t\r\n0123456789-+.eEtrufalsn/'\b";

/// What is worth having in a broken document: byte order marks, bad UTF-8, bad escapes and so on.
const std::vector<std::string> kPieces = {std::string(1, '\0'),
                                          "\xef\xbb\xbf",
                                          "\xff",
                                          "\xc3",
                                          "\xed\xa0\x80",
                                          "\xf4\x90\x80\x80",
                                          "\\u",
                                          "\\ud800",
                                          "\\uD83",
                                          "\"",
                                          "null",
                                          "1e400",
                                          "\x1f",
                                          "[",
                                          "]",
                                          "{",
                                          "}",
                                          "\"a\":"};

class Mutator {
 public:
  explicit Mutator(unsigned seed) : random_(seed) {}

  std::string Next() {
    std::string text = kOriginals[Below(kOriginals.size())];
    for (std::size_t count = 1 + Below(4); count > 0; --count) {
      kMutations[Below(kMutations.size())](*this, text);
    }
    return text;
  }

 private:
  using Mutation = std::function<void(Mutator&, std::string&)>;

  std::size_t Below(std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_);
  }

  std::size_t Place(const std::string& text) { return Below(text.size() + 1); }

  char AnyByte() { return static_cast<char>(Below(256)); }

  char Structural() { return kStructuralBytes[Below(kStructuralBytes.size())]; }

  std::string Piece() { return kPieces[Below(kPieces.size())]; }

  void Replace(std::string& text, char byte) {
    if (!text.empty()) text[Below(text.size())] = byte;
  }

  void Swap(std::string& text) {
    if (!text.empty()) std::swap(text[Below(text.size())], text[Below(text.size())]);
  }

  static const std::vector<Mutation> kMutations;

  std::mt19937 random_;
};

const std::vector<Mutator::Mutation> Mutator::kMutations = {
    [](Mutator& self, std::string& text) { text.resize(self.Place(text)); },
    [](Mutator& self, std::string& text) { text.erase(self.Place(text), 1 + self.Below(3)); },
    [](Mutator& self, std::string& text) { text.erase(0, self.Place(text)); },
    [](Mutator& self, std::string& text) { text.insert(self.Place(text), 1, self.Structural()); },
    [](Mutator& self, std::string& text) { text.insert(self.Place(text), self.Piece()); },
    [](Mutator& self, std::string& text) { text.insert(0, 1, "]},:["[self.Below(5)]); },
    [](Mutator& self, std::string& text) { text.insert(0, self.Piece()); },
    [](Mutator& self, std::string& text) { self.Replace(text, self.Structural()); },
    [](Mutator& self, std::string& text) { self.Replace(text, self.AnyByte()); },
    [](Mutator& self, std::string& text) { self.Replace(text, '\0'); },
    [](Mutator& self, std::string& text) { self.Swap(text); },
    [](Mutator& self, std::string& text) { text += text.substr(self.Place(text)); },
};

TEST(ParseJson, AgreesWithTheDefaultParseOnMutatedDocuments) {
  constexpr int kDocuments = 40'000;
  Mutator mutator(1);
  int parsed = 0;
  for (int count = 0; count < kDocuments; ++count) {
    const std::string text = mutator.Next();
    const Outcome expected = ParseByDefault(text);
    EXPECT_EQ(ParseAsFilesAre(text), expected) << testing::PrintToString(text);
    parsed += expected.ok;
  }
  // Neither side of the comparison may be left out.
  EXPECT_GT(parsed, kDocuments / 50);
  EXPECT_LT(parsed, kDocuments / 2);
}

const std::vector<std::string> kTokens = {"[", "]",     "{", "}", ",",
                                          ":", "\"a\"", "1", " ", std::string(1, '\0')};

/// The sequence of `length` tokens with that number, counting in as many digits as there are
/// tokens.
std::string Sequence(std::size_t number, int length) {
  std::string text;
  for (; length > 0; --length, number /= kTokens.size()) text += kTokens[number % kTokens.size()];
  return text;
}

TEST(ParseJson, AgreesWithTheDefaultParseOnEverySequenceOfFiveTokens) {
  std::size_t sequences = 1;
  for (int length = 0; length <= 5; ++length, sequences *= kTokens.size()) {
    for (std::size_t number = 0; number < sequences; ++number) {
      const std::string text = Sequence(number, length);
      EXPECT_EQ(ParseAsFilesAre(text), ParseByDefault(text)) << testing::PrintToString(text);
    }
  }
}

TEST(ParseJson, AgreesWithTheDefaultParseOnEveryTwoBytes) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string text{static_cast<char>(first), static_cast<char>(second)};
      EXPECT_EQ(ParseAsFilesAre(text), ParseByDefault(text)) << testing::PrintToString(text);
    }
  }
}

TEST(ParseJson, AgreesWithTheDefaultParseOnEveryTruncation) {
  for (const auto& original : kOriginals) {
    for (std::size_t size = 0; size <= original.size(); ++size) {
      const std::string text = original.substr(0, size);
      EXPECT_EQ(ParseAsFilesAre(text), ParseByDefault(text)) << testing::PrintToString(text);
    }
  }
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
