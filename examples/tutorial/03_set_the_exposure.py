# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 3: set the exposure time, within what the camera can do.

import vistrel

camera = vistrel.Camera()
camera.open_device()

least = camera.get_exposure_time_us_minimum()
greatest = camera.get_exposure_time_us_maximum()
print("exposure times from", least, "to", greatest, "us")

status = camera.set_exposure_time_us(30_000)
if status != 0:
    raise Exception(f"the camera refused with status {status}; the log says why")

view = camera.start_acquisition()
while True:
    if not vistrel.wait_for_next_frame(30.0, view):
        raise Exception("no frame came within 30 seconds")
    image = vistrel.get_view_image(view)
    if image.exposure_time_us == 30_000:  # the first frames may have been begun before
        break
camera.stop_acquisition()

image.save_to_file("03_set_the_exposure.png")
