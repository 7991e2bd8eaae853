# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Each conversion against the same call of OpenCV, copies against numpy. Runs in vistrel-run."""

import cv2
import numpy
from pictures import FULL_HD, compare, image_of, lines

mono, colour, wide = lines(FULL_HD), lines(FULL_HD, channels=3), lines(FULL_HD, bits=12)
deep = lines(FULL_HD, bits=16)
mono_image, colour_image, wide_image = image_of(mono), image_of(colour), image_of(wide, 12)
deep_image = image_of(deep)

compare("to_rgb_mono", mono_image.to_rgb, lambda: cv2.cvtColor(mono, cv2.COLOR_GRAY2RGBA))
compare("to_rgb_colour", colour_image.to_rgb, lambda: cv2.cvtColor(colour, cv2.COLOR_RGB2RGBA))
compare("extract_channel", lambda: colour_image.extract_channel(1),
        lambda: cv2.extractChannel(colour, 1))
compare("bpc_12_to_8", lambda: wide_image.convert_bpc(8),
        lambda: cv2.convertScaleAbs(wide, alpha=255 / 4095))
compare("bpc_16_to_8", lambda: deep_image.convert_bpc(8),
        lambda: cv2.convertScaleAbs(deep, alpha=255 / 65535))
compare("bpc_8_to_16", lambda: mono_image.convert_bpc(16),
        lambda: cv2.multiply(mono, 257, dtype=cv2.CV_16U))
compare("bpc_12_to_16", lambda: wide_image.convert_bpc(16),
        lambda: cv2.multiply(wide, 65535 / 4095))

height, width = mono.shape
half = (width // 2, height // 2)
compare("crop", lambda: mono_image.crop(20, 20, *half),
        lambda: mono[20:20 + half[1], 20:20 + half[0]].copy())
compare("resize_half", lambda: mono_image.resize(*half, 0, 0, 0, 0),
        lambda: cv2.resize(mono, half, interpolation=cv2.INTER_AREA))
compare("resize_smaller", lambda: colour_image.resize(width // 3 + 7, height // 3 + 5, 0, 0, 0, 0),
        lambda: cv2.resize(colour, (width // 3 + 7, height // 3 + 5), interpolation=cv2.INTER_AREA))
compare("resize_larger", lambda: mono_image.resize(width + 333, height + 222, 0, 0, 0, 0),
        lambda: cv2.resize(mono, (width + 333, height + 222), interpolation=cv2.INTER_LINEAR))

other, other_image = lines(FULL_HD), image_of(lines(FULL_HD))
small, small_image = mono[:half[1], :half[0]].copy(), mono_image.crop(0, 0, *half)
compare("copy_to", lambda: mono_image.copy_to(other_image), lambda: numpy.copyto(other, mono))
compare("resize_to", lambda: mono_image.resize_to(small_image),
        lambda: cv2.resize(mono, half, dst=small, interpolation=cv2.INTER_AREA))
compare("add", lambda: other_image.add(mono_image), lambda: cv2.add(other, mono, dst=other))
compare("subtract", lambda: other_image.subtract(mono_image),
        lambda: cv2.subtract(other, mono, dst=other))
compare("divide_8", lambda: other_image.divide_by_value(3), lambda: cv2.divide(other, 3, dst=other))
compare("divide_16", lambda: deep_image.divide_by_value(3), lambda: cv2.divide(deep, 3, dst=deep))
real = lines(FULL_HD, bits=20, dtype="f4")
real_image = image_of(real)
compare("divide_float", lambda: real_image.divide_by_value(1),
        lambda: cv2.divide(real, 1, dst=real))
