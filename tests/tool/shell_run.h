#pragma once

#include <cstdlib>
#include <string>
#include <sys/wait.h>

#include "support/file_text.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

namespace Zelk::Testing {

/// Runs a shell command in which $tool is the program. Its status is that of the shell.
inline ToolRun RunShell(const std::string& command) {
  const TempFolder folder;
  const std::string script = "tool=" ZELK_METADATA_BINARY "\n" + command + "\n";
  const std::string line = "bash " + folder.Write("script", script) + " >" + folder.Path("out") +
                           " 2>" + folder.Path("err");
  const int status = std::system(line.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileText(folder.Path("out")),
          FileText(folder.Path("err"))};
}

}  // namespace Zelk::Testing
