// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's own names of camera parameters and of the values of those that are enumerations.
#include "cameras/ParameterNames.h"

namespace vistrel {

namespace {

const QString triggerMode = QStringLiteral("trigger_mode");
const QString imageDataFormat = QStringLiteral("image_data_format");
const QString acqTimingMode = QStringLiteral("acq_timing_mode");

} // namespace

const QStringList& parameterNames()
{
    static const QStringList names = {
        QStringLiteral("exposure_time_us"),
        QStringLiteral("gain_db"),
        QStringLiteral("framerate"),
        QStringLiteral("width"),
        QStringLiteral("height"),
        QStringLiteral("offset_x"),
        QStringLiteral("offset_y"),
        QStringLiteral("black_level"),
        triggerMode,
        imageDataFormat,
        acqTimingMode,
    };
    return names;
}

bool isKnownParameterName(const QString& name) { return parameterNames().contains(name); }

const QList<ParameterEnumValue>& parameterEnumValues()
{
    static const QList<ParameterEnumValue> values = {
        {triggerMode, QStringLiteral("TRIGGER_MODE_OFF"), 0},
        {triggerMode, QStringLiteral("TRIGGER_MODE_SOFTWARE"), 1},
        {triggerMode, QStringLiteral("TRIGGER_MODE_HARDWARE"), 2},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_MONO8"), 0},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_MONO10"), 1},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_MONO12"), 2},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_MONO14"), 3},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_MONO16"), 4},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_RGB8"), 5},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_BGR8"), 6},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_BAYER_RG8"), 7},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_BAYER_GR8"), 8},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_BAYER_GB8"), 9},
        {imageDataFormat, QStringLiteral("IMAGE_DATA_FORMAT_BAYER_BG8"), 10},
        {acqTimingMode, QStringLiteral("ACQ_TIMING_MODE_FREE_RUN"), 0},
        {acqTimingMode, QStringLiteral("ACQ_TIMING_MODE_FRAME_RATE"), 1},
    };
    return values;
}

} // namespace vistrel
