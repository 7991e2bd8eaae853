# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# numpy as a client of pictures: shared memory, orientation, life of the pixels.
import gc

import numpy
import vistrel


def picture(width, height, channels, bpc):
    image = vistrel.Image()
    image.alloc(width, height, channels, bpc)
    return image


def array_shares_memory_with_x_first():
    image = picture(31, 17, 1, 12)
    pixels = numpy.asarray(image)
    assert pixels.shape == (31, 17) and pixels.dtype == numpy.uint16
    assert pixels.__array_interface__["data"][0] == image.bp
    pixels[30, 16] = 4095
    offset = 16 * (31 * 2 + image.padding_x) + 30 * 2
    assert bytes(image)[offset:offset + 2] == b"\xff\x0f"


def transposed_array_is_line_by_line():
    image = picture(8, 4, 3, 8)
    lines = numpy.asarray(image).transpose(1, 0, 2)
    assert lines.shape == (4, 8, 3) and lines.flags["C_CONTIGUOUS"]
    lines[3, 7] = (1, 2, 3)
    assert numpy.asarray(image)[7, 3].tolist() == [1, 2, 3]


def array_keeps_the_picture_alive():
    arrays = []
    for value in range(50):
        image = picture(200, 100, 1, 8)
        array = numpy.asarray(image)
        array[:] = value
        arrays.append(array)
        del image
    gc.collect()
    assert [int(array.max()) for array in arrays] == list(range(50))


def every_layout_arrives():
    for channels in (1, 2, 3, 4, 5):
        for bpc, dtype in ((8, "uint8"), (10, "uint16"), (32, "uint32")):
            pixels = numpy.asarray(picture(7, 5, channels, bpc))
            assert pixels.shape == ((7, 5) if channels == 1 else (7, 5, channels))
            assert pixels.dtype == dtype
            assert int(pixels.sum()) == 0


def copy_for_opencv_has_blue_first():
    image = picture(2, 2, 3, 8)
    numpy.asarray(image)[0, 0] = (10, 20, 30)
    swapped = image.get_image_data_numpy()
    assert numpy.asarray(swapped)[0, 0].tolist() == [30, 20, 10]
    assert not swapped.rgb and image.rgb
    kept = image.get_image_data_numpy(True)
    assert kept is image


def bytes_hold_the_padding():
    image = picture(3, 2, 1, 8)
    numpy.asarray(image)[:] = 9
    assert bytes(image) == bytes([9, 9, 9, 0] * 2) == image.tobytes()


def pictures_without_a_type_take_arrays_of_eight_bytes_a_value():
    # Such as complex numbers make. A value has one byte, so that the arrays' last ones lie behind the
    # picture: there is room for them.
    image = vistrel.Image()
    image.from_array(numpy.full((5, 5), 1j, "c8"))
    interface = image.__array_interface__
    assert interface["typestr"] == "|u8" and interface["strides"][0] == 1, interface
    numpy.asarray(image)[:] = 2**63
    assert image.bp_size == 40


for test in (array_shares_memory_with_x_first, transposed_array_is_line_by_line,
             array_keeps_the_picture_alive, every_layout_arrives, copy_for_opencv_has_blue_first,
             bytes_hold_the_padding, pictures_without_a_type_take_arrays_of_eight_bytes_a_value):
    test()
