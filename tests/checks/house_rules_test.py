# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Rules of the source tree: who may include whom, who may touch Python's reference counts, what
# every file begins with, how long files are.

import re
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCE_ENDINGS = {".h", ".cpp", ".py", ".pyi", ".sh", ".cmake"}

# Floors from the ground; a folder may include its own and lower ones.
HOST_FLOORS = ["host/core", "host/cameras", "host/app", "host/run"]
PLUGIN_FLOORS = [["FuncImage", "FuncCamera", "FuncGraph"], ["FuncApp"]]


def tracked_files() -> list[Path]:
    listed = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True,
                            text=True).stdout.split("\n")
    return [Path(name) for name in listed if name and (ROOT / name).is_file()]


def sources_below(folder: str) -> list[Path]:
    return [path for path in tracked_files()
            if path.suffix in {".h", ".cpp"} and path.is_relative_to(folder)]


def text_of(path: Path) -> str:
    return (ROOT / path).read_text(encoding="utf-8")


def includes_of(path: Path) -> list[str]:
    return re.findall(r'^\s*#\s*include\s*["<]([^">]+)[">]', text_of(path), re.MULTILINE)


class Floors(unittest.TestCase):
    def test_host_api_includes_qt_core_and_itself_alone(self) -> None:
        own = {path.name for path in sources_below("host_api")}
        self.assertTrue(own)
        for path in sources_below("host_api"):
            for name in includes_of(path):
                allowed = name in own or name.startswith("QtCore/") or "/" not in name
                self.assertTrue(allowed and not name.startswith("QtW"), f"{path}: {name}")

    def test_host_includes_no_upper_floor(self) -> None:
        for number, floor in enumerate(HOST_FLOORS):
            upper = tuple(name.removeprefix("host/") + "/" for name in HOST_FLOORS[number + 1:])
            for path in sources_below(floor):
                for name in includes_of(path):
                    self.assertFalse(upper and name.startswith(upper), f"{path}: {name}")

    def test_host_and_plugin_do_not_know_each_other(self) -> None:
        plugin_headers = {path.name for path in sources_below("plugins") if path.suffix == ".h"}
        for path in sources_below("host"):
            for name in includes_of(path):
                self.assertFalse(name.startswith("Func") or "plugins" in name, f"{path}: {name}")
                self.assertNotIn(name, plugin_headers - {"Logging.h"}, path)
        folders = tuple(name.removeprefix("host/") + "/" for name in [*HOST_FLOORS, "host/help"])
        for path in sources_below("plugins"):
            for name in includes_of(path):
                self.assertFalse(name.startswith(folders), f"{path}: {name}")

    def test_plugin_types_do_not_include_the_module(self) -> None:
        root = Path("plugins/python_script")
        for folder in PLUGIN_FLOORS[0]:
            for path in sources_below(str(root / folder)):
                for name in includes_of(path):
                    self.assertFalse(name.startswith("FuncApp/"), f"{path}: {name}")

    def test_one_header_includes_python(self) -> None:
        including = [str(path) for path in sources_below(".") if "Python.h" in includes_of(path)]
        self.assertEqual(including, ["plugins/python_script/PythonApi.h"])


class Habits(unittest.TestCase):
    def test_reference_counts_are_touched_by_their_owner_alone(self) -> None:
        touching = [str(path) for path in sources_below("plugins")
                    if re.search(r"\bPy_X?(DECREF|INCREF|CLEAR)\b|\bPy_X?NewRef\b", text_of(path))]
        self.assertEqual(touching, ["plugins/python_script/PyRef.h"])

    def test_no_goto(self) -> None:
        for path in sources_below("."):
            self.assertIsNone(re.search(r"\bgoto\b\s+\w+;", text_of(path)), path)

    def test_every_file_names_its_licence(self) -> None:
        for path in tracked_files():
            if path.suffix in SOURCE_ENDINGS or path.name == "CMakeLists.txt":
                head = text_of(path)[:300]
                self.assertIn("SPDX-License-Identifier: GPL-3.0-or-later", head, path)
                self.assertIn("SPDX-FileCopyrightText:", head, path)

    def test_no_file_is_too_long(self) -> None:
        for path in tracked_files():
            if path.suffix in SOURCE_ENDINGS - {".pyi"}:
                self.assertLessEqual(len(text_of(path).splitlines()), 700, path)

    def test_error_texts_stand_once(self) -> None:
        texts: dict[str, Path] = {}
        for path in sources_below("plugins"):
            for text in re.findall(r'constexpr char \w+\[\]\s*=\s*"([^"]+)"', text_of(path)):
                self.assertNotIn(text, texts, f"{path} and {texts.get(text)}")
                texts[text] = path
        self.assertGreater(len(texts), 5)


if __name__ == "__main__":
    unittest.main()
