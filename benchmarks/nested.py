# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Running an empty script from a script. Runs in vistrel-run."""

import os
import tempfile
import timeit

import vistrel
from rounds import QUICK, best, report

ROUNDS = 40
TURNS = 20 if QUICK else 1_000


def evaluate():
    exec(compile("", "<string>", "exec"), names)


def seconds_of(function):
    timer = timeit.Timer(function)
    return lambda: timer.timeit(TURNS) / TURNS


names = globals()
with tempfile.TemporaryDirectory() as folder:
    path = os.path.join(folder, "empty.py")
    open(path, "w").close()
    ours, theirs = best(ROUNDS, seconds_of(lambda: vistrel.run_script(path)), seconds_of(evaluate))
report("nested", ours=ours, theirs=theirs)
