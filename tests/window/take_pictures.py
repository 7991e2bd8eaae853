# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Takes the pictures of the viewer's window that the documents show: take_pictures.py FOLDER"""

import sys
import tempfile
import time
from pathlib import Path

import numpy
from desktop import Screen, Viewer

LINK = (0x1D, 0x5F, 0xA8)  # in light colours
DARK = "[General]\ndarkTheme=true\n"
LIGHT = "[General]\ndarkTheme=false\n"

LIVE_PROFILE = """# The brightness along the middle line, drawn anew for every frame.
import vistrel

view = vistrel.get_active_view_id()
chart = vistrel.Image()
chart.alloc(640, 480, 4, 8)
chart_view = -1
frames = 0

while vistrel.wait_for_next_frame(5.0, view):
    image = vistrel.get_view_image(view)
    graph = vistrel.Graph()
    {theme}
    series = graph.add_series()
    middle = image.height // 2
    for x in range(image.width):
        value = image.get_pixel_value(x, middle)
        graph.series_add_point(series, x, value)
    graph.set_x_axis_range(0, image.width - 1)
    graph.set_y_axis_range(0, 255)
    graph.draw_into_image(chart)
    if chart_view < 0:
        vistrel.new_view_with_image(chart, "profile")
        chart_view = vistrel.get_active_view_id()
        vistrel.tile_views()
        vistrel.activate_view(view)
    else:
        vistrel.set_view_image(chart, chart_view)
    frames += 1
    if frames % 10 == 0:
        print("frame", frames, image.measure_rect()[0]["mean"])
"""

MISTAKEN = """# Mean brightness of the regions of a part.
import vistrel

REGIONS = {"left": (0, 0, 256, 512), "right": (256, 0, 256, 512)}


def brightness(image, region):
    part = image.copy_rect(*region)
    return part.mean()


image = vistrel.get_view_image()
print("picture of", image.width, "x", image.height)
for name, region in REGIONS.items():
    print(name, brightness(image, region))
"""

CHAINED = """import vistrel

vistrel.add_chain_object("Gaussian Blur", {"sigma": 4})
vistrel.add_chain_object("Threshold", {"level": 120})
vistrel.add_chain_object("Rotate")
"""


def live_with_chart(viewer):
    viewer.press("F5")
    time.sleep(8)


def error_clicked(viewer):
    viewer.press("F5")
    is_link = lambda picture: (numpy.asarray(picture) == LINK).all(axis=2)  # noqa: E731
    picture = viewer.shows(lambda seen: is_link(seen).sum() > 50, "the lines of the error")
    y, x = numpy.argwhere(is_link(picture))[0]
    viewer.screen.click(int(x) + 3, int(y) + 3)
    time.sleep(1)


def chain_with_settings(viewer):
    viewer.press("F5")
    viewer.press("alt+2")  # away, and back before the panel that lies on it
    viewer.press("alt+2")
    time.sleep(2)


def take(folder, name, settings, script, text, prepare):
    with tempfile.TemporaryDirectory() as place, Screen(1440, 900) as screen:
        (Path(place) / script).write_text(text, encoding="utf-8")
        with Viewer(screen, place, "--camera", "sim", script, settings=settings) as viewer:
            time.sleep(2)
            viewer.press("ctrl+t")  # views fill the area
            prepare(viewer)
            screen.picture().save(Path(folder) / name, optimize=True)


def main():
    folder = sys.argv[1]
    for name, settings, theme in (("viewer_light.png", LIGHT, "graph.set_dark_color_theme(False)"),
                                  ("viewer_dark.png", DARK, "graph.set_dark_color_theme()")):
        take(folder, name, settings, "live_profile.py", LIVE_PROFILE.format(theme=theme),
             live_with_chart)
    take(folder, "viewer_error.png", LIGHT, "regions.py", MISTAKEN, error_clicked)
    take(folder, "viewer_chain.png", LIGHT, "find_edges.py", CHAINED, chain_with_settings)


if __name__ == "__main__":
    main()
