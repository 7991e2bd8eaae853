# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# First light: take a picture from the first camera, look at its numbers, save it.
#
#     vistrel-run --camera sim first_light.py

import numpy
import vistrel

print("cameras:", vistrel.get_number_devices())

camera = vistrel.Camera()
camera.open_device()
print(camera)

view = camera.start_acquisition()
for _ in range(5):
    if not vistrel.wait_for_next_frame(30.0, view):
        raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

print(image)
print("frame", image.frame_number, "at", image.time_stamp, "us, exposed for",
      image.exposure_time_us, "us")

# The array shares the picture's memory. Its first index is x, the second y.
pixels = numpy.asarray(image)
print("mean %.1f, standard deviation %.1f, range %d to %d"
      % (pixels.mean(), pixels.std(), pixels.min(), pixels.max()))

image.save_to_file("first_light.png")
print("saved first_light.png")
