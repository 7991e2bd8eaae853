# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Drawing charts against matplotlib and pyqtgraph, adding points, their memory. Runs in vistrel-run."""

import json
import os
import random
import subprocess
import time

import numpy
import vistrel
from matplotlib.backends.backend_agg import FigureCanvasAgg
from matplotlib.figure import Figure
from rounds import QUICK, best, report

ROUNDS = 15
POINTS_ADDED = 1_000 if QUICK else 100_000
# A little over a power of two, where a list that doubles has just grown.
POINTS_KEPT = 70_000 if QUICK else 1_050_000
PYTHON = os.environ.get("VISTREL_BENCHMARK_PYTHON", "python3")
HERE = next(path for path in os.environ["PYTHONPATH"].split(":") if path)


def seconds_of(action):
    """A measurement: seconds of one call."""
    def measure():
        start = time.perf_counter()
        action()
        return time.perf_counter() - start
    return measure


def graph_of(values):
    graph = vistrel.Graph()
    series = graph.add_series()
    for x, y in enumerate(values):
        graph.series_add_point(series, x, y)
    return graph


def drawing_of_ours(values):
    graph = graph_of(values.tolist())
    picture = vistrel.Image()
    picture.alloc(800, 600, 4, 8)
    return seconds_of(lambda: graph.draw_into_image(picture))


def drawing_of_matplotlib(values):
    keys = numpy.arange(len(values))

    def draw():
        figure = Figure(figsize=(8, 6), dpi=100)
        canvas = FigureCanvasAgg(figure)
        axes = figure.add_subplot()
        axes.grid(True)
        axes.plot(keys, values, linewidth=2)
        canvas.draw()
        assert canvas.buffer_rgba().shape == (600, 800, 4)
    return seconds_of(draw)


class PyQtGraph:
    """Draws in a process of its own, whose Qt is another one."""

    def __init__(self, values):
        self.process = subprocess.Popen([PYTHON, os.path.join(HERE, "pyqtgraph_charts.py")],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.send(values.tolist())

    def send(self, message):
        self.process.stdin.write(json.dumps(message).encode() + b"\n")
        self.process.stdin.flush()

    def seconds(self):
        self.send("draw")
        return float(self.process.stdout.readline())

    def close(self):
        self.process.stdin.close()
        self.process.wait()


def compare_charts(count):
    values = numpy.sin(numpy.arange(count) * (20.0 / count))
    other = PyQtGraph(values)
    ours, matplotlib, pyqtgraph = best(
        ROUNDS, drawing_of_ours(values), drawing_of_matplotlib(values), other.seconds)
    other.close()
    report(f"chart_{count}", ours=ours, theirs=matplotlib)
    report(f"chart_{count}_exporter", ours=ours, theirs=pyqtgraph)


def compare_noise():
    random.seed(1)
    values = numpy.array([random.gauss(0, 1) for _ in range(1000)])
    ours, theirs = best(ROUNDS, drawing_of_ours(values), drawing_of_matplotlib(values))
    report("chart_noise", ours=ours, theirs=theirs)


def compare_adding():
    def add_points():
        graph = vistrel.Graph()
        add, series, x, y = graph.series_add_point, graph.add_series(), 1.5, 2.5
        for _ in range(POINTS_ADDED):
            add(series, x, y)

    def append_tuples():
        add, x, y = [].append, 1.5, 2.5
        for _ in range(POINTS_ADDED):
            add((x, y))

    ours, theirs = best(ROUNDS, seconds_of(add_points), seconds_of(append_tuples))
    report("add_point", ours=ours / POINTS_ADDED, theirs=theirs / POINTS_ADDED)


def resident_bytes():
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGESIZE")


def measure_memory():
    graph = vistrel.Graph()
    series = graph.add_series()
    before = resident_bytes()
    for x in range(POINTS_KEPT):
        graph.series_add_point(series, x, x)
    report("point_memory", ours=(resident_bytes() - before) / POINTS_KEPT)


measure_memory()  # first, while no freed memory hides what is taken
compare_adding()
compare_charts(1000)
compare_charts(100000)
compare_noise()
