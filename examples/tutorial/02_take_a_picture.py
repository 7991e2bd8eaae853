# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 2: take a picture and save it.

import vistrel

camera = vistrel.Camera()
camera.open_device()

view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

print(image.width, "x", image.height, "pixels of", image.bpc, "bits")
image.save_to_file("02_take_a_picture.png")
