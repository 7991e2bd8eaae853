// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// How a frame was taken: the camera's settings at that moment.
#pragma once

#include "ExImageDataType.h"

/// Acquisition record of an image that came from a camera.
struct SxAcquisitionInfo {
    quint32 transportFormat = 0; ///< pixel format on the wire, as a GenICam PFNC code
    qint32 exposureTimeUs = 0;   ///< microseconds
    float gainDb = 0.0F;         ///< decibels; 0 when the camera does not tell it in these
    float whiteBalanceRed = 1.0F;
    float whiteBalanceGreen = 1.0F;
    float whiteBalanceBlue = 1.0F;
    ExColorFilterArray colorFilterArray = ExColorFilterArray::None;
    qint32 tofPhaseId = 0;     ///< time-of-flight cameras: which phase this is
    qint32 tofPhasesCount = 0; ///< time-of-flight cameras: how many there are
};
