# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Statistics of whole pictures and of their lines, against numpy and OpenCV. Runs in vistrel-run."""

import cv2
from pictures import FULL_HD, HUGE, ROUNDS, image_of, lines, seconds_of
from rounds import best, report


def by_numpy(array, axis=None):
    return (array.mean(axis=axis), array.std(axis=axis), array.min(axis=axis),
            array.max(axis=axis))


def by_opencv(array):
    """minMaxLoc takes one channel: those of a colour picture lie side by side for it."""
    return cv2.meanStdDev(array), cv2.minMaxLoc(array.reshape(array.shape[0], -1))


def compare_measurement(name, array, loops, rounds=ROUNDS, with_opencv=True):
    """Reports a row against each of the two."""
    image = image_of(array)
    axis = None if array.ndim == 2 else (0, 1)
    figures = best(rounds, seconds_of(image.measure_rect, loops),
                   seconds_of(lambda: by_numpy(array, axis), 1),
                   *([seconds_of(lambda: by_opencv(array), loops)] if with_opencv else []))
    report(f"{name}_numpy", ours=figures[0], theirs=figures[1])
    if with_opencv:
        report(f"{name}_opencv", ours=figures[0], theirs=figures[2])


compare_measurement("measure_8", lines(FULL_HD), 5)
compare_measurement("measure_16", lines(FULL_HD, bits=16), 5)
compare_measurement("measure_colour", lines(FULL_HD, channels=3), 3, 20)
compare_measurement("measure_float", lines(FULL_HD, bits=20, dtype="f4"), 3, 20)
compare_measurement("measure_32", lines(FULL_HD, bits=32), 3, 20, with_opencv=False)
compare_measurement("measure_8_huge", lines(HUGE), 1, 5)

hd = lines(FULL_HD)
picture = image_of(hd)
for name, measure, axis in (("rows", picture.measure_row_profiles_in_rect, 1),
                            ("columns", picture.measure_column_profiles_in_rect, 0)):
    ours, theirs = best(ROUNDS, seconds_of(measure, 2), seconds_of(lambda: by_numpy(hd, axis), 1))
    report(f"profiles_{name}", ours=ours, theirs=theirs)
