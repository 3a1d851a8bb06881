#include "analysis/accepted.h"

#include <charconv>
#include <optional>
#include <utility>

namespace Zelk::Analysis {
namespace {

/// The entry of the list; empty if its fingerprint is not one.
std::optional<Accepted> ReadEntry(SettingsReader& reader, const Document& document, NodeId entry,
                                  const AcceptedForm& form) {
  constexpr int kHex = 16;
  constexpr std::size_t kDigits = 16;
  reader.ExpectKeys(entry, {form.id, "fingerprint", "element", "reason", "until"});
  Accepted accepted{reader.Text(entry, form.id), 0, reader.Text(entry, "reason"),
                    reader.Date(entry, "until")};
  accepted.element = reader.Text(entry, "element");
  accepted.notes = NotesOf(document, entry);
  const std::string digits = reader.Text(entry, "fingerprint");
  const char* const end = digits.data() + digits.size();
  const auto parsed = std::from_chars(digits.data(), end, accepted.fingerprint, kHex);
  if (digits.size() == kDigits && parsed.ec == std::errc() && parsed.ptr == end) return accepted;
  reader.Complain(entry, "the fingerprint must be 16 hexadecimal digits");
  return std::nullopt;
}

}  // namespace

std::string NotesOf(const Document& document, NodeId object) {
  std::string notes;
  for (NodeId id = document[object].first_child; id != kNoNode; id = document[id].next) {
    const Node& member = document[id];
    if (document.Key(id).substr(0, 1) != "$") continue;
    notes += notes.empty() ? "" : ",";
    notes += document.Text().substr(member.key_begin, member.end - member.key_begin);
  }
  return "{" + notes + "}";
}

std::vector<Accepted> ReadAccepted(const Document& document, const AcceptedForm& form,
                                   SettingsProblems& problems) {
  std::vector<Accepted> all;
  SettingsReader reader(document, problems);
  if (document.Find(kRootNode, form.list) == kNoNode) {
    reader.Complain(kRootNode, form.complaint);
    return all;
  }
  reader.ExpectKeys(kRootNode, {"version", form.list});
  reader.ExpectVersion(kRootNode);
  reader.EachChild(reader.Member(kRootNode, form.list, NodeKind::kArray), [&](NodeId entry) {
    if (!reader.IsObject(entry)) return;
    if (auto accepted = ReadEntry(reader, document, entry, form))
      all.push_back(std::move(*accepted));
  });
  return all;
}

bool HasEnded(std::string_view until, const std::string& today) {
  return !until.empty() && until < today;
}

AcceptedUse::AcceptedUse(const std::vector<Accepted>& entries, std::string today)
    : entries_(entries), today_(std::move(today)), is_used_(entries.size()) {
  for (std::size_t i = 0; i < entries.size(); ++i) {
    auto& positions = HasEnded(entries[i].until, today_) ? ended_ : by_fingerprint_;
    positions.emplace(entries[i].fingerprint, i);
  }
}

const Accepted* AcceptedUse::Use(std::uint64_t fingerprint) {
  const auto entry = by_fingerprint_.find(fingerprint);
  if (entry == by_fingerprint_.end()) return nullptr;
  is_used_[entry->second] = true;
  return &entries_[entry->second];
}

}  // namespace Zelk::Analysis
