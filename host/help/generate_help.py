#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Turn the typed stub of the scripts' module into the C++ table of its help.

usage: generate_help.py STUB TABLE.cpp

A help text starts with a line that inspect.signature() understands. That line
has no room for types, so they are put into the text's "Args:" and "Returns:".
Attributes have a table of their own: types keep no text for them, editors do.
"""

import ast
import inspect
import re
import sys
from pathlib import Path
from typing import Dict, Iterator, List, NamedTuple

MODULE = "vistrel"
# What the host calls the types whose methods it explains.
HELP_TYPES = {"Camera": "cameraObj", "Graph": "graphObj", "Image": "imgObj"}

MAX_COLUMNS = 80
MAX_CHARACTERS = 4000


class StubError(Exception):
    """A rule that the stub breaks, and where."""

    def __init__(self, line: int, message: str) -> None:
        super().__init__(message)
        self.line = line


class Entry(NamedTuple):
    """The help text of one function, method or attribute."""

    owner: str
    name: str
    text: str


class Help(NamedTuple):
    """All help texts, in the order of the stub."""

    functions: List[Entry]
    methods: List[Entry]
    attributes: List[Entry]


class Doc(NamedTuple):
    """A doc text without its indentation, and the line on which it starts."""

    line: int
    text: str


def read_stub(source: str) -> Help:
    """Read all entries of a stub; StubError says which rule one breaks."""
    check_columns(source.split("\n"), 1)
    tree = parse(source)
    stub = Help([], [], [])
    for node in tree.body:
        if isinstance(node, ast.FunctionDef):
            entry = read_function(source, node, MODULE, "$module")
            add_entry(stub.functions, entry, node.lineno)
        elif isinstance(node, ast.ClassDef):
            read_class(source, node, stub)
    return stub


def parse(source: str) -> ast.Module:
    try:
        return ast.parse(source)
    except SyntaxError as error:
        raise StubError(error.lineno or 1, error.msg) from error


def read_class(source: str, node: ast.ClassDef, stub: Help) -> None:
    if node.name not in HELP_TYPES:
        raise StubError(node.lineno, f"{node.name}: the class has no host name in HELP_TYPES")
    doc_of(node.body, 0, node.name, node.lineno)
    for index, member in enumerate(node.body):
        if isinstance(member, ast.FunctionDef):
            entry = read_function(source, member, HELP_TYPES[node.name], "$self")
            add_entry(stub.methods, entry, member.lineno)
        elif isinstance(member, ast.AnnAssign):
            entry = read_attribute(source, node, index)
            add_entry(stub.attributes, entry, member.lineno)
        elif isinstance(member, ast.Assign):
            raise StubError(member.lineno, "an attribute has no annotation")


def read_attribute(source: str, node: ast.ClassDef, index: int) -> Entry:
    """The text of the attribute that a member of a class annotates."""
    member = node.body[index]
    assert isinstance(member, ast.AnnAssign)
    name = ast.get_source_segment(source, member.target) or ""
    doc = doc_of(node.body, index + 1, name, member.lineno)
    annotation = ast.get_source_segment(source, member.annotation) or ""
    kind = re.sub(r"^Final\[(.*)\]$", r"\1", annotation)
    return Entry(HELP_TYPES[node.name], name, f"{name}: {kind}\n--\n\n{doc.text}")


def add_entry(entries: List[Entry], entry: Entry, line: int) -> None:
    if any(entry[:2] == other[:2] for other in entries):
        raise StubError(line, f"{entry.name}: defined twice")
    entries.append(entry)


def read_function(source: str, node: ast.FunctionDef, owner: str, bound: str) -> Entry:
    """Check one function and make its help text."""
    doc = doc_of(node.body, 0, node.name, node.lineno)
    parameters = parameters_of(node, bound == "$self")
    types = {name.arg: annotation_of(source, name, node) for name in parameters}
    result = result_of(source, node)
    text = typed_doc(doc, node.name, types, result)
    check_columns(text.split("\n"), doc.line)
    signature = signature_of(source, node, bound, parameters)
    text = f"{signature}\n--\n\n{text}"
    if len(text) > MAX_CHARACTERS:
        message = f"{node.name}: the text has {len(text)} characters, more than {MAX_CHARACTERS}"
        raise StubError(doc.line, message)
    return Entry(owner, node.name, text)


def doc_of(body: List[ast.stmt], index: int, name: str, line: int) -> Doc:
    """The doc text that stands as a literal of its own at a place of a body."""
    statement = body[index] if index < len(body) else None
    literal = statement.value if isinstance(statement, ast.Expr) else None
    if not isinstance(literal, ast.Constant) or not isinstance(literal.value, str):
        raise StubError(line, f"{name}: no doc text")
    doc = Doc(literal.lineno, inspect.cleandoc(literal.value))
    check_writing(doc, name)
    return doc


def parameters_of(node: ast.FunctionDef, is_method: bool) -> List[ast.arg]:
    """The parameters after self, all of which must be positional-only."""
    arguments = node.args
    positional = list(arguments.posonlyargs)
    if is_method and not positional:
        positional, others = arguments.args[:1], arguments.args[1:]
    else:
        others = arguments.args
    if others or arguments.kwonlyargs or arguments.vararg or arguments.kwarg:
        raise StubError(node.lineno, f"{node.name}: a parameter is not positional-only")
    if not is_method:
        return positional
    if not positional or positional[0].arg != "self":
        raise StubError(node.lineno, f"{node.name}: the first parameter is not self")
    return positional[1:]


def annotation_of(source: str, parameter: ast.arg, node: ast.FunctionDef) -> str:
    if parameter.annotation is None:
        message = f"{node.name}: the parameter {parameter.arg} has no annotation"
        raise StubError(parameter.lineno, message)
    return ast.get_source_segment(source, parameter.annotation) or ""


def result_of(source: str, node: ast.FunctionDef) -> str:
    if node.returns is None:
        raise StubError(node.lineno, f"{node.name}: the result has no annotation")
    return ast.get_source_segment(source, node.returns) or ""


def signature_of(
    source: str, node: ast.FunctionDef, bound: str, parameters: List[ast.arg]
) -> str:
    """The form of a signature that Python takes from built-in functions."""
    words = [bound]
    first_default = len(parameters) - len(node.args.defaults)
    for index, parameter in enumerate(parameters):
        word = parameter.arg
        if index >= first_default:
            word += "=" + default_of(source, node.args.defaults[index - first_default], node)
        words.append(word)
    return f"{node.name}({', '.join(words + ['/'])})"


def default_of(source: str, default: ast.expr, node: ast.FunctionDef) -> str:
    try:
        ast.literal_eval(default)
    except ValueError as error:
        raise StubError(default.lineno, f"{node.name}: a default is no literal") from error
    return ast.get_source_segment(source, default) or ""


def typed_doc(doc: Doc, name: str, types: Dict[str, str], result: str) -> str:
    """Put the types of parameters and result into the text's two lists."""
    lines = doc.text.split("\n")
    found = {section: list(items_of(lines, section)) for section in ("Args", "Returns")}
    listed = [lines[index].split(":")[0].strip() for index in found["Args"]]
    if listed != list(types):
        message = f"{name}: Args lists ({', '.join(listed)}) for ({', '.join(types)})"
        raise StubError(doc.line, message)
    if bool(found["Returns"]) != (result != "None"):
        raise StubError(doc.line, f"{name}: Returns does not go with the result {result}")
    for index, parameter in zip(found["Args"], listed):
        lines[index] = lines[index].replace(":", f" ({types[parameter]}):", 1)
    for index in found["Returns"][:1]:
        lines[index] = f"    {result}: {lines[index].strip()}"
    return "\n".join(lines)


def items_of(lines: List[str], section: str) -> Iterator[int]:
    """Numbers of the lines that start an item of a section."""
    inside = False
    for index, line in enumerate(lines):
        if re.match(r"\S", line):
            inside = line == section + ":"
        elif inside and re.match(r" {4}\S", line):
            yield index


def check_writing(doc: Doc, name: str) -> None:
    lines = doc.text.split("\n")
    if not lines[0].endswith("."):
        raise StubError(doc.line, f"{name}: the first line is no sentence")
    for number, line in enumerate(lines, doc.line):
        if line.count('"') % 2:
            raise StubError(number, f"{name}: a quotation runs over the end of a line")


def check_columns(lines: List[str], first_line: int) -> None:
    for number, line in enumerate(lines, first_line):
        if len(line) > MAX_COLUMNS:
            message = f"a line of {len(line)} columns, types included; {MAX_COLUMNS} are allowed"
            raise StubError(number, message)


def make_table(stub: Help) -> str:
    """The C++ source of the table."""
    return f"""\
// Made from the module's stub by generate_help.py: change the stub instead.
#include "help/HelpTable.h"

namespace vistrel {{
namespace {{

const HelpEntry functions[] = {{
{cpp_entries(stub.functions)}}};

const HelpEntry methods[] = {{
{cpp_entries(stub.methods)}}};

const HelpEntry attributes[] = {{
{cpp_entries(stub.attributes)}}};

}} // namespace

std::span<const HelpEntry> functionHelpTable() {{ return functions; }}

std::span<const HelpEntry> methodHelpTable() {{ return methods; }}

std::span<const HelpEntry> attributeHelpTable() {{ return attributes; }}

}} // namespace vistrel
"""


def cpp_entries(entries: List[Entry]) -> str:
    return "".join(
        f"    {{{cpp_literal(owner)}, {cpp_literal(name)},\n{cpp_text(text)}}},\n"
        for owner, name, text in entries
    )


def cpp_text(text: str) -> str:
    """A text as literals that the compiler joins, one for each line."""
    lines = text.split("\n")
    ended = [line + "\n" for line in lines[:-1]] + lines[-1:]
    return "\n".join("     " + cpp_literal(line) for line in ended)


def cpp_literal(text: str) -> str:
    escaped = text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n")
    return f'"{escaped}"'


def main(arguments: List[str]) -> int:
    if len(arguments) != 2:
        print("usage: generate_help.py STUB TABLE.cpp", file=sys.stderr)
        return 2
    stub_path, table_path = map(Path, arguments)
    try:
        stub = read_stub(stub_path.read_text(encoding="utf-8"))
    except StubError as error:
        print(f"{stub_path}:{error.line}: error: {error}", file=sys.stderr)
        return 1
    table_path.write_text(make_table(stub), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
