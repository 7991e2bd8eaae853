# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The stubs as a package: installed as a user would, seen by mypy, held against all examples."""

import ast
import os
import shutil
import subprocess
import sys
import tempfile
import textwrap
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
HELP = ROOT / "host" / "help"
PACKAGE = Path(os.environ["VISTREL_STUB_PACKAGE"])
MYPY = os.environ["VISTREL_MYPY"]
sys.path.insert(0, str(HELP))
import generate_help  # noqa: E402

# Its name comes from a script that it runs.
UNTYPED = {"run_script"}


def help_examples() -> "dict[str, str]":
    """The examples of the help texts, each a script."""
    source = (HELP / "vistrel.pyi").read_text(encoding="utf-8")
    doc = ast.get_docstring(ast.parse(source)) or ""
    first = textwrap.dedent(doc.partition("All examples go on from these lines:\n")[2])
    stub = generate_help.read_stub(source)
    return {f"{entry.owner}_{entry.name}".replace("__", ""):
            first + "\n" + textwrap.dedent(entry.text.partition("\nExample:\n")[2]) + "\n"
            for entry in (*stub.functions, *stub.methods, *stub.attributes)
            if entry.name not in UNTYPED}


class StubPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        shutil.copytree(PACKAGE, cls.folder / "source")  # setuptools writes beside its input
        cls.environment = cls.folder / "venv"
        subprocess.run([sys.executable, "-m", "venv", "--without-pip", "--system-site-packages",
                        cls.environment], check=True)
        cls.site = next((cls.environment / "lib").glob("python*/site-packages"))
        # What pip builds with is here already: nothing is fetched.
        subprocess.run([sys.executable, "-m", "pip", "install", "--quiet", "--no-build-isolation",
                        "--no-deps", "--no-index", "--target", cls.site, cls.folder / "source"],
                       check=True, env={**os.environ, "PIP_DISABLE_PIP_VERSION_CHECK": "1"})

    def check(self, *files: Path) -> "subprocess.CompletedProcess[str]":
        return subprocess.run(
            [MYPY, "--strict", "--scripts-are-modules", "--cache-dir", self.folder / "cache",
             "--python-executable", self.environment / "bin" / "python", *files],
            check=False, cwd=self.folder, capture_output=True, text=True)

    def check_text(self, text: str) -> "subprocess.CompletedProcess[str]":
        path = self.folder / "script.py"
        path.write_text(text, encoding="utf-8")
        return self.check(path)

    def test_holds_what_help_is_made_of(self) -> None:
        for package, name in (("vistrel", "vistrel.pyi"), ("vistrel_constants", "constants.pyi")):
            installed = self.site / f"{package}-stubs" / "__init__.pyi"
            self.assertEqual(installed.read_text(), (HELP / name).read_text())

    def test_has_the_version_of_the_project(self) -> None:
        version = (PACKAGE / "pyproject.toml").read_text().partition('version = "')[2][:5]
        self.assertTrue((self.site / f"vistrel_stubs-{version}.dist-info").is_dir())

    def test_every_example_script_is_right_by_it(self) -> None:
        scripts = [*ROOT.glob("examples/*.py"), *ROOT.glob("examples/tutorial/*.py")]
        self.assertGreater(len(scripts), 10)
        result = self.check(*scripts)
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_every_example_of_the_help_texts_is_right_by_it(self) -> None:
        files = []
        for name, text in help_examples().items():
            files.append(self.folder / f"example_{name}.py")
            files[-1].write_text(text, encoding="utf-8")
        self.assertGreater(len(files), 120)
        result = self.check(*files)
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_a_wrong_argument_is_found(self) -> None:
        result = self.check_text("import vistrel\nvistrel.wait('long')\n")
        self.assertEqual(result.returncode, 1)
        self.assertIn('incompatible type "str"; expected "float"', result.stdout)

    def test_a_name_that_does_not_exist_is_found(self) -> None:
        result = self.check_text("import vistrel\nvistrel.Image().get_with()\n")
        self.assertIn('"Image" has no attribute "get_with"', result.stdout)

    def test_constants_can_be_told_to_the_checker(self) -> None:
        start = "from typing import TYPE_CHECKING\nimport vistrel\n"
        told = start + "if TYPE_CHECKING:\n    from vistrel_constants import GAIN_DB\n"
        self.assertEqual(self.check_text(told + "vistrel.Camera().get_param(GAIN_DB)\n").returncode, 0)
        self.assertEqual(self.check_text(start + "vistrel.Camera().get_param(GAIN_DB)\n").returncode, 1)


if __name__ == "__main__":
    unittest.main()
