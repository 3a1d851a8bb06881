#pragma once

#include "analysis/diff/kind.h"
#include "render/json_writer.h"
#include "render/page.h"

namespace Zelk::Tool::Diff {

/// What `explain` shows of a kind of change.
void WritePage(Render::Page& page, const Analysis::Diff::Kind& kind);

/// An object.
void WriteJson(Render::JsonWriter& json, const Analysis::Diff::Kind& kind);

}  // namespace Zelk::Tool::Diff
