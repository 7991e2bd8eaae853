# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Films that vistrel-run records: they can be played however the program ends."""

import pathlib
import re
import signal
import subprocess
import unittest

import cv2
from program import LIMIT, PROGRAM, ProgramTest

EXAMPLE = pathlib.Path(__file__).parents[2] / "examples" / "film.py"

# A film of this kind cannot be played before its end is written.
HEAD = """
import vistrel
camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
vistrel.add_chain_object("threshold", {"level": 100})
assert vistrel.record_video_to_file("made/film.mp4", view) is True
for _ in range(5):
    assert vistrel.wait_for_next_frame(30.0, view)
"""


class Films(ProgramTest):
    def pictures(self, name="made/film.mp4"):
        player = cv2.VideoCapture(str(self.folder / name))
        pictures = []
        while True:
            there, picture = player.read()
            if not there:
                return pictures
            pictures.append(picture)

    def test_end_with_the_recording(self):
        text = HEAD + "vistrel.stop_video_recording(view)\nprint('done')"
        self.assert_succeeds(self.run_text(text, "--camera", "sim"), "done\n")
        self.assertGreaterEqual(len(self.pictures()), 4)

    def test_end_with_the_view(self):
        text = HEAD + "vistrel.close_view(view)\nprint('done')"
        self.assert_succeeds(self.run_text(text, "--camera", "sim"), "done\n")
        self.assertGreaterEqual(len(self.pictures()), 4)

    def test_end_with_the_program(self):
        self.assert_succeeds(self.run_text(HEAD, "--camera", "sim"), "")
        self.assertGreaterEqual(len(self.pictures()), 4)

    def test_end_with_an_error_of_the_script(self):
        result = self.run_text(HEAD + "1 / 0", "--camera", "sim")
        self.assertEqual(result.returncode, 1)
        self.assertGreaterEqual(len(self.pictures()), 4)

    def test_cannot_be_played_without_their_end(self):
        result = self.run_text(HEAD + "import os\nos._exit(7)", "--camera", "sim")
        self.assertEqual(result.returncode, 7)
        self.assertEqual(self.pictures(), [])

    def test_end_with_ctrl_c(self):
        script = self.script(HEAD + "print('ready', flush=True)\nvistrel.wait(3600)")
        with subprocess.Popen([PROGRAM, "--camera", "sim", script], cwd=self.folder,
                              encoding="utf-8", stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as process:
            self.assertEqual(process.stdout.readline(), "ready\n")
            process.send_signal(signal.SIGINT)
            _, errors = process.communicate(timeout=LIMIT)
        self.assertEqual(process.returncode, 1)
        self.assertIn("KeyboardInterrupt", errors)
        self.assertGreaterEqual(len(self.pictures()), 4)

    def test_show_what_the_view_shows(self):
        self.assert_succeeds(self.run_text(HEAD, "--camera", "sim"), "")
        picture = self.pictures()[-1]
        between = ((picture > 80) & (picture < 170)).mean()
        self.assertLess(between, 0.1)  # black and white, but for the edges

    def test_of_the_example_can_be_played(self):
        result = self.call("--camera", "sim", "--cwd", str(self.folder), str(EXAMPLE))
        self.assertEqual((result.returncode, result.stdout), (0, "saved film.avi\n"))
        pictures = self.pictures("film.avi")
        # A slow machine may drop some, and says how many.
        lacking = re.fullmatch(r"[^\n]*film.avi\" lacks (\d+) of \d+ pictures[^\n]*\n", result.stderr)
        if not lacking:
            self.assertEqual(result.stderr, "")
        self.assertGreaterEqual(len(pictures) + int(lacking[1] if lacking else 0), 19)
        self.assertGreater(pictures[-1].std(), 5)  # there is something to see


if __name__ == "__main__":
    unittest.main()
