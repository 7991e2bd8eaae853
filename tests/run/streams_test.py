# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Standard output and error of vistrel-run, and what happens when they break."""

import os
import stat
import subprocess
import unittest

from program import LIMIT, PROGRAM, ProgramTest

ENDLESS = "while True:\n    print('line')\n"


def full_disk():
    """A stream that takes nothing."""
    stream = open("/dev/full", "w", encoding="utf-8")  # the caller closes it
    assert stat.S_ISCHR(os.fstat(stream.fileno()).st_mode), "/dev/full is a file"
    return stream


class Output(ProgramTest):
    def start(self, text, **streams):
        process = subprocess.Popen([PROGRAM, self.script(text)], encoding="utf-8",
                                   stdin=subprocess.PIPE, **streams)
        self.addCleanup(process.__exit__, None, None, None)  # waits, and closes the pipes
        self.addCleanup(process.kill)
        return process

    def assert_output_failed(self, status, errors, reason):
        self.assertEqual(status, 1)
        lines = [line for line in errors.splitlines() if line.startswith("vistrel-run: ")]
        self.assertEqual(lines, [f"vistrel-run: cannot write standard output: {reason}"])

    def test_every_piece_comes_at_once(self):
        process = self.start("import sys\n"
                             "print('now', end='')\n"
                             "sys.__stdin__.read(1)\n"
                             "print(', later')\n", stdout=subprocess.PIPE)
        self.assertEqual(process.stdout.read(3), "now")
        output, _ = process.communicate("x", LIMIT)
        self.assertEqual((output, process.returncode), (", later\n", 0))

    def test_much_of_it_comes_whole_and_in_order(self):
        result = self.run_text("print('ä' * 3_000_000)\nfor i in range(20000): print(i)\n")
        expected = "ä" * 3_000_000 + "\n" + "".join(f"{i}\n" for i in range(20000))
        self.assertTrue(result.stdout == expected)
        self.assertEqual(result.returncode, 0)

    def test_a_slow_reader_gets_everything(self):
        process = self.start("print('x' * 500_000)", stdout=subprocess.PIPE)
        pieces = []
        while piece := process.stdout.read(1000):
            pieces.append(piece)
        self.assertEqual("".join(pieces), "x" * 500_000 + "\n")
        self.assertEqual(process.wait(LIMIT), 0)

    def test_a_stream_that_does_not_block_gets_everything(self):
        reading, writing = os.pipe()
        os.set_blocking(writing, False)
        process = self.start("print('x' * 500_000)", stdout=writing)
        os.close(writing)
        with open(reading, encoding="utf-8") as stream:
            self.assertEqual(stream.read(), "x" * 500_000 + "\n")
        self.assertEqual(process.wait(LIMIT), 0)

    def test_a_full_disk_ends_the_run(self):
        with full_disk() as full:
            process = self.start(ENDLESS, stdout=full, stderr=subprocess.PIPE)
        _, errors = process.communicate(timeout=LIMIT)
        self.assert_output_failed(process.returncode, errors, "No space left on device")

    def test_a_closed_pipe_ends_the_run(self):
        process = self.start(ENDLESS, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        process.stdout.readline()
        process.stdout.close()
        errors = process.stderr.read()
        self.assert_output_failed(process.wait(LIMIT), errors, "Broken pipe")

    def test_a_script_cannot_swallow_the_failure(self):
        with full_disk() as full:
            process = self.start("try:\n    print('line')\nexcept BaseException:\n    pass\n",
                                 stdout=full, stderr=subprocess.PIPE)
        _, errors = process.communicate(timeout=LIMIT)
        self.assert_output_failed(process.returncode, errors, "No space left on device")

    def test_a_stream_closed_from_the_beginning_is_no_other_file(self):
        target = self.folder / "target"
        result = self.run_text(f"with open({str(target)!r}, 'w') as file:\n"
                               "    print('stray')\n",
                               preexec_fn=lambda: os.close(1))
        self.assert_output_failed(result.returncode, result.stderr, "Bad file descriptor")
        self.assertEqual(target.read_text(), "")

    def test_information_too_needs_its_stream(self):
        for option in ("--help", "--version", "--list-cameras"):
            with self.subTest(option), full_disk() as full:
                result = subprocess.run([PROGRAM, option], stdout=full, stderr=subprocess.PIPE,
                                        encoding="utf-8", timeout=LIMIT, check=False)
                self.assert_output_failed(result.returncode, result.stderr,
                                          "No space left on device")


class Errors(ProgramTest):
    def test_the_log_says_why_a_file_was_not_opened(self):
        result = self.run_text("import vistrel\nvistrel.open_file('nowhere.png')\n")
        self.assertEqual(result.returncode, 1)
        self.assertIn('nowhere.png": there is no such file\n', result.stderr)
        self.script("text", "notes.txt")
        result = self.run_text("import vistrel\nvistrel.open_file('notes.txt')\n")
        self.assertIn('notes.txt": no picture format goes by its name\n', result.stderr)

    def test_they_come_after_the_output_of_their_run(self):
        first = self.script("print('1')\n1/0", "first.py")
        second = self.script("print('2')\n[][1]", "second.py")
        result = self.call(first, second, stderr=subprocess.STDOUT)
        marks = [line.split(":")[0] for line in result.stdout.splitlines()
                 if line[0] in "12ZI"]
        self.assertEqual(marks, ["1", "ZeroDivisionError", "2", "IndexError"])

    def test_texts_without_an_end_of_line_get_one(self):
        script = self.script("import sys\nsys.stderr.write('text')")
        result = self.call(script, script)
        self.assertEqual((result.returncode, result.stderr), (1, "text\ntext\n"))

    def test_log_lines_are_plain(self):
        path = self.script("no picture", "größe.png")
        result = self.run_text("import vistrel\n"
                               "try:\n"
                               f"    vistrel.open_file({path!r})\n"
                               "except SystemError:\n"
                               "    print('refused')\n")
        self.assertEqual((result.returncode, result.stdout), (0, "refused\n"))
        self.assertRegex(result.stderr, r"\A[^\n]*größe\.png[^\n]*\n\Z")

    def test_a_full_disk_under_them_hurts_nobody(self):
        with full_disk() as full:
            result = self.call(self.script("1/0"), self.script("print(2)", "2.py"), stderr=full)
        self.assertEqual((result.returncode, result.stdout), (1, "2\n"))


if __name__ == "__main__":
    unittest.main()
