# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The tutorial as its reader does it: each step's command, what it prints, the picture it makes."""

import os
import re
import shlex
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs" / "tutorial" / "README.md"
PROGRAM = os.environ["VISTREL_RUN"]


class Step:
    """A section of the page."""

    def __init__(self, text: str) -> None:
        blocks = re.findall(r"^```(\w*)\n(.*?)\n```$", text, re.MULTILINE | re.DOTALL)
        (self.command,), (self.code,), (self.output,) = (
            [body for kind, body in blocks if kind == wanted] for wanted in ("sh", "python", ""))
        self.picture = re.findall(r"\]\((pictures/\w+\.png)\)", text)
        self.script = ROOT / self.command.split()[-1]


def steps() -> "list[Step]":
    sections = re.split(r"^## \d+\. .*\n", PAGE.read_text(encoding="utf-8"), flags=re.MULTILINE)
    last = sections[-1].partition("\n## ")[0]
    return [Step(text) for text in [*sections[1:-1], last]]


def png_size(path: Path) -> "tuple[int, ...]":
    return struct.unpack(">II", path.read_bytes()[16:24])


def without_numbers(text: str) -> str:
    """A moving pattern is measured: its numbers depend on the frame."""
    return re.sub(r"\d+(\.\d+)?", "N", text.strip())


class Tutorial(unittest.TestCase):
    def test_has_ten_steps_in_order_with_every_script(self) -> None:
        scripts = [step.script for step in steps()]
        self.assertEqual(scripts, sorted((ROOT / "examples" / "tutorial").glob("*.py")))
        self.assertEqual(len(scripts), 10)

    def test_shows_the_scripts_as_they_are(self) -> None:
        for step in steps():
            code = step.script.read_text(encoding="utf-8").split("\n", 2)[2].rstrip()
            self.assertEqual(step.code, code, step.script.name)

    def test_each_step_prints_and_makes_what_the_page_shows(self) -> None:
        for step in steps():
            with self.subTest(step.script.name), tempfile.TemporaryDirectory() as folder:
                arguments = shlex.split(step.command)[1:-1]
                result = subprocess.run(
                    [PROGRAM, *arguments, "--cwd", folder, step.script], check=False,
                    capture_output=True, encoding="utf-8", timeout=120)
                self.assertEqual(result.returncode, 0, result.stderr)
                self.assertEqual(without_numbers(result.stdout), without_numbers(step.output))
                self.check_pictures(step, Path(folder))

    def check_pictures(self, step: Step, folder: Path) -> None:
        made = {path.name for path in folder.glob("*.png")}
        self.assertEqual(made, {Path(name).name for name in step.picture})
        for name in step.picture:
            shown = PAGE.parent / name
            self.assertEqual(png_size(folder / shown.name), png_size(shown))
            size = (folder / shown.name).stat().st_size
            self.assertGreater(size, 1000, "nothing to see")

    def test_the_inspection_of_a_rejected_part_fails(self) -> None:
        script = ROOT / "examples" / "tutorial" / "10_inspect.py"
        with tempfile.TemporaryDirectory() as folder:
            result = subprocess.run(
                [PROGRAM, "--camera", "sim", "--answer", "4711", "--answer", "Reject", "--cwd",
                 folder, script], check=False, capture_output=True, encoding="utf-8", timeout=120)
            self.assertEqual(result.returncode, 1)
            self.assertIn("rejected", result.stdout)
            self.assertGreater(Path(folder, "10_inspect.avi").stat().st_size, 10_000)

    def test_every_link_of_the_page_leads_somewhere(self) -> None:
        for target in re.findall(r"\]\(([^)#]+)", PAGE.read_text(encoding="utf-8")):
            self.assertTrue((PAGE.parent / target).exists(), target)


if __name__ == "__main__":
    unittest.main()
