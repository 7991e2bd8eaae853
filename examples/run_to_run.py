# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# From run to run: how far the picture has drifted from that of the first run.
#
#     vistrel-run --camera sim run_to_run.py run_to_run.py run_to_run.py

import vistrel

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

# Names of a script are gone when it ends; shared variables stay until the host does.
run = max(vistrel.get_global_variable_int("drift.run"), 0) + 1
vistrel.set_global_variable_int("drift.run", run)
if run == 1:
    vistrel.set_global_variable_img("drift.reference", image)
reference = vistrel.get_global_variable_img("drift.reference") or image

mean, first_mean = (picture.measure_rect()[0]["mean"] for picture in (image, reference))
report = vistrel.get_global_variable_string("drift.report")
report += f"run {run}: mean {mean:.2f}, {mean - first_mean:+.2f} since the first run\n"
vistrel.set_global_variable_string("drift.report", report)
print(report)
