# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Every block of the cookbook is run, or says why it cannot be."""

import importlib.util
import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path
from typing import NamedTuple

ROOT = Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs" / "cookbook.md"
PROGRAM = os.environ["VISTREL_RUN"]
BLOCK = re.compile(r"^(?:<!-- (?P<mark>.*?) -->\n)?```(?P<kind>\w*)\n(?P<code>.*?)^```$",
                   re.MULTILINE | re.DOTALL)


class Block(NamedTuple):
    section: str
    kind: str
    mark: str
    code: str


def blocks() -> "list[Block]":
    found = []
    for text in re.split(r"^## ", PAGE.read_text(encoding="utf-8"), flags=re.MULTILINE):
        section = text.partition("\n")[0]
        found += [Block(section, match["kind"], match["mark"] or "", match["code"])
                  for match in BLOCK.finditer(text)]
    return found


FIRST = blocks()[0].code
# Fixed in the text, since an editor asks for it; here whichever is free.
PORT = "5678"


def run(block: Block) -> "subprocess.CompletedProcess[str]":
    with tempfile.TemporaryDirectory() as folder:
        Path(folder, "examples").symlink_to(ROOT / "examples")
        if block.kind == "python":
            code = block.code.replace(f'"127.0.0.1", {PORT}', '"127.0.0.1", 0')
            Path(folder, "script.py").write_text(f"{FIRST}\n{code}", encoding="utf-8")
            command = [PROGRAM, "--camera", "sim", "script.py"]
        else:
            command = ["bash", "-euo", "pipefail", "-c", block.code]
        environment = {**os.environ, "PATH": f"{Path(PROGRAM).parent}:{os.environ['PATH']}"}
        return subprocess.run(command, cwd=folder, env=environment, check=False,
                              capture_output=True, encoding="utf-8", timeout=300)


class Cookbook(unittest.TestCase):
    def test_every_block_without_a_mark_runs(self) -> None:
        plain = [block for block in blocks() if not block.mark]
        self.assertGreater(len(plain), 14)
        for block in plain:
            with self.subTest(block.section):
                result = run(block)
                self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def test_blocks_that_need_a_package_run_where_it_is_installed(self) -> None:
        for block in blocks():
            package = re.match(r"needs: (\w+)$", block.mark)
            if package and importlib.util.find_spec(package[1]):
                with self.subTest(block.section):
                    result = run(block)
                    self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def test_blocks_that_are_not_run_say_why(self) -> None:
        for block in blocks():
            self.assertRegex(block.mark, r"^(|needs: \w+|not run: .{20,})$", block.section)
            self.assertTrue(block.kind in ("python", "sh") or block.mark, block.section)

    def test_programs_print_what_the_text_says(self) -> None:
        wanted = {"Debugging": "12", "Virtual environments": "42",
                  "From a scheduler": "good: part 4711", "Many stations": "part 4712: good"}
        for block in blocks():
            if block.kind == "sh" and not block.mark:
                self.assertIn(wanted[block.section], run(block).stdout, block.section)

    def test_a_block_that_fails_would_be_found(self) -> None:
        self.assertEqual(run(Block("", "python", "", "vistrel.wate(1)\n")).returncode, 1)
        self.assertNotEqual(run(Block("", "sh", "", "false\ntrue\n")).returncode, 0)

    def test_the_list_at_the_top_names_every_section(self) -> None:
        text = PAGE.read_text(encoding="utf-8")
        sections = re.findall(r"^## (.*)$", text, re.MULTILINE)
        anchors = {section.lower().replace(" ", "-") for section in sections}
        self.assertEqual(set(re.findall(r"\]\(#([\w-]+)\)", text)), anchors)


if __name__ == "__main__":
    unittest.main()
