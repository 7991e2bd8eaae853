# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Live histogram: how often each brightness occurs, drawn anew for every frame of the camera.
#
#     vistrel-run --camera sim live_histogram.py

import numpy
import vistrel

FRAMES = 10

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
chart = vistrel.Image()
chart.alloc(640, 400, 4, 8)
chart_view = -1

for _ in range(FRAMES):
    if not vistrel.wait_for_next_frame(30.0, view):
        raise Exception("no frame came within 30 seconds")
    image = vistrel.get_view_image(view)
    counts = numpy.bincount(numpy.asarray(image).ravel(), minlength=2 ** image.bpc)

    graph = vistrel.Graph()
    graph.set_dark_color_theme()
    series = graph.add_series()
    graph.series_set_line_color(series, 255, 170, 0)
    for brightness, count in enumerate(counts):
        graph.series_add_point(series, brightness, count)
    graph.set_x_axis_range(0, len(counts) - 1)
    graph.set_y_axis_range(0, 1.1 * counts.max())
    graph.draw_into_image(chart)

    if chart_view < 0:
        chart_view = vistrel.new_view_with_image(chart, "histogram")
    else:
        vistrel.set_view_image(chart, chart_view)
camera.stop_acquisition()

chart.save_to_file("live_histogram.png")
print("saved live_histogram.png after", FRAMES, "frames")
