#pragma once

// A Metamodel file in which every object and every key of the format occurs, and what is read from
// it. The tests change it key by key.

namespace Zelk::Testing {

inline constexpr char kSampleComponent[] = R"({
  "metamodel": {
    "component": {
      "name": "foo",
      "documentation": "The foo.",
      "metadata": {"Author": {"tags": ["b", "a"], "name": "someone"}, "Empty": {}},
      "packages": [
        {
          "name": "foo.bar",
          "documentation": "The bar.",
          "metadata": {"Since": {"value": "1"}},
          "enumerations": [
            {
              "name": "foo.bar.color",
              "documentation": "Colors.",
              "metadata": {"Since": {"value": "2"}},
              "values": [
                {"name": "RED", "documentation": "Red.", "metadata": {"Hex": {"value": "f00"}}},
                {"name": "BLUE", "documentation": "Blue.", "metadata": {}}
              ]
            }
          ],
          "structures": [
            {
              "name": "foo.bar.info",
              "type": "STRUCTURE",
              "documentation": "What is known.",
              "metadata": {"Model": {}},
              "enumerations": [
                {"name": "foo.bar.info.kind", "documentation": "", "metadata": {}, "values": []}
              ],
              "constants": [
                {
                  "name": "NAME",
                  "documentation": "A name.",
                  "type": {"category": "PRIMITIVE", "type": "STRING"},
                  "value": "qux"
                }
              ],
              "fields": [
                {
                  "name": "id",
                  "documentation": "The key.",
                  "metadata": {"Resource": {"value": "foo.bar"}, "ModelKey": {}},
                  "type": {"category": "BUILTIN", "primitive_type": "ID"}
                }
              ]
            },
            {
              "name": "foo.bar.failure",
              "type": "ERROR",
              "documentation": "",
              "metadata": {},
              "enumerations": [],
              "constants": [],
              "fields": []
            }
          ],
          "services": [
            {
              "name": "foo.bar.baz",
              "documentation": "The baz.",
              "metadata": {"Resource": {"value": ["foo.bar", "foo.baz"]}},
              "enumerations": [
                {"name": "foo.bar.baz.size", "documentation": "", "metadata": {}, "values": []}
              ],
              "structures": [
                {
                  "name": "foo.bar.baz.spec",
                  "type": "STRUCTURE",
                  "documentation": "",
                  "metadata": {},
                  "enumerations": [],
                  "constants": [],
                  "fields": []
                }
              ],
              "constants": [
                {
                  "name": "LIMITS",
                  "documentation": "Limits.",
                  "type": {"category": "LIST", "type": "LONG"},
                  "value": [1, 2]
                }
              ],
              "operations": [
                {
                  "name": "get",
                  "documentation": "Gets.",
                  "metadata": {"Verb": {"value": "GET"}},
                  "params": [
                    {
                      "name": "ids",
                      "documentation": "Which.",
                      "metadata": {"Resource": {"value": "foo.bar"}},
                      "type": {
                        "category": "GENERIC",
                        "generic_type": "LIST",
                        "element_type": {"category": "BUILTIN", "primitive_type": "ID"}
                      }
                    }
                  ],
                  "result": {
                    "documentation": "By id.",
                    "metadata": {"Paged": {}},
                    "type": {
                      "category": "GENERIC",
                      "generic_type": "MAP",
                      "map_key_type": {"category": "BUILTIN", "primitive_type": "STRING"},
                      "map_value_type": {
                        "category": "USER_DEFINED",
                        "user_defined_type": "Structure",
                        "user_defined_type_name": "foo.bar.info"
                      }
                    }
                  },
                  "errors": [
                    {"user_defined_type_name": "foo.bar.failure", "documentation": "Not there."}
                  ]
                }
              ]
            }
          ]
        }
      ]
    }
  }
})";

inline constexpr char kSampleDump[] =
    R"(component "foo" "The foo."
  "Author" -> {"name"="someone" "tags"=["b", "a"]}
  "Empty" -> {}
  "foo.bar" -> package "foo.bar" "The bar."
    "Since" -> {"value"="1"}
    "foo.bar.color" -> enumeration "foo.bar.color" "Colors."
      "Since" -> {"value"="2"}
      value "RED" "Red."
        "Hex" -> {"value"="f00"}
      value "BLUE" "Blue."
    "foo.bar.failure" -> structure ERROR "foo.bar.failure" ""
    "foo.bar.info" -> structure STRUCTURE "foo.bar.info" "What is known."
      "Model" -> {}
      "foo.bar.info.kind" -> enumeration "foo.bar.info.kind" ""
      "NAME" -> constant "A name." : STRING = PRIMITIVE STRING "qux"
      field "id" "The key." : ID
        "ModelKey" -> {}
        "Resource" -> {"value"="foo.bar"}
    "foo.bar.baz" -> service "foo.bar.baz" "The baz."
      "Resource" -> {"value"=["foo.bar", "foo.baz"]}
      "foo.bar.baz.size" -> enumeration "foo.bar.baz.size" ""
      "foo.bar.baz.spec" -> structure STRUCTURE "foo.bar.baz.spec" ""
      "LIMITS" -> constant "Limits." : LIST<LONG> = LIST none
      "get" -> operation "get" "Gets."
        "Verb" -> {"value"="GET"}
        field "ids" "Which." : LIST<ID>
          "Resource" -> {"value"="foo.bar"}
        result "By id." : MAP<STRING, "com.orvane.zelk.structure":"foo.bar.info">
          "Paged" -> {}
        error "foo.bar.failure" "Not there."
)";

// Where things are in it.
inline constexpr char kComponent[] = "/metamodel/component";
inline constexpr char kPackage[] = "/metamodel/component/packages/0";
inline constexpr char kService[] = "/metamodel/component/packages/0/services/0";
inline constexpr char kOperation[] = "/metamodel/component/packages/0/services/0/operations/0";
inline constexpr char kStructure[] = "/metamodel/component/packages/0/structures/0";
inline constexpr char kEnumeration[] = "/metamodel/component/packages/0/enumerations/0";

}  // namespace Zelk::Testing
