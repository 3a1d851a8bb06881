#include "domains/source_domain.h"

#include "domains/enum_text.h"

namespace Zelk::Tool {

using Bindings::SourceDescription;

void WriteMembers(RecordWriter& json, const SourceDescription& source) {
  json.Member("description", source.description);
  json.Member("type", EnumText(source.type));
  json.Member("file_path", source.file_path);
  json.Member("address", source.address);
}

void WriteSourcePage(Render::Page& page, const std::string& id, const SourceDescription& source) {
  page.Title("source " + id);
  page.Paragraph(1, source.description);
  page.Line(1, "Type: " + EnumText(source.type));
  if (source.file_path) page.Line(1, "File: " + *source.file_path);
  if (source.address) page.Line(1, "Address: " + *source.address);
}

}  // namespace Zelk::Tool
