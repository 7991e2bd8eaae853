# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Conversions, arithmetic and copies agree with numpy over depths, channels, odd sizes and paddings.
import random

import numpy
import vistrel

random.seed(20261122)
BITS = (1, 7, 8, 9, 10, 12, 14, 16, 17, 24, 32)
paddings = set()


def random_picture(bpc, shape=None):
    """A picture of random values of so many bits; its lines are padded to multiples of 4 bytes."""
    width, height, channels = shape or (random.randint(1, 40), random.randint(1, 20),
                                        random.randint(1, 5))
    image = vistrel.Image()
    image.alloc(width, height, channels, bpc)
    pixels = numpy.asarray(image)
    pixels[:] = numpy.random.default_rng(random.getrandbits(32)).integers(
        0, 1 << bpc, pixels.shape, endpoint=False)
    paddings.add(image.padding_x)
    return image


def shape_of(image):
    return (image.width, image.height, image.channels)


def values_of(image):
    """A copy, wide enough for every sum and product."""
    return numpy.asarray(image).astype(numpy.int64)


def check_sums(image, bpc):
    other = random_picture(bpc, shape_of(image))
    before, others = values_of(image), values_of(other)
    image.add(other)
    assert (values_of(image) == numpy.minimum(before + others, (1 << bpc) - 1)).all(), image
    before = values_of(image)
    image.subtract(other)
    assert (values_of(image) == numpy.maximum(before - others, 0)).all(), image
    assert (values_of(other) == others).all()


def check_quotients(image):
    divisor = random.choice((1, 2, 3, 7, 10, 255, 256, 1000, 65535, 2**31 - 1))
    expected = values_of(image) // divisor
    image.divide_by_value(divisor)
    assert (values_of(image) == expected).all(), (image, divisor)


def check_depths(image, bpc):
    values = values_of(image)
    for bits in BITS:
        full, wanted = (1 << bpc) - 1, (1 << bits) - 1
        if bpc + bits <= 62:
            scaled = image.convert_bpc(bits)
            assert (values_of(scaled) == (values * wanted * 2 + full) // (2 * full)).all(), (
                image, bits)
        if values.max() <= wanted:
            assert (values_of(image.convert_bpc(bits, False)) == values).all(), (image, bits)


def check_copies(image):
    target = random_picture(image.bpc, shape_of(image))
    x, y = random.randrange(image.width), random.randrange(image.height)
    w, h = random.randint(1, image.width - x), random.randint(1, image.height - y)
    to_x, to_y = random.randint(0, image.width - w), random.randint(0, image.height - h)
    expected = values_of(target)
    expected[to_x:to_x + w, to_y:to_y + h] = values_of(image)[x:x + w, y:y + h]
    image.copy_rect_to(x, y, w, h, target, to_x, to_y)
    assert (values_of(target) == expected).all(), image
    image.copy_to(target)
    assert (values_of(target) == values_of(image)).all()
    assert (values_of(image.new_copy()) == values_of(image)).all()


def check_scaling(image):
    """The nearest pixel of a plain picture is any; a doubled one keeps its mean."""
    value = int(values_of(image).ravel()[0])
    numpy.asarray(image)[:] = value
    scaled = image.resize(random.randint(1, 60), random.randint(1, 60), 0, 0, 0, 0)
    assert (values_of(scaled) == value).all(), (image, scaled)


for turn in range(330):
    depth = BITS[turn % len(BITS)]
    picture = random_picture(depth)
    check_depths(picture, depth)
    check_copies(picture)
    check_sums(picture, depth)
    check_quotients(picture)
    check_scaling(picture)
assert paddings == {0, 1, 2, 3}, paddings
