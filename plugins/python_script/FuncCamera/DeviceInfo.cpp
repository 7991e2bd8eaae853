// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The texts that say who a camera is.
#include "FuncCamera/DeviceInfo.h"

#include <CxCameraParameters.h>

namespace device_info {

namespace {

const QLatin1String modelIdKey("device_model_id");

struct TextField {
    QLatin1String key;
    QString SxCameraInfo::*field;
};

const TextField textFields[] = {
    {QLatin1String("device_sn"), &SxCameraInfo::serialNumber},
    {QLatin1String("device_inst_path"), &SxCameraInfo::instancePath},
    {QLatin1String("device_type"), &SxCameraInfo::deviceType},
    {QLatin1String("device_name"), &SxCameraInfo::deviceName},
    {QLatin1String("device_user_id"), &SxCameraInfo::userId},
};

} // namespace

std::optional<QString> text(const CxCameraParameters& camera, const QString& key)
{
    for (const TextField& entry : textFields) {
        if (key == entry.key)
            return camera.cameraInfo().*entry.field;
    }
    if (isNumber(key))
        return QString::number(camera.cameraInfo().modelId);
    return std::nullopt;
}

bool isNumber(const QString& key) { return key == modelIdKey; }

} // namespace device_info
