# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The rows of the table with their aims, and how it is written."""

import math
from dataclasses import dataclass
from typing import Callable, Optional


@dataclass(frozen=True)
class Unit:
    name: str
    size: float

    def text(self, figure: float) -> str:
        return f"{figure / self.size:.3g} {self.name}"


NANOSECONDS = Unit("ns", 1e-9)
MICROSECONDS = Unit("us", 1e-6)
MILLISECONDS = Unit("ms", 1e-3)
BYTES = Unit("B", 1)
MEBIBYTES = Unit("MiB", 2**20)
PICTURES = Unit("pictures", 1)
PERCENT = Unit("%", 0.01)


@dataclass(frozen=True)
class Row:
    """`times`, `more` and `amount` are upper limits of ours: as a multiple of theirs, as a
    difference from theirs, and for itself. A row has one of them."""

    key: str
    ours: str
    theirs: str
    unit: Unit
    times: Optional[float] = None
    more: Optional[float] = None
    amount: Optional[float] = None

    def aim(self) -> str:
        if self.times is not None:
            return f"{self.times:.3g} x"
        if self.more is not None:
            return f"+{self.unit.text(self.more)}"
        assert self.amount is not None
        return self.unit.text(self.amount)

    def limit(self, theirs: float) -> float:
        if self.times is not None:
            return self.times * theirs
        if self.more is not None:
            return self.more + theirs
        assert self.amount is not None
        return self.amount


NUMPY_STATISTICS = "`mean`, `std`, `min`, `max` of numpy"
OPENCV_STATISTICS = "`cv2.meanStdDev` and `minMaxLoc`"

# Of 1920 x 1080 pixels where nothing else is said.
ROWS = [
    Row("empty_run", "run of an empty script", "compile and evaluate it in C", MICROSECONDS,
        more=20e-6),
    Row("print", "print 100,000 lines to the host", "the same into io.StringIO", MILLISECONDS,
        times=3),
    Row("first_run", "first run, starts Python", "process `python3 -c pass`", MILLISECONDS,
        times=1.3),
    Row("attribute", "`image.width`", "`int.numerator`", NANOSECONDS, times=1.5),
    Row("getter", "`image.get_width()`", "the same of a Python class", NANOSECONDS, times=1.2),
    Row("camera_attribute", "`camera.get_gain_db()`", "the same of a Python class", NANOSECONDS,
        times=4),
    Row("camera_param", "`camera.get_param(\"gain_db\")`", "the same of a Python class", NANOSECONDS,
        times=4),
    Row("bytes", "`bytes(image)`, 1920 x 1080", "`bytes(memoryview(array))`", MICROSECONDS,
        times=1.1),
    Row("chart_1000", "chart of 1,000 points, 800 x 600", "matplotlib, figure made anew",
        MILLISECONDS, times=0.05),
    Row("chart_100000", "the same of 100,000 points", "matplotlib", MILLISECONDS, times=0.05),
    Row("chart_1000_exporter", "chart of 1,000 points", "pyqtgraph's image exporter", MILLISECONDS,
        times=1),
    Row("chart_100000_exporter", "the same of 100,000 points", "pyqtgraph", MILLISECONDS, times=1),
    Row("chart_noise", "chart of 1,000 random points", "matplotlib", MILLISECONDS, times=0.05),
    Row("add_point", "`graph.series_add_point(s, x, y)`", "`list.append((x, y))`", NANOSECONDS,
        times=2),
    Row("point_memory", "memory of a point", "", BYTES, amount=24),
    Row("import_8", "`from_array` of 8 bits", "`numpy.copy`", MICROSECONDS, times=1.3),
    Row("import_12", "`from_array` of 16 bits, 12 used", "`numpy.copy`", MICROSECONDS, times=2.5),
    Row("import_colour", "`from_array` of 8-bit colours", "`numpy.copy`", MICROSECONDS, times=1.3),
    Row("import_8_huge", "8 bits, 8192 x 8192", "`numpy.copy`", MILLISECONDS, times=1.3),
    Row("import_12_huge", "16 bits, 12 used, 8192 x 8192", "`numpy.copy`", MILLISECONDS,
        times=2.5),
    Row("get_pixel_numpy", "`get_pixel_value`", "`array[y, x]`", NANOSECONDS, times=2),
    Row("get_pixel_pillow", "`get_pixel_value`", "Pillow's `getpixel`", NANOSECONDS, times=0.4),
    Row("set_pixel_numpy", "`set_pixel_value`", "`array[y, x] = v`", NANOSECONDS, times=2),
    Row("set_pixel_pillow", "`set_pixel_value`", "Pillow's `putpixel`", NANOSECONDS, times=0.4),
    Row("line_opencv", "`draw_pixel_line` of 1000 pixels", "`cv2.line`", MICROSECONDS, times=1.5),
    Row("line_pillow", "`draw_pixel_line` of 1000 pixels", "Pillow's `line`", MICROSECONDS,
        times=1),
    Row("measure_8_numpy", "`measure_rect`, 8 bits", NUMPY_STATISTICS, MICROSECONDS, times=0.1),
    Row("measure_8_opencv", "`measure_rect`, 8 bits", OPENCV_STATISTICS, MICROSECONDS, times=1),
    Row("measure_16_numpy", "`measure_rect`, 16 bits", NUMPY_STATISTICS, MICROSECONDS, times=0.2),
    Row("measure_16_opencv", "`measure_rect`, 16 bits", OPENCV_STATISTICS, MICROSECONDS,
        times=0.2),
    Row("measure_colour_numpy", "`measure_rect`, 3 x 8 bits", NUMPY_STATISTICS, MICROSECONDS,
        times=0.1),
    Row("measure_colour_opencv", "`measure_rect`, 3 x 8 bits", OPENCV_STATISTICS, MICROSECONDS,
        times=1),
    Row("measure_float_numpy", "`measure_rect`, floats", NUMPY_STATISTICS, MICROSECONDS, times=1),
    Row("measure_float_opencv", "`measure_rect`, floats", OPENCV_STATISTICS, MICROSECONDS,
        times=1),
    Row("measure_32_numpy", "`measure_rect`, 32 bits", NUMPY_STATISTICS, MICROSECONDS, times=1),
    Row("measure_8_huge_numpy", "the same, 8 bits, 8192 x 8192", NUMPY_STATISTICS, MILLISECONDS,
        times=0.1),
    Row("measure_8_huge_opencv", "the same, 8 bits, 8192 x 8192", OPENCV_STATISTICS, MILLISECONDS,
        times=1),
    Row("profiles_rows", "row profiles", NUMPY_STATISTICS + " along an axis", MILLISECONDS,
        times=1),
    Row("profiles_columns", "column profiles", NUMPY_STATISTICS + " along an axis", MILLISECONDS,
        times=1),
    Row("to_rgb_mono", "`to_rgb` of grey", "`cv2.cvtColor`", MICROSECONDS, times=1.2),
    Row("to_rgb_colour", "`to_rgb` of colours", "`cv2.cvtColor`", MICROSECONDS, times=1.2),
    Row("extract_channel", "`extract_channel`", "`cv2.extractChannel`", MICROSECONDS, times=1.2),
    Row("bpc_12_to_8", "`convert_bpc`, 12 to 8", "`cv2.convertScaleAbs`", MICROSECONDS, times=1.2),
    Row("bpc_16_to_8", "`convert_bpc`, 16 to 8", "`cv2.convertScaleAbs`", MICROSECONDS, times=1.2),
    Row("bpc_8_to_16", "`convert_bpc`, 8 to 16", "`cv2.multiply`", MICROSECONDS, times=1.2),
    Row("bpc_12_to_16", "`convert_bpc`, 12 to 16", "`cv2.multiply`", MICROSECONDS, times=1.2),
    Row("crop", "`crop` to a quarter", "`array[y:y + h, x:x + w].copy()`", MICROSECONDS,
        times=1.2),
    Row("resize_half", "`resize` to half", "`cv2.resize`", MICROSECONDS, times=1.2),
    Row("resize_smaller", "`resize` of colours to a third", "`cv2.resize`", MICROSECONDS,
        times=1.2),
    Row("resize_larger", "`resize` to a sixth more", "`cv2.resize`", MICROSECONDS, times=1.2),
    Row("copy_to", "`copy_to`", "`numpy.copyto`", MICROSECONDS, times=1.2),
    Row("resize_to", "`resize_to` half the size", "`cv2.resize`", MICROSECONDS, times=1.2),
    Row("add", "`add`", "`cv2.add`", MICROSECONDS, times=1.2),
    Row("subtract", "`subtract`", "`cv2.subtract`", MICROSECONDS, times=1.2),
    Row("divide_8", "`divide_by_value`, 8 bits", "`cv2.divide`", MICROSECONDS, times=1.2),
    Row("divide_16", "`divide_by_value`, 16 bits", "`cv2.divide`", MICROSECONDS, times=1.2),
    Row("divide_float", "`divide_by_value`, floats", "`cv2.divide`", MICROSECONDS, times=1.2),
    Row("picture_memory", "most that a method holds besides its result", "", PICTURES, amount=1),
    Row("camera_gain", "`camera.get_gain_db()`, simulated camera", "Aravis' Python binding",
        MICROSECONDS, times=1),
    Row("camera_frames", "frame of 2048 x 2048 into numpy", "bare C loop over frames", MILLISECONDS,
        times=1.053),
    Row("store_image", "`set_global_variable_img()`, 1920 x 1080", "`numpy.copy(array)`",
        MICROSECONDS, times=1.3),
    Row("read_image", "`get_global_variable_img()` of it", "", NANOSECONDS, amount=1e-6),
    Row("nested", "`run_script()` of an empty file", "`exec(compile(...))`", MICROSECONDS,
        more=20e-6),
    Row("process", "process `vistrel-run empty.py`", "process `python3 -c pass`", MILLISECONDS,
        times=8),
    Row("process_memory", "its peak of resident memory", "", MEBIBYTES, amount=80 * 2**20),
    Row("growth_plain", "memory kept by a run", "", BYTES, amount=1),
    Row("growth_image", "the same when it makes an image", "record of an image", BYTES, more=1),
    *(Row(f"chain_{key}", f"a frame through a chain with `{name}`", "OpenCV in a bare loop",
          MILLISECONDS, times=1 / 0.9)
      for key, name in [("blur", "Gaussian Blur"), ("flip", "Flip"), ("rotate", "Rotate"),
                        ("threshold", "Threshold"), ("gamma", "Gamma"), ("median", "Median"),
                        ("background", "Background Subtraction"), ("average", "Frame Average")]),
    Row("live_view", "live view of 2048 x 2048, 25 a second: of a core for the GUI thread", "",
        PERCENT, amount=0.4),
    Row("live_view_colours", "the same in colours, `RGB8`", "", PERCENT, amount=0.4),
    Row("live_view_raw", "the same of raw pixels, `BayerRG8`", "", PERCENT, amount=0.4),
    Row("flood", "longest wait for the window while a script prints 100,000 lines", "",
        MILLISECONDS, amount=0.1),
]

HEADINGS = ["ours", "", "instead of it", "", "ratio", "aim at most", "met"]


def checked(figures: dict[str, float], row: Row, side: str) -> float:
    figure = figures.get(side, math.nan)
    if not math.isfinite(figure):
        raise SystemExit(f"{row.key}: no finite figure for {side}")
    return figure


def cells(row: Row, figures: dict[str, float]) -> list[str]:
    ours = checked(figures, row, "ours")
    theirs = checked(figures, row, "theirs") if row.theirs else math.nan
    met = "yes" if ours <= row.limit(theirs) else "NO"
    compared = [row.unit.text(theirs), f"{ours / theirs:.2f}"] if row.theirs else ["", ""]
    return [row.ours, row.unit.text(ours), row.theirs, *compared, row.aim(), met]


def lines(figures: dict[str, dict[str, float]], markdown: bool) -> list[str]:
    """The table of figures that are given by row and side, in seconds or bytes."""
    table = [HEADINGS, *(cells(row, figures.get(row.key, {})) for row in ROWS)]
    if not markdown:
        table = [[cell.replace("`", "") for cell in line] for line in table]
    widths = [max(len(cell) for cell in column) for column in zip(*table)]
    numbers = {1, 3, 4, 5}
    padded = [[cell.rjust(width) if i in numbers else cell.ljust(width)
               for i, (cell, width) in enumerate(zip(line, widths))] for line in table]
    join: Callable[[list[str]], str] = (
        (lambda line: "| " + " | ".join(line) + " |") if markdown else "  ".join)
    rule = ["-" * (width - 1) + (":" if markdown and i in numbers else "-")
            for i, width in enumerate(widths)]
    return [join(line) for line in [padded[0], rule, *padded[1:]]]
