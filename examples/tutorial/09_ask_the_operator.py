# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 9: ask the operator. Without a screen the answers come from the command line:
#
#     vistrel-run --camera sim --answer 4711 --answer Keep 09_ask_the_operator.py

import vistrel

part = vistrel.ask_user_for_string("Part", "Part number:")
if not part:
    raise SystemExit("no part number was entered")

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
image = vistrel.get_view_image(view)
camera.stop_acquisition()

if vistrel.message_box("Part", f"Keep the picture of part {part}?", "Keep", "Discard") == 1:
    image.save_to_file("09_ask_the_operator.png")
    vistrel.show_notification(f"saved the picture of part {part}")
print("part", part)
