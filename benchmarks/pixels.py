# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Copying the pixels of an image into bytes. Runs in vistrel-run."""

import timeit

import numpy
import vistrel
from rounds import QUICK, best, report

ROUNDS = 40
LOOPS = 2 if QUICK else 50

image = vistrel.Image()
image.alloc(1920, 1080, 1, 8)
image_view = numpy.asarray(image)
image_view[:] = 1  # both pictures have been written to: untouched memory reads faster
array = numpy.full((1080, 1920), 1, numpy.uint8)
assert bytes(image) == bytes(memoryview(array))


def copies_of(make_bytes):
    """A measurement: seconds of one copy."""
    timer = timeit.Timer(make_bytes)
    return lambda: timer.timeit(LOOPS) / LOOPS


ours, theirs = best(ROUNDS, copies_of(lambda: bytes(image)),
                    copies_of(lambda: bytes(memoryview(array))))
report("bytes", ours=ours, theirs=theirs)
