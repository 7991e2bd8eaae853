# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Import, conversions and measurements agree with numpy over element types, channels and odd sizes.
import random

import numpy
import vistrel

random.seed(20261121)
TYPES = ("u1", "i1", "u2", "i2", "u4", "i4", "u8", "i8", "f4", "f8")


def random_array(code):
    shape = [random.randint(1, 40), random.randint(1, 40)]
    if random.random() < 0.6:
        shape.append(random.randint(1, 5))
    if code[0] == "f":
        return numpy.random.default_rng(random.randint(0, 9999)).normal(5e3, 7, shape).astype(code)
    bits = random.randint(1, min(8 * int(code[1]), 52) - (code[0] == "i"))
    low = -(1 << bits) if code[0] == "i" and random.random() < 0.5 else 0
    return numpy.random.default_rng(random.randint(0, 9999)).integers(
        low, 1 << bits, shape).astype(code)


def lines_of(image):
    """The picture as lines of pixels, as numpy had it."""
    pixels = numpy.asarray(image)
    return pixels.swapaxes(0, 1)


def imported(array):
    image = vistrel.Image()
    image.from_array(array)
    return image


def close(a, b):
    return abs(a - b) <= 1e-9 * max(abs(a), abs(b), 1.0)


def check_import(array):
    image = imported(array)
    # A last axis of one value a pixel is no axis of a picture.
    expected = array.reshape(array.shape[:2]) if array.ndim == 3 and array.shape[2] == 1 else array
    got = lines_of(image)
    # Doubles become floats; bounds of signed values are one more than the bits hold.
    if array.dtype == numpy.float64:
        expected = expected.astype(numpy.float32)
    assert got.shape == expected.shape, (got.shape, expected.shape)
    different = got.astype(numpy.float64) != expected.astype(numpy.float64)
    boundary = expected.astype(numpy.float64) == 2.0 ** image.bpc
    assert not (different & ~boundary).any(), (array.dtype, image)
    assert got.dtype.itemsize <= array.dtype.itemsize
    return image


def check_measurement(image):
    lines = lines_of(image).astype(numpy.float64)
    lines = lines.reshape(lines.shape[0], lines.shape[1], -1)
    for channel, found in enumerate(image.measure_rect()):
        values = lines[:, :, channel]
        assert found["min"] == values.min() and found["max"] == values.max()
        assert close(found["mean"], values.mean()), (found, values.mean())
        assert abs(found["stdev"] - values.std()) <= 1e-9 * max(abs(values).max(), 1.0)
        assert close(found["rms"], numpy.sqrt((values ** 2).mean()))
    rows = image.measure_row_profiles_in_rect()
    columns = image.measure_column_profiles_in_rect()
    assert len(rows) == image.height and len(columns) == image.width
    assert all(close(row[0]["mean"], mean) for row, mean in zip(rows, lines[:, :, 0].mean(1)))
    assert all(close(c[0]["mean"], mean) for c, mean in zip(columns, lines[:, :, 0].mean(0)))


def check_parts(image):
    lines = lines_of(image)
    x, y = random.randrange(image.width), random.randrange(image.height)
    w, h = random.randint(1, image.width - x), random.randint(1, image.height - y)
    assert (lines_of(image.crop(x, y, w, h)) == lines[y:y + h, x:x + w]).all()
    channel = random.randrange(image.channels)
    expected = lines if lines.ndim == 2 else lines[:, :, channel]
    assert (lines_of(image.extract_channel(channel)) == expected).all()


paddings = set()
for turn in range(400):
    array = random_array(TYPES[turn % len(TYPES)])
    picture = check_import(array)
    check_measurement(picture)
    check_parts(picture)
    paddings.add(picture.padding_x)
assert paddings == {0, 1, 2, 3}, paddings
