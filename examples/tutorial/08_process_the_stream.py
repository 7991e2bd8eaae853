# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 8: let the host process every frame on its way to the view.

import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()

# One after the other; help(vistrel.add_chain_object) lists what there is.
vistrel.add_chain_object("Gaussian Blur", {"sigma": 3.0})
vistrel.add_chain_object("Threshold", {"level": 100})

for _ in range(3):
    if not vistrel.wait_for_next_frame(30.0, view):
        raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)  # what comes out of the chain
camera.stop_acquisition()

white = image.measure_rect()[0]["mean"] / 255
print(f"above the level: {white:.0%}")
image.save_to_file("08_process_the_stream.png")
