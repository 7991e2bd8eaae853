# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs hostile scripts in the reference host, a process for each seed, until so many calls were made
or so much time has passed. A process that ends by itself, hangs, or makes a sanitizer speak is a
failure, whose seed is printed. hostile_scripts.py RUN [--seed N --seeds 1] replays one."""

import argparse
import os
import random
import re
import resource
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path
from typing import Callable, Dict, List, Optional, Union

from script_maker import Maker

FOLDER = Path(__file__).resolve().parent
SUPPRESSIONS = FOLDER.parent / "sanitizers" / "tsan.supp"
SCRIPTS, STATEMENTS = 16, 400
LIMIT = 500  # seconds that a process may take; it takes some
MEMORY = 3 << 30  # bytes
SANITIZER_STATUS = 99
# A nested script, and one that fails; files that are no pictures.
FILES = {"nested.py": "import vistrel\nvistrel.Image().alloc(3, 3, 1, 8)\n",
         "failing.py": "1 / 0\n", "broken.png": "no picture", "bell.wav": "no sound"}


@dataclass
class Outcome:
    seed: int
    calls: int
    failure: str


def environment(folder: Path) -> Dict[str, str]:
    # Leaks are looked for by other tests: threads that scripts leave behind bring that look down.
    options = (f"exitcode={SANITIZER_STATUS}:allocator_may_return_null=1:max_allocation_size_mb=256:"
               "detect_leaks=0")
    return {**os.environ, "PYTHONPATH": str(FOLDER), "PYTHONDONTWRITEBYTECODE": "1",
            "PYTHONHASHSEED": "0",
            # Else the addresses that it needs grow with the number of processors.
            "MALLOC_ARENA_MAX": "2", "OPENBLAS_NUM_THREADS": "1",
            "QT_QPA_PLATFORM": "offscreen", "HOME": str(folder), "PULSE_SERVER": "unix:/nobody",
            "ASAN_OPTIONS": options,
            "TSAN_OPTIONS": f"exitcode={SANITIZER_STATUS}:allocator_may_return_null=1:"
                            f"max_allocation_size_mb=256:suppressions={SUPPRESSIONS}",
            "UBSAN_OPTIONS": f"print_stacktrace=1:exitcode={SANITIZER_STATUS}"}


def limit_memory(program: Path) -> Callable[[], None]:
    """Sanitizers have a limit of their own, and need more addresses than there is memory. Without
    one the system gives a script all that it asks for, and ends the process when there is no more."""
    if re.search(b"__[at]san_init", program.read_bytes()):
        return lambda: None
    return lambda: resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))


def write_scripts(seed: int, folder: Path) -> List[Path]:
    maker = Maker(seed)
    for name, text in FILES.items():
        (folder / name).write_text(text)
    paths = [folder / f"script_{number}.py" for number in range(SCRIPTS)]
    for path in paths:
        path.write_text(maker.script(STATEMENTS), encoding="utf-8")
    return paths


def failure_of(status: int, scripts: int, errors: str) -> str:
    """Why a process failed, empty when it did not. Status 1 is that of a nested script that fails."""
    if status in (0, 1) and scripts == SCRIPTS:
        return ""
    report = re.search(r"==\d+==ERROR|WARNING: ThreadSanitizer|runtime error", errors)
    shown = errors[max(report.start() - 200, 0):][:8000] if report else errors[-4000:]
    return f"status {status} after {scripts} scripts\n{shown}"


def run_seed(program: Path, seed: int, kept: Optional[Path]) -> Outcome:
    with tempfile.TemporaryDirectory() as name:
        folder = kept or Path(name)
        folder.mkdir(exist_ok=True)
        scripts = write_scripts(seed, folder)
        command: List[Union[str, Path]] = [program, "--camera", "sim", "--answer", "1", "--answer",
                                           "Yes", "--cwd", folder, *scripts]
        try:
            result = subprocess.run(command, check=False, env=environment(folder), cwd=folder,
                                    stdin=subprocess.DEVNULL, capture_output=True, timeout=LIMIT,
                                    preexec_fn=limit_memory(program))
        except subprocess.TimeoutExpired as hang:
            return Outcome(seed, 0, f"hangs\n{(hang.stderr or b'')[-2000:].decode(errors='replace')}")
    calls = re.findall(rb"^\d+$", result.stdout, re.MULTILINE)
    failure = failure_of(result.returncode, len(calls), result.stderr.decode(errors="replace"))
    return Outcome(seed, int(calls[-1]) if calls else 0, failure)


def options() -> argparse.Namespace:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program", type=Path, help="vistrel-run, best of a build with sanitizers")
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10**9),
                        help="the first one; those that follow count up")
    parser.add_argument("--seeds", type=int, default=10**9, help="how many at most")
    parser.add_argument("--calls", type=int, default=10**9, help="enough calls")
    parser.add_argument("--seconds", type=float, default=10**9, help="enough time")
    parser.add_argument("--jobs", type=int, default=1, help="processes at the same time")
    parser.add_argument("--keep", type=Path, help="a folder in which a seed's scripts stay")
    return parser.parse_args()


def main() -> int:
    chosen = options()
    end = time.monotonic() + chosen.seconds
    seeds = iter(range(chosen.seed, chosen.seed + chosen.seeds))
    print(f"First seed {chosen.seed}", flush=True)
    outcomes = []

    def work() -> None:
        for seed in seeds:
            outcome = run_seed(chosen.program.resolve(), seed, chosen.keep)
            outcomes.append(outcome)
            if outcome.failure:
                print(f"Seed {seed}: {outcome.failure}\n", flush=True)
            if sum(each.calls for each in outcomes) >= chosen.calls or time.monotonic() > end:
                return

    with ThreadPoolExecutor(chosen.jobs) as pool:
        for job in [pool.submit(work) for _ in range(chosen.jobs)]:
            job.result()
    failed = [outcome.seed for outcome in outcomes if outcome.failure]
    calls = sum(outcome.calls for outcome in outcomes)
    print(f"{calls} calls, {len(outcomes)} seeds, failed: {failed or 'none'}")
    return 1 if failed or calls == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
