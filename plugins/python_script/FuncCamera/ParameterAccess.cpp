// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads and sets parameters of a camera by name.
#include "FuncCamera/ParameterAccess.h"

#include "FuncCamera/DeviceInfo.h"

#include <CxCameraParameters.h>

namespace parameter_access {

namespace {

constexpr char notSupported[] = "Parameter not supported by the camera.";

using Reader = CxValue (CxCameraParam::*)();

/// What the ending of a key reads; null for an ending that has no meaning.
Reader readerOf(QStringView ending)
{
    if (ending == QLatin1String(":min"))
        return &CxCameraParam::minimum;
    if (ending == QLatin1String(":max"))
        return &CxCameraParam::maximum;
    if (ending == QLatin1String(":inc"))
        return &CxCameraParam::increment;
    if (ending == QLatin1String(":info"))
        return &CxCameraParam::paramValue;
    return nullptr;
}

/// A value for a name that the host does not list.
Outcome<CxValue> readUnlisted(CxCameraParameters& camera, const QString& key)
{
    const std::optional<QString> text = device_info::text(camera, key);
    if (text) {
        // The model id says that it is an integer and has its text only: scripts get the number of
        // a new value, and find the id with get_device_info_string().
        return device_info::isNumber(key) ? CxValue::integerWithText(*text)
                                          : CxValue::fromString(*text);
    }
    CxValue value;
    if (!camera.getParamDirect(key, value, nullptr))
        return Refusal{notSupported};
    return value;
}

/// The value in the type that the parameter has now. A parameter without a value has no type: it is
/// sent back what it has.
CxValue retyped(const CxValue& value, const CxValue& current)
{
    switch (current.type()) {
    case CxValue::Int:
        return CxValue::fromInt(value.toInt());
    case CxValue::Float:
        return CxValue::fromFloat(value.toFloat());
    case CxValue::Bool:
        return value.type() == CxValue::String ? CxValue::boolOfText(value.toString())
                                               : CxValue::fromBool(value.toBool());
    case CxValue::String:
        return CxValue::fromString(value.toString());
    default:
        return current;
    }
}

} // namespace

Outcome<CxValue> read(CxCameraParameters& camera, const QString& key)
{
    const qsizetype colon = key.indexOf(QLatin1Char(':'));
    const Reader reader = colon < 0 ? nullptr : readerOf(QStringView(key).mid(colon));
    CxCameraParam* const parameter =
        reader != nullptr ? camera.findParam(key.left(colon), false) : camera.findParam(key, false);
    if (parameter == nullptr)
        return readUnlisted(camera, key);
    if (parameter->isUnsupported())
        return Refusal{notSupported};
    return reader != nullptr ? (parameter->*reader)() : parameter->paramValue();
}

int write(CxCameraParameters& camera, const QString& name, const CxValue& value)
{
    CxCameraParam* const parameter = camera.findParam(name, false);
    const CxValue sent = parameter != nullptr ? retyped(value, parameter->paramValue()) : value;
    int status = 0;
    camera.setParamDirect(name, sent, &status, CxCameraParameters::RefreshLater);
    return status;
}

} // namespace parameter_access
