# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Drawing: a frame with a crosshair on the middle of a camera picture, and dots that show the signal.
#
#     vistrel-run --camera sim drawing.py

import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

white = 2 ** image.bpc - 1
x, y = image.width // 2, image.height // 2
reach = min(x, y) // 2

# Both ends of every line must lie in the picture. A black line beside the white one shows on any
# ground.
for shift, value in ((0, white), (1, 0)):
    image.draw_pixel_rect(value, x - reach + shift, y - reach + shift,
                          x + reach + shift, y + reach + shift)
    image.draw_pixel_line(value, x - reach, y + shift, x + reach, y + shift)
    image.draw_pixel_line(value, x + shift, y - reach, x + shift, y + reach)

# The values of the line through the middle, read pixel by pixel, as dots above it.
line = min(y + reach // 2, image.height - 1)
for column in range(x - reach, x + reach, 2):
    signal = image.get_pixel_value(column, line) / white
    image.set_pixel_value(white, column, round(line - signal * reach / 2))
print("framed", 2 * reach, "x", 2 * reach, "pixels around", x, y)

image.save_to_file("drawing.png")
print("saved drawing.png")
