# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Sustained frames of the simulated camera at full size: a script's against a bare C loop's.

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


def printed_seconds(*command: str) -> float:
    environment = {**os.environ, "VISTREL_BENCHMARK_SECONDS": SECONDS}
    return float(subprocess.run(command, check=True, stdout=subprocess.PIPE,
                                env=environment).stdout)


programs = json.loads(Path(sys.argv[1]).read_text())
ours, theirs = best(ROUNDS,
                    lambda: printed_seconds(programs["vistrel_run"], "--camera", "sim", str(SCRIPT)),
                    lambda: printed_seconds(programs["frames"]))
report("camera_frames", ours=ours, theirs=theirs)
