#include <random>

#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include "support/builders.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// Who answers for a name: what the tool says against what the services do.

using testing::HasSubstr;
using Zelk::Testing::Component;
using Zelk::Testing::Enumeration;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::ModelOf;
using Zelk::Testing::Operation;
using Zelk::Testing::Package;
using Zelk::Testing::Part;
using Zelk::Testing::RunTool;
using Zelk::Testing::Service;
using Zelk::Testing::Structure;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

const std::string kPool[] = {"x", "y", "z"};

/// Files that use a few names in all places where definitions can be, each definition with a
/// documentation of its own.
class RandomFiles {
 public:
  explicit RandomFiles(unsigned seed) : random_(seed) {}

  std::string Next() {
    return MetamodelFile(Doc(Component(Name(), {RandomPackage(), RandomPackage()})));
  }

 private:
  std::string Name() { return kPool[random_() % std::size(kPool)]; }

  Part Doc(const Part& part) { return part.Doc("text " + std::to_string(++count_)); }

  Part RandomEnumeration() { return Doc(Enumeration(Name())); }

  Part RandomStructure() { return Doc(Structure(Name(), {RandomEnumeration()})); }

  Part RandomService() {
    return Doc(Service(Name(), {RandomEnumeration(), RandomStructure(), Doc(Operation(Name()))}));
  }

  Part RandomPackage() {
    return Doc(Package(Name(), {RandomEnumeration(), RandomStructure(), RandomService(),
                                RandomService(), Doc(ModelOf(Name(), Name()))}));
  }

  std::mt19937 random_;
  int count_ = 0;
};

using Words = std::vector<std::string>;

Words operator+(Words left, const Words& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

/// The questions that can be asked about the names of the pool.
std::vector<Words> Questions() {
  std::vector<Words> questions;
  for (const std::string& name : kPool) {
    for (const char* kind : {"component", "package", "service", "structure", "enumeration"}) {
      questions.push_back({kind, name});
    }
    for (const std::string& operation : kPool) questions.push_back({"operation", name, operation});
  }
  return questions;
}

/// The one source that is reported; empty if there is none.
std::string AnsweringSource(const Words& question, const Words& sources) {
  const ToolRun run = RunTool(Words{"which", "--json"} + question + sources);
  const auto document = Zelk::Testing::ParsedJson(run.out, "answers");
  if (document.Size() == 0) return "";
  const rapidjson::Value& answering = document[0]["answering"];
  EXPECT_LE(answering.Size(), 1U);
  return answering.Size() == 0 ? "" : answering[0]["source"].GetString();
}

/// Three sources whose ids do not sort in the order in which they are given.
struct Sources {
  explicit Sources(const std::vector<std::string>& files) {
    const char* const ids[] = {"b", "c", "a"};
    for (std::size_t i = 0; i < files.size(); ++i) {
      all = all + Of(ids[i], folder.Write(ids[i] + std::string(".json"), files[i]));
    }
  }

  static Words Of(const std::string& id, const std::string& path) {
    return {"--source", id + "=" + path};
  }

  Words Only(const std::string& id) const { return Of(id, folder.Path(id + ".json")); }

  TempFolder folder;
  Words all;
};

}  // namespace

TEST(Which, AnsweringSourceGivesTheSameAnswerAlone) {
  std::size_t answered = 0;
  for (unsigned seed = 0; seed < 12; ++seed) {
    RandomFiles files(seed);
    const Sources sources({files.Next(), files.Next(), files.Next()});
    for (const Words& question : Questions()) {
      const ToolRun got = RunTool(Words{"get", "--json"} + question + sources.all);
      const std::string source = AnsweringSource(question, sources.all);
      EXPECT_EQ(source.empty(), got.status == 3) << seed << question[0] << question[1];
      if (source.empty()) continue;
      ++answered;
      const ToolRun alone = RunTool(Words{"get", "--json"} + question + sources.Only(source));
      EXPECT_EQ(alone.out, got.out) << seed << question[0] << question[1];
    }
  }
  EXPECT_GT(answered, 150U) << "the names of the pool must be in the files";
}

TEST(Which, ModelsAreThoseOfTheLastSource) {
  for (unsigned seed = 0; seed < 12; ++seed) {
    RandomFiles files(seed);
    const Sources sources({files.Next(), files.Next(), files.Next()});
    const std::string resources = '\n' + RunTool(Words{"list", "resources"} + sources.all).out;
    for (const std::string& name : kPool) {
      const std::string source = AnsweringSource({"model", name}, sources.all);
      const bool is_resource = resources.find('\n' + name + '\n') != std::string::npos;
      EXPECT_EQ(source.empty(), !is_resource) << seed << name;
      if (source.empty()) continue;
      const ToolRun listed = RunTool(Words{"list", "model", name} + sources.all);
      EXPECT_EQ(RunTool(Words{"list", "model", name} + sources.Only(source)).out, listed.out);
    }
  }
}

TEST(Which, StructureOfAPackageWinsOverThatOfAService) {
  const Sources sources(
      {MetamodelFile(Component("c", {Package("p", {Structure("s")})})),
       MetamodelFile(Component("c", {Package("p", {Service("v", {Structure("s")})})})),
       MetamodelFile(Component("c", {Package("p", {Service("v", {Structure("s")})})}))});
  const ToolRun run = RunTool(Words{"which", "structure", "s"} + sources.all);
  EXPECT_EQ(run.status, 0);
  const std::string folder = sources.folder.Path("");
  EXPECT_THAT(run.out, HasSubstr("Answers:\n    b (" + folder + "b.json), in package p\n"));
  EXPECT_THAT(run.out, HasSubstr("Passed over:\n    a (" + folder + "a.json), in service v\n" +
                                 "    c (" + folder + "c.json), in service v\n"));
  EXPECT_THAT(run.out, HasSubstr("Rule:\n    Definitions in packages come before"));
}

TEST(Which, OperationMissingInTheFirstSourceHasNoAnswer) {
  const Sources sources(
      {MetamodelFile(Component("c", {Package("p", {Service("v", {Operation("o")})})})),
       MetamodelFile(Component("c")),
       MetamodelFile(Component("c", {Package("p", {Service("v")})}))});
  const ToolRun run = RunTool(Words{"which", "operation", "v", "o"} + sources.all);
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.out, HasSubstr("Answers:\n    none\n\nPassed over:\n    b ("));
}

TEST(Which, ResourcesComeFromAllSources) {
  const std::string file = MetamodelFile(Component("c", {Package("p", {ModelOf("s", "r")})}));
  const Sources sources({file, file, MetamodelFile(Component("c"))});
  const ToolRun run = RunTool(Words{"which", "resource", "r"} + sources.all);
  EXPECT_THAT(run.out, HasSubstr("Answers:\n    b ("));
  EXPECT_THAT(run.out, HasSubstr("\n    c ("));
  EXPECT_THAT(run.out, testing::Not(HasSubstr("Passed over")));
}

TEST(Which, CommandMayBeDottedOrAfterItsNamespace) {
  const std::string source = kDataFolder + "/commands.json";
  for (const Words& ids : {Words{"acme.machines.list"}, Words{"acme.machines", "list"}}) {
    const ToolRun run = RunTool(Words{"which", "command"} + ids + Words{"--source", source});
    EXPECT_THAT(run.out, HasSubstr("Answers:\n    commands (" + source + ")")) << run.err;
  }
}

TEST(Which, UnknownNameGetsSuggestions) {
  const ToolRun run =
      RunTool({"which", "component", "com.acmee", "--source", kDataFolder + "/inventory.json"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "zelk-metadata: no source has the component com.acmee; did you mean com.acme?\n");
}

TEST(Which, SuggestionsAreOfAllSourcesOfTheDomain) {
  const Sources sources(
      {MetamodelFile(Component("c", {Package("p", {Service("v", {Operation("open")})})})),
       MetamodelFile(Component("c", {Package("q", {Service("v", {Operation("shut")})})}))});
  const std::pair<Words, const char*> rows[] = {
      {{"operation", "v", "opne"}, "the operation v opne; did you mean open?"},
      {{"operation", "v", "shtu"}, "the operation v shtu; did you mean shut?"},
      {{"operation", "V", "open"}, "the operation V open; did you mean v?"},
      {{"component", "q"}, "the component q; q is a package"},
      {{"component", "b"}, "the component b; b is a source"}};
  for (const auto& [words, text] : rows) {
    const ToolRun run = RunTool(Words{"which"} + words + sources.all +
                                Words{"--source", kDataFolder + "/commands.json"});
    EXPECT_EQ(run.err, std::string("zelk-metadata: no source has ") + text + "\n");
  }
}

TEST(Which, MakesNoSenseForSources) {
  const ToolRun run = RunTool({"which", "source", "x"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "zelk-metadata: 'which' does not take the kind 'source'; it takes component, package, "
            "service, operation, structure, enumeration, resource, model, namespace, command\n");
}
