#pragma once

#include "commands/command.h"
#include "render/page.h"
#include "render/table.h"

namespace Zelk::Tool {

/// Whether people read the answer: they asked for a table, or asked for nothing and sit at a
/// terminal. Programs read the rest. Not for JSON.
inline bool IsForPeople(const Arguments& arguments, const Streams& streams) {
  return arguments.output.empty() ? streams.out_terminal.is_terminal : arguments.output == "table";
}

inline void WriteTable(const Table& table, const Arguments& arguments, const Streams& streams) {
  if (IsForPeople(arguments, streams)) {
    table.Write(streams.out, streams.out_terminal);
  } else {
    table.WritePlain(streams.out);
  }
}

/// A page for people, or one that nothing is done to.
inline Page MakePage(const Arguments& arguments, const Streams& streams) {
  return Page(streams.out, IsForPeople(arguments, streams) ? streams.out_terminal : Terminal{});
}

}  // namespace Zelk::Tool
