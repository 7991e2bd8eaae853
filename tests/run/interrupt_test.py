# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Ctrl-C while vistrel-run works."""

import signal
import subprocess
import unittest

from program import LIMIT, PROGRAM, ProgramTest

HEAD = "import signal, sys, time, vistrel\nprint('ready')\n"


class Interrupts(ProgramTest):
    def start(self, *arguments, **options):
        streams = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
        process = subprocess.Popen([PROGRAM, *arguments], encoding="utf-8",
                                   **{**streams, **options})
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def interrupt(self, *arguments, asleep=False):
        """Interrupts the program when its script says that it is ready, or waits."""
        process = self.start(*arguments)
        self.assertEqual(process.stdout.readline(), "ready\n")
        if asleep:
            self.wait_until_asleep(process.pid)
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=LIMIT)
        return process.returncode, output, errors

    def assert_interrupted(self, text, *arguments, asleep=False):
        after = self.script("import vistrel\nvistrel.wait(0.01)\nprint('after')", "after.py")
        status, output, errors = self.interrupt(*arguments, self.script(HEAD + text), after,
                                                asleep=asleep)
        self.assertEqual((status, output), (1, "after\n"))
        self.assertTrue(errors.endswith("KeyboardInterrupt\n"), errors)
        self.assertEqual(errors.count("KeyboardInterrupt"), 1)

    def test_ends_a_sleep(self):
        self.assert_interrupted("time.sleep(3600)", asleep=True)

    def test_ends_a_busy_loop(self):
        self.assert_interrupted("while True: pass")

    def test_ends_a_wait(self):
        self.assert_interrupted("vistrel.wait(3600)", asleep=True)

    def test_ends_a_wait_without_end(self):
        self.assert_interrupted("vistrel.wait(float('inf'))", asleep=True)

    def test_ends_a_wait_for_a_frame(self):
        self.assert_interrupted("vistrel.wait_for_next_frame(3600.0)", "--open", self.picture(),
                                asleep=True)

    def test_ends_a_wait_for_frames_of_a_camera(self):
        self.assert_interrupted(
            "camera = vistrel.Camera()\n"
            "camera.open_device(0)\n"
            "camera.start_acquisition()\n"
            "while True: vistrel.wait_for_next_frame()\n", "--camera", "sim")

    def test_ends_a_script_whose_reader_does_not_read(self):
        process = self.start(self.script(HEAD + "while True: print('x' * 1000)"))
        self.assertEqual(process.stdout.readline(), "ready\n")
        self.wait_until_asleep(process.pid)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(LIMIT), 1)
        self.assertTrue(process.stderr.read().endswith("KeyboardInterrupt\n"))

    def wait_until_asleep(self, pid):
        """Waits until the program waits for something: it sleeps, and uses no time any more."""
        def look():
            with open(f"/proc/{pid}/stat", encoding="utf-8") as stat:
                fields = stat.read().rpartition(")")[2].split()
            return fields[0] in "SZ", fields[11:13]  # asleep, or ended
        before = None
        while before != (now := look()) or not now[0]:  # one that is kept waiting is not asleep
            before = now
            signal.sigtimedwait([], 0.3)

    def test_can_be_caught_and_the_script_goes_on(self):
        status, output, errors = self.interrupt(self.script(
            "import vistrel\ntry:\n    print('ready')\n    vistrel.wait(3600)\nexcept KeyboardInterrupt:\n"
            "    vistrel.wait(0.01)\n    print('caught')\n"), asleep=True)
        self.assertEqual((status, output, errors), (0, "caught\n", ""))

    def test_reaches_a_handler_of_the_script(self):
        status, output, errors = self.interrupt(self.script(
            "import signal\nsignal.signal(signal.SIGINT, lambda *_: print('handled'))\n" + HEAD
            + "vistrel.wait(3600)\nprint('later')\n"), asleep=True)
        self.assertEqual((status, output, errors), (0, "handled\nlater\n", ""))

    def test_ends_the_second_script_as_well_as_the_first(self):
        first = self.script("print('first')", "first.py")
        second = self.script(HEAD + "vistrel.wait(3600)", "second.py")
        process = self.start(first, second)
        self.assertEqual(process.stdout.readline(), "first\n")
        self.assertEqual(process.stdout.readline(), "ready\n")
        self.wait_until_asleep(process.pid)
        process.send_signal(signal.SIGINT)
        _, errors = process.communicate(timeout=LIMIT)
        self.assertEqual(process.returncode, 1)
        self.assertIn("KeyboardInterrupt", errors)

    def test_each_script_can_be_interrupted(self):
        scripts = [self.script(HEAD + "vistrel.wait(3600)", f"{i}.py") for i in range(3)]
        process = self.start(*scripts)
        for _ in scripts:
            self.assertEqual(process.stdout.readline(), "ready\n")
            self.wait_until_asleep(process.pid)
            process.send_signal(signal.SIGINT)
        _, errors = process.communicate(timeout=LIMIT)
        self.assertEqual(process.returncode, 1)
        self.assertEqual(errors.count("KeyboardInterrupt"), 3)

    def test_that_a_script_ignored_does_not_end_the_next_one(self):
        first = self.script("import os, signal\n"
                            "handler = signal.signal(signal.SIGINT, signal.SIG_IGN)\n"
                            "os.kill(os.getpid(), signal.SIGINT)\n"
                            "signal.signal(signal.SIGINT, handler)\n", "first.py")
        second = self.script("import vistrel\nvistrel.wait(0.01)\nprint('second')", "second.py")
        self.assert_succeeds(self.call(first, second), "second\n")

    def test_ends_the_program_before_the_scripts_run(self):
        """It reads its script from a pipe to which nobody writes."""
        process = self.start("-")
        self.wait_until_asleep(process.pid)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(LIMIT), -signal.SIGINT)

    def test_is_ignored_where_the_caller_ignores_it(self):
        process = self.start(self.script(HEAD + "vistrel.wait(0.5)\nprint('later')"),
                             preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_IGN))
        self.assertEqual(process.stdout.readline(), "ready\n")
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=LIMIT)
        self.assertEqual((process.returncode, output, errors), (0, "later\n", ""))


if __name__ == "__main__":
    unittest.main()
