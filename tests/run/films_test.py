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
# A slow machine leaves pictures out, and says how many.
LACKING = re.compile(r'"[^\n]*" lacks (\d+) of \d+ pictures[^\n]*\n')

# A film of this kind cannot be played before its end is written.
HEAD = """
import vistrel
camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
vistrel.add_chain_object("threshold", {"level": 100})
assert vistrel.record_video_to_file("made/film.mp4", view) is True
for _ in range(6):  # two may have passed the recorder before it began
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

    def assert_filmed(self, log, at_least=4, name="made/film.mp4"):
        """The film can be played, and what it lacks is in the log; its pictures."""
        pictures = self.pictures(name)
        lacking = LACKING.search(log)
        self.assertGreater(len(pictures), 0, log)
        self.assertGreaterEqual(len(pictures) + int(lacking[1] if lacking else 0), at_least, log)
        return pictures

    def assert_records(self, result, output):
        """The script succeeds, with nothing in the log but what the film lacks; its pictures."""
        self.assertEqual((result.returncode, result.stdout, LACKING.sub("", result.stderr)),
                         (0, output, ""))
        return self.assert_filmed(result.stderr)

    def test_end_with_the_recording(self):
        text = HEAD + "vistrel.stop_video_recording(view)\nprint('done')"
        self.assert_records(self.run_text(text, "--camera", "sim"), "done\n")

    def test_end_with_the_view(self):
        text = HEAD + "vistrel.close_view(view)\nprint('done')"
        self.assert_records(self.run_text(text, "--camera", "sim"), "done\n")

    def test_end_with_the_program(self):
        self.assert_records(self.run_text(HEAD, "--camera", "sim"), "")

    def test_end_with_an_error_of_the_script(self):
        result = self.run_text(HEAD + "1 / 0", "--camera", "sim")
        self.assertEqual(result.returncode, 1)
        self.assert_filmed(result.stderr)

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
        self.assert_filmed(errors)

    def test_show_what_the_view_shows(self):
        picture = self.assert_records(self.run_text(HEAD, "--camera", "sim"), "")[-1]
        between = ((picture > 80) & (picture < 170)).mean()
        self.assertLess(between, 0.1)  # black and white, but for the edges

    def test_of_the_example_can_be_played(self):
        result = self.call("--camera", "sim", "--cwd", str(self.folder), str(EXAMPLE))
        self.assertEqual((result.returncode, result.stdout, LACKING.sub("", result.stderr)),
                         (0, "saved film.avi\n", ""))
        pictures = self.assert_filmed(result.stderr, at_least=18, name="film.avi")
        self.assertGreater(pictures[-1].std(), 5)  # there is something to see


if __name__ == "__main__":
    unittest.main()
