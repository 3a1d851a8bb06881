#include "host/accepted_file.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <sstream>
#include <system_error>
#include <utility>

#include "host/replace_file.h"
#include "host/settings_file.h"

namespace Zelk::Tool {
namespace {

using Analysis::Document;
using Analysis::kNoNode;
using Analysis::kRootNode;
using Analysis::NodeId;
using Analysis::NodeKind;

void Open(Render::JsonWriter& json, const Document& document, NodeId id) {
  const Analysis::Node& node = document[id];
  if (node.key_end > node.key_begin) json.Key(std::string(document.Key(id)));
  switch (node.kind) {
    case NodeKind::kObject:
      return json.StartObject();
    case NodeKind::kArray:
      return json.StartArray();
    case NodeKind::kString:
      return json.String(std::string(document.String(id)));
    case NodeKind::kOther:
      return json.Literal(std::string(document.Text().substr(node.begin, node.end - node.begin)));
  }
}

void Close(Render::JsonWriter& json, NodeKind kind) {
  if (kind == NodeKind::kObject) json.EndObject();
  if (kind == NodeKind::kArray) json.EndArray();
}

/// Writes the members of an object, which may nest to any depth.
void WriteMembers(Render::JsonWriter& json, const std::string& object) {
  const Document document(object);
  NodeId id = document[kRootNode].first_child;
  while (id != kNoNode) {
    Open(json, document, id);
    if (document[id].first_child != kNoNode) {
      id = document[id].first_child;
      continue;
    }
    Close(json, document[id].kind);
    while (document[id].next == kNoNode && document[id].parent != kRootNode) {
      id = document[id].parent;
      Close(json, document[id].kind);
    }
    id = document[id].next;
  }
}

}  // namespace

AcceptedWriter::AcceptedWriter(const Analysis::AcceptedForm& form, std::string path)
    : form_(form), path_(std::move(path)) {
  json_.StartObject();
  // What is wrong with it was reported when it was read.
  std::vector<std::string> complaints;
  for (const std::string& replaced : WithReplaced({}, path_)) {
    ReadSettings(replaced, complaints, [&](const Document& document, auto& problems) {
      WriteMembers(json_, Analysis::NotesOf(document, kRootNode));
      for (const Analysis::Accepted& entry : Analysis::ReadAccepted(document, form_, problems)) {
        left_out_.insert(FingerprintText(entry.fingerprint));
      }
    });
  }
  json_.Key("version").Number(1);
  json_.Key(form_.list).StartArray();
}

void AcceptedWriter::Add(const std::string& id, const std::string& fingerprint,
                         const std::string& element, const Analysis::Accepted* earlier) {
  ++count_;
  left_out_.erase(fingerprint);
  json_.StartObject();
  json_.Member(form_.id, id);
  json_.Member("fingerprint", fingerprint);
  json_.Member("element", element);
  if (earlier != nullptr) {
    if (!earlier->reason.empty()) json_.Member("reason", earlier->reason);
    if (!earlier->until.empty()) json_.Member("until", earlier->until);
    if (Analysis::HasEnded(earlier->until, Today())) ++ended_;
    WriteMembers(json_, earlier->notes);
  }
  json_.EndObject();
}

WrittenList AcceptedWriter::Write() {
  json_.EndArray();
  json_.EndObject();
  std::ostringstream text;
  json_.WriteTo(text, true);
  std::string complaint = ReplaceFile(path_, text.str());
  if (!complaint.empty()) return {false, std::move(complaint)};
  std::string message =
      fmt::format("{}: {} {} written", path_, count_, count_ == 1 ? "entry" : "entries");
  if (ended_ > 0) {
    message += fmt::format("; {} of them {} ended and {} nothing; change 'until' to renew {}",
                           ended_, ended_ == 1 ? "has" : "have", ended_ == 1 ? "accepts" : "accept",
                           ended_ == 1 ? "it" : "them");
  }
  if (!left_out_.empty()) {
    message += fmt::format("; {} earlier {} left out", left_out_.size(),
                           left_out_.size() == 1 ? "entry is" : "entries are");
  }
  return {true, std::move(message)};
}

std::vector<std::string> WithReplaced(std::vector<std::string> lists, const std::string& written) {
  std::error_code error;
  const auto listed = std::find(lists.begin(), lists.end(), written);
  if (listed != lists.end()) {
    std::rotate(lists.begin(), listed, listed + 1);
  } else if (std::filesystem::is_regular_file(written, error)) {
    lists.insert(lists.begin(), written);
  }
  return lists;
}

}  // namespace Zelk::Tool
