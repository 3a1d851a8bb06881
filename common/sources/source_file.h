#pragma once

#include <string>

#include <boost/optional.hpp>

#include "common/json/text_buffer.h"

namespace Zelk::Provider::Metadata {

/// The bytes of the file at `path`, read once from its beginning to its end, links followed. None
/// when it cannot be opened. A folder is opened and read as an empty file; what is neither a file
/// nor a folder (a pipe, a device, a socket) counts as one that cannot be opened, since it might
/// block or never end. None, too, for a file of more than kMaxTextSize bytes, which sets
/// `is_too_large` and is not read.
boost::optional<TextBuffer> ReadSourceFile(const std::string& path, bool& is_too_large);

}  // namespace Zelk::Provider::Metadata
