#pragma once

#include <string>

#include <boost/optional.hpp>

#include "common/json/text_buffer.h"

namespace Zelk::Provider::Metadata {

/// Returns the bytes of the file at `path`. Reads it once, from its beginning to its end, and
/// follows links. Empty optional if it cannot be opened. A folder is read as an empty file. A pipe,
/// a device or a socket counts as a file that cannot be opened, since reading it might block or
/// never end. A file of more than kMaxTextSize bytes is not read: sets `is_too_large` and returns
/// an empty optional.
boost::optional<TextBuffer> ReadSourceFile(const std::string& path, bool& is_too_large);

}  // namespace Zelk::Provider::Metadata
