# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Calls vistrel-run for the tests of this folder."""

import os
import pathlib
import struct
import subprocess
import tempfile
import unittest
import zlib

PROGRAM = os.environ["VISTREL_RUN"]
os.environ.pop("XDG_RUNTIME_DIR", None)  # as without a desktop session
LIMIT = 120  # seconds; nothing here takes that long unless it hangs


def environment(**changes):
    """The environment of the tests with changes; None takes a name away."""
    result = {**os.environ, **changes}
    return {name: value for name, value in result.items() if value is not None}


def write_png(path, width, height, grey):
    """Writes an 8-bit grey picture of one value."""

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    header = struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0)
    lines = (b"\0" + bytes([grey]) * width) * height
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
                     + chunk(b"IDAT", zlib.compress(lines)) + chunk(b"IEND", b""))


class ProgramTest(unittest.TestCase):
    """A test with a folder of its own for scripts and pictures."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()

    def script(self, text, name="script.py"):
        """Writes a script and returns its path."""
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text if isinstance(text, bytes) else text.encode())
        return str(path)

    def picture(self, name="picture.png", grey=7):
        path = self.folder / name
        write_png(path, 6, 3, grey)
        return str(path)

    def call(self, *arguments, **options):
        """Runs the program to its end."""
        defaults = {"cwd": self.folder, "encoding": "utf-8", "timeout": LIMIT,
                    "stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        if "input" not in options:
            defaults["stdin"] = subprocess.DEVNULL
        return subprocess.run([PROGRAM, *arguments], check=False, **{**defaults, **options})

    def run_text(self, text, *arguments, **options):
        """Runs one script text."""
        return self.call(*arguments, self.script(text), **options)

    def assert_succeeds(self, result, output):
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, output, ""))

    def assert_refused(self, result, *words):
        """Status 2 and one line on standard error that holds some words."""
        self.assertEqual(result.returncode, 2, result)
        self.assertEqual(result.stdout, "")
        self.assertRegex(result.stderr, r"\Avistrel-run: [^\n]+\n\Z")
        for word in words:
            self.assertIn(word, result.stderr)
