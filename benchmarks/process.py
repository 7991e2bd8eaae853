# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Starting: whole processes, and the first run inside a host that is up already.

Usage: process.py PROGRAMS, the list of programs that the build has written.
"""

import json
import os
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from rounds import best, report

ROUNDS = 20


def run(*command: str) -> tuple[float, float]:
    """Seconds that a process takes, and its peak of resident memory in bytes."""
    begin = time.perf_counter()
    pid = os.posix_spawn(command[0], command, os.environ)
    _, status, usage = os.wait4(pid, 0)
    seconds = time.perf_counter() - begin
    if status != 0:
        raise SystemExit(f"{command} ended with status {status}")
    return seconds, usage.ru_maxrss * 1024


def printed_seconds(program: str) -> float:
    return float(subprocess.run([program], check=True, stdout=subprocess.PIPE).stdout)


def compare(programs: dict[str, str], script: str) -> None:
    def python() -> float:
        return run(programs["python"], "-c", "pass")[0]

    def vistrel_run() -> float:
        seconds, memory = run(programs["vistrel_run"], script)
        peaks.append(memory)
        return seconds

    peaks: list[float] = []
    ours, theirs = best(ROUNDS, lambda: printed_seconds(programs["first_run"]), python)
    report("first_run", ours=ours, theirs=theirs)
    ours, theirs = best(ROUNDS, vistrel_run, python)
    report("process", ours=ours, theirs=theirs)
    report("process_memory", ours=max(peaks))


with tempfile.TemporaryDirectory() as folder:
    empty_script = Path(folder, "empty.py")
    empty_script.touch()
    compare(json.loads(Path(sys.argv[1]).read_text()), str(empty_script))
