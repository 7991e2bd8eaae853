# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# A film of a live view with less noise: adds a processing element, then records what the view shows.
#
#     vistrel-run --camera sim film.py

import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()

# What an element understands, and in which range, is in docs/chains.md.
vistrel.add_chain_object("Frame Average", {"frames": 4})
vistrel.add_chain_object("Gaussian Blur", {"sigma": 1.5})

if not vistrel.record_video_to_file("film.avi", view):
    raise Exception("the film cannot be made; the log says why")
for _ in range(20):
    if not vistrel.wait_for_next_frame(30.0, view):
        raise Exception("no frame came within 30 seconds")
vistrel.stop_video_recording(view)  # from here on the film can be played
camera.stop_acquisition()

print("saved film.avi")
