# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Import: mirror a camera picture with numpy and take it back as an image.
#
#     vistrel-run --camera sim import.py

import numpy
import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

# The image's array has x first; arrays that are taken back have y first.
pixels = numpy.asarray(image).swapaxes(0, 1)
mirrored = numpy.ascontiguousarray(pixels[:, ::-1])

result = vistrel.Image()
result.from_array(mirrored)
if not numpy.array_equal(numpy.asarray(result).swapaxes(0, 1), mirrored):
    raise Exception("the picture came back changed")
print(result)

result.save_to_file("import.png")
print("saved import.png")
