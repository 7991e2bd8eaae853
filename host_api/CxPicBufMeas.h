// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Measurements of pixel values.
#pragma once

#include "CxHistoData.h"
#include "CxProfileData.h"

#include <QtCore/QRect>

class CxImageData;

/// Static operations; any thread as long as nobody changes the image meanwhile.
class CxPicBufMeas {
public:
    CxPicBufMeas() = delete;

    /// Statistics of each channel within a rectangle, which is clipped to the image. Returns false
    /// when no pixel is left or the image has no pixels.
    static bool measureHistogram(CxHistoData& result, const CxImageData* image, const QRect& rect,
                                 CxHistoData::ExHistoDataFlags flags);
    /// The same for every line (`rows`) or every column of the rectangle.
    static bool measureRowsColumnsProfileStats(bool rows, CxProfileData& result,
                                               const CxImageData* image, const QRect& rect);
};
