# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Exposure series: a picture at each of several exposure times, a table of what they measure, and
# all of them side by side in one picture.
#
#     vistrel-run --camera sim exposure_series.py

import numpy
import vistrel

TIMES_US = [2000, 4000, 8000, 16000, 32000, 64000, 128000]
WIDTH, HEIGHT = 256, 256  # of one picture


def picture_at(camera: vistrel.Camera, view: int, time_us: int) -> vistrel.Image:
    """Sets the exposure time and waits for a frame that was taken with it."""
    status = camera.set_exposure_time_us(time_us)
    if status != 0:
        raise Exception("the camera refused %d us with status %d" % (time_us, status))
    for _ in range(20):
        # Two frames may be under way that were begun before.
        for _ in range(3):
            if not vistrel.wait_for_next_frame(30.0, view):
                raise Exception("no frame came within 30 seconds")
        image = vistrel.get_view_image(view)
        if image.exposure_time_us == time_us:
            return image
    raise Exception("no frame was taken with %d us" % time_us)


camera = vistrel.Camera()
camera.open_device()
least, greatest = camera.get_exposure_time_us_minimum(), camera.get_exposure_time_us_maximum()
print("%s: exposure times from %d to %d us" % (camera, least, greatest))

camera.set_roi(0, 0, WIDTH, HEIGHT)
camera.set_framerate(50.0)
view = camera.start_acquisition()

print("%12s %8s %10s %10s" % ("time / us", "mean", "deviation", "saturated"))
strip = []
for time_us in TIMES_US:
    image = picture_at(camera, view, time_us)
    pixels = numpy.asarray(image).swapaxes(0, 1)  # its first index is x
    saturated = 100.0 * numpy.count_nonzero(pixels == 255) / pixels.size
    print("%12d %8.1f %10.1f %8.1f %%" % (time_us, pixels.mean(), pixels.std(), saturated))
    strip.append(pixels[::2, ::2])
camera.stop_acquisition()

result = vistrel.Image()
result.from_array(numpy.ascontiguousarray(numpy.hstack(strip)))
result.save_to_file("exposure_series.png")
print("saved exposure_series.png")
