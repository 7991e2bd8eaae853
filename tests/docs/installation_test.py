# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What is installed: it runs from any place, and its manual and completion know its options."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging"
BUILD = os.environ["VISTREL_BUILD"]
CMAKE = os.environ["VISTREL_CMAKE"]
OPTION = re.compile(r"(?<![\w-])--?[a-z][a-z-]*")


def output(*command: "str | Path", **options: "object") -> str:
    result = subprocess.run(command, check=True, capture_output=True, text=True, timeout=120,
                            **options)  # type: ignore[call-overload]
    return str(result.stdout)


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = Path(folder.name).resolve() / "first"
        output(CMAKE, "--install", BUILD, "--prefix", cls.prefix)
        # What was installed may be moved: nothing in it knows its place.
        cls.prefix = cls.prefix.rename(cls.prefix.with_name("moved"))
        cls.programs = {name: cls.prefix / "bin" / name for name in ("vistrel-run", "vistrel-viewer")}

    def help_options(self, program: str) -> "set[str]":
        """Options as the list of --help has them, at the beginning of its lines."""
        text = output(self.programs[program], "--help").partition("Options:\n")[2]
        starts = "\n".join(line[:22] for line in text.partition("Arguments:")[0].splitlines()
                           if line.startswith("  -"))
        return set(OPTION.findall(starts))

    def manual_options(self, program: str) -> "set[str]":
        """Options as the manual's list has them."""
        text = (PACKAGING / f"{program}.1").read_text(encoding="utf-8").replace("\\-", "-")
        options = text.partition(".SH OPTIONS\n")[2].partition("\n.SH ")[0]
        heads = re.findall(r"^\.TP\n(.*)$", options, re.MULTILINE)
        return set(OPTION.findall("\n".join(heads)))

    def completions(self, *words: str) -> "list[str]":
        script = (f"source '{PACKAGING}/vistrel-completion.bash'\n"
                  f"COMP_WORDS=({' '.join(words)} '')\n"
                  "unset 'COMP_WORDS[-1]'\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
                  f"_vistrel {words[0]}\nprintf '%s\\n' \"${{COMPREPLY[@]}}\"\n")
        path = f"{self.prefix / 'bin'}:{os.environ['PATH']}"
        return output("bash", "-c", script, cwd=ROOT / "examples",
                      env={**os.environ, "PATH": path}).split()

    def test_runs_an_installed_example_without_the_build_folder(self) -> None:
        results = self.prefix / "results"
        results.mkdir()
        example = self.prefix / "share" / "vistrel" / "examples" / "first_light.py"
        printed = output(self.programs["vistrel-run"], "--camera", "sim", "--cwd", results, example)
        self.assertIn("512", printed)
        self.assertTrue((results / "first_light.png").stat().st_size > 1000)

    def test_nothing_installed_looks_into_the_build_folder(self) -> None:
        for path in self.prefix.rglob("*"):
            if path.is_file() and path.read_bytes()[:4] == b"\x7fELF":
                dynamic = output("readelf", "--dynamic", path)
                paths = re.findall(r"\((?:RPATH|RUNPATH)\).*\[(.*)\]", dynamic)
                for entry in ":".join(paths).split(":"):
                    self.assertTrue(entry == "" or entry.startswith("$ORIGIN"), f"{path}: {entry}")

    def test_installs_what_belongs_to_it(self) -> None:
        for name in ("lib/vistrel/libvistrel_host.so", "lib/vistrel/libvistrel_codecs.so",
                     "lib/vistrel/plugins/libvistrel_python_script.so", "bin/vistrel-stop-window",
                     "share/man/man1/vistrel-run.1.gz", "share/man/man1/vistrel-viewer.1.gz",
                     "share/bash-completion/completions/vistrel-run",
                     "share/applications/vistrel-viewer.desktop",
                     "share/vistrel/stubs/vistrel-stubs/__init__.pyi",
                     "share/doc/vistrel/html/functions.html", "include/vistrel/CxImageData.h",
                     "share/doc/vistrel-dev/host.md",
                     "share/doc/vistrel-dev/examples/minimal_host/main.cpp"):
            self.assertTrue((self.prefix / name).is_file(), name)

    def test_manual_and_help_name_the_same_options(self) -> None:
        for program in self.programs:
            self.assertGreater(len(self.help_options(program)), 5)
            self.assertEqual(self.manual_options(program), self.help_options(program))

    def test_manuals_are_well_formed(self) -> None:
        for program in self.programs:
            result = subprocess.run(["man", "--warnings", "-l", PACKAGING / f"{program}.1"],
                                    check=True, capture_output=True, text=True,
                                    env={**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "80"})
            self.assertEqual(result.stderr, "")
            self.assertIn(f"{program} - ", result.stdout.replace("‐", "-"))

    def test_manuals_have_the_version_of_the_program(self) -> None:
        version = output(self.programs["vistrel-run"], "--version").split()[1]
        changelog = (PACKAGING / "changelog").read_text(encoding="utf-8")
        self.assertTrue(changelog.startswith(f"vistrel ({version})"))
        for program in self.programs:
            text = (PACKAGING / f"{program}.1").read_text(encoding="utf-8")
            self.assertIn(f'"vistrel {version}"', text)

    def test_completion_offers_the_options_of_help(self) -> None:
        for program in self.programs:
            offered = self.completions(program, "--")
            wanted = {option for option in self.help_options(program) if option.startswith("--")}
            self.assertEqual(set(offered), wanted)

    def test_completion_offers_cameras_scripts_and_pictures(self) -> None:
        self.assertIn("sim", self.completions("vistrel-run", "--camera", "s"))
        self.assertEqual(self.completions("vistrel-run", "first"), ["first_light.py"])
        self.assertEqual(self.completions("vistrel-run", "--open", "READ"), ["README.md"])
        self.assertEqual(self.completions("vistrel-run", "--image", "a", "=", "READ"), ["README.md"])
        self.assertEqual(self.completions("vistrel-run", "--cwd", "min"), ["minimal_host"])
        self.assertEqual(self.completions("vistrel-run", "--answer", "f"), [])

    def test_the_desktop_entry_is_valid(self) -> None:
        entry = PACKAGING / "vistrel-viewer.desktop"
        if shutil.which("desktop-file-validate"):
            output("desktop-file-validate", entry)
        self.assertIn("\nExec=vistrel-viewer %F\n", entry.read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()
