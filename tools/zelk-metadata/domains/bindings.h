#pragma once

#include <com/orvane/zelk/metadata/source_type.h>

namespace Zelk::Tool {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

}  // namespace Zelk::Tool
