#include <algorithm>
#include <ostream>

#include "language/invocation.h"
#include "language/operands.h"

namespace Zelk::Tool {
namespace {

using RecordAnswers = Answers<Record>;

std::vector<Ids> Chunks(const Ids& ids, std::size_t size) {
  std::vector<Ids> chunks;
  for (auto at = ids.begin(); at != ids.end(); at += static_cast<std::ptrdiff_t>(size)) {
    chunks.emplace_back(at, at + static_cast<std::ptrdiff_t>(size));
  }
  return chunks;
}

/// The ids of one record each. Where a record takes one id or two, two are those of one record.
std::vector<Ids> Questions(const Ids& ids, const std::vector<FoundKind>& kinds) {
  if (kinds.empty()) return {ids};
  const IdCount count = kinds.front().ids;
  if (ids.size() <= count.max || count.min == 0 || ids.size() % count.min != 0) return {ids};
  return Chunks(ids, count.min);
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
      WriteOne(first.value);
      sections = call_.GetHost().About(*first.row, {first.kind->name, first.ids});
    }
    for (const Section& section : sections) section(page_);
    if (!sections.empty()) return;
    for (std::size_t i = 1; i < answers.size(); ++i) WriteOne(answers[i].value);
  }

 private:
  void WriteOne(const Record& record) {
    if (!is_first_) call_.Out() << '\n';
    is_first_ = false;
    record.page(page_);
  }

  Invocation& call_;
  Page page_;
  bool is_first_ = true;
};

void WriteJson(JsonWriter& json, const Answer<Record>& answer) {
  json.StartObject();
  json.Member("domain", answer.row->name);
  json.Member("kind", answer.kind->name);
  json.Key("ids");
  json.StringArray(answer.ids);
  json.Key("record");
  answer.value.json(json);
  json.EndObject();
}

/// The records as pages; in JSON the records whole, which pages are not.
ExitStatus RunGet(Invocation& call) {
  const std::string& kind = call.Args().kind;
  const auto questions = Questions(call.Args().ids, call.KindsCalled(kind));
  ExitStatus status = call.Prepare(kind, questions.front().size());
  if (status != ExitStatus::kOk) return status;
  RecordAnswers all;
  Pages pages(call);
  for (const Ids& ids : questions) {
    RecordAnswers answers;
    status = std::max(status, call.Ask(&Kind::get, ids, answers));
    if (!call.WantsJson()) pages.Write(answers);
    all.insert(all.end(), answers.begin(), answers.end());
  }
  if (call.WantsJson()) call.ShowJsonArray("records", all, WriteJson);
  return status;
}

}  // namespace

Command GetCommand() {
  Command command;
  command.name = "get";
  command.summary = "Show everything about one or more IDs";
  command.ids_of = IdsOfQuery<&Kind::get>;
  command.details =
      "A page also shows what the other domains know: the schemes listed for the thing and for\n"
      "its parents, and the commands that call it. JSON has the complete records and nothing\n"
      "else.\n\n" +
      KindsText(command.ids_of);
  command.operands = {KindOperand(), IdsOperand()};
  command.outputs = TableOutputs();
  command.example =
      "get operation com.orvane.zelk.metadata.metamodel.source delete --source metadata";
  command.takes_several = true;
  command.run = RunGet;
  return command;
}

}  // namespace Zelk::Tool
