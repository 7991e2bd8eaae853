// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics of every line or column of a rectangle, a list for each channel.
#pragma once

#include "CxHistoData.h"

/// Filled by CxPicBufMeas; `stats[channel][line]` belongs to `channelNames[channel]`.
class CxProfileData {
public:
    QList<QString> channelNames;
    QList<QList<CxHistoData::CxPixelStats>> stats;
};
