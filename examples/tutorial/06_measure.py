# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 6: measure a rectangle, and mark it in the picture.

import vistrel

X, Y, WIDTH, HEIGHT = 200, 100, 120, 80

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

for channel in image.measure_rect(X, Y, WIDTH, HEIGHT):
    print(f"{channel['name']}: mean {channel['mean']:.1f}, from {channel['min']:.0f} "
          f"to {channel['max']:.0f}, deviation {channel['stdev']:.1f}")

marked = image.to_rgb()  # red is channel 0
for channel_number, value in enumerate((255, 64, 0)):
    marked.draw_pixel_rect(value, X, Y, X + WIDTH, Y + HEIGHT, channel_number)
marked.save_to_file("06_measure.png")
