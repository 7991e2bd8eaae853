# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Step 1: count the cameras, and ask each who it is.

import vistrel

count = vistrel.get_number_devices()
print("open cameras:", count)

for index in range(count):
    camera = vistrel.Camera()
    camera.open_device(index)
    print(camera)
    print("serial number:", camera.get_device_info_string("device_sn"))
