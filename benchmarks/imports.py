# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Taking pictures from arrays, against copying the array. Runs in vistrel-run."""

import numpy
import vistrel
from pictures import FULL_HD, HUGE, compare, lines


def compare_import(name, array, loops, rounds):
    target = vistrel.Image()
    target.from_array(array)
    assert numpy.array_equal(numpy.asarray(target).swapaxes(0, 1), array)
    compare(name, lambda: target.from_array(array), lambda: numpy.copy(array), loops, rounds)


compare_import("import_8", lines(FULL_HD), loops=10, rounds=40)
compare_import("import_12", lines(FULL_HD, bits=12), loops=10, rounds=40)
compare_import("import_colour", lines(FULL_HD, channels=3), loops=5, rounds=40)
compare_import("import_8_huge", lines(HUGE), loops=1, rounds=10)
compare_import("import_12_huge", lines(HUGE, bits=12), loops=1, rounds=10)
