#pragma once

#include <list>
#include <string>

namespace Zelk::Fuzzing {

/// The line of a message that the model foretells, with the text that its id promises.
std::string Message(const std::string& id, const std::list<std::string>& arguments);

/// A NotFound error with one message.
std::string NotFound(const std::string& id, const std::list<std::string>& arguments);

}  // namespace Zelk::Fuzzing
