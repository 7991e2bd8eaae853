# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reading a camera's parameter, by attribute and by name. Runs in benchmark_camera.

timeit puts a statement into a loop of a function, where its names are local variables; the time of
the same loop without a statement is taken off.
"""

import timeit

import vistrel
from rounds import best, report

ROUNDS = 200
LOOPS = 2_000  # short, so that many a round goes by undisturbed


class Camera:
    """What a user would write in Python."""

    def __init__(self):
        self._values = {"gain_db": 3.0}

    def get_gain_db(self):
        return self._values["gain_db"]

    def get_param(self, name):
        return self._values[name]


def loop_of(camera, statement):
    """A measurement: seconds of one turn of a loop over the statement."""
    timer = timeit.Timer(statement, "camera = camera_", globals={"camera_": camera})
    return lambda: timer.timeit(LOOPS) / LOOPS


def compare(name, call):
    ours, theirs, loop = best(ROUNDS, loop_of(hosted, call), loop_of(plain, call),
                              loop_of(plain, "pass"))
    report(name, ours=ours - loop, theirs=theirs - loop)


hosted, plain = vistrel.Camera(), Camera()
hosted.open_device()
assert hosted.get_gain_db() == hosted.get_param("gain_db") == plain.get_gain_db()
compare("camera_attribute", "camera.get_gain_db()")
compare("camera_param", 'camera.get_param("gain_db")')
