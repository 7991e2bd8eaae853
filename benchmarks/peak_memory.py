# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The memory that methods of a picture hold at most, besides pictures that were there before and the
one that they return. Runs in vistrel-run; the figure is in sizes of the picture."""

import ctypes
import re
from pathlib import Path

import numpy
import vistrel
from rounds import report

SIZE = 4096
PICTURE = SIZE * SIZE * 2
TRIM = ctypes.CDLL(None).malloc_trim


def bytes_of(field):
    text = Path("/proc/self/status").read_text()
    return int(re.search(rf"^{field}:\s+(\d+) kB$", text, re.MULTILINE)[1]) * 1024


def peak_of(call):
    """How far the process's memory rises during a call, and how far it has risen after it."""
    TRIM(0)  # what was freed before must not serve this call
    before = bytes_of("VmRSS")
    Path("/proc/self/clear_refs").write_text("5")  # the peak begins anew
    result = call()
    peak = bytes_of("VmHWM") - before
    TRIM(0)
    return peak, bytes_of("VmRSS") - before, result


def imported(source):
    image = vistrel.Image()
    image.from_array(source)
    return image


def touched(channels=1, bpc=16):
    image = vistrel.Image()
    image.alloc(SIZE // channels, SIZE, channels, bpc)
    numpy.asarray(image)[:] = 1000
    return image


array = numpy.full((SIZE, SIZE), 100, "u2")  # becomes one of 8 bits
image, other, colour = touched(), touched(), touched(channels=4)
small = image.crop(0, 0, 100, 100)
whole = (0, 0, SIZE, SIZE)
CALLS = {
    "from_array": lambda: imported(array),
    "to_rgb": image.to_rgb,
    "extract_channel": lambda: colour.extract_channel(2),
    "convert_bpc": lambda: image.convert_bpc(12),
    "crop": lambda: image.crop(*whole),
    "resize": lambda: image.resize(SIZE, SIZE, *whole),
    "copy_to": lambda: image.copy_to(other),
    "copy_rect_to": lambda: image.copy_rect_to(*whole, other, 5, 5),
    "copy_rect_to_itself": lambda: image.copy_rect_to(*whole, image, 5, 5),
    "resize_to": lambda: image.resize_to(small),
    "tesize_rect_to_itself": lambda: image.tesize_rect_to(0, 0, SIZE // 2, SIZE, image, *whole),
    "add": lambda: image.add(other),
    "subtract": lambda: image.subtract(other),
    "divide_by_value": lambda: image.divide_by_value(2),
    "measure_rect": image.measure_rect,
    "measure_colour": colour.measure_rect,
    "get_image_data_numpy": lambda: colour.get_image_data_numpy(),
    "new_copy": image.new_copy,
    "bytes": image.tobytes,
}

most = 0.0
for name, call in CALLS.items():
    peak, kept, result = peak_of(call)
    most = max(most, (peak - max(kept, 0)) / PICTURE)
# Rounded: the interpreter's own memory moves a little at the same time.
report("picture_memory", ours=round(most, 2))
