# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Single pixels and lines, against numpy, Pillow and OpenCV. Runs in vistrel-run.

As in attributes.py a statement stands in a loop of a function, and the loop itself is taken off.
"""

import time
import timeit

import cv2
import PIL.Image
import PIL.ImageDraw
from pictures import FULL_HD, image_of, lines
from rounds import QUICK, best, report

ROUNDS = 40
array = lines(FULL_HD)
pillow = PIL.Image.fromarray(array)
subjects = {"image": image_of(array), "array": array, "pillow": pillow, "cv2": cv2,
            "draw": PIL.ImageDraw.Draw(pillow)}


def loop_of(statement, loops):
    """A measurement: seconds of one turn of a loop over the statement."""
    setup = "; ".join(f"{name} = {name}_" for name in subjects)
    names = {f"{name}_": value for name, value in subjects.items()}
    timer = timeit.Timer(statement, setup, time.thread_time, names)
    return lambda: timer.timeit(loops) / loops


def compare(ours, others, loops):
    """Reports a row for each of the others, by name."""
    loops = loops // 20 if QUICK else loops
    figures = best(ROUNDS, loop_of(ours, loops),
                   *(loop_of(other, loops) for other in others.values()), loop_of("pass", loops))
    for name, theirs in zip(others, figures[1:]):
        report(name, ours=figures[0] - figures[-1], theirs=theirs - figures[-1])


assert (subjects["image"].get_pixel_value(77, 55) == array[55, 77] == pillow.getpixel((77, 55)))
compare("image.get_pixel_value(77, 55)",
        {"get_pixel_numpy": "array[55, 77]", "get_pixel_pillow": "pillow.getpixel((77, 55))"},
        20_000)
compare("image.set_pixel_value(9, 77, 55)",
        {"set_pixel_numpy": "array[55, 77] = 9", "set_pixel_pillow": "pillow.putpixel((77, 55), 9)"},
        20_000)
# Of 1000 pixels each.
compare("image.draw_pixel_line(9, 50, 40, 149, 139)" if QUICK else
        "image.draw_pixel_line(9, 50, 40, 1049, 639)",
        {"line_opencv": "cv2.line(array, (50, 40), (149, 139), 9)",
         "line_pillow": "draw.line((50, 40, 149, 139), 9)"} if QUICK else
        {"line_opencv": "cv2.line(array, (50, 40), (1049, 639), 9)",
         "line_pillow": "draw.line((50, 40, 1049, 639), 9)"}, 1_000)
