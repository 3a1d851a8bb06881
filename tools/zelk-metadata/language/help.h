#pragma once

#include <functional>
#include <string>

#include "language/command.h"
#include "render/page.h"

// What --help and the command `help` show.

namespace Zelk::Tool {

/// Of the program: its commands, options and examples, and what all commands have in common.
void WriteHelp(Render::Page& page, const Language& language);

/// Of one command of the language.
void WriteHelp(Render::Page& page, const Language& language, const Command& command);

/// " KIND [ID...]", each name as `shown` returns it.
std::string OperandsText(const Command& command,
                         const std::function<std::string(const std::string&)>& shown);

/// Names and summaries of all commands.
void WriteCommands(Render::Page& page, std::size_t level, const Language& language);

}  // namespace Zelk::Tool
