# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Drawing: frame the brightest pixel of a camera picture and cross it out.
#
#     vistrel-run --camera sim drawing.py

import numpy
import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(5.0, view):
    raise Exception("no frame came within 5 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

pixels = numpy.asarray(image)
x, y = (int(n) for n in numpy.unravel_index(pixels.argmax(), pixels.shape)[:2])
print("brightest pixel at", x, y, "with", image.get_pixel_value(x, y))

# Both ends of every line must lie in the picture.
left, right = max(x - 20, 0), min(x + 20, image.width - 1)
top, bottom = max(y - 20, 0), min(y + 20, image.height - 1)
white = 2 ** image.bpc - 1
image.draw_pixel_rect(white, left, top, right, bottom)
image.draw_pixel_line(white, left, top, right, bottom)
image.draw_pixel_line(0, left, bottom, right, top)

image.save_to_file("drawing.png")
print("saved drawing.png")
