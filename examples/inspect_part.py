# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Inspection of a part: ask for its number, take a picture, judge it, tell the operator.
#
#     vistrel-run --camera sim --answer 4711 --answer Keep inspect_part.py

import vistrel

LOWEST, HIGHEST = 0.2, 0.8  # brightness that a good picture has, of full scale

number = vistrel.ask_user_for_string("Inspection", "Part number:")
if not number:
    raise SystemExit("no part number was entered")

camera = vistrel.Camera()
camera.open_device()
view = camera.start_acquisition()
if not vistrel.wait_for_next_frame(30.0, view):
    raise Exception("no frame came within 30 seconds")
picture = vistrel.get_view_image(view)
camera.stop_acquisition()

channel = picture.measure_rect()[0]
brightness = channel["mean"] / (2 ** picture.bpc - 1)
verdict = "good" if LOWEST <= brightness <= HIGHEST else "too dark or too bright"
report = "Part %s is %s: brightness %.0f %%" % (number, verdict, 100 * brightness)
print(report)

if vistrel.message_box("Inspection", report, "Keep", "Discard") == 1:
    picture.save_to_file("part_%s.png" % number)
    vistrel.show_notification("saved part_%s.png" % number)
