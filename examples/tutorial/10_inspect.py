# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 10: an inspection: record, measure, show a chart, ask the operator, report.
#
#     vistrel-run --camera sim --answer 4711 --answer Accept 10_inspect.py

import vistrel

FRAMES = 60
PART = (160, 160, 192, 192)  # where it lies in the picture
LOWEST, HIGHEST = 60.0, 180.0  # mean brightness of a good part


def chart_of(means: "list[float]") -> vistrel.Image:
    """The brightness of each frame, between its limits."""
    graph = vistrel.Graph()
    for values, colour in ((means, (0, 90, 200)), ([LOWEST] * len(means), (200, 0, 0)),
                           ([HIGHEST] * len(means), (200, 0, 0))):
        series = graph.add_series()
        graph.series_set_line_color(series, *colour)
        for number, value in enumerate(values):
            graph.series_add_point(series, number, value)
    graph.set_y_axis_range(0, 255)
    chart = vistrel.Image()
    chart.alloc(512, 512, 4, 8)
    graph.draw_into_image(chart)
    return chart


def side_by_side(left: vistrel.Image, right: vistrel.Image) -> vistrel.Image:
    both = vistrel.Image()
    both.alloc(left.width + right.width, left.height, 4, 8)
    left.copy_rect_to(0, 0, left.width, left.height, both, 0, 0)
    right.copy_rect_to(0, 0, right.width, right.height, both, left.width, 0)
    return both


part = vistrel.ask_user_for_string("Inspection", "Part number:")
if not part:
    raise SystemExit("no part number was entered")

camera = vistrel.Camera()
camera.open_device()
camera.set_exposure_time_us(10_000)
view = camera.start_acquisition()
vistrel.record_video_to_file("10_inspect.avi", view)
means = []
for _ in range(FRAMES):
    if not vistrel.wait_for_next_frame(30.0, view):
        raise Exception("no frame came within 30 seconds")
    means.append(vistrel.get_view_image(view).measure_rect(*PART)[0]["mean"])
vistrel.stop_video_recording(view)
camera.stop_acquisition()

is_good = all(LOWEST <= mean <= HIGHEST for mean in means)
verdict = "good" if is_good else "bad"
report = side_by_side(vistrel.get_view_image(view).to_rgb(), chart_of(means))
vistrel.new_view_with_image(report, f"Part {part}: {verdict}")

question = f"Part {part} is {verdict}: mean {min(means):.0f} to {max(means):.0f}."
accepted = vistrel.message_box("Inspection", question, "Accept", "Reject") == 1
report.save_to_file("10_inspect.png")
print(f"part {part}: {verdict}, {'accepted' if accepted else 'rejected'}")
if not accepted:
    raise SystemExit(1)
