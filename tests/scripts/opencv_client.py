# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# OpenCV's Python module as a client of pictures: in the same process as the host's own OpenCV.
import cv2
import numpy
import vistrel

image = vistrel.Image()
image.alloc(64, 48, 3, 8)
numpy.asarray(image)[:, :, 0] = 255  # red

# Lines first and blue first is what OpenCV works with.
lines = numpy.asarray(image.get_image_data_numpy()).transpose(1, 0, 2)
assert lines.shape == (48, 64, 3)
assert lines[0, 0].tolist() == [0, 0, 255]
grey = cv2.cvtColor(lines, cv2.COLOR_BGR2GRAY)
assert grey.shape == (48, 64) and int(grey[0, 0]) == 76

# Drawing into the shared memory changes the picture.
whole = numpy.asarray(image).transpose(1, 0, 2)
cv2.rectangle(whole, (10, 5), (20, 15), (0, 255, 0), thickness=-1)
assert numpy.asarray(image)[10, 5].tolist() == [0, 255, 0]
assert numpy.asarray(image)[21, 5].tolist() == [255, 0, 0]
