// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// How often which value occurs in a picture.
#pragma once

#include "core/PixelRect.h"
#include "core/ValueRange.h"

#include <QtCore/QStringList>

#include <optional>
#include <vector>

namespace vistrel {

/// Counts in bins of equal width, channel by channel. Integers up to 16 bits have a bin for each
/// value that the significant bits can hold, and for those beyond that occur.
struct ValueCounts {
    double first = 0.0;    ///< lowest value of the first bin
    double binWidth = 1.0; ///< 1 where a bin is one value
    QStringList names;     ///< of the channels
    std::vector<std::vector<quint64>> channels;

    std::size_t bins() const { return channels.empty() ? 0 : channels.front().size(); }
    double valueOf(std::size_t bin) const { return first + static_cast<double>(bin) * binWidth; }
};

/// Counts the pixels of a rectangle, of which only every `lineStep`-th line is read. Values that
/// are no numbers are left out. Nothing when no pixel of the picture is inside, or without memory.
std::optional<ValueCounts> countValues(const SxPicBuf& buffer, const PixelRect& region,
                                       std::size_t lineStep = 1);

/// The smallest and the largest value of all colours; nothing when there is no number.
std::optional<ValueRange> extremesOf(const SxPicBuf& buffer);

/// The values below which lie the part `tail` of the colours' pixels, and above which lies the same
/// part; nothing when there are no counts. Large pictures are looked at line by several lines.
std::optional<ValueRange> percentilesOf(const SxPicBuf& buffer, double tail);

} // namespace vistrel
