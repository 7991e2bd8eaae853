# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""vistrel-viewer in a real window: a picture, a live camera, a script that is run by its key.

With VISTREL_WINDOW_PICTURE set the last look at the window is kept there.
"""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

import numpy
from desktop import Screen, Viewer, wait_for
from PIL import Image

MAGENTA = (255, 0, 255)
# Prints a bar of full blocks, which is seen without reading.
SCRIPT = """
import vistrel
view = vistrel.get_active_view_id()
print("seen", vistrel.wait_for_next_frame(60.0, view))
print("\\u2588" * 30)
vistrel.get_view_image(view).save_to_file("frame.png")
"""
# Says when it has begun and when it is stopped, and lets nothing else end it.
ENDLESS = """
import time
open("begun", "w").close()
try:
    while True:
        {}
except KeyboardInterrupt:
    open("stopped", "w").close()
"""


def longest_run(line):
    """How many neighbours are true at most."""
    ends = numpy.flatnonzero(numpy.diff(numpy.concatenate(([0], line.astype(int), [0]))))
    return int((ends[1::2] - ends[::2]).max(initial=0))


def magenta_pixels(picture):
    return int((numpy.asarray(picture) == MAGENTA).all(axis=2).sum())


def frame_lines(picture):
    """Lines that cross the camera's picture: a ramp of greys, many side by side."""
    pixels = numpy.asarray(picture).astype(int)
    is_grey = (pixels.max(axis=2) == pixels.min(axis=2))
    is_ramp = is_grey[:, 1:] & is_grey[:, :-1] & (numpy.diff(pixels[:, :, 0], axis=1) != 0)
    return sum(longest_run(line) >= 60 for line in is_ramp)


def bar_lines(picture):
    """Lines that cross a bar of full blocks: dark on the light ground of the output pane."""
    dark = numpy.asarray(picture).max(axis=2) < 64
    dark |= numpy.roll(dark, 1, axis=1)  # between two blocks there may be a lighter column
    return sum(longest_run(line) >= 150 for line in dark)


def shows_bar(picture):
    """Whether a bar is there as high as a character; a frame's edge crosses a line or two."""
    return bar_lines(picture) >= 8


class Window(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        Image.new("RGB", (300, 200), MAGENTA).save(self.folder / "magenta.png")
        (self.folder / "seen.py").write_text(SCRIPT, encoding="utf-8")

    def test_shows_a_picture_and_a_camera_and_runs_a_script_by_its_key(self):
        settings = "[General]\ndarkTheme=false\n"
        with Screen() as screen, Viewer(screen, self.folder, "--camera", "sim", "seen.py",
                                        settings=settings) as viewer:
            picture = viewer.shows(frame_lines, "the camera's frames in the window")
            self.assertEqual((magenta_pixels(picture), shows_bar(picture)), (0, False))
            viewer.press("F5")
            picture = viewer.shows(shows_bar, "the script's output in the window")
            wait_for((self.folder / "frame.png").exists, "the frame that the script saves")
            with Image.open(self.folder / "frame.png") as frame:
                self.assertEqual(frame.size, (512, 512))
            self.keep(picture)
            self.assertEqual(viewer.close(), 0)

    def test_shows_the_picture_that_it_is_started_with(self):
        with Screen() as screen, Viewer(screen, self.folder, "magenta.png") as viewer:
            viewer.shows(lambda picture: magenta_pixels(picture) > 10_000, "the picture")
            self.assertEqual(viewer.close(), 0)

    def assert_stopped_by_the_stop_window(self, statement):
        (self.folder / "endless.py").write_text(ENDLESS.format(statement), encoding="utf-8")
        with Screen() as screen, Viewer(screen, self.folder, "endless.py") as viewer:
            viewer.press("F5")
            wait_for((self.folder / "begun").exists, "the script's beginning")
            window = wait_for(lambda: screen.window_named("Script is running"), "the Stop window")
            self.assertFalse((self.folder / "stopped").exists())
            screen.click_lower_right(window)
            wait_for((self.folder / "stopped").exists, "the script's end")
            wait_for(lambda: not screen.window_named("Script is running"), "the window's end")
            self.assertEqual(viewer.close(), 0)

    def test_stops_a_script_that_computes(self):
        self.assert_stopped_by_the_stop_window("pass")

    def test_stops_a_script_that_sleeps(self):
        self.assert_stopped_by_the_stop_window("time.sleep(60)")

    def install(self):
        subprocess.run(["cmake", "--install", os.environ["VISTREL_BUILD"], "--prefix", self.folder],
                       check=True, stdout=subprocess.DEVNULL)

    def test_is_installed_with_the_icon_that_its_desktop_entry_names(self):
        self.install()
        entry = self.folder / "share/applications/vistrel-viewer.desktop"
        icon, = (line.removeprefix("Icon=") for line in entry.read_text("utf-8").splitlines()
                 if line.startswith("Icon="))
        for side in (16, 48, 256):
            path = self.folder / f"share/icons/hicolor/{side}x{side}/apps/{icon}.png"
            with Image.open(path) as picture:
                self.assertEqual((picture.size, picture.mode), ((side, side), "RGBA"))

    def test_offers_its_examples_where_it_is_installed(self):
        self.install()
        with Screen() as screen, Viewer(screen, self.folder, "--camera", "sim",
                                        program=self.folder / "bin/vistrel-viewer") as viewer:
            viewer.press("alt+s", "e", "Return")  # the first of the menu
            viewer.press("F5")
            made = self.folder / "share/vistrel/examples/conversions.png"
            wait_for(made.exists, "the picture that the first example makes")
            self.assertEqual(viewer.close(), 0)

    def keep(self, picture):
        if "VISTREL_WINDOW_PICTURE" in os.environ:
            picture.save(os.environ["VISTREL_WINDOW_PICTURE"])


if __name__ == "__main__":
    unittest.main()
