# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Pictures with the same content for both sides, and how calls on them are timed.

Large pictures take longer than the slices in which a busy machine gives its time: what counts is the
time that the calling thread had, and OpenCV gets no other threads.
"""

import time
import timeit

import cv2
import numpy
import vistrel
from rounds import QUICK, best, report

cv2.setNumThreads(1)

ROUNDS = 40
FULL_HD = (1920, 1080)
HUGE = (8192, 8192)


def lines(size, channels=1, bits=8, dtype=None):
    """Random values of so many bits, line by line as other libraries have them."""
    width, height = (320, 200) if QUICK else size
    shape = (height, width) if channels == 1 else (height, width, channels)
    dtype = dtype or ("u1" if bits <= 8 else "u2" if bits <= 16 else "u4")
    values = numpy.random.default_rng(5).integers(0, 1 << bits, shape, dtype="u4")
    return values.astype(dtype)


def image_of(array, bits=None):
    """A picture with the array's values, of its own type as far as an import keeps it."""
    image = vistrel.Image()
    if array.dtype.kind != "u":
        image.from_array(array)
        return image
    channels = 1 if array.ndim == 2 else array.shape[2]
    image.alloc(array.shape[1], array.shape[0], channels, bits or 8 * array.dtype.itemsize)
    numpy.asarray(image)[:] = array.swapaxes(0, 1)
    return image


def seconds_of(call, loops):
    """A measurement: seconds of one call."""
    loops = 1 if QUICK else loops
    timer = timeit.Timer(call, timer=time.thread_time)
    return lambda: timer.timeit(loops) / loops


def compare(name, ours, theirs, loops=5, rounds=ROUNDS):
    ours, theirs = best(rounds, seconds_of(ours, loops), seconds_of(theirs, loops))
    report(name, ours=ours, theirs=theirs)
