# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A script that keeps every thread of the host busy, and two of its own: a camera streams into a view
through a chain that changes, films are recorded one after the other, and meanwhile all threads share
variables and look at the view."""

import pathlib
import sys
import tempfile
import threading

import vistrel

FILMS, FRAMES = 3, 4
sys.setswitchinterval(1e-4)  # seconds

ended = threading.Event()
looks = []


def look(name):
    """Takes what the view shows, and leaves it to the other threads, until all films are made."""
    count = 0
    while count == 0 or not ended.is_set():
        picture = vistrel.get_view_image(view)
        assert (picture.width, picture.height) == size
        vistrel.set_global_variable_img("newest", picture)
        vistrel.set_global_variable_img(name, picture)
        vistrel.set_global_variable_int("count", count)
        vistrel.set_global_variable_string("name", name)
        own = vistrel.get_global_variable_img(name)
        assert (own.width, own.height) == size
        assert vistrel.get_global_variable_string("name") in ("first", "second")
        assert vistrel.get_global_variable_int("count") >= 0
        own.add(picture)
        count += 1
    looks.append(count)


def next_frames():
    for _ in range(FRAMES):
        assert vistrel.wait_for_next_frame(60.0, view)


camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
next_frames()
first = vistrel.get_view_image(view)
size = (first.width, first.height)

threads = [threading.Thread(target=look, args=[name]) for name in ("first", "second")]
for thread in threads:
    thread.start()
try:
    with tempfile.TemporaryDirectory() as folder:
        for film in range(FILMS):
            path = pathlib.Path(folder) / f"{film}.avi"
            assert vistrel.record_video_to_file(str(path), view)
            next_frames()
            vistrel.add_chain_object("Frame Average", {"frames": 2 + film})
            camera.set_exposure_time_us(1000 * (1 + film))
            next_frames()
            vistrel.stop_video_recording(view)
            assert path.stat().st_size > 0
finally:
    ended.set()
    for thread in threads:
        thread.join()
vistrel.close_view(vistrel.duplicate_view(view))
camera.stop_acquisition()
assert len(looks) == len(threads)
