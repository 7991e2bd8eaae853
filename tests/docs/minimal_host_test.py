# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The smallest host, as its maker would try it."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

FOLDER = Path(__file__).resolve().parents[2] / "examples" / "minimal_host"
PROGRAM = os.environ["VISTREL_MINIMAL_HOST"]
PLUGIN = os.environ["VISTREL_PLUGIN"]


def call(*arguments: str) -> "subprocess.CompletedProcess[str]":
    # As a linker that binds at once would do it: every operation that the plugin names is there.
    environment = {**os.environ, "LD_BIND_NOW": "1"}
    return subprocess.run([PROGRAM, *arguments], check=False, capture_output=True, text=True,
                          timeout=120, env=environment)


def run_text(text: str) -> "subprocess.CompletedProcess[str]":
    with tempfile.NamedTemporaryFile("w", suffix=".py") as script:
        script.write(text)
        script.flush()
        return call(PLUGIN, script.name)


class MinimalHost(unittest.TestCase):
    def test_it_has_less_than_150_lines(self) -> None:
        self.assertLess(len((FOLDER / "main.cpp").read_text().splitlines()), 150)

    def test_runs_the_script_beside_it(self) -> None:
        result = call(PLUGIN, str(FOLDER / "hello.py"))
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(result.stdout.splitlines(), [
            "Station minimal, the answer is 42",
            "View 0 shows Vistrel image, width: 4, height: 3, channels: 1, "
            "bit per channel (bpc): 8, type: unsigned int",
            "Pixel (1, 2) is 200",
            "No dialogs: the host has no user interface"])

    def test_a_failing_script_ends_it_with_1_and_a_traceback(self) -> None:
        result = run_text("print('begun')\n1 / 0\n")
        self.assertEqual((result.returncode, result.stdout), (1, "begun\n"))
        self.assertIn("ZeroDivisionError", result.stderr)

    def test_services_that_it_lacks_are_errors_of_the_script(self) -> None:
        for call_text, reason in (
                ("get_number_devices()", "the host's cameras are not available"),
                ("Image().from_file('a.png')", "the host's file formats are not available")):
            result = run_text(f"import vistrel\nvistrel.{call_text}\n")
            self.assertEqual(result.returncode, 1)
            self.assertIn(f"Exception: {reason}\n", result.stderr)

    def test_a_picture_in_the_view_may_be_replaced(self) -> None:
        result = run_text("import vistrel\n"
                          "image = vistrel.Image()\n"
                          "for width in (2, 3, 4):\n"
                          "    image.alloc(width, 2, 1, 8)\n"
                          "    vistrel.new_view_with_image(image)\n"
                          "    vistrel.set_view_image(image, 0)\n"
                          "    vistrel.set_view_image(image, 7)\n"
                          "print(vistrel.get_view_image().width)\n")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "4\n", ""))

    def test_wrong_usage_is_told(self) -> None:
        for arguments in ((), (PLUGIN,), (PLUGIN, "/nowhere.py"), ("/nowhere.so", os.devnull)):
            result = call(*arguments)
            self.assertEqual(result.returncode, 2, arguments)
            self.assertTrue(result.stderr.startswith("minimal_host: "), result.stderr)


if __name__ == "__main__":
    unittest.main()
