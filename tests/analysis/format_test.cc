#include <string>

#include <gtest/gtest.h>

#include "analysis/element.h"
#include "analysis/format_parts.h"

using Zelk::Analysis::Domain;
using Zelk::Analysis::ElementKind;
using Zelk::Analysis::FindFormat;
using Zelk::Analysis::Form;
using Zelk::Analysis::FormatOf;
using Zelk::Analysis::KeyForm;
using Zelk::Analysis::kText;
using Zelk::Analysis::ObjectForm;
using Zelk::Analysis::OwnerOf;
using Zelk::Analysis::Rule;
using Zelk::Analysis::Style;
using Zelk::Analysis::ValueForm;
using Zelk::Analysis::Words;

TEST(Format, IsFoundByItsRootKey) {
  for (const Domain domain : {Domain::kMetamodel, Domain::kAuthentication, Domain::kCli}) {
    EXPECT_EQ(FormatOf(domain).domain, domain);
    EXPECT_EQ(FindFormat(FormatOf(domain).root_key), &FormatOf(domain));
  }
  EXPECT_EQ(FindFormat("Metamodel"), nullptr);
}

TEST(Format, WordsAreFoundInAnyCaseAndByTheirAlias) {
  static constexpr const char* kTexts[] = {"ONE", "TWO", nullptr};
  constexpr Words kWords{kTexts, "DEUX", "TWO"};
  EXPECT_STREQ(kWords.Find("ONE"), "ONE");
  EXPECT_STREQ(kWords.Find("two"), "TWO");
  EXPECT_STREQ(kWords.Find("Deux"), "TWO");
  EXPECT_EQ(kWords.Find("three"), nullptr);
  EXPECT_EQ(kWords.Find(""), nullptr);
  constexpr Words kWithoutAlias{kTexts, nullptr, nullptr};
  EXPECT_EQ(kWithoutAlias.Find("deux"), nullptr);
}

TEST(Format, OwnerOfAnIdNeedsTwoParts) {
  EXPECT_EQ(OwnerOf("a.b.c"), "a.b");
  for (const char* id : {"", "a", "a.", ".a", "."}) EXPECT_EQ(OwnerOf(id), "") << id;
}

// The compiler makes the tables, so these are the only calls while a program runs.
TEST(Format, PartsMakeTheFormsThatTheyName) {
  const std::string word = "word";
  const ObjectForm object{};
  const Words words{nullptr, nullptr, nullptr};
  const ValueForm called = Called(kText, word.c_str());
  EXPECT_EQ(called.called, word);
  EXPECT_EQ(called.form, Form::kText);
  EXPECT_EQ(WithRule(called, Rule::kServiceId).rule, Rule::kServiceId);
  EXPECT_EQ(As(ElementKind::kEntry, called).element, ElementKind::kEntry);
  EXPECT_EQ(OneOf(words).words, &words);
  EXPECT_EQ(Object(object).object, &object);
  EXPECT_EQ(Each(ElementKind::kField, object).form, Form::kElement);
  EXPECT_EQ(ListOf(called).each, &called);
  EXPECT_EQ(MembersOf(called).form, Form::kMembers);
  EXPECT_EQ(MembersOf(called, Style::kPath).style, Style::kPath);
  EXPECT_EQ(Text(Style::kFullName).style, Style::kFullName);
  EXPECT_EQ(WithWords(called, words).words, &words);
  EXPECT_NE(std::string(Own(called, word.c_str()).invalid_id), called.invalid_id);
  EXPECT_EQ(Optional(word.c_str(), called, "").presence, KeyForm::kOptional);
}
