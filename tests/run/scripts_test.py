# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What vistrel-run gives scripts, and the order in which it runs them."""

import os
import sys
import unittest

from program import ProgramTest, environment


class Scripts(ProgramTest):
    def test_an_empty_one_succeeds(self):
        self.assert_succeeds(self.run_text(""), "")

    def test_they_run_in_the_order_given(self):
        paths = [self.script(f"print({i})", f"{name}.py") for i, name in enumerate("cab")]
        self.assert_succeeds(self.call(*paths), "0\n1\n2\n")

    def test_they_share_an_interpreter_but_no_names(self):
        first = self.script("import sys, math\nsys.kept = 'kept'\nx = 1", "first.py")
        second = self.script("import sys\nprint(sys.kept, 'x' in globals())", "second.py")
        self.assert_succeeds(self.call(first, second), "kept False\n")

    def test_a_failed_one_makes_the_status_1_and_the_others_run(self):
        good = self.script("print('good')", "good.py")
        result = self.call(self.script("1/0"), good)
        self.assertEqual((result.returncode, result.stdout), (1, "good\n"))
        self.assertIn("ZeroDivisionError", result.stderr)

    def test_whatever_they_write_to_standard_error_counts(self):
        result = self.run_text("import sys\nprint('warning', file=sys.stderr)")
        self.assertEqual((result.returncode, result.stderr), (1, "warning\n"))

    def test_they_can_exit(self):
        good = self.script("print('good')", "good.py")
        result = self.call(self.script("import sys\nsys.exit(0)"), good)
        self.assertEqual(result.stdout, "good\n")

    def test_constants_are_there(self):
        self.assert_succeeds(self.run_text("print(EXPOSURE_TIME_US)"), "exposure_time_us\n")

    def test_waits_work_after_the_last_window_has_closed(self):
        self.assert_succeeds(self.run_text(
            "import vistrel, time\n"
            "vistrel.wait(0.01)\n"
            "start = time.monotonic()\n"
            "vistrel.wait(0.2)\n"
            "print(time.monotonic() - start >= 0.2)\n"), "True\n")


class Inputs(ProgramTest):
    def test_opened_pictures_are_in_views(self):
        result = self.run_text(
            "import vistrel\n"
            "active = vistrel.get_active_view_id()\n"
            "print([bytes(vistrel.get_view_image(i))[0] for i in range(active + 1)])",
            "--open", self.picture("a.png", 5), "--open", self.picture("b.png", 6))
        self.assert_succeeds(result, "[5, 6]\n")

    def test_images_have_names(self):
        result = self.run_text(
            "print(bytes(größe)[0], bytes(b)[0])",
            "--image", "größe=" + self.picture("a=1.png", 5), "--image=b=" + self.picture("b.png", 6))
        self.assert_succeeds(result, "5 6\n")

    def test_images_outlive_a_run(self):
        paths = [self.script(f"print({i}, bytes(a)[0])", f"{i}.py") for i in range(2)]
        self.assert_succeeds(self.call("--image", "a=" + self.picture(), *paths), "0 7\n1 7\n")

    def run_with_image(self, *texts):
        """Runs scripts one after the other, with an image called a."""
        paths = [self.script(text, f"{i}.py") for i, text in enumerate(texts)]
        return self.call("--image", "a=" + self.picture(), *paths)

    def test_what_a_run_draws_into_an_image_stays(self):
        self.assert_succeeds(
            self.run_with_image("import numpy\nnumpy.asarray(a)[:] = 9", "print(bytes(a)[0])"),
            "9\n")

    def test_an_image_that_a_run_has_deleted_is_gone(self):
        result = self.run_with_image("del a", "a")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn("name 'a' is not defined", result.stderr)

    def test_an_image_that_a_run_keeps_is_the_next_ones_too(self):
        self.assert_succeeds(
            self.run_with_image("import sys\nsys.kept = a\ndel a",
                                "import sys\nprint(bytes(sys.kept)[0])"), "7\n")

    def test_of_two_images_with_one_name_the_last_counts(self):
        result = self.run_text("print(bytes(a)[0])", "--image", "a=" + self.picture("5.png", 5),
                               "--image", "a=" + self.picture("6.png", 6))
        self.assert_succeeds(result, "6\n")

    def test_cameras_are_open(self):
        result = self.run_text(
            "import vistrel\n"
            "camera = vistrel.Camera()\n"
            "print(vistrel.get_number_devices())\n",
            "--camera", "sim")
        self.assert_succeeds(result, "1\n")

    def test_frames_arrive_in_a_view(self):
        result = self.run_text(
            "import vistrel\n"
            "camera = vistrel.Camera()\n"
            "camera.open_device(0)\n"
            "view = camera.start_acquisition()\n"
            "print([vistrel.wait_for_next_frame(30.0, view) for i in range(3)])\n"
            "camera.stop_acquisition()\n"
            "print(vistrel.wait_for_next_frame(-1.0, view))\n"
            "print(vistrel.get_view_image(view).get_width() > 0)\n",
            "--camera", "sim")
        self.assert_succeeds(result, "[True, True, True]\nFalse\nTrue\n")

    def test_a_script_comes_from_standard_input(self):
        self.assert_succeeds(self.call("-", input="print('größe')"), "größe\n")

    def test_standard_input_has_its_place_in_the_order(self):
        result = self.call(self.script("print(1)", "1.py"), "-", self.script("print(3)", "3.py"),
                           input="print(2)")
        self.assert_succeeds(result, "1\n2\n3\n")

    def test_the_python_home_reaches_the_interpreter(self):
        result = self.run_text("import sys\nprint(sys.prefix)", "--python-home", sys.base_prefix)
        self.assert_succeeds(result, sys.base_prefix + "\n")

    def test_a_python_home_without_python_is_an_error_of_every_script(self):
        scripts = [self.script("print(1)", name) for name in ("a.py", "b.py")]
        result = self.call("--python-home", str(self.folder), *scripts)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn(str(self.folder), result.stderr)

    def test_another_plugin_can_be_named(self):
        plugin = os.path.join(os.path.dirname(os.environ["VISTREL_RUN"]), "..", "plugins",
                              "libvistrel_python_script.so")
        result = self.run_text("print(1)", "--plugin", os.path.relpath(plugin, self.folder))
        self.assert_succeeds(result, "1\n")


class Folders(ProgramTest):
    """Scripts open a picture that is another one in each folder."""

    OPENS = "import vistrel\nvistrel.open_file('p.png')\nprint(bytes(vistrel.get_view_image())[0])"

    def setUp(self):
        super().setUp()
        for grey, name in enumerate((".", "a", "größe"), start=1):
            (self.folder / name).mkdir(exist_ok=True)
            self.picture(f"{name}/p.png", grey)

    def test_the_first_scripts_folder_is_the_working_directory(self):
        first = self.script(self.OPENS, "a/first.py")
        second = self.script(self.OPENS, "größe/second.py")
        self.assert_succeeds(self.call(first, second), "2\n2\n")
        self.assert_succeeds(self.call("größe/second.py"), "3\n")

    def test_standard_input_takes_the_current_folder(self):
        self.assert_succeeds(self.call("-", input=self.OPENS), "1\n")

    def test_it_can_be_chosen(self):
        for chosen in ("größe", str(self.folder / "größe")):
            result = self.run_text(self.OPENS, "--cwd", chosen)
            self.assert_succeeds(result, "3\n")

    def test_pictures_on_the_command_line_are_the_shells(self):
        result = self.run_text(
            "import vistrel\nprint(bytes(a)[0], bytes(vistrel.get_view_image())[0])",
            "--cwd", "a", "--image", "a=p.png", "--open", "p.png")
        self.assert_succeeds(result, "1 1\n")


class Encodings(ProgramTest):
    LOCALES = ({"LC_ALL": "C"}, {"LC_ALL": "POSIX"}, {"LC_ALL": None, "LANG": None},
               {"LC_ALL": None, "LC_CTYPE": "C", "LANG": "C"}, {"LC_ALL": "C.UTF-8"})

    def test_a_byte_order_mark_and_carriage_returns_are_fine(self):
        text = "\ufeffif True:\r\n    print('a')\r\n\r\nprint('b')"
        self.assert_succeeds(self.run_text(text), "a\nb\n")
        self.assert_succeeds(self.call("-", input=text), "a\nb\n")

    def test_names_texts_and_output_are_utf8_in_every_locale(self):
        path = self.script("import sys, vistrel\n"
                           "print('größe €', bytes(größe)[0])\n"
                           "vistrel.open_file('bild ä.png')\n"
                           "print(bytes(vistrel.get_view_image())[0])\n"
                           "open('/dev/null/größe')\n", "größe/käse.py")
        picture = self.picture("bild ä.png")
        self.picture("größe/bild ä.png", 8)
        for changes in self.LOCALES:
            with self.subTest(changes):
                result = self.call("--image", "größe=" + picture, "--open", picture, path,
                                   env=environment(**changes))
                self.assertEqual(result.stdout, "größe € 7\n8\n")
                self.assertEqual(result.returncode, 1)
                self.assertIn("NotADirectoryError", result.stderr)
                self.assertIn("'/dev/null/größe'", result.stderr)
                self.assertNotIn("locale", result.stderr)

    def test_error_lines_are_utf8_in_every_locale(self):
        for changes in self.LOCALES:
            with self.subTest(changes):
                self.assert_refused(self.call("größe.py", env=environment(**changes)), "größe.py")

    def test_numbers_keep_their_point_in_every_locale(self):
        result = self.run_text("import ctypes, locale\n"
                               "print(locale.localeconv()['decimal_point'])\n",
                               env=environment(LC_ALL=None, LANG="de_DE.UTF-8"))
        self.assert_succeeds(result, ".\n")


if __name__ == "__main__":
    unittest.main()
