#include "lint/input.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "analysis/format.h"
#include "analysis/reader.h"
#include "domains/table.h"

namespace Zelk::Tool::Lint {
namespace {

/// The format by whose root key the library knows the document; null for any other document.
const Analysis::Format* FormatOf(const Analysis::Document& document) {
  if (!document.IsJson()) return nullptr;
  const Analysis::Node& root = document[Analysis::kRootNode];
  if (root.kind != Analysis::NodeKind::kObject) return nullptr;
  for (Analysis::NodeId member = root.first_child; member != Analysis::kNoNode;
       member = document[member].next) {
    const std::string_view key = document.Key(member);
    if (const auto* const format = Analysis::FindFormat(key)) return format;
  }
  return nullptr;
}

class Reader {
 public:
  void Read(const SourceArgument& source) {
    const std::string name = ShownName(source);
    if (!paths_.insert(source.path).second) return;
    auto text = TextOf(source.path);
    auto document = text ? std::make_shared<const Analysis::Document>(std::move(*text)) : nullptr;
    const Analysis::Format* const format = document ? FormatOf(*document) : nullptr;
    if (format == nullptr || !Analysis::Read(*document, *format).loads) {
      input_.failed.push_back(LoadAlone(source, Domains()));
      return;
    }
    const bool is_free = ids_.emplace(format->domain, source.id).second;
    input_.files.push_back(
        {name, format->domain, {is_free ? source.id : source.path, std::move(document)}});
  }

  void Add(const Unreadable& failure) { input_.unreadable.push_back(failure); }

  Input Take() { return std::move(input_); }

 private:
  Input input_;
  std::set<std::string> paths_;
  std::set<std::pair<Analysis::Domain, std::string>> ids_;
};

}  // namespace

Input ReadInput(const std::vector<SourceArgument>& arguments, std::istream& in) {
  Reader reader;
  for (const SourceArgument& argument : arguments) {
    const Expansion expansion = Expand(argument, in);
    for (const Unreadable& failure : expansion.failures) reader.Add(failure);
    for (const SourceArgument& source : expansion.sources) reader.Read(source);
  }
  return reader.Take();
}

}  // namespace Zelk::Tool::Lint
