# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen of its own, and vistrel-viewer on it, driven by real key and mouse events."""

import os
import subprocess
import time
from pathlib import Path

from PIL import ImageGrab

TITLE = "Vistrel"
LONGEST_SECONDS = 120.0


def wait_for(what, description):
    """Asks again and again until the answer is true, and returns it."""
    deadline = time.monotonic() + LONGEST_SECONDS
    while True:
        answer = what()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError(f"in vain: {description}")
        time.sleep(0.05)


class Screen:
    """An X server without hardware, on a display that nobody else uses."""

    def __init__(self, width=1280, height=800):
        read_end, write_end = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{width}x{height}x24",
             "-nolisten", "tcp", "-noreset"], pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end, encoding="ascii") as numbers:
            self.display = ":" + numbers.readline().strip()
        if self.display == ":":
            raise RuntimeError("Xvfb did not start")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._server.terminate()
        self._server.wait()

    def tell(self, *words):
        """Sends events by xdotool and returns what it says."""
        return subprocess.run(["xdotool", *words], env={**os.environ, "DISPLAY": self.display},
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8",
                              check=False, timeout=LONGEST_SECONDS).stdout.split()

    def window_named(self, title):
        """The number of a window that is shown; None when there is none of that title."""
        return next(iter(self.tell("search", "--onlyvisible", "--name", f"^{title}$")), None)

    def click(self, x, y):
        self.tell("mousemove", str(x), str(y), "click", "1")

    def click_lower_right(self, window):
        """Clicks what is in that corner of a window, such as its only button."""
        lines = self.tell("getwindowgeometry", "--shell", window)
        place = {name: int(value) for name, value in (line.split("=") for line in lines)}
        self.click(place["X"] + place["WIDTH"] - 40, place["Y"] + place["HEIGHT"] - 20)

    def picture(self):
        return ImageGrab.grab(xdisplay=self.display).convert("RGB")


class Viewer:
    """The program in a window that fills the screen, with settings of its own."""

    def __init__(self, screen, folder, *arguments, settings="", program=None):
        config = Path(folder) / "config"
        (config / "vistrel").mkdir(parents=True, exist_ok=True)
        (config / "vistrel" / "vistrel-viewer.conf").write_text(settings, encoding="utf-8")
        environment = {**os.environ, "DISPLAY": screen.display, "QT_QPA_PLATFORM": "xcb",
                       "XDG_CONFIG_HOME": str(config), "LC_ALL": "C.UTF-8"}
        self.screen = screen
        command = [program or os.environ["VISTREL_VIEWER"], *arguments]
        self.process = subprocess.Popen(command, cwd=folder, env=environment)
        self.window = wait_for(self._find_window, "the viewer's window")
        self._fill_screen()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()

    def _find_window(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the viewer has ended with {self.process.returncode}")
        return self.screen.window_named(TITLE)

    def _fill_screen(self):
        # There is no window manager that would do it.
        width, height = self.screen.picture().size
        self.screen.tell("windowmove", self.window, "0", "0")
        self.screen.tell("windowsize", "--sync", self.window, str(width), str(height))

    def press(self, *keys):
        self.screen.tell("windowfocus", "--sync", self.window)
        self.screen.tell("key", "--clearmodifiers", *keys)

    def shows(self, is_wanted, description):
        """Waits until the picture of the whole screen is of that kind, and returns it."""
        def look():
            picture = self.screen.picture()
            return picture if is_wanted(picture) else None
        return wait_for(look, description)

    def close(self):
        """Closes the window by its key; returns the exit status. While a script runs, the window
        stays: it may be about to end, so the key is pressed again."""
        wait_for(self._closes, "the window's end")
        return self.process.returncode

    def _closes(self):
        self.press("ctrl+q")
        try:
            self.process.wait(2)
        except subprocess.TimeoutExpired:
            return False
        return True
