// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's own names of camera parameters, what stands for them in a camera, and the values of
// those that are enumerations.
#include "cameras/ParameterNames.h"

#include <QtCore/QSet>

namespace vistrel {

namespace {

const QString triggerMode = QStringLiteral("trigger_mode");
const QString imageDataFormat = QStringLiteral("image_data_format");
const QString acqTimingMode = QStringLiteral("acq_timing_mode");

const QString microseconds = QStringLiteral("us");
const QString decibels = QStringLiteral("dB");
const QString framesPerSecond = QStringLiteral("fps");
const QString pixels = QStringLiteral("px");
const QString none;

QStringList names(std::initializer_list<const char*> list)
{
    QStringList result;
    for (const char* name : list)
        result.append(QString::fromLatin1(name));
    return result;
}

ParameterName known(const char* name, CxValue::Type type, const QString& unit,
                    std::initializer_list<const char*> nodes)
{
    return {QString::fromLatin1(name), type, unit, names(nodes)};
}

ParameterEnumValue valueOf(const QString& parameter, const char* name, int value,
                           std::initializer_list<const char*> entries)
{
    return {parameter, parameter.toUpper() + u'_' + QString::fromLatin1(name), value,
            names(entries)};
}

} // namespace

const QList<ParameterName>& knownParameters()
{
    static const QList<ParameterName> parameters = {
        known("exposure_time_us", CxValue::Int, microseconds, {"ExposureTime", "ExposureTimeAbs"}),
        known("gain_db", CxValue::Float, decibels, {"Gain", "GainAbs", "GainRaw"}),
        known("framerate", CxValue::Float, framesPerSecond,
              {"AcquisitionFrameRate", "AcquisitionFrameRateAbs"}),
        known("width", CxValue::Int, pixels, {"Width"}),
        known("height", CxValue::Int, pixels, {"Height"}),
        known("offset_x", CxValue::Int, pixels, {"OffsetX"}),
        known("offset_y", CxValue::Int, pixels, {"OffsetY"}),
        known("black_level", CxValue::Float, none,
              {"BlackLevel", "BlackLevelAbs", "BlackLevelRaw"}),
        {triggerMode, CxValue::Int, none, names({"TriggerMode"})},
        {imageDataFormat, CxValue::Int, none, names({"PixelFormat"})},
        {acqTimingMode, CxValue::Int, none, names({"AcquisitionFrameRateEnable"})},
        known("auto_exposure", CxValue::Bool, none, {"ExposureAuto"}),
        known("auto_gain", CxValue::Bool, none, {"GainAuto"}),
        known("binning_horizontal", CxValue::Int, none, {"BinningHorizontal"}),
        known("binning_vertical", CxValue::Int, none, {"BinningVertical"}),
        known("reverse_x", CxValue::Bool, none, {"ReverseX"}),
        known("reverse_y", CxValue::Bool, none, {"ReverseY"}),
    };
    return parameters;
}

const QStringList& parameterNames()
{
    static const QStringList all = [] {
        QStringList result;
        for (const ParameterName& parameter : knownParameters())
            result.append(parameter.name);
        return result;
    }();
    return all;
}

bool isKnownParameterName(const QString& name)
{
    static const QSet<QString> all(parameterNames().begin(), parameterNames().end());
    return all.contains(name);
}

// The numbers are what scripts have stored: a new value is added at the end.
const QList<ParameterEnumValue>& parameterEnumValues()
{
    static const QList<ParameterEnumValue> values = {
        valueOf(triggerMode, "OFF", 0, {}), // made of two nodes, by TriggerParameter
        valueOf(triggerMode, "SOFTWARE", 1, {}),
        valueOf(triggerMode, "HARDWARE", 2, {}),
        valueOf(imageDataFormat, "MONO8", 0, {"Mono8"}),
        valueOf(imageDataFormat, "MONO10", 1, {"Mono10", "Mono10p", "Mono10Packed"}),
        valueOf(imageDataFormat, "MONO12", 2, {"Mono12", "Mono12p", "Mono12Packed"}),
        valueOf(imageDataFormat, "MONO14", 3, {"Mono14"}),
        valueOf(imageDataFormat, "MONO16", 4, {"Mono16"}),
        valueOf(imageDataFormat, "RGB8", 5, {"RGB8", "RGB8Packed"}),
        valueOf(imageDataFormat, "BGR8", 6, {"BGR8", "BGR8Packed"}),
        valueOf(imageDataFormat, "BAYER_RG8", 7, {"BayerRG8"}),
        valueOf(imageDataFormat, "BAYER_GR8", 8, {"BayerGR8"}),
        valueOf(imageDataFormat, "BAYER_GB8", 9, {"BayerGB8"}),
        valueOf(imageDataFormat, "BAYER_BG8", 10, {"BayerBG8"}),
        valueOf(imageDataFormat, "BAYER_RG16", 11, {"BayerRG16"}),
        valueOf(imageDataFormat, "BAYER_GR16", 12, {"BayerGR16"}),
        valueOf(imageDataFormat, "BAYER_GB16", 13, {"BayerGB16"}),
        valueOf(imageDataFormat, "BAYER_BG16", 14, {"BayerBG16"}),
        valueOf(acqTimingMode, "FREE_RUN", 0, {"false"}),
        valueOf(acqTimingMode, "FRAME_RATE", 1, {"true"}),
    };
    return values;
}

} // namespace vistrel
