# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 5: give the picture to numpy and take the result back.

import numpy
import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

# The array shares the picture's memory, and its first index is x: .T makes it lines, then columns.
pixels = numpy.asarray(image).T
steps = (pixels // 64 * 64).astype(numpy.uint8)  # four shades instead of 256
print("shades left:", numpy.unique(steps).tolist())

result = vistrel.Image()
result.from_array(numpy.ascontiguousarray(steps))
vistrel.new_view_with_image(result, "four shades")
result.save_to_file("05_work_with_numpy.png")
