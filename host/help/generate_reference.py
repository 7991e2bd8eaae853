#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Turn the typed stubs into the pages that Sphinx makes the reference from.

usage: generate_reference.py MODULE.pyi CONSTANTS.pyi FOLDER

The texts are those that help() shows, word for word: generate_help.py makes
both. FOLDER is filled with index.rst and a page for each class.
"""

import ast
import re
import sys
from pathlib import Path
from typing import Callable, Dict, Iterator, List, NamedTuple, Union

from generate_help import HELP_TYPES, Entry, Help, read_stub

SECTIONS = {"Args": "Arguments", "Returns": "Returns", "Raises": "Raises", "Example": "Example"}

Definition = Union[ast.FunctionDef, ast.AnnAssign]


class Constant(NamedTuple):
    """One name of the constants' stub."""

    name: str
    value: Union[str, int]
    text: str


def read_constants(source: str) -> List[Constant]:
    """All constants, in the stub's order."""
    body = ast.parse(source).body
    constants = []
    for node, doc in zip(body, body[1:]):
        if not isinstance(node, ast.AnnAssign) or node.value is None:
            continue
        assert isinstance(node.target, ast.Name)
        assert isinstance(doc, ast.Expr), f"line {node.lineno}: no doc text"
        constants.append(
            Constant(node.target.id, ast.literal_eval(node.value),
                     str(ast.literal_eval(doc.value))))
    return constants


def escaped(text: str) -> str:
    """Text in which nothing is markup, but names of functions are links."""
    plain = re.sub(r"([\\*`|<>])", r"\\\1", text)
    plain = re.sub(r"_(?=\W|$)", r"\\_", plain)
    return re.sub(r"(?<![\w.`])([a-z]\w+)\(\)", r":py:func:`\1()`", plain)


def paragraphs(lines: List[str]) -> Iterator[str]:
    """Prose as it is, indented blocks as literal ones."""
    block: List[str] = []
    for line in [*lines, ""]:
        if line:
            block.append(line)
        elif block:
            yield from blocks_of(block)
            block = []


def blocks_of(block: List[str]) -> Iterator[str]:
    if all(line.startswith("    ") for line in block):
        yield "::\n\n" + "\n".join(block)
    else:
        yield escaped("\n".join(line.strip() for line in block))


def prose(lines: List[str]) -> str:
    return "\n\n".join(paragraphs(merged(lines)))


def merged(lines: List[str]) -> List[str]:
    """The lines with the gaps inside an indented block made part of it."""
    result: List[str] = []
    for index, line in enumerate(lines):
        following = next((other for other in lines[index:] if other), "")
        if not line and result and result[-1].startswith("    ") and following.startswith("    "):
            line = "    "
        result.append(line)
    return result


def items(lines: List[str]) -> List[List[str]]:
    """The items of a section: each begins at its first indentation."""
    result: List[List[str]] = []
    for line in lines:
        if re.match(r" {4}\S", line):
            result.append([line[4:]])
        elif line:
            result[-1].append(line[4:])
    return result


def result(lines: List[str]) -> str:
    """The one item of a section, whose further lines are indented as far as its first."""
    return definition_list([lines[0], *("    " + line for line in lines[1:] if line)])


def definition_list(lines: List[str]) -> str:
    entries = []
    for first, *rest in items(lines):
        term, _, meaning = first.partition(":")
        body = " ".join([meaning.strip(), *(line.strip() for line in rest)]).strip()
        entries.append(f"{escaped(term)}\n    {escaped(body)}")
    return "\n".join(entries)


def code(lines: List[str]) -> str:
    return ".. code-block:: python\n\n" + "\n".join(lines).rstrip()


WRITERS: Dict[str, Callable[[List[str]], str]] = {
    "Args": definition_list,
    "Returns": result,
    "Raises": definition_list,
    "Example": code,
}


def body_of(text: str) -> str:
    """The page's text for a help text without its signature."""
    head: List[str] = []
    parts = [("", head)]
    for line in text.split("\n"):
        if line.rstrip(":") in SECTIONS and line.endswith(":"):
            parts.append((line[:-1], []))
        else:
            parts[-1][1].append(line)
    written = [prose(head)]
    for section, lines in parts[1:]:
        written.append(f".. rubric:: {SECTIONS[section]}\n\n{WRITERS[section](lines)}")
    return "\n\n".join(written)


def signature_of(node: ast.FunctionDef) -> str:
    arguments = ast.unparse(node.args).replace("self, /, ", "").replace("self, ", "")
    arguments = "" if arguments in ("self", "self, /") else arguments
    return f"{node.name}({arguments}) -> {ast.unparse(node.returns) if node.returns else 'None'}"


def directive(entry: Entry, node: Definition, kind: str) -> str:
    """One function, method or attribute."""
    text = entry.text.partition("\n--\n\n")[2]
    if isinstance(node, ast.FunctionDef):
        head = f".. py:{kind}:: {signature_of(node)}\n"
    else:
        annotation = re.sub(r"^Final\[(.*)\]$", r"\1", ast.unparse(node.annotation))
        head = f".. py:attribute:: {entry.name}\n   :type: {annotation}\n"
    return head + "\n" + indented(body_of(text), 3) + "\n"


def indented(text: str, columns: int) -> str:
    return "\n".join(" " * columns + line if line.strip() else "" for line in text.split("\n"))


def heading(text: str, line: str = "=") -> str:
    return f"{text}\n{line * len(text)}\n"


def definitions(body: List[ast.stmt]) -> Dict[str, Definition]:
    found: Dict[str, Definition] = {}
    for node in body:
        if isinstance(node, ast.FunctionDef):
            found[node.name] = node
        elif isinstance(node, ast.AnnAssign):
            found[ast.unparse(node.target)] = node
    return found


def doc_of(node: Union[ast.Module, ast.ClassDef]) -> str:
    return prose((ast.get_docstring(node) or "").split("\n"))


def index_page(tree: ast.Module, classes: List[ast.ClassDef]) -> str:
    pages = ["functions", *(node.name.lower() for node in classes), "constants"]
    toc = "\n".join(f"   {page}" for page in pages)
    return (f"{heading('Reference of the module vistrel')}\n{doc_of(tree)}\n\n"
            f".. toctree::\n   :maxdepth: 1\n\n{toc}\n\n* :ref:`genindex`\n")


def functions_page(stub: Help, tree: ast.Module) -> str:
    nodes = definitions(tree.body)
    parts = [directive(entry, nodes[entry.name], "function") for entry in stub.functions]
    return "\n".join([heading("Functions"), ".. py:currentmodule:: vistrel\n", *parts])


def class_page(stub: Help, node: ast.ClassDef) -> str:
    nodes = definitions(node.body)
    entries = [entry for entry in (*stub.methods, *stub.attributes)
               if entry.owner == HELP_TYPES[node.name]]
    parts = [indented(directive(entry, nodes[entry.name], "method"), 3) for entry in entries]
    start = f".. py:class:: {node.name}()\n\n{indented(doc_of(node), 3)}\n"
    return "\n".join([heading(node.name), ".. py:currentmodule:: vistrel\n", start, *parts])


def constants_page(source: str) -> str:
    """Parameters by their constants, then the values of each enumeration."""
    constants = read_constants(source)
    parameters = [constant for constant in constants if isinstance(constant.value, str)]
    parts = [heading("Constants and camera parameters"), doc_of(ast.parse(source)) + "\n"]
    for parameter in parameters:
        values = [other for other in constants if isinstance(other.value, int)
                  and other.name.startswith(parameter.name + "_")]
        parts += [constant_directive(parameter), *(indented(constant_directive(value), 3)
                                                   for value in values)]
    return "\n".join(parts)


def constant_directive(constant: Constant) -> str:
    return (f".. py:data:: {constant.name}\n   :value: {constant.value!r}\n\n"
            f"{indented(prose(constant.text.split(chr(10))), 3)}\n")


def write_pages(stub: str, constants: str, folder: Path) -> None:
    tree = ast.parse(stub)
    texts = read_stub(stub)
    classes = [node for node in tree.body if isinstance(node, ast.ClassDef)]
    pages = {"index": index_page(tree, classes), "functions": functions_page(texts, tree),
             "constants": constants_page(constants)}
    pages.update((node.name.lower(), class_page(texts, node)) for node in classes)
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in pages.items():
        (folder / f"{name}.rst").write_text(text, encoding="utf-8")


def main(arguments: List[str]) -> int:
    if len(arguments) != 3:
        print("usage: generate_reference.py MODULE.pyi CONSTANTS.pyi FOLDER", file=sys.stderr)
        return 2
    stub, constants = (Path(name).read_text(encoding="utf-8") for name in arguments[:2])
    write_pages(stub, constants, Path(arguments[2]))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
