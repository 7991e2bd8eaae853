// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What a camera says about itself.
#pragma once

#include <QtCore/QString>

/// Identity of a camera; constant while it is open.
struct SxCameraInfo {
    QString deviceName;   ///< model name, for people
    QString deviceType;   ///< kind of connection or driver, for example "GigEVision"
    int modelId = 0;      ///< number of the model within its maker's range
    QString serialNumber; ///< unique for the maker
    QString userId;       ///< name given by the user and kept in the camera; may be empty
    QString instancePath; ///< where it is connected; unique on this machine
};
