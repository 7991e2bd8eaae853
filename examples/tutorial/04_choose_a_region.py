# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 4: read a part of the sensor only. It is faster, and the files are smaller.

import vistrel

camera = vistrel.Camera()
camera.open_device()
before = camera.get_roi()

camera.set_roi(100, 50, 320, 200)
x, y, width, height = camera.get_roi()  # the camera may have steps of its own
print(f"region: {width} x {height} pixels at ({x}, {y})")

view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()
camera.set_roi(*before)

image.save_to_file("04_choose_a_region.png")
