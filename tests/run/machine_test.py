# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What scripts see of a machine that fails them: a full disk, a folder that is only for reading, no
font, no camera, no display, a plugin of somebody else. The script goes on, and the log says why."""

import ctypes.util
import os
import subprocess
import unittest
from pathlib import Path

from program import LIMIT, PROGRAM, ProgramTest, environment

# Root may write everywhere, unless it gives that up.
LIKE_ANYBODY = (["setpriv", "--bounding-set=-dac_override,-dac_read_search"]
                if os.geteuid() == 0 else [])
# A disk of 4 MiB that the command alone sees.
SMALL_DISK = ["unshare", "--mount", "--map-root-user", "sh", "-c",
              'mount -t tmpfs -o size=4m none "$0" && exec "$@"']

PICTURE = """
import os, vistrel
def picture(size, grey):
    image = vistrel.Image()
    image.alloc(size, size, 1, 8)
    image.set_pixel_value(grey, 0, 0)
    return image
"""
# A file that is there, and then no room for a larger one.
FILLS = """
def fill():
    with open('disk/filler', 'wb', buffering=0) as file:
        try:
            while file.write(bytes(1 << 14)): pass
        except OSError: pass
def kept(path):
    with open(path, 'rb') as file: return file.read()
"""


class MachineTest(ProgramTest):
    def run_on(self, command, text, *arguments, **options):
        """Runs a script by the program inside another command."""
        return subprocess.run([*command, PROGRAM, *arguments, self.script(text)], check=False,
                              cwd=self.folder, stdin=subprocess.DEVNULL, capture_output=True,
                              encoding="utf-8", timeout=LIMIT, **options)

    def assert_logged(self, result, output, log):
        """The script came to its end, and the log has just this line."""
        self.assertEqual((result.returncode, result.stdout), (0, output), result.stderr)
        self.assertRegex(result.stderr, rf"\A{log}\n\Z")


class FullDisk(MachineTest):
    def run_on_small_disk(self, text, *arguments):
        disk = self.folder / "disk"
        disk.mkdir()
        return self.run_on([*SMALL_DISK, str(disk)], text, *arguments)

    def test_leaves_the_picture_that_is_there_and_is_logged(self):
        result = self.run_on_small_disk(
            PICTURE + FILLS
            + "picture(100, 7).save_to_file('disk/a.bmp')\n"
              "before = kept('disk/a.bmp')\n"
              "fill()\n"
              "picture(500, 9).save_to_file('disk/a.bmp')\n"
              "print(kept('disk/a.bmp') == before, sorted(os.listdir('disk')))\n")
        self.assert_logged(result, "True ['a.bmp', 'filler']\n",
                           r'Cannot save "\S+/disk/a\.bmp": No space left on device')

    def test_leaves_the_settings_that_are_there_and_is_logged(self):
        result = self.run_on_small_disk(
            PICTURE + FILLS
            + "camera = vistrel.Camera()\n"
              "camera.open_device()\n"
              "camera.save_settings_to_file('disk/a.json')\n"
              "before = kept('disk/a.json')\n"
              "fill()\n"
              "camera.set_exposure_time_us(777)\n"
              "camera.save_settings_to_file('disk/a.json')\n"
              "print(kept('disk/a.json') == before, sorted(os.listdir('disk')))\n",
            "--camera", "sim")
        self.assert_logged(result, "True ['a.json', 'filler']\n",
                           r"camera \S+: settings cannot be saved to \S+/disk/a\.json: "
                           "No space left on device")

    def test_ends_a_film_that_can_be_played_and_the_script_goes_on(self):
        result = self.run_on_small_disk(
            "import numpy, shutil, vistrel\n"
            "random = numpy.random.default_rng(1)\n"
            "image = vistrel.Image()\n"
            "image.from_array(random.integers(0, 256, (256, 256), 'u1'))\n"
            "view = vistrel.new_view_with_image(image)\n"
            "print(vistrel.record_video_to_file('disk/a.avi', view))\n"
            "for _ in range(200):\n"
            "    image.from_array(random.integers(0, 256, (256, 256), 'u1'))\n"
            "    vistrel.set_view_image(image, view)\n"
            "vistrel.stop_video_recording(view)\n"
            "shutil.copy('disk/a.avi', 'a.avi')\n"
            "print('went on')\n")
        self.assert_logged(result, "True\nwent on\n",
                           r'[^\n]*a\.avi" has ended after \d+ pictures: the disk is full')
        self.assertGreater((self.folder / "a.avi").stat().st_size, 100_000)


class ReadOnlyFolder(MachineTest):
    def run_in_folder(self, text, *arguments):
        folder = self.folder / "kept"
        folder.mkdir(mode=0o555)
        return self.run_on(LIKE_ANYBODY, text, *arguments)

    def test_takes_no_picture(self):
        result = self.run_in_folder(PICTURE + "picture(5, 7).save_to_file('kept/a.png')\n"
                                              "print(os.listdir('kept'))\n")
        self.assert_logged(result, "[]\n", r'Cannot save "\S+/kept/a\.png": Permission denied')

    def test_takes_no_settings(self):
        result = self.run_in_folder("import vistrel\n"
                                    "camera = vistrel.Camera()\n"
                                    "camera.open_device()\n"
                                    "camera.save_settings_to_file('kept/a.json')\n"
                                    "print('went on')\n", "--camera", "sim")
        self.assert_logged(result, "went on\n",
                           r"camera \S+: settings cannot be saved to \S+/kept/a\.json: "
                           "Permission denied")

    def test_takes_no_film(self):
        result = self.run_in_folder(
            PICTURE + "view = vistrel.new_view_with_image(picture(32, 7))\n"
                      "print(vistrel.record_video_to_file('kept/a.avi', view))\n")
        self.assert_logged(result, "False\n", r"[^\n]*kept/a\.avi[^\n]*Permission denied")


class Missing(MachineTest):
    def test_fonts_cost_the_texts_of_a_chart_alone(self):
        (self.folder / "fonts.conf").write_text("<fontconfig></fontconfig>")
        result = self.run_on(
            [], PICTURE + "graph = vistrel.Graph()\n"
                          "graph.add_series()\n"
                          "for x in range(9): graph.series_add_point(0, x, x * x)\n"
                          "image = vistrel.Image()\n"
                          "image.alloc(320, 240, 4, 8)\n"
                          "graph.draw_into_image(image)\n"
                          "print(image.measure_rect()[0]['stdev'] > 1)\n"
                          "print(vistrel.message_box('größe', 'text'))\n",
            env=environment(FONTCONFIG_FILE=str(self.folder / "fonts.conf")))
        self.assertEqual((result.returncode, result.stdout), (0, "True\n1\n"), result.stderr)

    def test_cameras_are_an_error_that_says_so(self):
        result = self.run_text("import vistrel\n"
                               "print(vistrel.get_number_devices())\n"
                               "try: vistrel.Camera().open_device()\n"
                               "except Exception as error: print(type(error).__name__, error)\n")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertRegex(result.stdout, r"\A0\nException \S[^\n]+\n\Z")

    def test_a_display_is_not_missed(self):
        result = self.run_text(PICTURE + "view = vistrel.new_view_with_image(picture(8, 7))\n"
                                         "print(vistrel.get_view_image(view).width)\n",
                               env=environment(QT_QPA_PLATFORM=None, DISPLAY=None,
                                               WAYLAND_DISPLAY=None))
        self.assert_succeeds(result, "8\n")

    def test_homes_and_temporary_folders_are_not_missed(self):
        result = self.run_text(PICTURE + "picture(8, 7).save_to_file('a.png')\n"
                                         "vistrel.open_file('a.png')\n"
                                         "print(vistrel.get_view_image().width)\n",
                               env=environment(HOME="/nowhere", TMPDIR="/nowhere"))
        self.assert_succeeds(result, "8\n")


class OtherLibraries(MachineTest):
    """Files that the loader takes, but that are no script plugin."""

    def test_that_are_no_plugin_are_refused(self):
        library = self.folder / "library.so"
        library.symlink_to(self.library_file())
        self.assert_refused(self.run_text("print('ran')", "--plugin", str(library)), str(library))

    def test_that_are_cut_off_are_refused(self):
        whole = Path(PROGRAM).parents[1] / "plugins" / "libvistrel_python_script.so"
        cut = self.folder / "cut.so"
        cut.write_bytes(whole.read_bytes()[:20_000])
        self.assert_refused(self.run_text("print('ran')", "--plugin", str(cut)), str(cut))

    def library_file(self):
        """The C library, as it is mapped into this process."""
        name = ctypes.util.find_library("c")
        for line in Path("/proc/self/maps").read_text().splitlines():
            if line.endswith("/" + name):
                return line.split()[-1]
        self.fail("this process has no C library")


if __name__ == "__main__":
    unittest.main()
