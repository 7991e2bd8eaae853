# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Pillow as a client of pictures, and files that both write and read.
import os
import tempfile

import numpy
import PIL.Image
import vistrel

folder = tempfile.mkdtemp()


def colour_picture():
    image = vistrel.Image()
    image.alloc(6, 4, 3, 8)
    pixels = numpy.asarray(image)
    pixels[:] = numpy.arange(6 * 4 * 3, dtype=numpy.uint8).reshape(6, 4, 3)
    return image


def fromarray_reads_lines():
    image = colour_picture()
    lines = numpy.asarray(image).transpose(1, 0, 2)
    shown = PIL.Image.fromarray(lines)
    assert shown.size == (6, 4) and shown.mode == "RGB"
    assert shown.getpixel((5, 3)) == tuple(numpy.asarray(image)[5, 3].tolist())


def fromarray_of_a_mono_picture():
    image = vistrel.Image()
    image.alloc(5, 3, 1, 8)
    numpy.asarray(image)[4, 2] = 200
    shown = PIL.Image.fromarray(numpy.asarray(image).T)
    assert shown.size == (5, 3) and shown.getpixel((4, 2)) == 200


def a_saved_file_is_read_by_pillow():
    image = colour_picture()
    path = os.path.join(folder, "sub", "colour.png")
    assert image.save_to_file(path) is None
    with PIL.Image.open(path) as shown:
        assert shown.size == (6, 4) and shown.mode == "RGB"
        assert (numpy.asarray(shown) == numpy.asarray(image).transpose(1, 0, 2)).all()


def a_file_of_pillow_is_loaded():
    path = os.path.join(folder, "pillow.png")
    PIL.Image.new("RGB", (9, 7), (1, 2, 3)).save(path)
    image = vistrel.Image()
    assert image.from_file(path) is None
    assert (image.width, image.height, image.channels, image.rgb) == (9, 7, 3, True)
    assert numpy.asarray(image)[8, 6].tolist() == [1, 2, 3]


def sixteen_bits_survive_a_round_trip():
    image = vistrel.Image()
    image.alloc(5, 4, 1, 16)
    numpy.asarray(image)[:] = numpy.arange(20, dtype=numpy.uint16).reshape(5, 4) * 3000
    for name in ("deep.png", "deep.tif"):
        path = os.path.join(folder, name)
        image.save_to_file(path)
        again = vistrel.Image()
        again.from_file(path)
        assert again.bpc == 16, name
        assert (numpy.asarray(again) == numpy.asarray(image)).all(), name


def its_pictures_are_imported():
    for mode, value, form in (("L", 77, (1, 8, False)), ("RGB", (1, 2, 3), (3, 8, True)),
                              ("RGBA", (1, 2, 3, 4), (4, 8, False)), ("I", 3000, (1, 12, False)),
                              ("I;16", 999, (1, 10, False)), ("F", 0.5, (1, 32, False))):
        shown = PIL.Image.new(mode, (9, 7), value)
        image = vistrel.Image()
        image.from_array(numpy.asarray(shown))
        assert (image.channels, image.bpc, image.rgb) == form, (mode, image)
        assert (image.width, image.height) == (9, 7)
        found = numpy.asarray(image)[8, 6].tolist()
        assert found == (list(value) if isinstance(value, tuple) else value), (mode, found)


def its_pictures_themselves_have_no_address():
    image = colour_picture()
    try:
        image.from_array(PIL.Image.new("L", (9, 7)))
        raise AssertionError("no error")
    except Exception as error:
        assert str(error) == "Data in __array_interface__ not as tuple", error
    assert image.width == 6


def a_missing_file_is_an_error_and_a_broken_one_leaves_the_object_empty():
    image = colour_picture()
    try:
        image.from_file(os.path.join(folder, "nowhere.png"))
        raise AssertionError("no error")
    except Exception as error:
        assert str(error) == "cannot open file", error
    assert image.width == 6


for test in (fromarray_reads_lines, fromarray_of_a_mono_picture, a_saved_file_is_read_by_pillow,
             a_file_of_pillow_is_loaded, sixteen_bits_survive_a_round_trip,
             its_pictures_are_imported, its_pictures_themselves_have_no_address,
             a_missing_file_is_an_error_and_a_broken_one_leaves_the_object_empty):
    test()
