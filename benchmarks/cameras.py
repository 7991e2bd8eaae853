# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Sustained frames of the simulated camera at full size: a script's against a bare C loop's.

The camera makes its frames on the processor and sends each on the next tick of its clock, so at its
greatest rate anything else that the machine does costs it a whole tick. It is set to a rate that
leaves it some of its time: a loop that keeps up gets every frame, one that does not loses some.

Usage: cameras.py PROGRAMS, the list of programs that the build has written.
"""

import json
import os
import subprocess
import sys
from pathlib import Path

from rounds import QUICK, best, report

ROUNDS = 5
SECONDS = "0.2" if QUICK else "4"
SCRIPT = Path(__file__).resolve().parent / "camera_frames.py"


FASTEST = 1000.0  # the most that the camera takes; its own work holds it back
LEFT_TO_IT = 0.75


def printed_seconds(rate: float, *command: str) -> float:
    environment = {**os.environ, "VISTREL_BENCHMARK_SECONDS": SECONDS,
                   "VISTREL_BENCHMARK_RATE": str(rate)}
    return float(subprocess.run(command, check=True, stdout=subprocess.PIPE,
                                env=environment).stdout)


programs = json.loads(Path(sys.argv[1]).read_text())
(fastest,) = best(ROUNDS, lambda: printed_seconds(FASTEST, programs["frames"]))
rate = max(round(LEFT_TO_IT / fastest), 1)
ours, theirs = best(ROUNDS,
                    lambda: printed_seconds(rate, programs["vistrel_run"], "--camera", "sim",
                                            str(SCRIPT)),
                    lambda: printed_seconds(rate, programs["frames"]))
report("camera_frames", ours=ours, theirs=theirs)
