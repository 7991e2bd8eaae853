# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# The constants that every script finds among its own names, for editors and the
# reference. A test compares them with those of a run.
#
# The text of a parameter starts with its meaning; "Type:" and "Unit:" follow on
# a line of their own.
"""Constants of every script.

They are no part of the module: each is among the script's own names, without
an import. A text is the name of a camera parameter, for set_param() and
get_param(); the parameter is an attribute of a camera too, so GAIN_DB stands
for camera.set_gain_db() and camera.get_gain_db(). A number is a value of the
parameter in whose name it begins.

Which of them a camera has differs: get_param() raises Exception
"Parameter not supported by the camera." for one that it lacks, set_param()
returns 1. Limits are the camera's own, see get_param().
"""

from typing import Final

EXPOSURE_TIME_US: Final = "exposure_time_us"
"""Exposure time.

Type: int. Unit: us.
"""
GAIN_DB: Final = "gain_db"
"""Gain; in the camera's own steps, without a unit, where it has only these.

Type: float. Unit: dB.
"""
FRAMERATE: Final = "framerate"
"""Frames in a second, where the camera sets the pace (ACQ_TIMING_MODE).

Type: float. Unit: fps.
"""
WIDTH: Final = "width"
"""Width of the region of interest; see set_roi().

Type: int. Unit: px.
"""
HEIGHT: Final = "height"
"""Height of the region of interest; see set_roi().

Type: int. Unit: px.
"""
OFFSET_X: Final = "offset_x"
"""Left edge of the region of interest on the sensor; see set_roi().

Type: int. Unit: px.
"""
OFFSET_Y: Final = "offset_y"
"""Upper edge of the region of interest on the sensor; see set_roi().

Type: int. Unit: px.
"""
BLACK_LEVEL: Final = "black_level"
"""Value that the camera gives to black.

Type: float. Unit: none.
"""
TRIGGER_MODE: Final = "trigger_mode"
"""What starts a frame.

Type: int. Unit: none.
"""
IMAGE_DATA_FORMAT: Final = "image_data_format"
"""Channels, bits and colour filter of the frames.

Type: int. Unit: none.
"""
ACQ_TIMING_MODE: Final = "acq_timing_mode"
"""What sets the pace of the frames.

Type: int. Unit: none.
"""
AUTO_EXPOSURE: Final = "auto_exposure"
"""Whether the camera finds the exposure time itself, all the time.

Type: bool. Unit: none.
"""
AUTO_GAIN: Final = "auto_gain"
"""Whether the camera finds the gain itself, all the time.

Type: bool. Unit: none.
"""
BINNING_HORIZONTAL: Final = "binning_horizontal"
"""How many pixels side by side become one.

Type: int. Unit: none.
"""
BINNING_VERTICAL: Final = "binning_vertical"
"""How many lines become one.

Type: int. Unit: none.
"""
REVERSE_X: Final = "reverse_x"
"""Whether the camera exchanges left and right.

Type: bool. Unit: none.
"""
REVERSE_Y: Final = "reverse_y"
"""Whether the camera exchanges top and bottom.

Type: bool. Unit: none.
"""

TRIGGER_MODE_OFF: Final = 0
"""Frames come by themselves."""
TRIGGER_MODE_SOFTWARE: Final = 1
"""Each frame waits for the camera's command "TriggerSoftware"."""
TRIGGER_MODE_HARDWARE: Final = 2
"""Each frame waits for a signal at the camera's input."""

IMAGE_DATA_FORMAT_MONO8: Final = 0
"""Grey, 8 bits."""
IMAGE_DATA_FORMAT_MONO10: Final = 1
"""Grey, 10 bits."""
IMAGE_DATA_FORMAT_MONO12: Final = 2
"""Grey, 12 bits."""
IMAGE_DATA_FORMAT_MONO14: Final = 3
"""Grey, 14 bits."""
IMAGE_DATA_FORMAT_MONO16: Final = 4
"""Grey, 16 bits."""
IMAGE_DATA_FORMAT_RGB8: Final = 5
"""Red, green, blue, 8 bits each."""
IMAGE_DATA_FORMAT_BGR8: Final = 6
"""Blue, green, red, 8 bits each."""
IMAGE_DATA_FORMAT_BAYER_RG8: Final = 7
"""Raw, 8 bits; the filter begins with red, green."""
IMAGE_DATA_FORMAT_BAYER_GR8: Final = 8
"""Raw, 8 bits; the filter begins with green, red."""
IMAGE_DATA_FORMAT_BAYER_GB8: Final = 9
"""Raw, 8 bits; the filter begins with green, blue."""
IMAGE_DATA_FORMAT_BAYER_BG8: Final = 10
"""Raw, 8 bits; the filter begins with blue, green."""
IMAGE_DATA_FORMAT_BAYER_RG16: Final = 11
"""Raw, 16 bits; the filter begins with red, green."""
IMAGE_DATA_FORMAT_BAYER_GR16: Final = 12
"""Raw, 16 bits; the filter begins with green, red."""
IMAGE_DATA_FORMAT_BAYER_GB16: Final = 13
"""Raw, 16 bits; the filter begins with green, blue."""
IMAGE_DATA_FORMAT_BAYER_BG16: Final = 14
"""Raw, 16 bits; the filter begins with blue, green."""

ACQ_TIMING_MODE_FREE_RUN: Final = 0
"""The camera is as fast as it can be."""
ACQ_TIMING_MODE_FRAME_RATE: Final = 1
"""The camera keeps to FRAMERATE."""
