# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Line profile: the brightness along the middle line of a camera picture, as a chart beside it.
#
#     vistrel-run --camera sim line_profile.py

import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

middle = image.height // 2
graph = vistrel.Graph()
series = graph.add_series()
for x in range(image.width):
    graph.series_add_point(series, x, image.get_pixel_value(x, middle))
graph.set_x_axis_range(0, image.width - 1)
graph.set_y_axis_range(0, 2 ** image.bpc - 1)

# A chart in its right colours needs a picture of four channels.
chart = vistrel.Image()
chart.alloc(image.width, image.height, 4, 8)
graph.draw_into_image(chart)

# The camera picture on the left with its line marked, the chart on the right.
left = image.to_rgb()
for channel, value in enumerate((255, 0, 0)):
    left.draw_pixel_line(value, 0, middle, left.width - 1, middle, channel)
both = vistrel.Image()
both.alloc(2 * image.width, image.height, 4, 8)
left.copy_rect_to(0, 0, left.width, left.height, both, 0, 0)
chart.copy_rect_to(0, 0, chart.width, chart.height, both, image.width, 0)

vistrel.new_view_with_image(both, "line profile")
both.save_to_file("line_profile.png")
print("saved line_profile.png")
