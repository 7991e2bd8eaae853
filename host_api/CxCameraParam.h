// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One parameter of a camera.
#pragma once

#include "CxValue.h"

/// A parameter that the host knows by name. It belongs to its CxCameraParameters and lives as long.
/// GUI thread only.
class CxCameraParam {
public:
    /// From which level of experience on a user is shown a parameter.
    enum ExVisibility : int { Beginner = 1, Expert = 2, Guru = 3 };

    virtual ~CxCameraParam() = default;

    /// The current value, read from the camera; empty when it cannot be read.
    virtual CxValue paramValue() = 0;
    /// The least value; empty for parameters without limits.
    virtual CxValue minimum() = 0;
    /// The greatest value; empty for parameters without limits.
    virtual CxValue maximum() = 0;
    /// The step between values; empty when there is none.
    virtual CxValue increment() = 0;
    /// Whether the connected camera lacks this parameter.
    virtual bool isUnsupported() const = 0;
};
