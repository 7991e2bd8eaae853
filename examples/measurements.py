# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Measurements: noise and brightness of a camera picture, with its profile drawn in.
#
#     vistrel-run --camera sim measurements.py

import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

for channel in image.measure_rect():
    print("%(name)s: mean %(mean).2f, stdev %(stdev).2f, rms %(rms).2f, "
          "range %(min).0f to %(max).0f" % channel)

# The mean of every column within the top 32 lines, as a curve over the picture.
profiles = image.measure_column_profiles_in_rect(0, 0, 0, 32)
columns = [channels[0]["mean"] for channels in profiles]
full_scale = 2 ** image.bpc - 1
curve = [round((image.height - 1) * (1 - mean / full_scale)) for mean in columns]
for x in range(1, image.width):
    image.draw_pixel_line(full_scale, x - 1, curve[x - 1], x, curve[x])
print("brightest column:", columns.index(max(columns)))

image.save_to_file("measurements.png")
print("saved measurements.png")
