# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# scikit-image as a client of pictures: arrays of its own kinds go there and back.
import os
import tempfile

import numpy
import skimage.exposure
import skimage.filters
import skimage.io
import skimage.measure
import skimage.transform
import skimage.util
import vistrel

folder = tempfile.mkdtemp()


def lines_of(image):
    """The picture as scikit-image has it: lines first."""
    return numpy.asarray(image).swapaxes(0, 1)


def imported(array):
    image = vistrel.Image()
    image.from_array(array)
    return image


def ramp():
    image = vistrel.Image()
    image.alloc(30, 20, 3, 8)
    numpy.asarray(image)[:] = numpy.arange(30 * 20 * 3, dtype="u2").reshape(30, 20, 3) % 251
    return image


def its_grey_floats_come_back_as_floats():
    grey = skimage.util.img_as_float32(lines_of(ramp())[:, :, 0])
    blurred = skimage.filters.gaussian(grey, sigma=2)
    image = imported(blurred.astype("f4"))
    assert str(image).endswith("type: float"), image
    assert (lines_of(image) == blurred.astype("f4")).all()


def its_doubles_come_back_as_floats():
    resized = skimage.transform.resize(lines_of(ramp()), (10, 15))
    assert resized.dtype == numpy.float64
    image = imported(resized)
    assert (image.width, image.height, image.channels) == (15, 10, 3)
    assert (lines_of(image) == resized.astype("f4")).all()


def its_16_bits_come_back_with_16_bits():
    wide = skimage.util.img_as_uint(lines_of(ramp()))
    image = imported(wide)
    assert image.bpc == 16 and image.rgb and (lines_of(image) == wide).all()


def its_masks_become_pictures_when_they_are_bytes():
    mask = lines_of(ramp())[:, :, 1] > skimage.filters.threshold_otsu(lines_of(ramp())[:, :, 1])
    image = imported(skimage.util.img_as_ubyte(mask))
    assert set(image.tobytes()) <= {0, 255}
    assert int(image.measure_rect()[0]["mean"] * 600 / 255 + 0.5) == mask.sum()


def its_labels_come_back():
    labels = skimage.measure.label(lines_of(ramp())[:, :, 2] > 128)
    assert labels.dtype.kind == "i" and labels.dtype.itemsize >= 4 and labels.max() > 1
    image = imported(labels)
    assert (lines_of(image) == labels).all()


def its_statistics_agree_with_the_measurement():
    wide = imported(skimage.util.img_as_uint(lines_of(ramp())))
    for channel, found in enumerate(wide.measure_rect()):
        values = lines_of(wide)[:, :, channel]
        assert abs(found["mean"] - values.mean()) < 1e-9 * found["mean"]
        low, high = skimage.exposure.exposure.intensity_range(values, "image")
        assert (found["min"], found["max"]) == (low, high)


def files_go_both_ways():
    path = os.path.join(folder, "ours.png")
    ramp().save_to_file(path)
    assert (skimage.io.imread(path) == lines_of(ramp())).all()
    path = os.path.join(folder, "theirs.tif")
    wide = skimage.util.img_as_uint(lines_of(ramp())[:, :, 0])
    skimage.io.imsave(path, wide, check_contrast=False)
    image = vistrel.Image()
    image.from_file(path)
    assert image.bpc == 16 and (lines_of(image) == wide).all()


for test in (its_grey_floats_come_back_as_floats, its_doubles_come_back_as_floats,
             its_16_bits_come_back_with_16_bits, its_masks_become_pictures_when_they_are_bytes,
             its_labels_come_back, its_statistics_agree_with_the_measurement, files_go_both_ways):
    test()
