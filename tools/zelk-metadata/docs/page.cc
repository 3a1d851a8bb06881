#include "docs/page.h"

#include <map>
#include <ostream>
#include <string>
#include <string_view>

#include "docs/contents.h"
#include "docs/encoding.h"
#include "docs/shown.h"
#include "docs/texts.h"

namespace Zelk::Tool::Docs {
namespace {

std::string Policy() {
  return "default-src 'none'; script-src " + PolicyHash(kScript) + "; style-src " +
         PolicyHash(kStyle) +
         "; img-src data:; base-uri 'none'; form-action 'none'; "
         "require-trusted-types-for 'script'; trusted-types 'none'";
}

}  // namespace

void WritePage(std::ostream& out, const Subject& subject) {
  const std::map<std::string_view, std::string> values{
      {"policy", Policy()},
      {"generator", "zelk-metadata " ZELK_METADATA_VERSION},
      {"title", Escaped(ShownName(subject.title, 400))},
      {"style", std::string(kStyle)},
      {"contents", ContentsHtml(subject)},
      {"structure", Base64(Deflated(StructureJson(subject)))},
      {"documentation", Base64(Deflated(DocumentationJson(subject.workspace)))},
      {"script", std::string(kScript)},
  };
  std::string_view rest = kFrame;
  for (std::size_t open = rest.find("{{"); open != std::string_view::npos; open = rest.find("{{")) {
    const std::size_t close = rest.find("}}", open);
    out << rest.substr(0, open) << values.at(rest.substr(open + 2, close - open - 2));
    rest.remove_prefix(close + 2);
  }
  out << rest;
}

}  // namespace Zelk::Tool::Docs
