# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Frames of the simulated camera as numpy arrays: prints the seconds of one.

Runs in vistrel-run --camera sim; frames.cpp is its counterpart without any of us.
"""

import os
import time

import numpy
import vistrel

SIZE = 2048
SECONDS = float(os.environ["VISTREL_BENCHMARK_SECONDS"])
RATE = float(os.environ["VISTREL_BENCHMARK_RATE"])


def next_frame(view):
    """The next frame as an array that shares the picture's memory."""
    if not vistrel.wait_for_next_frame(30.0, view):
        raise Exception("no frame came within 30 seconds")
    return numpy.asarray(vistrel.get_view_image(view))


camera = vistrel.Camera()
camera.open_device()
camera.set_roi(0, 0, SIZE, SIZE)
assert camera.set_framerate(RATE) == 0
view = camera.start_acquisition()
assert next_frame(view).shape == (SIZE, SIZE)

begin = time.perf_counter()
frames = 0
while time.perf_counter() - begin < SECONDS:
    next_frame(view)
    frames += 1
print((time.perf_counter() - begin) / frames)
