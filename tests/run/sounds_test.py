# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Sounds, with and without an audio device. The device is a sound server of the test's own that
records what would be heard."""

import array
import math
import subprocess
import time
import unittest
import wave

from program import LIMIT, ProgramTest, environment

PLAYS = "import vistrel\nvistrel.play_sound('bell.wav')\nprint('at once')\n"
PLAYS_ELSEWHERE = """
import threading, vistrel
thread = threading.Thread(target=vistrel.play_sound, args=("bell.wav",))
thread.start()
thread.join()
"""


def write_wave(path, seconds):
    """A tone of 440 Hz."""
    rate = 44100
    samples = array.array("h", (round(8000 * math.sin(i * 2764.6 / rate))
                                for i in range(round(rate * seconds))))
    with wave.open(str(path), "wb") as file:
        file.setparams((1, 2, rate, len(samples), "NONE", ""))
        file.writeframes(samples.tobytes())


class Sounds(ProgramTest):
    def setUp(self):
        super().setUp()
        write_wave(self.folder / "bell.wav", 0.3)

    def start(self, *command, output=subprocess.DEVNULL):
        """Starts a process that ends with the test."""
        process = subprocess.Popen(command, env=self.devices, stdout=output,
                                   stderr=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)

    def wait_until(self, holds, failure):
        deadline = time.monotonic() + LIMIT
        while not holds():
            self.assertLess(time.monotonic(), deadline, failure)
            time.sleep(0.02)

    def use_devices(self):
        """A server with one device, on a socket of its own."""
        socket = self.folder / "server"
        self.devices = environment(PULSE_SERVER=f"unix:{socket}", HOME=str(self.folder),
                                   XDG_RUNTIME_DIR=str(self.folder))
        self.start("pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no",
                   "--exit-idle-time=-1", "--load=module-null-sink sink_name=recorded",
                   f"--load=module-native-protocol-unix socket={socket} auth-anonymous=1")
        answers = ["pactl", "list", "sinks"]
        self.wait_until(lambda: subprocess.run(answers, env=self.devices, check=False,
                                               capture_output=True).returncode == 0,
                        "the sound server does not start")

    def heard(self, script):
        """What is heard while a script runs and just after it: the loudest sample."""
        self.use_devices()
        recording = self.folder / "recording"
        with recording.open("wb") as file:
            self.start("parec", "--device=recorded.monitor", "--raw", "--latency-msec=20",
                       output=file)

        def wait_for_more(count):
            size = recording.stat().st_size + count
            self.wait_until(lambda: recording.stat().st_size >= size, "nothing is recorded")

        wait_for_more(1)
        result = self.run_text(script, env=self.devices)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        wait_for_more(40_000)  # a quarter of a second
        samples = recording.read_bytes()
        return max(array.array("h", samples[:len(samples) // 2 * 2]))

    def test_are_heard_to_their_end(self):
        self.assertGreater(self.heard(PLAYS), 1000)

    def test_are_heard_when_other_threads_play_them(self):
        self.assertGreater(self.heard(PLAYS_ELSEWHERE), 1000)

    def test_nothing_is_heard_without_them(self):
        self.assertEqual(self.heard("pass"), 0)

    def test_that_are_no_sounds_are_named(self):
        self.use_devices()
        (self.folder / "bell.wav").write_text("text")
        result = self.run_text(PLAYS, env=self.devices)
        self.assertEqual((result.returncode, result.stdout), (0, "at once\n"))
        self.assertRegex(result.stderr, r"\AThe sound \S+/bell.wav was not played: .+\n\Z")

    def test_without_a_device_are_log_lines(self):
        result = self.run_text(PLAYS, env=environment(PULSE_SERVER="unix:/nobody"))
        self.assertEqual((result.returncode, result.stdout), (0, "at once\n"))
        self.assertEqual(result.stderr, f"The sound {self.folder}/bell.wav was not "
                                        "played: there is no audio device\n")

    def test_that_are_missing_are_log_lines(self):
        result = self.run_text(PLAYS.replace("bell", "none"))
        self.assertEqual((result.returncode, result.stdout), (0, "at once\n"))
        self.assertEqual(result.stderr,
                         f"There is no sound file {self.folder}/none.wav\n")


if __name__ == "__main__":
    unittest.main()
