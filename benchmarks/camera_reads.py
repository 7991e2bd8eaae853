# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reading a camera's gain, against Aravis' own Python binding. Runs in vistrel-run --camera sim.

Both read the same node of simulated cameras of the same library, in one process.
"""

import timeit

import gi
import vistrel
from rounds import QUICK, best, report

gi.require_version("Aravis", "0.8")
from gi.repository import Aravis  # noqa: E402

ROUNDS = 400
LOOPS = 10 if QUICK else 200

camera = vistrel.Camera()
camera.open_device()
bound = Aravis.Camera.new("Fake_1")
assert camera.get_gain_db() == bound.get_gain()


def reads_by(read):
    """A measurement: seconds of one read."""
    timer = timeit.Timer(read)
    return lambda: timer.timeit(LOOPS) / LOOPS


ours, theirs = best(ROUNDS, reads_by(lambda: camera.get_gain_db()), reads_by(lambda: bound.get_gain()))
report("camera_gain", ours=ours, theirs=theirs)
