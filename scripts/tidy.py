#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""clang-tidy over many files: scripts/tidy.py FILE...

The headers of Qt and OpenCV cost it ten times what our files do, so neighbours that are built alike
are read as one source. Files that cannot be one, as they use a name twice, are read alone. Needs a
configured and built build/."""

import concurrent.futures
import itertools
import json
import os
import re
import shlex
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
BUILD = ROOT / "build"
GROUPS = BUILD / "tidy"
LARGEST_GROUP = 5
# A source that includes sources is what is wanted here.
COMMAND = ("clang-tidy-14", "--quiet", "--warnings-as-errors=*", "--checks=-bugprone-suspicious-include")

Entry = dict[str, str]


def compilations() -> dict[Path, Entry]:
    entries = json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8"))
    return {Path(entry["file"]): entry for entry in entries}


def flags_of(entry: Entry) -> tuple[str, ...]:
    """The compiler's command without the names of the source and of what it makes."""
    words = iter(shlex.split(entry["command"]))
    return tuple(word for word in words
                 if word not in ("-c", entry["file"]) and not (word == "-o" and next(words)))


def groups_of(files: list[Path], entries: dict[Path, Entry]) -> list[list[Path]]:
    groups: list[list[Path]] = []
    for _, alike in itertools.groupby(files, lambda path: (path.parent, flags_of(entries[path]))):
        members = list(alike)
        groups += (members[i:i + LARGEST_GROUP] for i in range(0, len(members), LARGEST_GROUP))
    return sorted(groups, key=len, reverse=True)


def write_group(number: int, group: list[Path], entry: Entry) -> Entry:
    source = GROUPS / f"group{number}.cpp"
    source.write_text("".join(f'#include "{path}"\n' for path in group), encoding="utf-8")
    command = shlex.join([*flags_of(entry), "-c", str(source)])
    return {"file": str(source), "directory": entry["directory"], "command": command}


def tidy(folder: Path, files: list[Path]) -> tuple[bool, str]:
    done = subprocess.run([*COMMAND, "-p", str(folder), *map(str, files)], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, encoding="utf-8", check=False)
    text = re.sub(r"^\d+ warnings? generated\.\n", "", done.stdout, flags=re.MULTILINE)
    return done.returncode == 0, text


def check(group: list[Path], entry: Entry) -> tuple[bool, str]:
    """Whether a group is clean; what one group's files say of each other is not taken for a finding."""
    if len(group) > 1 and tidy(GROUPS, [Path(entry["file"])])[0]:
        return True, ""
    return tidy(BUILD, group)


def main() -> int:
    entries = compilations()
    groups = groups_of(sorted(Path(name).resolve() for name in sys.argv[1:]), entries)
    GROUPS.mkdir(exist_ok=True)
    written = [write_group(number, group, entries[group[0]]) for number, group in enumerate(groups)]
    (GROUPS / "compile_commands.json").write_text(json.dumps(written), encoding="utf-8")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        results = list(workers.map(check, groups, written))
    print("".join(text for clean, text in results if not clean), end="")
    return 0 if all(clean for clean, _ in results) else 1


if __name__ == "__main__":
    sys.exit(main())
