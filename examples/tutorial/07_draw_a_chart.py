# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 7: a chart of how bright the columns are, for two exposure times.

import vistrel

COLOURS = {5_000: (0, 90, 200), 15_000: (220, 60, 0)}

camera = vistrel.Camera()
camera.open_device()
graph = vistrel.Graph()

for time_us, colour in COLOURS.items():
    camera.set_exposure_time_us(time_us)
    view = camera.start_acquisition()
    for _ in range(5):  # the frames that were begun before
        vistrel.wait_for_next_frame(30.0, view)
    image = vistrel.get_view_image(view)
    camera.stop_acquisition()
    series = graph.add_series()
    graph.series_set_line_color(series, *colour)
    for x, channels in enumerate(image.measure_column_profiles_in_rect(0, 240, 0, 32)):
        graph.series_add_point(series, x, channels[0]["mean"])

graph.set_x_axis_range(0, image.width - 1)
graph.set_y_axis_range(0, 255)
chart = vistrel.Image()
chart.alloc(640, 400, 4, 8)
graph.draw_into_image(chart)
vistrel.new_view_with_image(chart, "columns")
chart.save_to_file("07_draw_a_chart.png")
print("series:", graph.get_series_count())
