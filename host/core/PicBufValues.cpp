// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Looks at values: how many bits they need, whether they are negative, how large they are.
#include <CxPicBufAPI.h>

#include "core/PicBufView.h"

#include <bit>
#include <type_traits>

namespace {

template<class Element>
struct Extremes {
    Element smallest = std::numeric_limits<Element>::max();
    Element largest = std::numeric_limits<Element>::lowest();
};

template<class Element>
Extremes<Element> extremesOf(const SxPicBuf& buffer)
{
    Extremes<Element> result;
    vistrel::forEachLine<Element>(buffer, [&](const Element* line, std::size_t values) {
        Element smallest = result.smallest;
        Element largest = result.largest;
        for (std::size_t i = 0; i < values; ++i) {
            smallest = line[i] < smallest ? line[i] : smallest;
            largest = line[i] > largest ? line[i] : largest;
        }
        result = {smallest, largest};
    });
    return result;
}

/// The values that an integer picture holds, wide enough for every type.
struct Range {
    quint64 mostNegative = 0; ///< absolute value of the smallest one below 0
    quint64 largest = 0;      ///< the largest one, 0 when all are negative
};

template<class Element>
Range rangeFrom(const Extremes<Element>& extremes)
{
    Range range;
    if constexpr (std::is_signed_v<Element>) {
        if (extremes.smallest < 0) // negated as unsigned: the lowest value has no counterpart
            range.mostNegative = quint64{0} - static_cast<quint64>(extremes.smallest);
    }
    if (extremes.largest > 0)
        range.largest = static_cast<quint64>(extremes.largest);
    return range;
}

bool holdsIntegers(const SxPicBuf& buffer)
{
    return vistrel::hasPixels(buffer) && !vistrel::isPacked(buffer)
           && !vistrel::isFloatingPoint(buffer);
}

/// The range of a picture of integers, in `range`; false when there is no memory to look at it.
bool findRange(const SxPicBuf& buffer, Range& range)
{
    return vistrel::guarded("Looking at pixel values", [&] {
        const vistrel::AlignedPicture aligned(buffer);
        range = vistrel::visitElementType(buffer.dataType, [&](auto element) {
            using Element = decltype(element);
            if constexpr (std::is_floating_point_v<Element>)
                return Range{};
            else
                return rangeFrom(extremesOf<Element>(aligned.buffer()));
        });
        return true;
    });
}

/// Bits that hold all values: with negative ones as two's complement, so with a bit for the sign.
unsigned bitsFor(const Range& range)
{
    if (range.mostNegative == 0)
        return static_cast<unsigned>(std::bit_width(range.largest));
    const quint64 magnitude = std::max(range.largest, range.mostNegative - 1);
    return static_cast<unsigned>(std::bit_width(magnitude)) + 1;
}

/// Bits that hold all values of a picture of integers. Those of unsigned ones are the bits that any
/// value has, which is quicker to see than which of them is the largest.
template<class Element>
unsigned bitsUsed(const SxPicBuf& buffer)
{
    if constexpr (std::is_signed_v<Element>) {
        return bitsFor(rangeFrom(extremesOf<Element>(buffer)));
    } else {
        Element used = 0;
        vistrel::forEachLine<Element>(buffer, [&used](const Element* line, std::size_t values) {
            Element bits = 0;
            for (std::size_t i = 0; i < values; ++i)
                bits = static_cast<Element>(bits | line[i]);
            used = static_cast<Element>(used | bits);
        });
        return static_cast<unsigned>(std::bit_width(used));
    }
}

/// The same in `bits`; false when there is no memory to look at it.
bool findBits(const SxPicBuf& buffer, unsigned& bits)
{
    return vistrel::guarded("Looking at pixel values", [&] {
        const vistrel::AlignedPicture aligned(buffer);
        bits = vistrel::visitElementType(buffer.dataType, [&](auto element) {
            using Element = decltype(element);
            if constexpr (std::is_floating_point_v<Element>)
                return 0U;
            else
                return bitsUsed<Element>(aligned.buffer());
        });
        return true;
    });
}

/// The next depth that pictures come in.
unsigned depthFor(unsigned bits)
{
    if (bits <= 8)
        return 8;
    return bits > 32 ? 64 : (bits + 1) / 2 * 2;
}

} // namespace

bool CxPicBufAPI::CheckPicValidData(const SxPicBuf& buffer)
{
    const unsigned bits = vistrel::significantBits(buffer);
    Range range;
    if (!holdsIntegers(buffer) || bits == vistrel::elementBits(buffer))
        return true;
    return findRange(buffer, range) && range.largest <= vistrel::fullScale(bits);
}

unsigned CxPicBufAPI::DetectColorBitDepth(SxPicBuf& buffer, unsigned maxBpc, bool update)
{
    unsigned bits = 0;
    if (!holdsIntegers(buffer) || !findBits(buffer, bits))
        return buffer.bpc;
    const unsigned depth = depthFor(bits);
    const unsigned result = maxBpc == 0 ? depth : std::min(depth, maxBpc);
    if (update)
        buffer.bpc = result;
    return result;
}

bool CxPicBufAPI::DetectNegativePixelValue(const SxPicBuf& buffer)
{
    if (!vistrel::hasPixels(buffer) || vistrel::isPacked(buffer))
        return false;
    return vistrel::guarded("Looking for negative values", [&] {
        const vistrel::AlignedPicture aligned(buffer);
        return vistrel::visitElementType(buffer.dataType, [&](auto element) {
            using Element = decltype(element);
            if constexpr (std::is_signed_v<Element>)
                return extremesOf<Element>(aligned.buffer()).smallest < 0;
            else
                return false;
        });
    });
}

quint64 CxPicBufAPI::DetectMaxAbsValue(const SxPicBuf& buffer)
{
    Range range;
    if (!holdsIntegers(buffer) || !findRange(buffer, range))
        return 0;
    return std::max(range.mostNegative, range.largest);
}
