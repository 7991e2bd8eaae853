# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The guide for makers of a host against the headers and the plugin's file."""

import os
import re
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
GUIDE = (ROOT / "docs" / "host.md").read_text(encoding="utf-8")
HOST_NAMES = re.compile(r"\b(?:Cx|Ix|Sx)\w+|\bkvCore_\w+")


def table_rows() -> dict[str, list[str]]:
    """What the guide's table of symbols names, by class; the functions under "functions"."""
    table = GUIDE.partition("| class | what the plugin links against |\n")[2].partition("\n\n")[0]
    rows: dict[str, list[str]] = {}
    for line in table.splitlines()[1:]:
        owners, _, words = line.strip("|").partition("|")
        for owner in re.findall(r"`(\w+)`", owners) or [owners.strip()]:
            rows.setdefault(owner, []).extend(re.findall(r"`(\w+)`", words))
    return rows


def needed_symbols() -> list[str]:
    """The host's symbols that the plugin's file leaves open, without arguments."""
    names = subprocess.run(["nm", "-DuC", os.environ["VISTREL_PLUGIN"]], check=True,
                           capture_output=True, text=True).stdout
    symbols = [line.split(" U ", 1)[1].split("(")[0] for line in names.splitlines() if " U " in line]
    return sorted({symbol for symbol in symbols if HOST_NAMES.match(symbol)})


class HostGuide(unittest.TestCase):
    def test_names_every_symbol_that_the_plugin_needs(self) -> None:
        rows = table_rows()
        self.assertGreater(len(needed_symbols()), 40)
        for symbol in needed_symbols():
            owner, _, name = symbol.rpartition("::")
            if owner != name:  # constructors are told in words
                self.assertIn(name, rows.get(owner or "functions", []), symbol)

    def test_names_no_symbol_that_the_plugin_does_not_need(self) -> None:
        needed = {symbol.rpartition("::")[2] for symbol in needed_symbols()}
        for owner, names in table_rows().items():
            self.assertLessEqual(set(names), needed, owner)

    def test_every_class_and_file_that_it_names_is_there(self) -> None:
        headers = "".join(path.read_text() for path in (ROOT / "host_api").glob("*.h"))
        for name in set(HOST_NAMES.findall(GUIDE)):
            self.assertIn(name, headers)
        for path in re.findall(r"\]\(([^)]+)\)", GUIDE):
            self.assertTrue((ROOT / "docs" / path).exists(), path)

    def test_tells_the_length_of_the_smallest_host(self) -> None:
        lines = (ROOT / "examples" / "minimal_host" / "main.cpp").read_text().count("\n")
        self.assertIn(f"complete host in {lines} lines", GUIDE)


if __name__ == "__main__":
    unittest.main()
