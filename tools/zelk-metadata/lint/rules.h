#pragma once

#include "analysis/lint/rule.h"
#include "render/json_writer.h"
#include "render/page.h"

namespace Zelk::Tool::Lint {

/// What is known about a rule, for people.
void WritePage(Render::Page& page, const Analysis::Lint::Rule& rule);

/// The same as one object.
void WriteJson(Render::JsonWriter& json, const Analysis::Lint::Rule& rule);

}  // namespace Zelk::Tool::Lint
