# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Conversions: a thumbnail of a camera picture, set into its own corner.
#
#     vistrel-run --camera sim conversions.py

import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

# The whole picture takes zeros; without them resize() scales one pixel.
width, height = image.width // 4, image.height // 4
thumbnail = image.resize(width, height, 0, 0, 0, 0)
thumbnail.divide_by_value(2)
thumbnail.copy_rect_to(0, 0, width, height, image, image.width - width, image.height - height)

middle = image.crop(image.width // 4, image.height // 4, image.width // 2, image.height // 2)
print("thumbnail:", thumbnail)
print("middle:", middle)
print("in 12 bits:", image.convert_bpc(12))
print("for a screen:", image.to_rgb())

image.save_to_file("conversions.png")
print("saved conversions.png")
