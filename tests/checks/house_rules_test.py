# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Rules of the source tree: who may include whom, who may touch Python's reference counts, what
# every file begins with, how long files and functions are, what texts do not speak of.

import ast
import re
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCE_ENDINGS = {".h", ".cpp", ".py", ".pyi", ".sh", ".cmake"}

# Floors from the ground; a folder may include its own and lower ones.
HOST_FLOORS = ["host/core", "host/cameras", "host/chains", "host/app", "host/run",
               "host/viewer"]
PLUGIN_FLOORS = [["FuncImage", "FuncCamera", "FuncGraph"], ["FuncApp"]]

LONGEST_FILE = 700
LONG_FILE = 300
LONGEST_FUNCTION = 100

# Folders of somebody's machine.
FOREIGN_TEXTS = re.compile(r"(?<![\w.])/(home|root|Users)/")
# Code that is no text of ours: comments, texts and characters.
NO_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"'
                     r"|(?<!\w)'(?:\\.|[^'\\\n])+'", re.DOTALL)
# What begins a block that is no function, though it may have parentheses.
NO_FUNCTION = re.compile(r"\s*(inline\s+)?(namespace|class|struct|enum|union|extern)\b"
                         r"|[^(]*(?<![=<>!])=(?!=)")


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


def cpp_function_lengths(text: str) -> dict[int, int]:
    """Lines of every outermost block with a parameter list, by the line of its first brace."""
    code = NO_CODE.sub(lambda match: "\n" * match.group().count("\n"), text)
    lengths: dict[int, int] = {}
    open_blocks: list[tuple[bool, int]] = []  # whether it is a function, where it begins
    head = 0
    for mark in re.finditer(r"[{};]", code):
        at = mark.start()
        if mark.group() == "{":
            is_value = at > 0 and (code[at - 1].isalnum() or code[at - 1] in "_>")
            is_function = not is_value and "(" in code[head:at]
            open_blocks.append((is_function and not NO_FUNCTION.match(code[head:at]), at))
            if is_value:
                continue
        elif mark.group() == "}" and open_blocks:
            is_function, begin = open_blocks.pop()
            if is_function and not any(outer for outer, _ in open_blocks):
                lengths[code.count("\n", 0, begin) + 1] = code.count("\n", begin, at) + 1
            if code[begin - 1].isalnum() or code[begin - 1] in "_>":
                continue
        head = at + 1
    return lengths


def python_function_lengths(text: str) -> dict[int, int]:
    return {node.lineno: (node.end_lineno or 0) - node.lineno + 1
            for node in ast.walk(ast.parse(text)) if isinstance(node, ast.FunctionDef)}


def function_lengths(path: Path) -> dict[int, int]:
    if path.suffix in {".h", ".cpp"}:
        return cpp_function_lengths(text_of(path))
    return python_function_lengths(text_of(path)) if path.suffix == ".py" else {}


class Measures(unittest.TestCase):
    def test_blocks_with_parameters_are_functions(self) -> None:
        text = ("namespace a {\nint f(int x)\n{\n    if (x) {\n        g(\"}\");\n    }\n}\n"
                "struct S {\n    S()\n        : m{1}\n    {\n    }\n};\nint t[] = {(1)};\n}\n")
        self.assertEqual(cpp_function_lengths(text), {3: 5, 11: 2})


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
        counting = re.compile(r"\bPy_(X?(DECREF|INCREF|NewRef|SETREF)|CLEAR|IncRef|DecRef)\b")
        touching = [str(path) for path in sources_below(".")
                    if counting.search(NO_CODE.sub("", text_of(path)))]
        self.assertEqual(touching, ["plugins/python_script/PyRef.h"])

    def test_no_goto(self) -> None:
        for path in sources_below("."):
            self.assertNotRegex(NO_CODE.sub("", text_of(path)), r"\bgoto\b", path)

    def test_every_file_names_its_licence(self) -> None:
        for path in tracked_files():
            if path.suffix in SOURCE_ENDINGS or path.name == "CMakeLists.txt":
                head = text_of(path)[:300]
                self.assertIn("SPDX-License-Identifier: GPL-3.0-or-later", head, path)
                self.assertIn("SPDX-FileCopyrightText:", head, path)

    def test_no_file_is_too_long(self) -> None:
        for path in tracked_files():
            if path.suffix in SOURCE_ENDINGS - {".pyi"}:
                lines = len(text_of(path).splitlines())
                self.assertLessEqual(lines, LONGEST_FILE, path)
                if lines > LONG_FILE:
                    print(f"long file: {path}, {lines} lines")

    def test_no_function_is_too_long(self) -> None:
        measured = 0
        for path in tracked_files():
            for line, length in function_lengths(path).items():
                self.assertLessEqual(length, LONGEST_FUNCTION, f"{path}:{line}")
                measured += 1
        self.assertGreater(measured, 1000)

    def test_texts_refer_to_nothing_outside_the_tree(self) -> None:
        for path in tracked_files():
            is_text = path.suffix in SOURCE_ENDINGS | {".md", ".txt"}
            if is_text and path != Path(__file__).resolve().relative_to(ROOT):
                self.assertNotRegex(text_of(path), FOREIGN_TEXTS, path)

    def test_every_example_is_listed_and_run_by_a_test(self) -> None:
        index = text_of(Path("examples/README.md"))
        tests = text_of(Path("tests/scripts/CMakeLists.txt"))
        for path in (ROOT / "examples").glob("*.py"):
            self.assertIn(f"[{path.name}]({path.name})", index)
            self.assertRegex(tests, rf"\b{path.stem}\b")

    def test_error_texts_stand_once(self) -> None:
        texts: dict[str, Path] = {}
        for path in sources_below("plugins"):
            for text in re.findall(r'constexpr char \w+\[\]\s*=\s*"([^"]+)"', text_of(path)):
                self.assertNotIn(text, texts, f"{path} and {texts.get(text)}")
                texts[text] = path
        self.assertGreater(len(texts), 5)


if __name__ == "__main__":
    unittest.main()
