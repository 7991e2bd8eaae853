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

# What it makes comes back: other sizes, kinds and depths.
half = cv2.resize(whole, (32, 24))
result = vistrel.Image()
result.from_array(half)
assert (result.width, result.height, result.channels, result.rgb) == (32, 24, 3, True)
assert (numpy.asarray(result).transpose(1, 0, 2) == half).all()
grey = cv2.cvtColor(whole, cv2.COLOR_RGB2GRAY)
gradient = cv2.Sobel(grey, cv2.CV_16S, 1, 0)
assert gradient.min() < 0
result.from_array(gradient)
assert result.data_sign_mode != image.data_sign_mode
assert (numpy.asarray(result).T == gradient).all()
distance = cv2.distanceTransform(grey, cv2.DIST_L2, 5)
result.from_array(distance)
assert str(result).endswith("type: float")
assert (numpy.asarray(result).T == distance).all()
