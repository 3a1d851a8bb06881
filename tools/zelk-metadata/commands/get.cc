#include <algorithm>
#include <ostream>

#include "commands/output.h"
#include "commands/query.h"
#include "commands/table.h"

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
std::vector<Ids> Questions(const Ids& ids, const std::vector<Candidate>& candidates) {
  if (candidates.empty()) return {ids};
  const IdCount count = candidates.front().ids;
  if (ids.size() <= count.max || ids.size() % count.min != 0) return {ids};
  return Chunks(ids, count.min);
}

class Pages {
 public:
  Pages(const Arguments& arguments, const Streams& streams)
      : out_(streams.out), page_(MakePage(arguments, streams)) {}

  /// The page of the first domain that answers, with what the others have to say about it. Those
  /// that say nothing have a page of their own.
  void Write(const RecordAnswers& answers, const Question& question) {
    std::vector<Section> sections;
    if (!answers.empty()) {
      const auto& first = answers.front();
      WriteOne(first.value);
      sections = question.host.About(*first.row, {first.kind->name, first.ids});
    }
    for (const Section& section : sections) section(page_);
    if (!sections.empty()) return;
    for (std::size_t i = 1; i < answers.size(); ++i) WriteOne(answers[i].value);
  }

 private:
  void WriteOne(const Record& record) {
    if (!is_first_) out_ << '\n';
    is_first_ = false;
    record.page(page_);
  }

  std::ostream& out_;
  Page page_;
  bool is_first_ = true;
};

void WriteAnswer(JsonWriter& json, const Answer<Record>& answer) {
  json.StartObject();
  json.Member("domain", answer.row->name);
  json.Member("kind", answer.kind->name);
  json.Key("ids");
  json.StringArray(answer.ids);
  json.Key("record");
  answer.value.json(json);
  json.EndObject();
}

/// One record as it is; several, or what was asked for several, as an array of who is who.
void WriteJson(const RecordAnswers& answers, bool one_question, std::ostream& out) {
  if (one_question && answers.empty()) return;
  JsonWriter json;
  if (one_question && answers.size() == 1) {
    answers.front().value.json(json);
  } else {
    json.StartArray();
    for (const auto& answer : answers) WriteAnswer(json, answer);
    json.EndArray();
  }
  json.WriteTo(out);
}

}  // namespace

/// The records as pages; in JSON the records whole, which pages are not.
ExitStatus RunGet(const Arguments& arguments, const Streams& streams) {
  Question question(streams);
  const auto questions =
      Questions(arguments.ids, Candidates(question.host, arguments.kind, &Kind::get));
  ExitStatus status =
      Prepare(question, "get", &Kind::get, arguments, questions.front().size(), streams);
  if (status != ExitStatus::kOk) return status;
  RecordAnswers all;
  Pages pages(arguments, streams);
  for (const Ids& ids : questions) {
    RecordAnswers answers;
    status = std::max(status, Ask(&Kind::get, question.candidates, ids, streams, answers));
    if (!arguments.json) pages.Write(answers, question);
    all.insert(all.end(), answers.begin(), answers.end());
  }
  if (arguments.json) WriteJson(all, questions.size() == 1, streams.out);
  return question.Status(status);
}

}  // namespace Zelk::Tool
