# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Charts as their readers see them: labels, and pictures that are kept for comparison.

The pictures are in VISTREL_CHARTS. With VISTREL_RENEW_CHARTS set they are written anew
(scripts/renew_charts.sh); look at them before they are kept.
"""

import math
import os

import numpy
import vistrel

FOLDER = os.environ["VISTREL_CHARTS"]
RENEW = "VISTREL_RENEW_CHARTS" in os.environ

# Fonts and the rounding of edges differ a little between versions of the libraries.
STRONG_DIFFERENCE = 64
MOST_STRONG_DIFFERENCES = 0.01


def new_picture(width, height, channels=4):
    picture = vistrel.Image()
    picture.alloc(width, height, channels, 8)
    return picture


def rgb(picture):
    """Lines of columns of red, green, blue."""
    return numpy.asarray(picture).swapaxes(0, 1)[:, :, :3].astype(int)


def add_line(graph, points):
    series = graph.add_series()
    for x, y in points:
        graph.series_add_point(series, x, y)
    return series


def waves(graph):
    add_line(graph, ((x / 10, math.sin(x / 10)) for x in range(201)))
    add_line(graph, ((15, 0.9), (3, -0.2), (9, -0.7)))
    return new_picture(400, 300)


def dark(graph):
    picture = waves(graph)
    graph.set_dark_color_theme()
    graph.series_set_line_color(1, 255, 170, 0)
    graph.set_x_axis_range(2, 12)
    return picture


def three_channels(graph):
    waves(graph)
    return new_picture(320, 200, 3)


def dense(graph):
    noise = numpy.random.RandomState(1).normal(size=20000)
    add_line(graph, enumerate(noise.cumsum()))
    return new_picture(400, 300)


def empty(graph):
    graph.set_grid_color(255, 0, 0)
    return new_picture(200, 150)


def drawn(prepare):
    graph = vistrel.Graph()
    picture = prepare(graph)
    graph.draw_into_image(picture)
    return picture


def compare(prepare):
    path = os.path.join(FOLDER, prepare.__name__ + ".png")
    picture = drawn(prepare)
    if RENEW:
        picture.save_to_file(path)
        return
    kept = vistrel.Image()
    kept.from_file(path)
    assert rgb(kept).shape == rgb(picture).shape, path
    strong = (abs(rgb(kept) - rgb(picture)).max(axis=2) > STRONG_DIFFERENCE).mean()
    assert strong <= MOST_STRONG_DIFFERENCES, f"{path}: {strong:.2%} of the pixels differ"


def glyphs_under_x_axis(graph):
    """Shapes of ink in the lines below the x axis, one for each run of columns with ink."""
    picture = new_picture(400, 300)
    graph.draw_into_image(picture)
    ink = rgb(picture).max(axis=2) < 128
    axis = max(y for y in range(300) if ink[y].sum() > 200)
    labels = ink[axis + 6:]
    shapes, start = [], None
    for x in range(400):
        if labels[:, x].any() and start is None:
            start = x
        elif not labels[:, x].any() and start is not None:
            shapes.append(labels[:, start:x].tobytes())
            start = None
    return shapes


def check_labels():
    """Without a font there is no ink, or the same box for every digit."""
    graph = vistrel.Graph()
    graph.set_x_axis_range(0, 9)
    shapes = glyphs_under_x_axis(graph)
    assert len(shapes) >= 4, f"{len(shapes)} labels"
    assert len(set(shapes)) >= 4, "labels look alike"


check_labels()
for chart in (waves, dark, three_channels, dense, empty):
    compare(chart)
