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


class NetworkCamera(program.ProgramTest):
    def setUp(self):
        super().setUp()
        command = shutil.which("arv-fake-gv-camera-0.8")
        self.assertIsNotNone(command, "the package aravis-tools is not installed")
        camera = subprocess.Popen([command, "-i", "127.0.0.1", "-s", SERIAL],
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(camera.wait)
        self.addCleanup(camera.kill)
        self.addCleanup(camera.stdout.close)
        self.camera_id = self.find_camera()

    def find_camera(self):
        for _ in range(10):
            listed = self.call("--list-cameras").stdout
            for line in listed.splitlines():
                if SERIAL in line:
                    return line.split("\t")[0]
            time.sleep(0.5)
        self.fail("the network camera was not found:\n" + listed)

    def test_first_light_runs_unchanged(self):
        result = self.call("--camera", self.camera_id, "--cwd", str(self.folder), str(EXAMPLE))
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("cameras: 1\n", result.stdout)
        self.assertIn(SERIAL, result.stdout)
        self.assertIn("saved first_light.png\n", result.stdout)
        picture = (self.folder / "first_light.png").read_bytes()
        self.assertTrue(picture.startswith(b"\x89PNG\r\n\x1a\n"))


if __name__ == "__main__":
    unittest.main()
