# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Options of vistrel-run, and what it refuses before the first script runs."""

import os
import subprocess
import unittest

from program import LIMIT, PROGRAM, ProgramTest

# Root may read every file, unless it gives that up.
LIKE_ANYBODY = (["setpriv", "--bounding-set=-dac_override,-dac_read_search"]
                if os.geteuid() == 0 else [])
PRINTS = "print('ran')"


class Information(ProgramTest):
    def test_help_names_every_option(self):
        result = self.call("--help")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        for option in ("open", "camera", "list-cameras", "image", "answer", "choose", "cwd", "python-home", "plugin",
                       "version", "help"):
            self.assertIn(f"--{option}", result.stdout)

    def test_version_names_program_qt_and_language(self):
        result = self.call("--version")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertRegex(result.stdout, r"\Avistrel-run \d+\.\d+\.\d+\nQt 6\.\S+\nPython 3\.\S+\n\Z")

    def test_without_arguments_it_shows_two_examples_and_fails(self):
        result = self.call()
        self.assertEqual((result.returncode, result.stdout), (2, ""))
        self.assertTrue(result.stderr.startswith("Usage: vistrel-run "), result.stderr)
        examples = result.stderr.partition("Examples:\n")[2].partition("\n\n")[0].splitlines()
        self.assertEqual([line.split()[0] for line in examples], ["vistrel-run"] * 2)
        self.assertIn("--help", result.stderr)
        self.assertLess(len(result.stderr.splitlines()), 12)

    def test_help_ends_with_examples(self):
        examples = self.call("--help").stdout.partition("Examples:\n")[2].splitlines()
        self.assertEqual([line.split()[0] for line in examples], ["vistrel-run"] * 3)

    def test_cameras_are_listed_with_four_fields(self):
        result = self.call("--list-cameras")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        last = result.stdout.splitlines()[-1].split("\t")
        self.assertEqual((last[0], len(last)), ("sim", 4))
        self.assertTrue(all(last), last)

    def test_information_runs_no_script(self):
        for option in ("--help", "--version", "--list-cameras"):
            with self.subTest(option):
                self.assertNotIn("ran", self.run_text(PRINTS, option).stdout.split())


class WrongUsage(ProgramTest):
    def test_unknown_options_are_refused(self):
        self.assert_refused(self.run_text(PRINTS, "--no-such-option"), "no-such-option")

    def test_an_option_needs_its_value(self):
        for option in ("--open", "--camera", "--image", "--answer", "--choose", "--cwd", "--python-home", "--plugin"):
            with self.subTest(option):
                self.assert_refused(self.call(self.script(PRINTS), option), option)

    def test_a_script_is_needed(self):
        self.assert_refused(self.call("--cwd", str(self.folder)), "no script")

    def test_standard_input_is_read_only_once(self):
        self.assert_refused(self.call("-", "-"), "standard input")

    def test_folders_must_be_there(self):
        missing = str(self.folder / "missing")
        for option in ("--cwd", "--python-home"):
            with self.subTest(option):
                self.assert_refused(self.run_text(PRINTS, option, missing), missing)

    def test_images_need_a_name_that_scripts_can_use(self):
        picture = self.picture()
        for argument in (picture, "=" + picture, "1a=" + picture, "a b=" + picture, "a=", "a"):
            with self.subTest(argument):
                self.assert_refused(self.run_text(PRINTS, "--image", argument), "--image")


class BadScripts(ProgramTest):
    def assert_unreadable(self, path, *words):
        """Refused although a good script comes first."""
        self.assert_refused(self.call(self.script(PRINTS, "good.py"), path), path, *words)

    def test_one_that_is_not_there(self):
        self.assert_unreadable(str(self.folder / "größe.py"))

    def test_a_folder(self):
        self.assert_unreadable(str(self.folder), "folder")

    def test_an_empty_name(self):
        self.assert_refused(self.call(""), "empty")

    def test_one_that_must_not_be_read(self):
        path = self.script(PRINTS)
        os.chmod(path, 0)
        result = subprocess.run([*LIKE_ANYBODY, PROGRAM, path], check=False, capture_output=True,
                                stdin=subprocess.DEVNULL, encoding="utf-8", timeout=LIMIT)
        self.assert_refused(result, path, "ermission")

    def test_one_with_nul_bytes(self):
        self.assert_unreadable(self.script(b"print(1)\0\n"), "NUL")

    def test_one_that_is_not_utf8(self):
        self.assert_unreadable(self.script("print('ä')".encode("latin-1")), "UTF-8")


class BadPictures(ProgramTest):
    def assert_unreadable(self, path, *words):
        for arguments in (("--open", path), ("--image", "a=" + path)):
            with self.subTest(arguments):
                self.assert_refused(self.run_text(PRINTS, *arguments), path, *words)

    def test_one_that_is_not_there(self):
        self.assert_unreadable(str(self.folder / "none.png"))

    def test_a_folder(self):
        self.assert_unreadable(str(self.folder))

    def test_a_file_of_another_kind(self):
        self.assert_unreadable(self.script("text", "picture.txt"))

    def test_broken_files(self):
        self.assert_unreadable(self.script(b"\x89PNG\r\n\x1a\nbroken", "broken.png"))
        self.assert_unreadable(self.script(b"BM" + bytes(range(60)), "broken.bmp"))


class BadCameras(ProgramTest):
    def test_what_was_found_is_told(self):
        self.assert_refused(self.run_text(PRINTS, "--camera", "nobody"), "nobody", "sim")

    def test_one_camera_cannot_be_opened_twice(self):
        self.assert_refused(self.run_text(PRINTS, "--camera", "sim", "--camera", "sim"), "sim")


class BadPlugins(ProgramTest):
    def test_one_that_is_not_there(self):
        self.assert_refused(self.run_text(PRINTS, "--plugin", "/nowhere.so"), "/nowhere.so")
        result = self.call("--version", "--plugin", "/nowhere.so")
        self.assertEqual(result.returncode, 2)
        self.assertEqual(result.stderr, "vistrel-run: there is no script plugin /nowhere.so\n")

    def test_a_file_that_is_no_plugin(self):
        path = self.script("text", "plugin.so")
        self.assert_refused(self.run_text(PRINTS, "--plugin", path), path)


if __name__ == "__main__":
    unittest.main()
