#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/workspace.h"
#include "host/load.h"
#include "host/source_argument.h"

namespace Zelk::Tool {

/// A file that does not load, or not as a whole.
struct FailedFile {
  /// What its source would have.
  std::string id;

  /// What does not load, such as "product"; empty for all of it.
  std::string part;

  /// Of the text.
  std::string fingerprint;
  LoadReport report;
};

/// What the library says about them.
std::vector<LoadReport> ReportsOf(std::vector<FailedFile> files);

/// The files that are looked at together.
struct Input {
  std::vector<Analysis::File> files;

  /// Those that do not load. They are not looked at.
  std::vector<FailedFile> failed;

  /// Those of which a part does not load. The rest is looked at.
  std::vector<FailedFile> partial;

  std::vector<Unreadable> unreadable;
};

/// Collects files, each path once.
class InputReader {
 public:
  explicit InputReader(const DomainTable& domains) : domains_(domains) {}

  /// Reads the file.
  void Read(const SourceArgument& source);

  /// Takes a text that is in no file. The path of the source is what the user calls it.
  void Add(SourceArgument source, std::string text);

  void Fail(const Unreadable& failure) { input_.unreadable.push_back(failure); }

  Input Take() { return std::move(input_); }

 private:
  /// Takes the document if it loads. Returns what of it does not, as FailedFile has it, if
  /// anything.
  std::optional<std::string> Accept(const SourceArgument& source,
                                    std::shared_ptr<const Analysis::Document> document);

  /// Takes the messages about a file of which the part does not load.
  void Refuse(const SourceArgument& source, std::string_view text, const std::string& part);

  const DomainTable& domains_;
  Input input_;
  std::set<std::string> paths_;
  std::set<std::pair<Analysis::Domain, std::string>> ids_;
};

/// Reads files, folders and standard input, each file once.
Input ReadInput(const std::vector<SourceArgument>& arguments, std::istream& in,
                const DomainTable& domains);

}  // namespace Zelk::Tool
