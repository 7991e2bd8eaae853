# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the tests of the plugin with every Python of this machine, each with the plugin file that was
built once: scripts/test-pythons.sh. The loader is given the other library under the name of the one
that the plugin was linked with."""

import argparse
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml
from dataclasses import dataclass, field
from pathlib import Path
from typing import Dict, List, Tuple

Version = Tuple[int, int]

PROMISED = [(3, minor) for minor in range(8, 14)]
LIBRARY = re.compile(r"libpython(3)\.(\d+)\.so\.1\.0")
GROUPS = {
    "contract": r"contract(_\w+)?\.",
    "unit": r"unit\.",
    "hostile": r"hostile(_\w+)?\.",
    "scripts": r"(script|example)_",
}
# What tests import that is no part of Python: a Python without it cannot run them.
FOREIGN = ["numpy", "cv2", "PIL", "skimage", "matplotlib"]
ASK = ("import importlib.util as u\n"
       f"print(*[n for n in {FOREIGN!r} if u.find_spec(n) is None], end='')")


@dataclass
class Outcome:
    """What became of a group of tests."""

    passed: int = 0
    lacking: int = 0
    failed: List[str] = field(default_factory=list)

    def text(self) -> str:
        words = [f"{self.passed} passed" if self.passed or not self.failed else ""]
        words.append(f"{self.lacking} need more" if self.lacking else "")
        words.append(f"{len(self.failed)} FAILED" if self.failed else "")
        return ", ".join(word for word in words if word)


def versions_below(folder: Path) -> List[Path]:
    return [path for path in folder.glob("*/lib/libpython3.*.so.1.0") if LIBRARY.match(path.name)]


def libraries_of_the_system() -> List[Path]:
    listed = subprocess.run(["/sbin/ldconfig", "-p"], check=True, capture_output=True,
                            encoding="utf-8").stdout
    return [Path(path) for path in re.findall(r"=> (\S*/libpython3\.\d+\.so\.1\.0)$", listed,
                                              re.MULTILINE)]


def version_of(name: str) -> Version:
    """Of a library's file name; (0, 0) when it is none of Python's."""
    found = LIBRARY.match(name)
    return (int(found[1]), int(found[2])) if found else (0, 0)


def patch_level(library: Path) -> List[int]:
    """Of a folder's name such as 3.12.1; the system's own library comes before all others."""
    numbers = re.findall(r"\d+", library.parents[1].name)
    return [int(number) for number in numbers] or [99]


def libraries() -> Dict[Version, Path]:
    """The newest library of each version: the system's, and those of pyenv."""
    roots = [os.environ.get("PYENV_ROOT"), Path.home() / ".pyenv"]
    found = libraries_of_the_system()
    for root in roots:
        found += versions_below(Path(root) / "versions") if root else []
    newest: Dict[Version, Path] = {}
    for library in sorted(found, key=patch_level):
        version = version_of(library.name)
        if version >= PROMISED[0]:
            newest[version] = library
    return newest


class Build:
    """A build tree, whose plugin meets one Python after the other."""

    def __init__(self, folder: Path) -> None:
        self.folder = folder
        self.plugin = folder / "plugins" / "libvistrel_python_script.so"
        dynamic = subprocess.run(["readelf", "-d", self.plugin], check=True, capture_output=True,
                                 encoding="utf-8").stdout
        (self.linked,) = re.findall(r"\[(libpython\S+)\]", dynamic)

    def environment(self, library: Path, folder: str) -> Dict[str, str]:
        """In which the loader finds that library for the one that the plugin asks for."""
        Path(folder, self.linked).symlink_to(library)
        kept = {name: value for name, value in os.environ.items() if not name.startswith("PYTHON")}
        return {**kept, "LD_LIBRARY_PATH": folder}

    def ask(self, environment: Dict[str, str], *arguments: str, script: str = "") -> str:
        return subprocess.run([self.folder / "bin" / "vistrel-run", *arguments], check=True,
                              env={**environment, "QT_QPA_PLATFORM": "offscreen"}, input=script,
                              stdout=subprocess.PIPE, encoding="utf-8").stdout

    def test(self, environment: Dict[str, str], pattern: str, jobs: int) -> xml.Element:
        """The report on the tests whose names begin so."""
        with tempfile.TemporaryDirectory() as folder:
            report = Path(folder) / "report.xml"
            subprocess.run(["ctest", "--test-dir", self.folder, "-R", f"^({pattern})", "-j",
                            str(jobs), "--output-junit", report], check=False, env=environment,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            return xml.parse(report).getroot()


def lacks(case: xml.Element, missing: List[str]) -> bool:
    """Whether a test could not run for want of a module."""
    output = case.findtext("system-out", "")
    return any(f"No module named '{name}'" in output for name in missing)


def outcome(report: xml.Element, missing: List[str]) -> Outcome:
    result = Outcome()
    for case in report.iter("testcase"):
        if case.get("status") == "run":
            result.passed += 1
        elif lacks(case, missing):
            result.lacking += 1
        else:
            result.failed.append(f"{case.get('name')}\n{case.findtext('system-out', '')[-2000:]}")
    if result.passed == 0 and not result.failed:
        result.failed.append("no test ran")
    return result


def test_python(build: Build, version: Version, library: Path, groups: List[str],
                jobs: int) -> List[str]:
    """Prints its line of the table; what failed."""
    with tempfile.TemporaryDirectory() as folder:
        environment = build.environment(library, folder)
        running = build.ask(environment, "--version").split("\n")[2]
        missing = build.ask(environment, "-", script=ASK).split()
        outcomes = [outcome(build.test(environment, GROUPS[group], jobs), missing)
                    for group in groups]
    failures = [failure for each in outcomes for failure in each.failed]
    if not running.startswith("Python {}.{}.".format(*version)):
        failures.append(f"{library} runs as {running}")
    cells = [running, *(each.text() for each in outcomes), ", ".join(missing) or "-"]
    print_line(cells)
    return failures


def print_line(cells: List[str]) -> None:
    print("| " + " | ".join([f"{cells[0]:<14}", *(f"{cell:<27}" for cell in cells[1:])]) + " |",
          flush=True)


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, required=True, help="a build tree with tests")
    parser.add_argument("groups", nargs="*", help=", ".join(GROUPS) + "; all when none is named")
    parser.add_argument("--others", action="store_true",
                        help="leave out the version that the plugin was linked with")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    options = parser.parse_args()
    groups = options.groups or list(GROUPS)
    build, found = Build(options.build.resolve()), libraries()
    print(f"{build.plugin}, linked with {build.linked}")
    print_line(["Python", *groups, "what it has not"])
    failures = []
    for version, library in sorted(found.items()):
        if options.others and version == version_of(build.linked):
            continue
        failures += test_python(build, version, library, groups, options.jobs)
    absent = ["{}.{}".format(*version) for version in PROMISED if version not in found]
    print(f"Not on this machine: {', '.join(absent)}" if absent else "All versions were there.")
    print(*failures, sep="\n\n")
    return 1 if failures or not found else 0


if __name__ == "__main__":
    sys.exit(main())
