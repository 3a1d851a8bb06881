#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/linted.h"
#include "analysis/small_model.h"

using namespace Zelk::Testing;  // NOLINT(google-build-using-namespace): short ways to write files
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

const std::string kText = Builtin("STRING");

std::string Option(const std::string& field, const std::string& type = "STRING",
                   const std::string& generic = "") {
  return R"({"long_option": ")" + field + R"(", "field_name": ")" + field +
         R"(", "description": "", "type": ")" + type + R"(", "generic": ")" + generic + R"("})";
}

std::string Output(const std::string& structure, const std::string& field = "") {
  return R"({"structure_id": ")" + structure + R"(", "output_fields": [)" +
         (field.empty()
              ? ""
              : R"({"field_name": ")" + field + R"(", "display_name": ")" + field + R"("})") +
         "]}";
}

/// What a command has besides its name.
struct CommandParts {
  std::string options = {};
  std::string outputs = {};
  std::string formatter = {};
  std::string operation = "get";
  std::string service = "c.p.s";
};

std::string Command(const CommandParts& parts, const std::string& name = "x",
                    const std::string& path = "") {
  return R"({"type": "command", "path": ")" + path + R"(", "name": ")" + name +
         R"(", "description": "", "node_metadata": {"service_id": ")" + parts.service +
         R"(", "operation_id": ")" + parts.operation + R"(", )" +
         (parts.formatter.empty() ? "" : R"("formatter": ")" + parts.formatter + R"(", )") +
         R"("options": [)" + parts.options + R"(], "output_field_list": [)" + parts.outputs + "]}}";
}

std::string Namespace(const std::string& path, const std::string& name) {
  return R"({"type": "namespace", "path": ")" + path + R"(", "name": ")" + name +
         R"(", "description": ""})";
}

std::string Cli(const std::string& nodes) {
  return R"({"cli": [)" + nodes + "]}";
}

std::string OneCommand(const CommandParts& parts) {
  return Cli(Command(parts));
}

/// An operation that takes `parameters`, and structures for them.
std::string Taking(const std::string& parameters) {
  return MetamodelFile(
      {Structure("c.p.spec", Field("must", kText) + "," + Field("may", Of("OPTIONAL", kText)) +
                                 "," +
                                 Field("inner", Of("OPTIONAL", Named("Structure", "c.p.spec")))) +
           "," + Structure("c.p.free", Field("may", Of("OPTIONAL", kText))),
       Enumeration("c.p.kind"), Operation("get", parameters)});
}

std::string Returning(const std::string& result) {
  return MetamodelFile(
      {Structure("c.p.a", Field("b", Of("LIST", Named("Structure", "c.p.b")))) + "," +
           Structure("c.p.b", Field("f", kText) + "," + Field("a", Named("Structure", "c.p.a"))) +
           "," + Structure("c.p.other", Field("f", kText)) + "," +
           Structure("c.p.open", Field("f", Of("LIST", Builtin("DYNAMIC_STRUCTURE")))),
       "", Operation("get", "", result)});
}

const std::string kSpec = Named("Structure", "c.p.spec");

}  // namespace

TEST(UnknownCommandTarget, IsAServiceOrAnOperation) {
  const auto found = [](const CommandParts& parts) {
    return Found("unknown-command-target", {Taking(""), OneCommand(parts)});
  };
  EXPECT_THAT(found({}), IsEmpty());
  EXPECT_THAT(found({"", "", "", "gte"}),
              ElementsAre("error command:x: the service 'c.p.s' has no operation 'gte' "
                          "(did you mean 'get'?)"));
  EXPECT_THAT(found({"", "", "", "get", "c.p.t"}),
              ElementsAre("error command:x: the service 'c.p.t' is not loaded "
                          "(did you mean 'c.p.s'?)"));
  EXPECT_THAT(found({"", "", "", "get", "other.service"}),
              ElementsAre("note cli: the service 'other.service' is not loaded"));
}

TEST(UnknownOptionField, NamesWhatHasNoSuchField) {
  const auto found = [](const std::string& field) {
    return Found("unknown-option-field",
                 {Taking(Field("spec", kSpec) + "," + Field("specs", Of("LIST", kSpec)) + "," +
                         Field("other", Named("Structure", "d.unknown"))),
                  OneCommand({Option(field)})});
  };
  for (const char* field : {"spec", "spec.must", "spec.inner.inner.may", "other.anything"}) {
    EXPECT_THAT(found(field), IsEmpty()) << field;
  }
  EXPECT_THAT(found("spek"),
              ElementsAre("error option:spek: the operation 'c.p.s.get' has no parameter 'spek' "
                          "(did you mean 'spec'?)"));
  EXPECT_THAT(found("spec.mast"),
              ElementsAre("error option:spec.mast: the structure 'c.p.spec' has no field 'mast' "
                          "(did you mean 'must'?)"));
  EXPECT_THAT(found("specs.must"),
              ElementsAre("error option:specs.must: the parameter 'c.p.s.get.specs' is not a "
                          "structure and has no field 'must'"));
  EXPECT_THAT(Found("unknown-option-field", {Taking(""), OneCommand({Option("i"), "", "", "put"})}),
              IsEmpty());
}

TEST(OptionTypeMismatch, ComparesWithTheTypeWithinTheGenerics) {
  const auto found = [](const std::string& type, const std::string& written) {
    return Found("option-type-mismatch",
                 {Taking(Field("i", type)), OneCommand({Option("i", written)})});
  };
  EXPECT_THAT(found(kText, "string"), IsEmpty());
  EXPECT_THAT(found(Builtin("ANY_ERROR"), "exception"), IsEmpty());
  EXPECT_THAT(found(Of("OPTIONAL", Of("LIST", Named("Enumeration", "c.p.kind"))), "C.P.Kind"),
              IsEmpty());
  EXPECT_THAT(found(MapOf(kText, kText), "anything"), IsEmpty());
  EXPECT_THAT(found(kText, "LONG"),
              ElementsAre("error option:i: the option is of type 'LONG', but the parameter "
                          "'c.p.s.get.i' is of type 'STRING'"));
  EXPECT_THAT(found(Named("Enumeration", "c.p.kind"), "c.p.knid"),
              ElementsAre("error option:i: the option is of type 'c.p.knid', but the parameter "
                          "'c.p.s.get.i' is of type 'c.p.kind'"));
}

TEST(OptionTypeMismatch, NotesTypesOfUnknownFieldsOnce) {
  const Lines texts{Taking(""), OneCommand({Option("i", "TEXT") + "," + Option("j", "TEXT") + "," +
                                            Option("k", "c.p.kind") + "," + Option("l", "ID")})};
  EXPECT_THAT(Found("option-type-mismatch", texts),
              ElementsAre("note cli: the type 'TEXT' is neither built in nor loaded"));
  Zelk::Analysis::Lint::Settings settings;
  settings.external = {"TEXT"};
  EXPECT_THAT(Found("option-type-mismatch", texts, settings), IsEmpty());
}

TEST(OptionOptionalityMismatch, ComparesWithTheGenerics) {
  const std::string optional = Of("OPTIONAL", kText);
  const std::string list = Of("LIST", kText);

  const struct {
    std::string type;
    const char* generic;
    const char* finding;
  } rows[] = {
      {kText, "none", ""},
      {kText, "", ""},
      {kText, "optional",
       "error option:i: the option may be left out, but the parameter 'c.p.s.get.i' is required"},
      {kText, "list",
       "error option:i: the option takes a list, but the parameter 'c.p.s.get.i' is one value"},
      {kText, "unknown", ""},
      {optional, "OPTIONAL", ""},
      {optional, "none",
       "warning option:i: the option is required, but the parameter 'c.p.s.get.i' is optional"},
      {list, "none",
       "error option:i: the option takes one value, but the parameter 'c.p.s.get.i' is a list"},
      {list, "list", ""},
      {Of("SET", kText), "list", ""},
      {list, "optional_list",
       "error option:i: the option may be left out, but the parameter 'c.p.s.get.i' is required"},
      {list, "list_optional",
       "error option:i: values of the option may be absent, but not those of the parameter "
       "'c.p.s.get.i'"},
      {Of("OPTIONAL", list), "optional_list", ""},
      {Of("LIST", optional), "list_optional", ""},
      {Of("LIST", optional), "list", ""},
      {MapOf(kText, kText), "none",
       "note option:i: no option can fill the parameter 'c.p.s.get.i'"},
  };

  for (const auto& row : rows) {
    const Lines found =
        Found("option-optionality-mismatch",
              {Taking(Field("i", row.type)), OneCommand({Option("i", "STRING", row.generic)})});
    EXPECT_EQ(found, row.finding[0] == '\0' ? Lines() : Lines{row.finding})
        << row.type << row.generic;
  }
}

TEST(OptionOptionalityMismatch, EitherIsRightWithinSomethingOptional) {
  for (const char* generic : {"none", "optional"}) {
    EXPECT_THAT(Found("option-optionality-mismatch",
                      {Taking(Field("spec", Of("OPTIONAL", kSpec))),
                       OneCommand({Option("spec.must", "STRING", generic)})}),
                IsEmpty())
        << generic;
  }
}

TEST(ParameterWithoutOption, IsRequired) {
  const auto found = [](const std::string& parameters, const std::string& options) {
    return Found("parameter-without-option", {Taking(parameters), OneCommand({options})});
  };
  const std::string spec = Field("spec", kSpec);
  EXPECT_THAT(found(Field("i", kText), Option("i")), IsEmpty());
  EXPECT_THAT(found(Field("i", Of("OPTIONAL", kText)), ""), IsEmpty());
  EXPECT_THAT(found(Field("i", kText), ""),
              ElementsAre("error command:x: no option fills 'i', which the operation requires"));
  EXPECT_THAT(found(Field("i", Of("LIST", kText)), ""),
              ElementsAre("warning command:x: no option fills 'i', which is then empty"));
  EXPECT_THAT(found(Field("i", Named("Structure", "c.p.free")), ""),
              ElementsAre("warning command:x: no option fills 'i', which is then empty"));
  EXPECT_THAT(found(Field("i", Named("Enumeration", "c.p.kind")), ""),
              ElementsAre("error command:x: no option fills 'i', which the operation requires"));
  EXPECT_THAT(found(Field("i", kText) + "," + Field("i", kText), Option("i")), IsEmpty());
  EXPECT_THAT(found(Field("i", kText) + "," + Field("i", kText), ""),
              ElementsAre("error command:x: no option fills 'i', which the operation requires"));
  EXPECT_THAT(found(spec, Option("spec")), IsEmpty());
  EXPECT_THAT(found(spec, Option("spec.typo")), IsEmpty());
  EXPECT_THAT(found(spec, Option("spec.must") + "," + Option("spec.inner.must")), IsEmpty());
  EXPECT_THAT(
      found(spec, Option("spec.may")),
      ElementsAre("error command:x: no option fills 'spec.must', which the operation requires"));
  EXPECT_THAT(
      found(spec, Option("spec.must") + "," + Option("spec.inner.inner.must")),
      ElementsAre(
          "error command:x: no option fills 'spec.inner.must', which the operation requires"));
}

TEST(ParameterWithoutOption, ReportsTenOfACommand) {
  std::string parameters = Field("p0", kText);
  for (int i = 1; i < 30; ++i) parameters += "," + Field("p" + std::to_string(i), kText);
  EXPECT_THAT(Found("parameter-without-option", {Taking(parameters), OneCommand({})}),
              testing::SizeIs(10));
}

TEST(UnknownOutputField, IsNotInTheStructure) {
  const auto found = [](const std::string& output) {
    return Found("unknown-output-field", {Taking(""), OneCommand({"", output})});
  };
  EXPECT_THAT(found(Output("c.p.spec", "must")), IsEmpty());
  EXPECT_THAT(found(Output("c.p.spec", "mst")),
              ElementsAre("error output-field:mst: the structure 'c.p.spec' has no field 'mst' "
                          "(did you mean 'must'?)"));
  EXPECT_THAT(found(Output("c.p.speck", "must")),
              ElementsAre("error output:c.p.speck: the structure 'c.p.speck' is not loaded "
                          "(did you mean 'c.p.spec'?)"));
  EXPECT_THAT(found(Output("other.structure", "must")),
              ElementsAre("note cli: the structure 'other.structure' is not loaded"));
}

TEST(UnreachableOutput, IsNotInTheResult) {
  const auto found = [](const std::string& result, const CommandParts& parts) {
    return Found("unreachable-output", {Returning(result), OneCommand(parts)});
  };
  const std::string a = Of("OPTIONAL", Named("Structure", "c.p.a"));
  EXPECT_THAT(found(a, {"", Output("c.p.a", "b") + "," + Output("c.p.b", "f"), "table"}),
              IsEmpty());
  EXPECT_THAT(found(a, {"", Output("c.p.other", "f")}),
              ElementsAre("warning output:c.p.other: the result of the operation has no "
                          "'c.p.other'"));
  EXPECT_THAT(found(a, {"", Output("c.p.none", "f")}), IsEmpty());
  EXPECT_THAT(found(Named("Structure", "c.p.open"), {"", Output("c.p.other", "f")}), IsEmpty());
  EXPECT_THAT(found(Named("Structure", "d.unknown"), {"", Output("c.p.other", "f")}), IsEmpty());
  EXPECT_THAT(found(a, {"", "", "", "put"}), IsEmpty());
}

TEST(UnreachableOutput, IsTheSameForEachCommandOfAnOperation) {
  const CommandParts open{"", Output("c.p.other", "f")};
  CommandParts other = open;
  other.operation = "put";
  std::string metamodel = Returning(Named("Structure", "c.p.open"));
  const std::string get = Operation("get", "", Named("Structure", "c.p.open"));
  metamodel.replace(metamodel.find(get), get.size(),
                    get + "," + Operation("put", "", Named("Structure", "c.p.a")));
  EXPECT_THAT(
      Found("unreachable-output", {metamodel, Cli(Command(open, "a") + "," + Command(open, "b") +
                                                  "," + Command(other, "c") + "," +
                                                  Command(open, "d") + "," + Command(other, "e"))}),
      ElementsAre(HasSubstr("output"), HasSubstr("output")));
}

TEST(UnreachableOutput, IsAFormatterWithNothingToShow) {
  const auto found = [](const std::string& result, const CommandParts& parts) {
    return Found("unreachable-output", {Returning(result), OneCommand(parts)});
  };
  EXPECT_THAT(found(Builtin("VOID"), {}), IsEmpty());
  EXPECT_THAT(found(Builtin("VOID"), {"", "", "simple"}),
              ElementsAre("warning command:x: the operation returns nothing, so there is nothing "
                          "to show"));
  const std::string a = Named("Structure", "c.p.a");
  for (const char* formatter : {"TABLE", "CSV"}) {
    EXPECT_THAT(found(a, {"", Output("c.p.a"), formatter}),
                ElementsAre(std::string("warning command:x: no output fields say what the columns "
                                        "of the ") +
                            formatter + " are"));
    EXPECT_THAT(found(Of("LIST", kText), {"", "", formatter}), IsEmpty());
  }
  EXPECT_THAT(found(a, {"", "", "json"}), IsEmpty());
  EXPECT_THAT(found(a, {"", "", "unknown"}), IsEmpty());
}

TEST(UnreachableOutput, IsNotKnownAfterTooMuchToLookAt) {
  constexpr int kSize = 1500;
  std::string structures = Structure("c.p.other", "");
  const std::string operations = Operation("get", "", Named("Structure", "c.p.s0")) + "," +
                                 Operation("put", "", Named("Structure", "c.p.s1"));
  std::string nodes;
  for (int i = 0; i < kSize; ++i) {
    const std::string next = "c.p.s" + std::to_string((i + 1) % kSize);
    structures +=
        "," + Structure("c.p.s" + std::to_string(i), Field("f", Named("Structure", next)));
    nodes += Command({"", Output("c.p.other"), "", i % 2 == 0 ? "get" : "put"},
                     "x" + std::to_string(i)) +
             ",";
  }
  nodes += Namespace("", "n");
  const Lines found =
      Found("unreachable-output", {MetamodelFile({structures, "", operations}), Cli(nodes)});
  EXPECT_GT(found.size(), 500U);
  EXPECT_LT(found.size(), 1500U);
}

TEST(DuplicateOption, LooksAtOptionsAndOutputs) {
  const std::string option =
      R"({"long_option": "a", "short_option": "b", "field_name": "f", "description": "",
          "type": "", "generic": ""})";
  const std::string output = R"({"structure_id": "s", "output_fields": [
      {"field_name": "f", "display_name": "d"}, {"field_name": "f", "display_name": "d"}]})";
  EXPECT_THAT(Found("duplicate-option", {OneCommand({option + "," + option, output})}),
              ElementsAre("error option:a: the option 'a' is there twice",
                          "error option:a: the short option 'b' is there twice",
                          "warning option:a: the field 'f' is there twice",
                          "warning output-field:f: the output field 'f' is there twice",
                          "warning output-field:f: the title 'd' is there twice"));
  EXPECT_THAT(Found("duplicate-option", {OneCommand({Option("a") + "," + Option("b")})}),
              IsEmpty());
}

TEST(MalformedOption, IsNotWhatUsersType) {
  const auto found = [](const std::string& name, const std::string& letter) {
    return Found("malformed-option",
                 {OneCommand({R"({"long_option": ")" + name + R"(", "short_option": ")" + letter +
                              R"(", "field_name": "f", "description": "", "type": "",
                                 "generic": ""})"})});
  };
  EXPECT_THAT(found("volts", "v"), IsEmpty());
  EXPECT_THAT(found("volts", "\u00e4"), IsEmpty());

  const struct {
    const char* name;
    const char* problem;
  } rows[] = {{"", "has no name"},
              {"-v", "begins with a dash"},
              {"a b", "has a blank in it"},
              {"a=b", "has a '=' in it"}};

  for (const auto& row : rows) {
    EXPECT_THAT(found(row.name, "v"), ElementsAre(HasSubstr(row.problem))) << row.name;
  }
  for (const char* letter : {"", "ab", "\x80"}) {
    EXPECT_THAT(found("volts", letter), ElementsAre(HasSubstr("is not one character"))) << letter;
  }
  EXPECT_THAT(found("volts", "-"), ElementsAre(HasSubstr("is a dash")));
  EXPECT_THAT(found("help", "h"),
              ElementsAre("warning option:help: clients have the option 'help' themselves",
                          "warning option:help: clients have the option 'h' themselves"));
}

TEST(CommandNamespaceMissing, IsReportedOnceForEachPath) {
  EXPECT_THAT(
      Found("command-namespace-missing",
            {Cli(Command({}, "x", "a.b") + "," + Command({}, "y", "a.b") + "," +
                 Command({}, "z", "c.d") + "," + Command({}, "w") + "," + Namespace("c", "d"))}),
      ElementsAre("warning cli: the namespace 'a.b' is not described, so that no list of "
                  "namespaces has its commands",
                  "note namespace:c: the namespace 'c' is not described"));
}

TEST(CommandIsNamespace, HasTheSameFullName) {
  EXPECT_THAT(
      Found("command-is-namespace", {Cli(Namespace("", "a") + "," + Namespace("a", "b") + "," +
                                         Command({}, "b", "a") + "," + Command({}, "b"))}),
      ElementsAre("warning command:a.b: there is a namespace 'a.b', too"));
}
