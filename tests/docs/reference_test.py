# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The reference says word for word what help() and the stub say, of every name and of no other."""

import ast
import json
import os
import re
import subprocess
import sys
import unittest
from html.parser import HTMLParser
from pathlib import Path

STUB = Path(os.environ["VISTREL_STUB"])
FOLDER = Path(os.environ["VISTREL_REFERENCE"])
PROGRAM = os.environ["VISTREL_RUN"]
sys.path.insert(0, str(STUB.parent))
import generate_help  # noqa: E402
import generate_reference  # noqa: E402

OWNERS = {"vistrel": "vistrel", **{host: f"vistrel.{name}"
                                   for name, host in generate_help.HELP_TYPES.items()}}
LIVE_TEXTS = """
import inspect, json, vistrel
owners = [vistrel, vistrel.Camera, vistrel.Graph, vistrel.Image]
texts = {}
for owner in owners:
    prefix = "vistrel" if owner is vistrel else "vistrel." + owner.__name__
    for name, member in vars(owner).items():
        if inspect.isbuiltin(member) or inspect.ismethoddescriptor(member) and member.__doc__:
            texts[prefix + "." + name] = member.__doc__
print(json.dumps(texts))
"""
LIVE_CONSTANTS = """
import json, vistrel
camera = vistrel.Camera()
camera.open_device()
names = {name: value for name, value in globals().items() if name == name.upper()
         and not name.startswith("_")}
facts = {}
for name in names.values():
    if isinstance(name, str):
        try:
            facts[name] = [type(camera.get_param(name)).__name__, camera.get_param(name + ":unit")]
        except Exception:
            pass  # this camera lacks it
print(json.dumps([names, facts]))
"""


class Page(HTMLParser):
    """Collects, by the id of each term of the pages' lists, the text of its definition."""

    def __init__(self) -> None:
        super().__init__()
        self.texts: "dict[str, str]" = {}
        self.terms: "dict[str, str]" = {}
        self.open: "list[tuple[str, str | None]]" = []  # tags with the term that they belong to
        self.term: "str | None" = None

    def handle_starttag(self, tag: str, attrs: "list[tuple[str, str | None]]") -> None:
        name = dict(attrs).get("id")
        if tag == "dt" and name and "." in name or tag == "dt" and name and name.isupper():
            self.term = name
            self.texts[name] = self.terms[name] = ""
        if tag in ("dt", "dd"):
            self.open.append((tag, self.term))
            self.term = None if tag == "dd" else self.term

    def handle_endtag(self, tag: str) -> None:
        if tag in ("dt", "dd"):
            self.handle_data(" ")  # the next one begins with a word of its own
            self.open.pop()

    def handle_data(self, data: str) -> None:
        described = [(tag, term) for tag, term in self.open if term]
        if described:
            tag, term = described[-1]
            assert term
            (self.terms if tag == "dt" else self.texts)[term] += data


def read_pages() -> Page:
    page = Page()
    for path in sorted(FOLDER.glob("*.html")):
        if path.stem not in ("genindex", "search"):
            page.feed(path.read_text(encoding="utf-8"))
    return page


def words(text: str) -> "list[str]":
    """What is read, whatever markup makes of its marks; a sign belongs to its number."""
    text = re.sub(r"^Args:$", "Arguments:", text, flags=re.MULTILINE)
    return re.findall(r"-?\d[\w.]*|\w+|[\"'+*/%=<>]", text)


def stub_texts() -> "dict[str, str]":
    stub = generate_help.read_stub(STUB.read_text(encoding="utf-8"))
    entries = [*stub.functions, *stub.methods, *stub.attributes]
    return {f"{OWNERS[entry.owner]}.{entry.name}": entry.text.partition("\n--\n\n")[2]
            for entry in entries}


def run(script: str) -> "object":
    result = subprocess.run([PROGRAM, "--camera", "sim", "-"], input=script, check=True,
                            capture_output=True, encoding="utf-8", timeout=120)
    return json.loads(result.stdout)


class Reference(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.page = read_pages()
        cls.stub = stub_texts()

    def test_describes_every_name_of_the_stub_and_no_other(self) -> None:
        described = {name for name in self.page.texts if name.startswith("vistrel.")}
        classes = {f"vistrel.{name}" for name in generate_help.HELP_TYPES}
        self.assertEqual(described, set(self.stub) | classes)

    def test_says_what_the_stub_says(self) -> None:
        for name, text in self.stub.items():
            self.assertEqual(words(self.page.texts[name]), words(text), name)

    def test_says_what_help_says_in_a_script(self) -> None:
        live = run(LIVE_TEXTS)
        assert isinstance(live, dict)
        self.assertGreater(len(live), 80)
        for name, text in live.items():
            if name in self.stub:
                self.assertEqual(words(self.page.texts[name]), words(text), name)
        callables = {name for name in self.stub if not self.is_attribute(name)}
        self.assertLessEqual(callables, set(live))

    def is_attribute(self, name: str) -> bool:
        return "(" not in self.page.terms[name]

    def test_shows_arguments_with_types_and_defaults(self) -> None:
        term = words(self.page.terms["vistrel.new_view_with_image"])
        self.assertEqual(term, words("new_view_with_image(image: Image, "
                                     "title: str = 'Image from script', /) → int"))
        self.assertEqual(words(self.page.terms["vistrel.Image.gain_db"]), ["gain_db", "float"])

    def test_has_a_search_box_that_finds_functions(self) -> None:
        self.assertIn('id="searchbox"', (FOLDER / "functions.html").read_text(encoding="utf-8"))
        self.assertIn("wait_for_next_frame",
                      (FOLDER / "searchindex.js").read_text(encoding="utf-8"))

    def test_a_word_that_differs_would_be_found(self) -> None:
        self.assertNotEqual(words("timeout: in seconds."), words("timeout: in minutes."))
        self.assertNotEqual(words("-1 is the active view"), words("1 is the active view"))


class Constants(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        source = (STUB.parent / "constants.pyi").read_text(encoding="utf-8")
        cls.constants = generate_reference.read_constants(source)
        result = run(LIVE_CONSTANTS)
        assert isinstance(result, list)
        cls.live, cls.facts = result

    def test_are_those_of_a_run_with_their_values(self) -> None:
        self.assertEqual({constant.name: constant.value for constant in self.constants}, self.live)

    def test_the_reference_describes_each_with_value_and_text(self) -> None:
        page = read_pages()
        for constant in self.constants:
            self.assertEqual(words(page.texts[constant.name])[:len(words(constant.text))],
                             words(constant.text), constant.name)
            self.assertIn(str(ast.literal_eval(repr(constant.value))), page.terms[constant.name])

    def test_type_and_unit_are_those_of_the_camera(self) -> None:
        self.assertGreater(len(self.facts), 8)
        for constant in self.constants:
            if constant.value in self.facts:
                kind, unit = self.facts[constant.value]
                told = re.search(r"Type: (\w+)\. Unit: (\w+)\.", constant.text)
                assert told, constant.name
                self.assertEqual(told[1], kind, constant.name)
                # This camera's gain has steps of its own.
                self.assertIn(told[2], (unit or "none", "dB"), constant.name)


if __name__ == "__main__":
    unittest.main()
