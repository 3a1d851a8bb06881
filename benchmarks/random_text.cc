#include "random_text.h"

#include <cctype>

namespace Zelk::Benchmarks {
namespace {

constexpr const char* kWords[] = {
    "account",  "address",  "alarm",    "archive", "backup",   "balance",  "bundle",   "cache",
    "catalog",  "certify",  "channel",  "cluster", "config",   "console",  "contract", "counter",
    "customer", "database", "delivery", "deploy",  "device",   "disk",     "document", "domain",
    "endpoint", "event",    "export",   "folder",  "gateway",  "group",    "health",   "host",
    "identity", "image",    "import",   "index",   "invoice",  "journal",  "key",      "label",
    "library",  "license",  "limit",    "link",    "machine",  "member",   "message",  "monitor",
    "network",  "node",     "object",   "order",   "owner",    "package",  "path",     "payment",
    "policy",   "pool",     "port",     "process", "profile",  "project",  "queue",    "quota",
    "record",   "region",   "replica",  "report",  "request",  "resource", "result",   "role",
    "route",    "rule",     "schedule", "search",  "secret",   "segment",  "sensor",   "server",
    "session",  "setting",  "shard",    "site",    "snapshot", "source",   "station",  "status",
    "storage",  "stream",   "subnet",   "switch",  "tag",      "task",     "template", "tenant",
    "ticket",   "token",    "transfer", "update",  "usage",    "user",     "vault",    "version",
    "volume",   "window",   "worker",   "zone",
};

constexpr const char* kSmallWords[] = {"the", "a",  "of",   "to",   "in",    "for",  "is",
                                       "and", "or", "that", "with", "which", "this", "when",
                                       "as",  "by", "its",  "not",  "must",  "be"};

}  // namespace

const char* RandomText::Word() {
  return OneOf(kWords);
}

std::string RandomText::Name(std::size_t number) {
  std::string name = Word();
  name += '_';
  name += Word();
  return name += std::to_string(number);
}

std::string RandomText::Documentation() {
  // Two uniform draws: short texts are more frequent than long ones.
  std::string text = Prose(Between(50, Between(100, 280)));
  if (OneIn(12)) {
    text += "\nSee \"" + std::string(Word()) + "\".";
  } else if (OneIn(8)) {
    text += " Null is <code>false</code>.";
  }
  return text;
}

std::string RandomText::Description() {
  return Prose(Between(20, 70));
}

std::string RandomText::Prose(std::size_t length) {
  std::string text;
  bool is_start = true;
  while (text.size() < length) {
    std::string word = OneIn(2) ? OneOf(kSmallWords) : Word();
    if (is_start) word[0] = static_cast<char>(std::toupper(word[0]));
    if (!text.empty()) text += ' ';
    text += word;
    is_start = OneIn(12);
    if (is_start) text += '.';
  }
  if (text.back() != '.') text += '.';
  return text;
}

}  // namespace Zelk::Benchmarks
