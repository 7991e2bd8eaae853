# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The first example, unchanged, on a camera that speaks GigE Vision from another process."""

import pathlib
import shutil
import subprocess
import time
import unittest

import program

EXAMPLE = pathlib.Path(__file__).resolve().parents[2] / "examples" / "first_light.py"
SERIAL = "FIRSTLIGHT"

DYING = """
import os, signal, numpy, vistrel
camera = vistrel.Camera()
camera.open_device_by_SN("firstlight")
view = camera.start_acquisition()
assert vistrel.wait_for_next_frame(60.0, view)
print("streams")
os.kill(%d, signal.SIGKILL)
while vistrel.get_number_devices() > 0:
    vistrel.wait(0.1)
print(numpy.asarray(vistrel.get_view_image(view)).shape)
print(camera)
for call in (lambda: camera.get_param("gain_db"), camera.get_roi):
    try:
        print(call())
    except SystemError:
        print("SystemError")
print(camera.start_acquisition())
print(camera.restart_with_default_settings())
print("cameras:", vistrel.get_number_devices())
assert not vistrel.wait_for_next_frame(0.0, view)
print(numpy.asarray(vistrel.get_view_image(view)).shape)
"""


class NetworkCamera(program.ProgramTest):
    def setUp(self):
        super().setUp()
        command = shutil.which("arv-fake-gv-camera-0.8")
        self.assertIsNotNone(command, "the package aravis-tools is not installed")
        self.camera = camera = subprocess.Popen([command, "-i", "127.0.0.1", "-s", SERIAL],
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(camera.wait)
        self.addCleanup(camera.kill)
        self.addCleanup(camera.stdout.close)
        self.camera_id = self.find_camera()

    def find_camera(self):
        listed, deadline = "", time.monotonic() + program.LIMIT
        while time.monotonic() < deadline and self.camera.poll() is None:
            listed = self.call("--list-cameras").stdout  # which takes a second
            for line in listed.splitlines():
                if SERIAL in line:
                    return line.split("\t")[0]
        self.fail("the network camera was not found:\n" + listed)

    def test_first_light_runs_unchanged(self):
        result = self.call("--camera", self.camera_id, "--cwd", str(self.folder), str(EXAMPLE))
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("cameras: 1\n", result.stdout)
        self.assertIn(SERIAL, result.stdout)
        self.assertIn("saved first_light.png\n", result.stdout)
        picture = (self.folder / "first_light.png").read_bytes()
        self.assertTrue(picture.startswith(b"\x89PNG\r\n\x1a\n"))

    def test_a_camera_that_dies_leaves_its_picture_and_an_error(self):
        result = self.run_text(DYING % self.camera.pid, "--camera", self.camera_id)
        self.assertEqual(result.returncode, 0, result)
        self.assertEqual(result.stdout.splitlines(), [
            "streams", "(512, 512)", "camera(disconnected)", "SystemError", "SystemError", "-1",
            "False", "cameras: 0", "(512, 512)"])
        self.assertIn("the connection broke", result.stderr)


if __name__ == "__main__":
    unittest.main()
