# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reading an attribute and calling a getter of an image. Runs in vistrel-run.

timeit puts a statement into a loop of a function, where its names are local variables; the time of
the same loop without a statement is taken off.
"""

import timeit

import vistrel
from rounds import QUICK, best, report

ROUNDS = 40
LOOPS = 20_000 if QUICK else 200_000


class Picture:
    """What a user would write in Python."""

    def __init__(self, width):
        self._width = width

    def get_width(self):
        return self._width


image = vistrel.Image()
image.alloc(1920, 1080, 1, 8)
subjects = {"image": image, "number": 1920, "picture": Picture(1920)}


def loop_of(statement):
    """A measurement: seconds of one turn of a loop over the statement."""
    setup = "; ".join(f"{name} = {name}_" for name in subjects)
    names = {f"{name}_": value for name, value in subjects.items()}
    timer = timeit.Timer(statement, setup, globals=names)
    return lambda: timer.timeit(LOOPS) / LOOPS


def compare(name, ours, theirs):
    ours, theirs, loop = best(ROUNDS, loop_of(ours), loop_of(theirs), loop_of("pass"))
    report(name, ours=ours - loop, theirs=theirs - loop)


compare("attribute", "image.width", "number.numerator")
compare("getter", "image.get_width()", "picture.get_width()")
