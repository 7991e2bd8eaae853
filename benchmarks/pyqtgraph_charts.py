# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads values, then draws a chart of them with pyqtgraph for each further line and says how long it
took. A process of its own, driven by charts.py: its Qt is not the host's."""

import json
import sys
import time

import numpy
import pyqtgraph
import pyqtgraph.exporters

application = pyqtgraph.mkQApp()
values = numpy.array(json.loads(sys.stdin.readline()))
keys = numpy.arange(len(values))


def draw():
    plot = pyqtgraph.PlotWidget(background="w")
    plot.showGrid(x=True, y=True)
    plot.plot(keys, values, pen=pyqtgraph.mkPen("r", width=2))
    exporter = pyqtgraph.exporters.ImageExporter(plot.plotItem)
    exporter.parameters()["width"] = 800  # the height follows
    image = exporter.export(toBytes=True)
    assert (image.width(), image.height()) == (800, 600), image.size()


for _ in sys.stdin:
    start = time.perf_counter()
    draw()
    print(time.perf_counter() - start, flush=True)
