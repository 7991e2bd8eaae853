# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the pages name is there: files and folders, links, and no folder of sources is forgotten."""

import functools
import re
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PLUGIN = ROOT / "plugins" / "python_script"
ARCHITECTURE = ROOT / "docs" / "architecture.md"
RELIABILITY = ROOT / "docs" / "reliability.md"
PAGES = [ARCHITECTURE, ROOT / "README.md", ROOT / "CONTRIBUTING.md", ROOT / "examples" / "README.md",
         RELIABILITY, ROOT / "docs" / "tutorial" / "README.md",
         *(ROOT / "docs" / name for name in ("benchmarks.md", "chains.md", "cookbook.md", "host.md",
                                             "viewer.md"))]
NAMED = re.compile(r"`((?:[\w.-]+/)*[\w-]+\.(?:cpp|h|py|pyi|md|sh|cmake|txt))`")
FOLDER = re.compile(r"`((?:host|host_api|plugins|tests|docs|examples|benchmarks|scripts|Func\w+)"
                    r"(?:/[\w-]+)*)/?`")
# Made by the build, or by the reader.
ELSEWHERE = {"my_script.py", "part.py"}


def tracked() -> "list[str]":
    listed = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True,
                            text=True).stdout
    return listed.splitlines()


def places(name: str) -> "list[Path]":
    """Where a name may mean: from the top, within the part that is spoken of, beside a page."""
    return [ROOT / name, PLUGIN / name, PLUGIN / "FuncGraph" / name, ROOT / "host" / "viewer" / name,
            ROOT / "docs" / name, ROOT / "examples" / name]


@functools.lru_cache(maxsize=None)
def tests(*endings: str) -> str:
    """The texts of all files of the tests with these endings."""
    return "".join((ROOT / path).read_text(encoding="utf-8") for path in tracked()
                   if path.startswith("tests/") and path.endswith(endings))


def is_test(name: str, is_whole: bool) -> bool:
    """Whether a group of tests, or a case or class of one, goes by a name or begins so."""
    end = r"\b" if is_whole else ""
    group, *cases = name.split(".")
    groups, code = tests("CMakeLists.txt"), tests(".cpp", ".py")
    short = re.sub(r"^host_(app|viewer)_", "", group)
    is_group = re.search(rf"\b{short}{'' if cases else end}", groups) or f"def {group}" in code
    is_case = re.search(rf"\b(TEST(_F)?\((\w+, )?|class |\w+, ){', '.join(cases)}{end}", code)
    return bool(is_group and (not cases or is_case))


def section(title: str) -> str:
    text = ARCHITECTURE.read_text(encoding="utf-8")
    return text.partition(f"\n## {title}\n")[2].partition("\n## ")[0]


class Pages(unittest.TestCase):
    def test_every_file_that_a_page_names_is_there(self) -> None:
        known = tracked()
        for page in PAGES:
            for name in NAMED.findall(page.read_text(encoding="utf-8")):
                found = (any(place.is_file() for place in places(name)) or name in ELSEWHERE
                         or "/" not in name and any(path.endswith("/" + name) for path in known))
                self.assertTrue(found, f"{page.name}: {name}")

    def test_every_folder_that_a_page_names_is_there(self) -> None:
        for page in PAGES:
            for name in FOLDER.findall(page.read_text(encoding="utf-8")):
                self.assertTrue(any(place.is_dir() for place in places(name)),
                                f"{page.name}: {name}")

    def test_every_link_between_pages_leads_somewhere(self) -> None:
        for page in PAGES:
            for target in re.findall(r"\]\(([^)#:]+)(?:#[\w-]+)?\)", page.read_text(encoding="utf-8")):
                self.assertTrue((page.parent / target).exists(), f"{page.name}: {target}")


class Reliability(unittest.TestCase):
    def test_every_test_that_is_to_show_a_promise_is_there(self) -> None:
        promises = RELIABILITY.read_text(encoding="utf-8").partition("| --- | --- |\n")[2].partition("\n\n")[0]
        shown_by = [re.split(r"(?<!\\)\|", line)[2] for line in promises.splitlines()]
        names = re.findall(r"`(\w+(?:\.\w+)*)([.*…]*)`", "".join(shown_by))
        self.assertGreater(len(names), 30)
        for name, ending in names:
            self.assertTrue(is_test(name, is_whole=not ending), name)

    def test_a_test_that_is_gone_would_be_found(self) -> None:
        for name in ("host_app_interrupt", "run.FullDiskette", "hostile.EveryThing", "contract.Borrows"):
            self.assertFalse(is_test(name, is_whole=True), name)


class Architecture(unittest.TestCase):
    def test_names_every_folder_of_the_product(self) -> None:
        text = ARCHITECTURE.read_text(encoding="utf-8")
        sources = [Path(name) for name in tracked() if name.endswith(".cpp")]
        folders = {"/".join(path.parts[:2]) for path in sources if path.parts[0] == "host"}
        folders |= {path.parts[2] for path in sources if path.parts[0] == "plugins"
                    and len(path.parts) > 3}
        self.assertGreater(len(folders), 10)
        for folder in folders:
            self.assertIn(f"`{folder}`", text)

    def test_the_ways_name_files_at_each_step(self) -> None:
        for title in ("The way of a run", "The way of a frame", "The way of a chart"):
            steps = re.split(r"^\d+\. ", section(title), flags=re.MULTILINE)[1:]
            self.assertGreater(len(steps), 3)
            self.assertGreater(sum(bool(NAMED.search(step)) for step in steps), len(steps) - 2, title)

    def test_says_where_to_add_what_people_add(self) -> None:
        table = section("Where to add something")
        for what in ("a module function", "a processing element", "a camera back end",
                     "a camera parameter", "a file format", "a host service"):
            row = re.search(rf"^\| {what} \| (.*) \|$", table, re.MULTILINE)
            self.assertTrue(row and "`" in row[1], what)

    def test_a_file_that_is_gone_would_be_found(self) -> None:
        name = NAMED.findall("`host/app/Gone.cpp`")[0]
        self.assertFalse(any(place.is_file() for place in places(name)))


if __name__ == "__main__":
    unittest.main()
