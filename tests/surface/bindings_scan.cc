#include "surface/bindings_scan.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <stdexcept>

#include "support/source_dir.h"

namespace Zelk::Testing {
namespace {

constexpr char kIncludes[] =
    ZELK_SOURCE_DIR "/platform/std-bindings/include/com/orvane/zelk/metadata/";

std::string CodeOf(const std::string& header) {
  std::ifstream in(kIncludes + header);
  if (!in) throw std::runtime_error("no header " + header);
  std::ostringstream text;
  text << in.rdbuf();
  const std::regex comment_or_directive("//[^\n]*|#[^\n]*");
  return std::regex_replace(text.str(), comment_or_directive, "");
}

std::string LastWord(const std::string& text) {
  const std::regex word("(\\w+)\\W*$");
  std::smatch match;
  return std::regex_search(text, match, word) ? match[1].str() : std::string();
}

/// The names of the parameters, less the activation and the result that end every operation.
Lines OwnParameters(const std::string& list) {
  Lines names;
  int depth = 0;
  std::string parameter;
  for (const char character : list + ',') {
    depth += character == '<' ? 1 : character == '>' ? -1 : 0;
    if (character == ',' && depth == 0) {
      const std::string name = LastWord(parameter);
      // The word alone is a C++ keyword.
      names.push_back(name == "namespace_path" ? "namespace" : name);
      parameter.clear();
    } else {
      parameter += character;
    }
  }
  names.resize(names.size() - 2);
  return names;
}

/// A namespace, class or struct whose brace is open.
struct Scope {
  std::string name;
  bool is_record = false;
};

class Scanner {
 public:
  Scanner(std::string domain_namespace, ScannedBindings& bindings)
      : domain_namespace_(std::move(domain_namespace)), bindings_(bindings) {}

  void Scan(const std::string& code) {
    std::string statement;
    for (const char character : code) {
      if (character == '{') {
        Open(statement);
      } else if (character == '}') {
        scopes_.pop_back();
      } else if (character == ';') {
        Declare(statement);
      } else {
        statement += character;
        continue;
      }
      statement.clear();
    }
  }

 private:
  void Open(const std::string& head) {
    static const std::regex record_pattern(
        "struct\\s+(?:[A-Z_]+\\s+)?(\\w+)\\s*(?::\\s*(\\w+))?\\s*$");
    static const std::regex namespace_pattern("namespace\\s+([\\w:]+)\\s*$");
    std::smatch match;
    const bool record = std::regex_search(head, match, record_pattern);
    if (record && match[1].str() != "Strings") {
      scopes_.push_back({match[1].str(), true});
      Lines& members = bindings_.records[Path()];
      if (match[2].matched) members = bindings_.records[match[2].str()];
    } else if (std::regex_search(head, match, namespace_pattern)) {
      scopes_.push_back({match[1].str(), false});
    } else {
      scopes_.push_back({"", false});
    }
  }

  void Declare(const std::string& statement) {
    static const std::regex operation_pattern("virtual void (\\w+)\\(([^)]*)\\)\\s*=\\s*0");
    std::smatch match;
    if (std::regex_search(statement, match, operation_pattern)) {
      bindings_.services[Path()].emplace_back(ToSnakeCase(match[1].str()),
                                              OwnParameters(match[2].str()));
    } else if (InRecord() && statement.find('(') == std::string::npos &&
               statement.find("using") == std::string::npos) {
      const std::string member = LastWord(statement);
      if (member.back() != '_') bindings_.records[Path()].push_back(member);  // not a private one
    }
  }

  bool InRecord() const { return !scopes_.empty() && scopes_.back().is_record; }

  /// The open scopes below the domain's namespace.
  std::string Path() const {
    std::string path;
    for (const Scope& scope : scopes_) {
      if (scope.name.empty()) continue;
      path += (path.empty() ? "" : "::") + scope.name;
    }
    const std::string prefix = domain_namespace_ + "::";
    return path.compare(0, prefix.size(), prefix) == 0 ? path.substr(prefix.size()) : path;
  }

  std::string domain_namespace_;
  ScannedBindings& bindings_;
  std::vector<Scope> scopes_;
};

}  // namespace

ScannedBindings ScanBindings(const std::string& domain) {
  std::string name = domain;
  name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  ScannedBindings bindings;
  Scanner("Com::Orvane::Zelk::Metadata", bindings).Scan(CodeOf("source_type.h"));
  Scanner scanner("Com::Orvane::Zelk::Metadata::" + name, bindings);
  scanner.Scan(CodeOf(domain + "/records.h"));
  scanner.Scan(CodeOf(domain + "/services.h"));
  return bindings;
}

std::string ToSnakeCase(const std::string& camel_case) {
  std::string snake_case;
  for (const char character : camel_case) {
    const auto byte = static_cast<unsigned char>(character);
    if (std::isupper(byte) != 0 && !snake_case.empty()) snake_case += '_';
    snake_case += static_cast<char>(std::tolower(byte));
  }
  return snake_case;
}

}  // namespace Zelk::Testing
