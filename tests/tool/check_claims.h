#pragma once

#include <string>

#include <rapidjson/document.h>
#include <rapidjson/pointer.h>

namespace Zelk::Testing {

/// Whether the document has, at the pointer, what the message with this id and argument says of it.
/// Decided by tables of its own and by nothing that the program uses. False for a message that is
/// not known here.
bool IsTrueClaim(const std::string& id, const std::string& argument,
                 const rapidjson::Pointer& pointer, const rapidjson::Document& document);

}  // namespace Zelk::Testing
