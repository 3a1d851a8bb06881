#include "analysis/lint/configuration.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "analysis/near.h"

namespace Zelk::Analysis::Lint {
namespace {

constexpr int kHex = 16;

class ObjectReader {
 public:
  ObjectReader(const Document& document, ConfigurationProblems& problems)
      : document_(document), problems_(problems) {}

  void Complain(NodeId node, const std::string& text) { problems_.push_back({node, text}); }

  /// The member; kNoNode if the object has none, or one of another kind, which is a problem.
  NodeId Member(NodeId object, const char* key, NodeKind kind) {
    const NodeId member = document_.Find(object, key);
    if (member == kNoNode || document_[member].kind == kind) return member;
    constexpr std::array<const char*, 3> kKinds{"an object", "an array", "a string"};
    Complain(member,
             std::string("'") + key + "' must be " + kKinds.at(static_cast<std::size_t>(kind)));
    return kNoNode;
  }

  std::string Text(NodeId object, const char* key) {
    const NodeId member = Member(object, key, NodeKind::kString);
    return member == kNoNode ? "" : std::string(document_.String(member));
  }

  bool IsTrue(NodeId object, const char* key) {
    const NodeId member = document_.Find(object, key);
    if (member == kNoNode) return false;
    const char first = document_.Text()[document_[member].begin];
    if (first != 't' && first != 'f') {
      Complain(member, std::string("'") + key + "' must be true or false");
    }
    return first == 't';
  }

  template <typename Take>
  void EachChild(NodeId container, const Take& take) {
    if (container == kNoNode) return;
    for (NodeId child = document_[container].first_child; child != kNoNode;
         child = document_[child].next) {
      take(child);
    }
  }

  std::vector<std::string> Texts(NodeId object, const char* key) {
    std::vector<std::string> texts;
    EachChild(Member(object, key, NodeKind::kArray), [&](NodeId child) {
      if (document_[child].kind != NodeKind::kString) {
        Complain(child, std::string("'") + key + "' must hold strings");
      } else {
        texts.emplace_back(document_.String(child));
      }
    });
    return texts;
  }

  /// A day, or an empty text if the object has none.
  std::string Date(NodeId object, const char* key) {
    std::string text = Text(object, key);
    if (!text.empty() && !IsDate(text)) {
      Complain(document_.Find(object, key),
               std::string("'") + key + "' must be a date such as 2030-01-31");
    }
    return text;
  }

  /// Other keys of the object are problems, but for those that begin with '$'.
  void ExpectKeys(NodeId object, const std::vector<std::string>& known) {
    EachChild(object, [&](NodeId member) {
      const std::string key(document_.Key(member));
      const bool is_known = std::find(known.begin(), known.end(), key) != known.end();
      if (is_known || key.substr(0, 1) == "$") return;
      Complain(member, "unknown key '" + key + "'" + Suggestion(key, known));
    });
  }

  /// Whether the node is an object. If not, that is a problem.
  bool IsObject(NodeId node) {
    if (document_[node].kind == NodeKind::kObject) return true;
    Complain(node, "an object is needed here");
    return false;
  }

  /// Whether there is such a rule. If not, that is a problem.
  bool IsRule(NodeId node, const std::string& id) {
    if (FindRule(id) != nullptr) return true;
    std::vector<std::string> known;
    for (const Rule* rule : Rules()) known.emplace_back(rule->id);
    Complain(node, "unknown rule '" + id + "'" + Suggestion(id, known));
    return false;
  }

 private:
  const Document& document_;
  ConfigurationProblems& problems_;
};

void ReadRules(ObjectReader& reader, const Document& document, NodeId lint,
               Configuration& configuration) {
  reader.EachChild(reader.Member(lint, "rules", NodeKind::kObject), [&](NodeId rule) {
    const std::string id(document.Key(rule));
    const std::string_view word = document.String(rule);
    if (!reader.IsRule(rule, id)) return;
    if (word == "off") {
      configuration.off.insert(id);
      return;
    }
    for (const Severity severity : {Severity::kError, Severity::kWarning, Severity::kNote}) {
      if (word != Word(severity)) continue;
      configuration.settings.severities[id] = severity;
      return;
    }
    reader.Complain(rule, "a severity is error, warning, note or off");
  });
}

}  // namespace

Configuration ReadConfiguration(const Document& document) {
  Configuration configuration;
  ObjectReader reader(document, configuration.problems);
  const NodeId lint = reader.Member(kRootNode, "lint", NodeKind::kObject);
  if (lint == kNoNode) return configuration;
  reader.ExpectKeys(lint, {"rules", "external", "reserved_options", "needs_reasons", "ignore"});
  ReadRules(reader, document, lint, configuration);
  configuration.settings.external = reader.Texts(lint, "external");
  if (document.Find(lint, "reserved_options") != kNoNode) {
    configuration.settings.reserved_options = reader.Texts(lint, "reserved_options");
  }
  configuration.needs_reasons = reader.IsTrue(lint, "needs_reasons");
  reader.EachChild(reader.Member(lint, "ignore", NodeKind::kArray), [&](NodeId entry) {
    if (!reader.IsObject(entry)) return;
    reader.ExpectKeys(entry, {"rule", "element", "reason", "until"});
    Ignored ignored{reader.Text(entry, "rule"), reader.Text(entry, "element"),
                    reader.Text(entry, "reason"), reader.Date(entry, "until")};
    if (ignored.element.empty()) ignored.element = "*";
    if (reader.IsRule(entry, ignored.rule)) configuration.ignored.push_back(std::move(ignored));
  });
  return configuration;
}

std::vector<Accepted> ReadBaseline(const Document& document, ConfigurationProblems& problems) {
  std::vector<Accepted> baseline;
  ObjectReader reader(document, problems);
  if (document.Find(kRootNode, "findings") == kNoNode) {
    reader.Complain(kRootNode, "this is not a baseline: it has no 'findings'");
  }
  reader.EachChild(reader.Member(kRootNode, "findings", NodeKind::kArray), [&](NodeId entry) {
    if (!reader.IsObject(entry)) return;
    Accepted accepted{reader.Text(entry, "rule"), 0, reader.Date(entry, "until")};
    const std::string digits = reader.Text(entry, "fingerprint");
    const char* const end = digits.data() + digits.size();
    const auto parsed = std::from_chars(digits.data(), end, accepted.fingerprint, kHex);
    if (digits.empty() || parsed.ec != std::errc() || parsed.ptr != end) {
      reader.Complain(entry, "the fingerprint must be 16 hexadecimal digits");
    } else {
      baseline.push_back(std::move(accepted));
    }
  });
  return baseline;
}

}  // namespace Zelk::Analysis::Lint
