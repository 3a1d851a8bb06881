#pragma once

#include "analysis/format.h"

// Short ways to write the tables of the formats.

namespace Zelk::Analysis {

inline constexpr ValueForm kAnything{Form::kAnything};
inline constexpr ValueForm kText{Form::kText};

/// A text that authors should write in this style.
constexpr ValueForm Text(Style style) {
  ValueForm form = kText;
  form.style = style;
  return form;
}

/// `form`, with words that authors should know.
constexpr ValueForm WithWords(ValueForm form, const Words& words) {
  form.words = &words;
  return form;
}

/// `form`, as messages call it.
constexpr ValueForm Called(ValueForm form, const char* called) {
  form.called = called;
  return form;
}

/// `form`, with what is looked at once it has been read.
constexpr ValueForm WithRule(ValueForm form, Rule rule) {
  form.rule = rule;
  return form;
}

/// `form`, values of which are elements.
constexpr ValueForm As(ElementKind element, ValueForm form) {
  form.element = element;
  return form;
}

constexpr ValueForm OneOf(const Words& words) {
  return {Form::kWord, ElementKind::kNone, nullptr, nullptr, &words};
}

constexpr ValueForm Object(const ObjectForm& object) {
  return {Form::kObject, ElementKind::kNone, &object};
}

/// An element of an array, which need not be an object to be read as one.
constexpr ValueForm Each(ElementKind element, const ObjectForm& object) {
  return {Form::kElement, element, &object};
}

constexpr ValueForm ListOf(const ValueForm& each) {
  return {Form::kList, ElementKind::kNone, nullptr, &each};
}

constexpr ValueForm MembersOf(const ValueForm& each, Style keys = Style::kNotEmpty) {
  ValueForm form{Form::kMembers, ElementKind::kNone, nullptr, &each};
  form.style = keys;
  return form;
}

/// `form`, about which messages of the CLI domain's own say that it is of another JSON type.
constexpr ValueForm Own(ValueForm form, const char* called) {
  form.called = called;
  form.invalid_id = "zelk.metadata.cli.json.invalid.field";
  return form;
}

constexpr KeyForm Optional(const char* name, const ValueForm& value, const char* documentation) {
  return {name, value, documentation, KeyForm::kOptional};
}

}  // namespace Zelk::Analysis
