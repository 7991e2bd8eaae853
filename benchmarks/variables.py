# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Storing an image for other scripts, and reading it. Runs in vistrel-run."""

import timeit

import numpy
import vistrel
from rounds import QUICK, best, report

ROUNDS = 40
COPIES = 2 if QUICK else 50
READS = 200 if QUICK else 20_000

image = vistrel.Image()
image.alloc(1920, 1080, 1, 8)
numpy.asarray(image)[:] = 1  # both pictures have been written to: untouched memory reads faster
array = numpy.full((1080, 1920), 1, numpy.uint8)
kept = {}


def store():
    vistrel.set_global_variable_img("picture", image)


def store_array():
    kept["picture"] = numpy.copy(array)


def measurement(function, turns):
    """Seconds of one call."""
    timer = timeit.Timer(function)
    return lambda: timer.timeit(turns) / turns


ours, theirs = best(ROUNDS, measurement(store, COPIES), measurement(store_array, COPIES))
report("store_image", ours=ours, theirs=theirs)

shared = vistrel.get_global_variable_img("picture")
assert shared.bp == vistrel.get_global_variable_img("picture").bp != image.bp
(ours,) = best(ROUNDS, measurement(lambda: vistrel.get_global_variable_img("picture"), READS))
report("read_image", ours=ours)
