#include <algorithm>
#include <ostream>

#include "language/invocation.h"
#include "language/operands.h"
#include "language/questions.h"

namespace Zelk::Tool {
namespace {

using RecordAnswers = Answers<Record>;

/// How many levels of types --expand shows unless --depth says otherwise.
constexpr std::size_t kLevels = 3;

/// The types in the record, if they are wanted and it has any; otherwise empty functions.
Record TypesIn(Invocation& call, const Answer<Record>& answer) {
  if (!call.Args().is_expanded || !answer.kind->has_types) return {};
  const std::size_t depth = call.Args().depth;
  const std::size_t levels = depth == Arguments().depth ? kLevels : depth;
  return call.GetHost().TypesIn(*answer.row, {answer.kind->name, answer.ids}, levels);
}

class Pages {
 public:
  explicit Pages(Invocation& call) : call_(call), page_(call.MakePage()) {}

  /// The page of the first domain that answers, with what the others know about it. If they know
  /// nothing, each has a page of its own.
  void Write(const RecordAnswers& answers) {
    std::vector<Section> sections;
    if (!answers.empty()) {
      const auto& first = answers.front();
      sections = call_.GetHost().About(*first.row, {first.kind->name, first.ids});
    }
    const bool are_separate = sections.empty() && answers.size() > 1;
    for (const auto& answer : answers) {
      if (are_separate) page_.SetTitlePrefix(answer.row->name + ':');
      WriteOne(answer.value);
      const Record types = TypesIn(call_, answer);
      if (types.page) types.page(page_);
      if (!sections.empty()) break;
    }
    for (const Section& section : sections) section(page_);
  }

 private:
  void WriteOne(const Record& record) {
    if (!is_first_) call_.Out() << '\n';
    is_first_ = false;
    record.page(page_);
  }

  Invocation& call_;
  Render::Page page_;
  bool is_first_ = true;
};

void WriteJson(Render::JsonWriter& json, const Answer<Record>& answer, const Record& types) {
  json.StartObject();
  json.Member("domain", answer.row->name);
  json.Member("kind", answer.kind->name);
  json.Key("ids").StringArray(answer.ids);
  json.Key("record");
  answer.value.json(json);
  if (types.json) {
    json.Key("types");
    types.json(json);
  }
  json.EndObject();
}

/// Also for an unknown kind, which is reported as such.
bool HasTypes(const std::vector<FoundKind>& kinds) {
  return kinds.empty() || std::any_of(kinds.begin(), kinds.end(),
                                      [](const FoundKind& found) { return found.kind->has_types; });
}

/// The records as pages; in JSON the records whole, which pages are not.
ExitStatus RunGet(Invocation& call) {
  const std::string& kind = call.Args().kind;
  const auto kinds = call.KindsCalled(kind);
  if (call.Args().is_expanded && !HasTypes(kinds)) {
    return call.Fail(ExitStatus::kUsage, "--expand is for structures");
  }
  if (!call.Args().is_expanded && call.Args().depth != Arguments().depth) {
    return call.Fail(ExitStatus::kUsage, "--depth needs --expand");
  }
  const bool has_ids = !kinds.empty() && !call.Args().ids.empty();
  ExitStatus status = call.Prepare(kind, has_ids ? kinds.front().ids.min : 0);
  if (status != ExitStatus::kOk) return status;
  const auto questions = IdsOfEach(call.Args().ids, call.Kinds());
  if (questions.empty()) return call.FailAsUsage(kind);
  RecordAnswers all;
  Pages pages(call);
  for (const Ids& ids : questions) {
    RecordAnswers answers;
    status = std::max(status, call.Ask(&Kind::get, ids, answers));
    if (!call.WantsJson()) pages.Write(answers);
    all.insert(all.end(), answers.begin(), answers.end());
  }
  if (call.WantsJson()) {
    call.ShowJsonArray("records", all,
                       [&call](Render::JsonWriter& json, const Answer<Record>& answer) {
                         WriteJson(json, answer, TypesIn(call, answer));
                       });
  }
  return status;
}

}  // namespace

Command GetCommand() {
  Command command;
  command.name = "get";
  command.summary = "Show everything about one or more IDs";
  command.ids_of = IdsOfQuery<&Kind::get>;
  command.details =
      "A page also shows what the other domains know: the schemes listed for the thing and for "
      "its parents, and the commands that call it. JSON has the complete records and nothing "
      "else.\n\n" +
      KindsText(command.ids_of);
  command.operands = {KindOperand(), IdsOperand()};
  command.options = {
      {"expand", "", Word::kNone,
       "Show the types of a structure's fields, too, and what is in them", &Arguments::is_expanded},
      {"depth", "LEVELS", Word::kNumber, "How many levels of types --expand shows; 3 unless given",
       &Arguments::depth}};
  command.outputs = TableOutputs();
  command.example =
      "get operation com.orvane.zelk.metadata.metamodel.source delete --source metadata";
  command.takes_several = true;
  command.run = RunGet;
  return command;
}

}  // namespace Zelk::Tool
