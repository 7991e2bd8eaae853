# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a newcomer does wrong first, and what a person at a terminal is told meanwhile."""

import os
import pty
import subprocess
import unittest

from program import LIMIT, PROGRAM, ProgramTest, environment

OPEN = "import vistrel\ncamera = vistrel.Camera()\ncamera.open_device()\n"


class Mistakes(ProgramTest):
    def log_of(self, line):
        """Standard error of a script that does one thing with the simulated camera."""
        return self.run_text(OPEN + line + "\n", "--camera", "sim").stderr

    def test_a_misspelt_parameter_that_is_set_suggests_near_ones(self):
        for name, wanted in (("exposure_tiem_us", "exposure_time_us"), ("gain_bd", "gain_db"),
                             ("frame_rate", "framerate"), ("ExposureTime", "ExposureTimeAbs"),
                             ("pixelformat", "PixelFormat")):
            log = self.log_of(f"print(camera.set_param('{name}', 1))")
            self.assertIn(f"parameter {name} cannot be set to 1: the camera has no such parameter;"
                          " did you mean ", log)
            self.assertIn(wanted, log.partition("did you mean ")[2])

    def test_a_misspelt_parameter_that_is_read_suggests_near_ones(self):
        log = self.log_of("camera.get_param('exposure')")
        self.assertRegex(log, r"exposure cannot be read: [^\n]*; did you mean [^\n]*exposure_time_us")
        self.assertIn("Exception: Parameter not supported by the camera.", log)

    def test_a_name_like_no_other_suggests_nothing(self):
        log = self.log_of("camera.set_param('qqqqqq', 1)")
        self.assertIn("the camera has no such parameter\n", log)

    def test_a_parameter_that_the_camera_lacks_is_not_suggested(self):
        log = self.log_of("camera.set_param('reverse_z', 1)")
        self.assertNotIn("reverse_x", log)

    def test_a_misspelt_property_says_which_there_are(self):
        log = self.log_of("camera.get_param('gain_db:maximum')")
        self.assertIn(":min, :max, :inc, :unit, :entries and :type", log)

    def test_a_script_that_needs_a_camera_says_how_to_open_one(self):
        result = self.run_text(OPEN)
        self.assertEqual(result.returncode, 1)
        self.assertIn("Exception: Camera not available\n", result.stderr)
        self.assertRegex(result.stderr, r"\nvistrel-run: no camera is open;[^\n]*--camera sim\n\Z")

    def test_with_a_camera_open_nothing_is_said_about_opening(self):
        result = self.run_text("import vistrel\nvistrel.Camera().open_device_by_SN('x')\n",
                               "--camera", "sim")
        self.assertIn("Exception: Camera not found\n", result.stderr)
        self.assertNotIn("no camera is open", result.stderr)

    def test_a_missing_camera_says_what_was_found(self):
        self.assert_refused(self.run_text(OPEN, "--camera", "cam1"), "cam1", "found: ", "sim")

    def test_a_missing_script_says_so(self):
        self.assert_refused(self.call("mesure.py"), "mesure.py", "No such file")


class Progress(ProgramTest):
    def terminal_output(self, *arguments, **changes):
        """What a person sees on a terminal that has standard error."""
        master, slave = pty.openpty()
        process = subprocess.Popen([PROGRAM, *arguments], stdin=subprocess.DEVNULL, stderr=slave,
                                   stdout=subprocess.PIPE, cwd=self.folder,
                                   env=environment(**{"TERM": "xterm", **changes}))
        os.close(slave)
        seen = b""
        while True:
            try:
                piece = os.read(master, 4096)
            except OSError:  # the program has ended
                break
            if not piece:
                break
            seen += piece
        os.close(master)
        self.printed = process.communicate(timeout=LIMIT)[0].decode()
        self.assertEqual(process.returncode, 0, seen)
        return seen.decode()

    def test_is_shown_while_cameras_are_looked_for_and_goes_away(self):
        seen = self.terminal_output("--list-cameras")
        self.assertEqual(seen, "Looking for cameras ...\r\x1b[K")
        self.assertIn("sim\t", self.printed)

    def test_is_shown_while_settings_are_saved_and_a_camera_restarts(self):
        script = self.script(OPEN + "camera.save_settings_to_file('s.json')\n"
                             "print(camera.restart_with_default_settings())\n"
                             "camera.load_settings_from_file('s.json')\n")
        seen = self.terminal_output("--camera", "sim", script)
        self.assertEqual(self.printed, "True\n")
        works = [line.strip() for line in seen.replace("\x1b[K", "").split("\r") if line.strip()]
        self.assertEqual([work.split()[0] for work in works], ["Saving", "Restarting", "Loading"])
        self.assertTrue(seen.endswith("\r\x1b[K"))

    def test_is_not_shown_where_no_terminal_is(self):
        result = self.call("--list-cameras")
        self.assertEqual(result.stderr, "")

    def test_is_not_shown_on_a_dumb_terminal(self):
        self.assertEqual(self.terminal_output("--list-cameras", TERM="dumb"), "")
        self.assertEqual(self.terminal_output("--list-cameras", TERM=None), "")


if __name__ == "__main__":
    unittest.main()
