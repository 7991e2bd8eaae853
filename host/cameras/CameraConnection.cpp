// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a camera still answers, shared by everybody who speaks to it.
#include "cameras/CameraConnection.h"

#include "cameras/AravisHandles.h"

#include <utility>

namespace vistrel {

CameraConnection::CameraConnection(LostHandler onLost)
    : m_onLost(std::move(onLost))
{
}

void CameraConnection::breakOff()
{
    if (!m_lost.exchange(true))
        m_onLost();
}

void CameraConnection::judge(const ArvFailure& failure)
{
    if (isMissingAnswer(failure))
        breakOff();
}

bool isMissingAnswer(const ArvFailure& failure)
{
    return failure.is(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_NOT_CONNECTED)
           || failure.is(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_TIMEOUT);
}

} // namespace vistrel
