#include "probe.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace Zelk::Benchmarks {

std::vector<std::vector<double>> Probe(const std::vector<std::string>& args) {
  std::string command =
      (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "memory_probe").string();
  for (const std::string& arg : args) command += " '" + arg + "'";
  FILE* const output = popen(command.c_str(), "r");
  if (output == nullptr) throw std::runtime_error("cannot start memory_probe");
  std::vector<std::vector<double>> lines;
  char line[256];
  while (std::fgets(line, sizeof line, output) != nullptr) {
    std::istringstream numbers(line);
    lines.emplace_back();
    for (double number = 0; numbers >> number;) lines.back().push_back(number);
  }
  if (pclose(output) != 0 || lines.empty()) throw std::runtime_error("memory_probe failed");
  return lines;
}

std::vector<std::string> ProbeArguments(const char* what, DomainId domain,
                                        const std::vector<std::string>& paths) {
  std::vector<std::string> args = {what, std::to_string(static_cast<int>(domain))};
  args.insert(args.end(), paths.begin(), paths.end());
  return args;
}

}  // namespace Zelk::Benchmarks
