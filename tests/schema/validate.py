#!/usr/bin/python3
"""Tries the schemas of zelk-metadata with a validator that knows both drafts of JSON Schema.

usage: validate.py SOURCE PROGRAM
"""
import copy
import json
import pathlib
import re
import subprocess
import sys

from jsonschema import Draft7Validator, Draft202012Validator

FORMATS = ["metamodel", "authentication", "cli"]
DRAFTS = {"7": Draft7Validator, "2020-12": Draft202012Validator}

source, program = pathlib.Path(sys.argv[1]), sys.argv[2]
failures = 0


def expect(condition, what):
    global failures
    if not condition:
        print(what)
        failures += 1


def schema(name, accepts, draft):
    words = [program, "schema", name, "--draft", draft] + ["--accepts"] * accepts
    made = json.loads(subprocess.check_output(words))
    DRAFTS[draft].check_schema(made)
    # This release resolves no references in a schema whose id is a URN.
    del made["$id"]
    return DRAFTS[draft](made)


def undescribed(node, path):
    """The keys, and the words to choose from, that have no description."""
    found = []
    for key, value in node.items() if isinstance(node, dict) else []:
        if key in ("if", "then"):
            value = value.get("properties", {}) if key == "then" else {}
            key = "properties"
        if key == "properties":
            found += [f"{path}/{name}" for name, of in value.items()
                      if isinstance(of, dict) and "$ref" not in of and "description" not in of
                      and of.keys() != {"type"}]
        if key == "oneOf":
            found += [f"{path}/{choice}" for choice in value if "description" not in choice]
        found += undescribed(value, f"{path}/{key}")
    for index, value in enumerate(node) if isinstance(node, list) else []:
        found += undescribed(value, f"{path}/{index}")
    return found


def changed(document, pointer, case):
    """The document with another value, or without one, at the pointer."""
    if pointer == "":
        return case["value"]
    document = copy.deepcopy(document)
    *path, last = pointer.split("/")[1:]
    parent = document
    for step in path:
        parent = parent[int(step)] if isinstance(parent, list) else parent[step]
    if isinstance(parent, list):
        last = int(last)
    if "value" in case:
        parent[last] = case["value"]
    else:
        del parent[last]
    return document


def json_blocks(page):
    blocks = re.findall(r"^```json\n(.*?)^```", page.read_text(), re.S | re.M)
    expect(blocks, f"{page}: no example")
    return [json.loads(block) for block in blocks]


def examples():
    """Every JSON document of the format pages, and the metadata of the library."""
    for name in FORMATS:
        for block in json_blocks(source / "docs" / f"{name}-format.md"):
            yield name, block
        for path in sorted((source / "metadata" / name).glob("*.json")):
            yield name, json.loads(path.read_text())
        yield name, json.loads((source / "tests/data/schema" / f"{name}.json").read_text())


bases = {name: json.loads((source / "tests/data/schema" / f"{name}.json").read_text())
         for name in FORMATS}
cases = json.loads((source / "tests/data/schema/cases.json").read_text())
projects = json.loads((source / "tests/data/schema/project_cases.json").read_text())
for draft in DRAFTS:
    validators = {(name, accepts): schema(name, accepts, draft)
                  for name in FORMATS + ["all"] for accepts in (False, True)}
    for (name, accepts), validator in validators.items():
        found = undescribed(validator.schema, "")
        expect(not found, f"{name}, draft {draft}: no description: {found}")
    count = 0
    for name, document in examples():
        count += 1
        for accepts in (False, True):
            for schema_name in (name, "all"):
                errors = list(validators[schema_name, accepts].iter_errors(document))
                expect(not errors, f"draft {draft}, {schema_name}, example {count}: {errors[:1]}")
    expect(count >= 10, f"{count} examples")
    for case in cases:
        name = case["format"]
        document = changed(bases[name], case["pointer"], case)
        for accepts, expected in ((False, case["strict"]), (True, case["accepts"])):
            for schema_name in (name, "all"):
                expect(validators[schema_name, accepts].is_valid(document) == expected,
                       f"draft {draft}, {schema_name}, accepts={accepts}: not {expected}: {case}")
    # For this language the end of a pattern may have a line feed after it; the library takes none.
    pointer = "/metamodel/component/packages/0/structures/0/fields/0/type/primitive_type"
    document = changed(bases["metamodel"], pointer, {"value": "ID\n"})
    expect(validators["metamodel", True].is_valid(document), "a line feed is found")
    project = schema("project", False, draft)
    for block in json_blocks(source / "docs/sources.md"):
        expect(project.is_valid(block), f"draft {draft}: docs/sources.md")
    for case in projects:
        expect(project.is_valid(case["project"]) == case["valid"], f"draft {draft}: {case}")
    print(f"draft {draft}: {count} examples, {len(cases)} cases")
sys.exit(1 if failures else 0)
