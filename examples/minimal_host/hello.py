# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a script can do in the smallest host."""

import vistrel

print(f"Station {STATION}, the answer is {ANSWER}")

image = vistrel.Image()
image.alloc(4, 3, 1, 8)
image.set_pixel_value(200, 1, 2)
view = vistrel.new_view_with_image(image, "Made by a script")
print(f"View {view} shows {vistrel.get_view_image(view)}")
print(f"Pixel (1, 2) is {vistrel.get_view_image(view).get_pixel_value(1, 2)}")

try:
    vistrel.message_box("Title", "Nobody is there to read this.")
except Exception as error:
    print(f"No dialogs: {error}")
