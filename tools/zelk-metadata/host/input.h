#pragma once

#include <iosfwd>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/workspace.h"
#include "host/load.h"
#include "host/source_argument.h"

namespace Zelk::Tool {

/// A file that does not load.
struct FailedFile {
  /// What its source would have.
  std::string id;

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
  /// Whether the document loads. If so, it is taken.
  bool Accept(const SourceArgument& source, std::shared_ptr<const Analysis::Document> document);

  /// Takes the messages about a file that does not load.
  void Refuse(const SourceArgument& source, std::string_view text);

  const DomainTable& domains_;
  Input input_;
  std::set<std::string> paths_;
  std::set<std::pair<Analysis::Domain, std::string>> ids_;
};

/// Reads files, folders and standard input, each file once.
Input ReadInput(const std::vector<SourceArgument>& arguments, std::istream& in,
                const DomainTable& domains);

}  // namespace Zelk::Tool
