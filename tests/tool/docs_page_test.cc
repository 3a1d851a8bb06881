#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <openssl/evp.h>
#include <string>
#include <sys/resource.h>
#include <utility>
#include <vector>
#include <zlib.h>

#include <gmock/gmock.h>

#include "docs/encoding.h"
#include "docs/shown.h"
#include "docs/texts.h"
#include "support/file_text.h"
#include "support/repeat.h"
#include "support/small_stack.h"
#include "support/temp_folder.h"
#include "tool/shell_run.h"

// What `docs` writes into the page. tests/page looks at what browsers make of it.

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::Repeat;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunOnSmallStack;
using Zelk::Testing::RunOnThree;
using Zelk::Testing::RunShell;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
namespace Docs = Zelk::Tool::Docs;

namespace {

std::string Between(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t first = text.find(begin) + begin.size();
  return text.substr(first, text.find(end, first) - first);
}

/// What browsers without scripts show, without what only concerns letters and ends of lines.
std::string StillContents(const std::string& page) {
  std::string html = Between(page, "<noscript>", "</noscript>");
  for (const char* tag : {"<wbr>", "<bdi>", "</bdi>", "<code>", "</code>"}) {
    for (std::size_t at = html.find(tag); at != std::string::npos; at = html.find(tag, at)) {
      html.erase(at, std::strlen(tag));
    }
  }
  return html;
}

std::string Decoded(const std::string& base64) {
  std::vector<unsigned char> bytes(base64.size());
  const std::string text = base64;
  const int size =
      EVP_DecodeBlock(bytes.data(), reinterpret_cast<const unsigned char*>(text.data()),
                      static_cast<int>(text.size()));
  EXPECT_GE(size, 0);
  const auto padding = std::count(base64.end() - 2, base64.end(), '=');
  return {bytes.begin(), bytes.begin() + size - padding};
}

std::string Inflated(const std::string& bytes) {
  std::string text(std::size_t{64} << 20U, '\0');
  uLongf size = text.size();
  EXPECT_EQ(uncompress(reinterpret_cast<unsigned char*>(text.data()), &size,
                       reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()),
            Z_OK);
  text.resize(size);
  return text;
}

rapidjson::Document Block(const std::string& page, const std::string& id) {
  const std::string begin = "<script type=\"application/octet-stream\" id=\"" + id + "\">";
  rapidjson::Document document;
  document.Parse(Inflated(Decoded(Between(page, begin, "</script>"))).c_str());
  EXPECT_FALSE(document.HasParseError());
  return document;
}

/// The data of a page, read as its script reads it.
class PageData {
 public:
  explicit PageData(const std::string& page)
      : structure_(Block(page, "structure")), texts_(Block(page, "documentation")) {}

  const rapidjson::Document& Structure() const { return structure_; }

  unsigned Size() const { return structure_["kind"].Size(); }

  std::string Word(const char* list, unsigned position) const {
    return structure_[list][position].GetString();
  }

  unsigned Number(const char* column, unsigned id) const {
    return structure_[column][id].GetUint();
  }

  std::string Kind(unsigned id) const { return Word("kinds", Number("kind", id)); }

  std::string Name(unsigned id) const { return Word("strings", Number("name", id)); }

  std::string Fate(unsigned id) const { return Word("fates", Number("fate", id) / 2); }

  /// "kind name" of the element of a column that counts from 1; empty for 0.
  std::string Named(const char* column, unsigned id) const {
    const unsigned one = Number(column, id);
    return one == 0 ? "" : Kind(one - 1) + " " + Name(one - 1);
  }

  std::string Text(unsigned id) const {
    return texts_[id].IsString() ? texts_[id].GetString() : "";
  }

  /// The first element of that kind and name.
  unsigned Find(const std::string& kind, const std::string& name) const {
    for (unsigned id = 0; id < Size(); ++id) {
      if (Kind(id) == kind && Name(id) == name) return id;
    }
    ADD_FAILURE() << "no " << kind << " " << name;
    return 0;
  }

  std::vector<unsigned> Detail(unsigned id) const {
    std::vector<unsigned> row;
    for (const auto& number : structure_["details"][Number("detail", id)].GetArray()) {
      row.push_back(number.GetUint());
    }
    return row;
  }

  /// A detail of words, separated by '|'.
  std::string Words(unsigned id) const {
    std::string words;
    for (const unsigned word : Detail(id))
      words += (words.empty() ? "" : "|") + Word("strings", word);
    return words;
  }

  std::string Link(unsigned link) const {
    return link % 2 == 1 ? "#" + Name(link / 2) : Word("strings", link / 2);
  }

  /// A detail of links, with "#" in front of elements.
  std::string Links(unsigned id) const {
    std::string text;
    for (const unsigned link : Detail(id)) text += (text.empty() ? "" : " ") + Link(link);
    return text;
  }

  /// What the element refers to: "kind:name", with "#" in front of elements.
  std::vector<std::string> References(unsigned id) const {
    std::vector<std::string> all;
    for (unsigned i = 0; i < structure_["referenceFrom"].Size(); ++i) {
      if (Number("referenceFrom", i) != id) continue;
      all.push_back(Word("references", Number("referenceKind", i)) + ":" +
                    Link(Number("referenceTo", i)));
    }
    return all;
  }

 private:
  rapidjson::Document structure_;
  rapidjson::Document texts_;
};

PageData DataOf(const std::vector<std::string>& sources) {
  std::vector<std::string> words{"docs"};
  for (const std::string& source : sources) words.insert(words.end(), {"--source", source});
  return PageData(RunTool(words).out);
}

const PageData& Three() {
  static const PageData data(RunOnThree("docs").out);
  return data;
}

/// A Metamodel file with one field of the type.
std::string FieldOf(const std::string& type, const std::string& metadata = "{}") {
  const std::string head = R"("documentation": "", "metadata": {}, )";
  return R"({"metamodel": {"component": {"name": "c", )" + head +
         R"("packages": [{"name": "c.p", )" + head +
         R"("enumerations": [], "services": [], "structures": [{"name": "c.p.s", )" + head +
         R"("type": "STRUCTURE", "enumerations": [], "constants": [], "fields": [{"name": "f", )"
         R"("documentation": "", "metadata": )" +
         metadata + R"(, "type": )" + type + "}]}]}]}}}";
}

/// As long as it lives, writing to files fails, as it does on a full disk.
class NoFileGrows {
 public:
  NoFileGrows() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit none{0, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
  }

  NoFileGrows(const NoFileGrows&) = delete;
  NoFileGrows& operator=(const NoFileGrows&) = delete;

  ~NoFileGrows() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit before_{};
  void (*handler_)(int);
};

}  // namespace

TEST(DocsCommand, WritesThePageToAFileOrToStandardOutput) {
  const TempFolder folder;
  const std::string path = folder.Path("page.html");
  const ToolRun to_file = RunOnThree("docs --output-file " + path);
  EXPECT_EQ(to_file.status, 0);
  EXPECT_EQ(to_file.out + to_file.err, "");
  const ToolRun to_output = RunOnThree("docs");
  EXPECT_EQ(to_output.status, 0);
  EXPECT_EQ(to_output.out, FileText(path));
  EXPECT_THAT(to_output.out, EndsWith("</html>\n"));
}

TEST(DocsCommand, IsWrongUsageWithoutASource) {
  const ToolRun run = RunLine("docs --no-default-sources");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zelk-metadata: a --source is missing; try docs --help\n");
}

TEST(DocsCommand, WritesThePageToStandardOutputForADash) {
  const ToolRun run = RunOnThree("docs --output-file -");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, RunOnThree("docs").out);
}

TEST(DocsCommand, ReportsWhyThePageCouldNotBeWritten) {
  const TempFolder folder;
  const std::vector<std::pair<std::string, std::string>> reasons{
      {"/dev/full", "No space left on device"},
      {"/nowhere/page.html", "No such file or directory"},
      {folder.Path(""), "Is a directory"}};
  for (const auto& [path, reason] : reasons) {
    const ToolRun run = RunOnThree("docs --output-file " + path);
    EXPECT_EQ(run.status, 4) << path;
    EXPECT_EQ(run.err, "zelk-metadata: " + path + ": could not be written: " + reason + "\n");
  }
}

TEST(DocsCommand, KeepsTheOldPageUnlessTheNewOneIsComplete) {
  const TempFolder folder;
  const std::string path = folder.Write("page.html", "old");
  const ToolRun run = [&] {
    const NoFileGrows limit;
    return RunOnThree("docs --output-file " + path);
  }();
  EXPECT_EQ(run.status, 4);
  EXPECT_THAT(run.err, EndsWith("page.html: could not be written: File too large\n"));
  EXPECT_EQ(FileText(path), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path("")), {}), 1);
  std::filesystem::permissions(path, std::filesystem::perms(0640));
  std::filesystem::create_symlink("page.html", folder.Path("link"));
  EXPECT_EQ(RunOnThree("docs --output-file " + folder.Path("link")).status, 0);
  EXPECT_THAT(FileText(path), EndsWith("</html>\n"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link")));
  EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0640));
}

TEST(DocsCommand, WritesThePageToAPipe) {
  const ToolRun run = RunShell("$tool docs --source " + kDataFolder +
                               "/commands.json --output-file /dev/stdout | tail -c 8");
  EXPECT_EQ(run.out, "</html>\n");
  EXPECT_EQ(run.err, "");
}

TEST(DocsCommand, ListsSourcesThatFailOnThePage) {
  const TempFolder folder;
  const std::string broken = folder.Write("broken.json", R"({"cli": 1})");
  const std::string missing = folder.Path("missing");
  const ToolRun run = RunOnThree("docs --source " + broken + " --source " + missing);
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr(broken + ":1:9: "));
  const std::string no_file = missing + ": No such file or directory";
  EXPECT_THAT(run.err, HasSubstr("zelk-metadata: " + no_file + "\n"));
  const PageData data(run.out);
  const auto& failed = data.Structure()["failed"];
  ASSERT_EQ(failed.Size(), 2U);
  EXPECT_EQ(failed[0]["file"].GetString(), missing);
  EXPECT_EQ(failed[0]["problems"][0].GetString(), no_file);
  EXPECT_EQ(failed[1]["file"].GetString(), broken);
  EXPECT_THAT(failed[1]["problems"][0].GetString(), HasSubstr("[zelk.metadata."));
  const std::string still = StillContents(run.out);
  EXPECT_THAT(still, HasSubstr("<h2>Files that do not load</h2>\n<ul>\n<li>file " + missing +
                               "\n<ul>\n<li>" + no_file + "</li>\n</ul></li>\n<li>file " + broken +
                               "\n<ul>\n<li>" + broken + ":1:9: "));
}

TEST(DocsCommand, ListsFilesThatLoadInPartOnThePage) {
  const TempFolder folder;
  const std::string file = folder.Write(
      "part.json",
      R"({"authentication": {"product": 1, "component": {"name": "c", "schemes": {}}}})");
  const ToolRun run = RunTool({"docs", "--source", file});
  EXPECT_EQ(run.status, 0);
  const std::string warning = file +
                              ":1:32: warning: Json parse invalid field: product "
                              "[zelk.metadata.json.invalid.field] The product is left out.";
  EXPECT_EQ(run.err, "zelk-metadata: " + warning + "\n");
  const PageData data(run.out);
  const auto& partial = data.Structure()["partial"];
  ASSERT_EQ(partial.Size(), 1U);
  EXPECT_EQ(partial[0]["file"].GetString(), file);
  EXPECT_EQ(partial[0]["problems"][0].GetString(), warning);
  EXPECT_EQ(data.Structure()["failed"].Size(), 0U);
  EXPECT_EQ(data.Named("owner", data.Find("authentication", "c")), "");
  EXPECT_THAT(StillContents(run.out),
              HasSubstr("<h2>Files that load in part</h2>\n<ul>\n<li>file " + file +
                        "\n<ul>\n<li>" + warning + "</li>\n"));
}

TEST(DocsCommand, FailsWithTheStatusOfTheSourceUnlessThePageIsLost) {
  const TempFolder folder;
  for (const std::string& source :
       {folder.Write("broken.json", R"({"cli": 1})"), folder.Path("missing")}) {
    const std::string line = "docs --source " + source;
    EXPECT_EQ(RunOnThree(line).status, 1) << source;
    EXPECT_EQ(RunOnThree(line + " --output-file /dev/full").status, 4) << source;
  }
}

TEST(DocsCommand, ReadsStandardInput) {
  const ToolRun run = RunTool({"docs", "--source", "-"},
                              FieldOf(R"({"category": "BUILTIN", "primitive_type": "ID"})"));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(PageData(run.out).Links(PageData(run.out).Find("field", "f")), "ID");
}

TEST(DocsCommand, TitleIsTheComponentUnlessSeveralOrAnotherIsGiven) {
  const auto title = [](const ToolRun& run) { return Between(run.out, "<title>", "</title>"); };
  EXPECT_EQ(title(RunOnThree("docs")), "com.acme");
  EXPECT_EQ(title(RunOnThree("docs --title Ours")), "Ours");
  EXPECT_EQ(title(RunLine("docs --source " + kDataFolder + "/schemes.json")), "com.acme");
  const TempFolder folder;
  const std::string other = R"({"authentication": {"component": {"name": "b", "schemes": {}}}})";
  EXPECT_EQ(title(RunLine("docs --source " + kDataFolder + "/schemes.json --source " +
                          folder.Write("other.json", other))),
            "Schemes");
  EXPECT_EQ(title(RunLine("docs --source " + kDataFolder + "/commands.json")), "Commands");
  EXPECT_EQ(title(RunLine("docs --source " + kDataFolder + "/syntax_error.json")), "Interfaces");
  EXPECT_EQ(title(RunOnThree("docs --source " + kDataFolder + "/network.json")), "Interfaces");
}

TEST(DocsPage, PolicyAllowsOnlyItsOwnScriptAndStyle) {
  EXPECT_EQ(Docs::PolicyHash("abc"), "'sha256-ungWv48Bz+pBQUDeXa4iI7ADYaOWF3qctBD/YfIAFa0='");
  const std::string page = RunOnThree("docs").out;
  const std::string script = Between(page, "<script type=\"module\">", "</script>");
  const std::string style = Between(page, "<style>", "</style>");
  EXPECT_THAT(page, HasSubstr("content=\"default-src 'none'; script-src " +
                              Docs::PolicyHash(script) + "; style-src " + Docs::PolicyHash(style) +
                              "; img-src data:; base-uri 'none'; "));
  EXPECT_EQ(page.find("http"), page.find("http-equiv"));
  EXPECT_EQ(page.find("http", page.find("http-equiv") + 1), std::string::npos);
}

TEST(DocsPage, CodeAndStyleAreSmall) {
  const std::string code = std::string(Docs::kScript) + std::string(Docs::kStyle);
  EXPECT_LE(code.size(), 60'000U);
  EXPECT_LE(Docs::Deflated(code).size(), 20'000U);
}

TEST(DocsPage, Base64AndCompressionKeepLongTexts) {
  const std::string text = Repeat("What is long is encoded in parts. ", 200'000) + "!";
  EXPECT_EQ(Decoded(Docs::Base64(text)), text);
  EXPECT_EQ(Inflated(Docs::Deflated(text)), text);
}

TEST(DocsPage, ColumnsAreOfOneLength) {
  const auto& data = Three().Structure();
  for (const char* column : {"name", "owner", "fate", "by", "source", "line", "detail"}) {
    EXPECT_EQ(data[column].Size(), Three().Size()) << column;
  }
  EXPECT_EQ(data["referenceKind"].Size(), data["referenceTo"].Size());
}

TEST(DocsPage, ElementsHaveNamesOwnersLinesAndDocumentation) {
  const PageData& data = Three();
  const unsigned value = data.Find("value", "SUSPENDED");
  EXPECT_EQ(data.Named("owner", value), "enumeration com.acme.inventory.machine.power");
  EXPECT_EQ(data.Number("line", value), 59U);
  EXPECT_EQ(data.Text(value), "It sleeps,\nits memory is on disk.");
  EXPECT_EQ(data.Text(data.Find("value", "HOST")), "");
  EXPECT_EQ(data.Text(data.Find("command", "ping")), "See whether anyone is there.");
}

TEST(DocsPage, SourcesHaveFilesAndFingerprints) {
  const auto& sources = Three().Structure()["sources"];
  ASSERT_EQ(sources.Size(), 3U);
  EXPECT_STREQ(sources[0]["domain"].GetString(), "metamodel");
  EXPECT_EQ(sources[0]["file"].GetString(), kDataFolder + "/inventory.json");
  EXPECT_STREQ(sources[2]["id"].GetString(), "commands");
  EXPECT_EQ(sources[2]["bytes"].GetUint(), FileText(kDataFolder + "/commands.json").size());
  const std::string print =
      RunLine("fingerprint component com.acme --source " + kDataFolder + "/inventory.json").out;
  EXPECT_EQ(sources[0]["fingerprint"].GetString() + std::string("\n"), print);
}

TEST(DocsPage, DetailsHaveWhatKindsHaveBesidesNames) {
  const PageData& data = Three();
  EXPECT_EQ(data.Words(data.Find("structure", "com.acme.inventory.machine")), "structure");
  EXPECT_EQ(data.Words(data.Find("constant", "PREFIX")), "primitive|string|vm-");
  EXPECT_EQ(data.Words(data.Find("constant", "MAX_DISKS")), "primitive|long");
  EXPECT_EQ(data.Words(data.Find("scheme", "badge")),
            "com.acme.badge|session_aware|com.acme.session");
  EXPECT_EQ(data.Words(data.Find("command", "acme.machines.list")),
            "com.acme.inventory.machines|list|table");
  EXPECT_EQ(data.Words(data.Find("option", "name")), "n|filter.names|String|LIST");
  EXPECT_EQ(data.Words(data.Find("output-field", "power")), "Power");
}

TEST(DocsPage, AnnotationsTellTextsFromArrays) {
  const std::string type = R"({"category": "BUILTIN", "primitive_type": "ID"})";
  const TempFolder folder;
  const PageData data = DataOf({folder.Write(
      "a.json", FieldOf(type, R"({"A": {"one": "x", "many": ["y", "z"], "none": []}})"))});
  const std::vector<unsigned> row = data.Detail(data.Find("annotation", "A"));
  const auto text = [&](unsigned position) { return data.Word("strings", row[position]); };
  ASSERT_EQ(row.size(), 9U);
  EXPECT_EQ(text(0) + text(2) + text(3) + text(5) + text(6) + text(7), "onexmanyyznone");
  EXPECT_EQ(row[1], 0U);
  EXPECT_EQ(row[4], 3U);
  EXPECT_EQ(row[8], 1U);
}

TEST(DocsPage, TypesAreRowsOfWordsAndLinks) {
  const TempFolder folder;
  const std::string user = R"({"category": "USER_DEFINED", "user_defined_type": "Structure",
                               "user_defined_type_name": ")";
  const std::string type = R"({"category": "GENERIC", "generic_type": "map",
      "map_key_type": )" + user +
                           R"(c.p.other"}, "map_value_type": {"category": "GENERIC",
      "generic_type": "LIST", "element_type": )" +
                           user + R"(c.p.s"}}})";
  const PageData data = DataOf({folder.Write("a.json", FieldOf(type))});
  EXPECT_EQ(data.Links(data.Find("field", "f")), "MAP  c.p.other LIST #c.p.s");
}

TEST(DocsPage, DeepTypesDoNotExhaustTheStack) {
  constexpr std::size_t kLevels = 100'000;
  const std::string type =
      Repeat(R"({"category": "GENERIC", "generic_type": "LIST", "element_type": )", kLevels) +
      R"({"category": "BUILTIN", "primitive_type": "VOID"})" + std::string(kLevels, '}');
  const TempFolder folder;
  const std::string file = folder.Write("deep.json", FieldOf(type));
  ToolRun run{};
  RunOnSmallStack(256 * 1024, [&] { run = RunTool({"docs", "--source", file}); });
  EXPECT_EQ(run.status, 0) << run.err;
  const PageData data(run.out);
  EXPECT_EQ(data.Detail(data.Find("field", "f")).size(), kLevels + 1);
}

TEST(DocsPage, ReferencesJoinTheDomains) {
  const PageData& data = Three();
  EXPECT_THAT(data.References(data.Find("command", "acme.machines.list")),
              testing::ElementsAre("service:#com.acme.inventory.machines", "operation:#list"));
  EXPECT_THAT(data.References(data.Find("package-list", "com.acme.inventory")),
              testing::ElementsAre("listed:#com.acme.inventory"));
  EXPECT_THAT(data.References(data.Find("package-list", "com.acme.visitors")),
              testing::ElementsAre("listed:com.acme.visitors"));
  EXPECT_THAT(data.References(data.Find("scheme", "badge")),
              testing::ElementsAre("manager:com.acme.session"));
  EXPECT_THAT(data.References(data.Find("entry", "badge")), testing::ElementsAre("scheme:#badge"));
}

TEST(DocsPage, CommandsAreInTheNamespaceOfTheirPath) {
  const PageData& data = Three();
  EXPECT_EQ(data.Named("owner", data.Find("command", "acme.machines.list")),
            "namespace acme.machines");
  EXPECT_EQ(data.Named("owner", data.Find("command", "ping")), "namespace ");
  const unsigned implied = data.Find("namespace", "acme");
  EXPECT_EQ(data.Number("fate", implied), 1U);
  EXPECT_EQ(data.Text(implied), "");
}

TEST(DocsPage, ComponentsOfAuthenticationAreOfAKindOfTheirOwn) {
  const PageData& data = Three();
  EXPECT_EQ(data.Named("owner", data.Find("scheme", "badge")), "authentication com.acme");
  EXPECT_EQ(data.Named("owner", data.Find("package", "com.acme.inventory")), "component com.acme");
}

TEST(DocsPage, ContentsWithoutScriptsAreNestedLists) {
  const std::string still = StillContents(RunOnThree("docs").out);
  EXPECT_THAT(still, HasSubstr("<li>component com.acme\n<ul>\n<li>package inventory\n<ul>\n"
                               "<li>service machines</li>\n<li>service folders</li>\n</ul></li>\n"
                               "<li>package empty</li>\n</ul></li>\n"));
  EXPECT_THAT(still, HasSubstr("<li>component com.acme\n<ul>\n<li>scheme badge</li>\n"));
  EXPECT_THAT(still, HasSubstr("<li>namespace acme.machines\n<ul>\n<li>command list</li>\n"
                               "</ul></li>\n<li>command ping</li>\n<li>namespace acme</li>\n"));
  EXPECT_THAT(still, HasSubstr("<li>file " + kDataFolder + "/schemes.json</li>\n"));
}

TEST(DocsPage, ContentsWithoutScriptsHaveWhatIsFoundInTheOtherFileOfAComponent) {
  const TempFolder folder;
  const std::string type = R"({"category": "BUILTIN", "primitive_type": "ID"})";
  std::string second = FieldOf(type);
  second.replace(second.find("c.p"), 3, "d.q");
  const ToolRun run = RunTool({"docs", "--source", folder.Write("a.json", FieldOf(type)),
                               "--source", folder.Write("b.json", second)});
  EXPECT_THAT(StillContents(run.out), HasSubstr("<li>component c\n<ul>\n<li>package p</li>\n"
                                                "<li>package d.q</li>\n</ul></li>\n"));
  const PageData data(run.out);
  const unsigned moved = data.Find("package", "d.q");
  EXPECT_EQ(data.Number("source", moved), 1U);
  EXPECT_EQ(data.Number("source", data.Number("owner", moved) - 1), 0U);
}

TEST(DocsPage, UnseenCharactersAreCodesInTheTitleAndWithoutScripts) {
  struct Case {
    const char* name;
    std::string shown;
  };

  const Case cases[] = {
      {"a\u202eb\u2066\u200b", "a\u27e8U+202E\u27e9b\u27e8U+2066\u27e9\u27e8U+200B\u27e9"},
      {"\u00ad\u061c\ufeff\U000e0041",
       "\u27e8U+00AD\u27e9\u27e8U+061C\u27e9\u27e8U+FEFF\u27e9\u27e8U+E0041\u27e9"},
      {"\u2028\u034f\u3164\uffff\ufdd0",
       "\u27e8U+2028\u27e9\u27e8U+034F\u27e9\u27e8U+3164\u27e9\u27e8U+FFFF\u27e9\u27e8U+"
       "FDD0\u27e9"},
      {"\x1b[0m\x7f\t!", "\u27e8U+001B\u27e9[0m\u27e8U+007F\u27e9\t!"},
      {"\u0645\u06cc\u200c\u062e", "\u0645\u06cc\u200c\u062e"},
      {"\U0001f469\u200d\U0001f680", "\U0001f469\u200d\U0001f680"},
      {"a\u200db\u00e9\u200c\u200d",
       "a\u27e8U+200D\u27e9b\u00e9\u27e8U+200C\u27e9\u27e8U+200D\u27e9"},
      {" \u00a0\u3000", "(blank)"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(Docs::ShownName(row.name), row.shown) << row.name;
    const std::string page =
        RunTool({"docs", "--title", row.name, "--source", kDataFolder + "/schemes.json"}).out;
    EXPECT_THAT(page, HasSubstr("<title>" + row.shown + "</title>"));
    EXPECT_THAT(page, HasSubstr("<h1>" + row.shown + "</h1>"));
  }
}

TEST(DocsPage, LongNamesAreCutInTheTitleAndWithoutScripts) {
  EXPECT_EQ(Docs::ShownName(Repeat("\U0001f680", 201)), Repeat("\U0001f680", 200) + "\u2026");
  EXPECT_EQ(Docs::ShownName(Repeat("\U0001f680", 200)), Repeat("\U0001f680", 200));
  EXPECT_EQ(Docs::ShownName("ab\xff", 3), "ab\ufffd");
}

TEST(DocsPage, ResourcesHaveUsersAndModels) {
  const PageData& data = Three();
  const auto& resources = data.Structure()["resources"];
  std::string models;
  for (unsigned i = 0; i < resources.Size(); i += 3) {
    if (resources[i + 2].GetUint() == 0) continue;
    models += data.Word("strings", resources[i].GetUint()) + "=" +
              data.Name(resources[i + 2].GetUint() - 1) + ";";
  }
  EXPECT_EQ(models, "com.acme.inventory.machine=com.acme.inventory.machine;");
}

TEST(DocsPage, WhatIsShadowedSaysByWhat) {
  const TempFolder folder;
  const std::string text = FieldOf(R"({"category": "BUILTIN", "primitive_type": "ID"})");
  const PageData data = DataOf({folder.Write("a.json", text), folder.Write("b.json", text)});
  unsigned shadowed = 0;
  for (unsigned id = 0; id < data.Size(); ++id) {
    if (data.Fate(id) != "shadowed") continue;
    ++shadowed;
    EXPECT_EQ(data.Number("source", id), 1U);
    const bool is_part = data.Kind(id) == "field";
    EXPECT_EQ(data.Named("by", id),
              is_part ? "structure c.p.s" : data.Kind(id) + " " + data.Name(id));
    EXPECT_EQ(data.Number("source", data.Number("by", id) - 1), 0U);
  }
  EXPECT_EQ(shadowed, data.Size() / 2);
}

TEST(DocsPage, HostileTextsAreNotHtml) {
  const std::string evil = "</title></script><img src=x>&\xff";
  const TempFolder folder;
  std::string text = FieldOf(R"({"category": "BUILTIN", "primitive_type": "ID"})");
  for (std::size_t at = text.find("\"c.p"); at != std::string::npos;
       at = text.find("\"c.p", at + 1)) {
    text.replace(at, 4, "\"" + evil);
  }
  const ToolRun run =
      RunTool({"docs", "--title", evil, "--source", folder.Write("evil.json", text)});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, Not(HasSubstr("<img")));
  EXPECT_THAT(
      run.out,
      HasSubstr("<title>&lt;/title&gt;&lt;/script&gt;&lt;img src=x&gt;&amp;\xef\xbf\xbd</title>"));
  EXPECT_THAT(run.out, HasSubstr("<li>package <bdi><code>&lt;/<wbr>title&gt;"));
}
