# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The examples of the help texts: everything has one, and each runs on the simulated camera."""

import ast
import os
import subprocess
import sys
import tempfile
import textwrap
import unittest
from pathlib import Path

STUB = Path(os.environ["VISTREL_STUB"])
PROGRAM = os.environ["VISTREL_RUN"]
sys.path.insert(0, str(STUB.parent))
import generate_help  # noqa: E402

SOURCE = STUB.read_text(encoding="utf-8")
HELP = generate_help.read_stub(SOURCE)
ENTRIES = [*HELP.functions, *HELP.methods, *HELP.attributes]
# In the order in which the examples ask.
ANSWERS = ["Yes", "4711", "Capture"]


def first_lines() -> str:
    """What all examples go on from: the last code of the module's text."""
    doc = ast.get_docstring(ast.parse(SOURCE)) or ""
    return textwrap.dedent(doc.partition("All examples go on from these lines:\n")[2])


def example_of(entry: generate_help.Entry) -> str:
    return textwrap.dedent(entry.text.partition("\nExample:\n")[2])


def name_of(entry: generate_help.Entry) -> str:
    return f"{entry.owner}.{entry.name}"


def code_of(entry: generate_help.Entry) -> str:
    return f"{first_lines()}\n{example_of(entry)}\n"


class Examples(unittest.TestCase):
    def test_everything_has_one(self) -> None:
        self.assertGreater(len(ENTRIES), 120)
        for entry in ENTRIES:
            self.assertTrue(example_of(entry).strip(), name_of(entry))

    def test_each_uses_what_it_is_about(self) -> None:
        for entry in ENTRIES:
            words = {"__array_interface__": "asarray", "__bytes__": "bytes"}
            self.assertIn(words.get(entry.name, entry.name), example_of(entry), name_of(entry))

    def test_each_runs(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            scripts = []
            for entry in ENTRIES:
                path = Path(folder, name_of(entry) + ".py")
                path.write_text(f"{code_of(entry)}print('passed', '{name_of(entry)}')\n", "utf-8")
                scripts.append(path.name)
            answers = [word for answer in ANSWERS for word in ("--answer", answer)]
            result = subprocess.run(
                [PROGRAM, "--camera", "sim", *answers, *scripts], cwd=folder, check=False,
                capture_output=True, encoding="utf-8", timeout=500)
        passed = [line.split()[1] for line in result.stdout.splitlines()
                  if line.startswith("passed ")]
        self.assertEqual(passed, [name_of(entry) for entry in ENTRIES], result.stderr)
        self.assertEqual(result.returncode, 0, result.stderr)

    def test_a_broken_one_would_be_found(self) -> None:
        bad = generate_help.Entry("vistrel", "wait", "wait()\n\nExample:\n    vistrel.wate(1)\n")
        script = code_of(bad) + "print('passed')\n"
        result = subprocess.run([PROGRAM, "--camera", "sim", "-"], input=script, check=False,
                                capture_output=True, encoding="utf-8", timeout=120)
        self.assertEqual((result.returncode, result.stdout), (1, ""))


if __name__ == "__main__":
    unittest.main()
