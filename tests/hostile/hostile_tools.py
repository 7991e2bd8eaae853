# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What hostile scripts begin with, inside the host: objects that they share and keep, arguments that
do harm while they are read, and the count of calls. Lives in a module, so that what threads of
an earlier run use is still there."""

import copy
import gc
import itertools
import pickle
import sys
import threading
import warnings
import weakref

import numpy
import vistrel

warnings.simplefilter("ignore")
numpy.seterr(all="ignore")
sys.setswitchinterval(1e-4)

inf, nan = float("inf"), float("nan")
counter = itertools.count(1)
last = 0
threads = []
# An array that shares a picture's pixels must not be read once they are freed: who reads one, and
# what runs beside the main thread, hold this.
lock = threading.RLock()


def do(call):
    """The result of a call, None when it fails."""
    global last
    last = next(counter)
    try:
        return call()
    except Exception:
        return None


def put(place, call):
    """Keeps the result of a call for others, if there is one."""
    result = do(call)
    if result is not None:
        v[place] = result


class Evil:
    """A value that does something else whenever somebody looks at it."""

    def __init__(self, action, value=1):
        self.action = action
        self.value = value

    def looked_at(self, kind):
        do(self.action)
        return kind(self.value)

    def __index__(self):
        return self.looked_at(int)

    def __int__(self):
        return self.looked_at(int)

    def __float__(self):
        return self.looked_at(float)

    def __bool__(self):
        return self.looked_at(bool)

    def __str__(self):
        return self.looked_at(str)

    def __len__(self):
        return self.looked_at(int)

    def __getitem__(self, index):
        do(self.action)
        return self.value if index < 3 else [][0]

    def __getattr__(self, name):
        if name in ("action", "value"):
            raise AttributeError(name)
        do(self.action)
        raise RuntimeError(name)


class Loud:
    """A value that fails whoever looks at it."""

    def __index__(self):
        raise RuntimeError("index")

    __float__ = __bool__ = __str__ = __len__ = __hash__ = __index__

    def __getattr__(self, name):
        raise RuntimeError(name)


class Text(str):
    pass


class Number(int):
    pass


class Interface:
    """An object with an array interface, right but for what is changed."""

    def __init__(self, array, **changes):
        self.array = array  # keeps the memory
        self.__array_interface__ = {**array.__array_interface__, **changes}


class AtEnd:
    """Does something when it goes, which may be when the interpreter does."""

    def __init__(self, action):
        self.action = action

    def __del__(self):
        do(self.action)


def beside(work, count, waits):
    """Does work on threads of their own; those that nobody waits for outlive the run."""

    def locked():
        for call in work:
            with lock:
                call()

    started = [threading.Thread(target=locked, daemon=True) for _ in range(count)]
    for thread in started:
        thread.start()
    threads.extend(started)
    if waits:
        for thread in started:
            thread.join()


def pixels(image, read):
    """Reads pixels through an array that nobody else can free meanwhile."""
    with lock:
        return read(numpy.asarray(image))


def filled(width, height, channels, bits):
    image = vistrel.Image()
    image.alloc(width, height, channels, bits)
    with lock:
        numpy.asarray(image)[:] = 77
    return image


def opened():
    camera = vistrel.Camera()
    camera.open_device()
    return camera


def begin(streams):
    """Sees to it that there is something to work on: a view, a chart, a camera."""
    do(lambda: vistrel.new_view_with_image(filled(32, 24, 3, 8)))
    put(11, vistrel.Graph)
    do(lambda: v[11].add_series())
    put(8, opened)
    if streams:
        do(lambda: v[8].set_roi(0, 0, 64, 48))
        do(lambda: v[8].start_acquisition())


def finish(view_count):
    """Closes views, so that they do not become ever more, and tells the calls so far."""
    vistrel.stop_video_recording()
    while vistrel.get_active_view_id() >= 0 and view_count > 0:
        vistrel.close_view()
        view_count -= 1
    threads[:] = [thread for thread in threads if thread.is_alive()]
    gc.collect()
    print(last, flush=True)


# In the order of IMAGES, CAMERAS, GRAPHS and ANYTHING of script_maker.py.
v = [filled(*shape) for shape in ((7, 5, 1, 8), (7, 5, 3, 8), (7, 5, 4, 8), (16, 16, 1, 12),
                                  (16, 16, 3, 16), (9, 4, 1, 32), (64, 48, 3, 8), (64, 48, 4, 8))]
v += [vistrel.Camera() for _ in range(3)]
v += [vistrel.Graph() for _ in range(3)]
v += [None] * 10
