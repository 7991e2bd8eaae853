// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Moving whole pixels of any kind about, colour filter included.
#include "chains/PixelMoves.h"

#include <CxImageData.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace vistrel {

namespace {

/// Colours of the first two pixels of two lines.
using Pattern = std::array<char, 4>;

struct NamedPattern {
    ExColorFilterArray name;
    Pattern pattern;
};

constexpr std::array<NamedPattern, 4> patterns{{
    {ExColorFilterArray::RGGB, {'R', 'G', 'G', 'B'}},
    {ExColorFilterArray::GRBG, {'G', 'R', 'B', 'G'}},
    {ExColorFilterArray::GBRG, {'G', 'B', 'R', 'G'}},
    {ExColorFilterArray::BGGR, {'B', 'G', 'G', 'R'}},
}};

ExColorFilterArray movedPattern(const SxPicBufInfo& source, const PixelMove& move)
{
    const auto hasName = [&](const NamedPattern& p) { return p.name == source.colorFilterArray; };
    const auto* const old = std::find_if(patterns.begin(), patterns.end(), hasName);
    if (old == patterns.end())
        return source.colorFilterArray;
    Pattern moved{};
    for (std::size_t i = 0; i < moved.size(); ++i) {
        const QPoint place(static_cast<int>(i % 2), static_cast<int>(i / 2));
        // Sides longer by 2 have the same parity, and hold four pixels however small they are.
        const QPoint from = move.origin(place, static_cast<int>(source.width) + 2,
                                        static_cast<int>(source.height) + 2);
        moved[i] = old->pattern[static_cast<std::size_t>(from.y() % 2 * 2 + from.x() % 2)];
    }
    const auto hasPattern = [&](const NamedPattern& p) { return p.pattern == moved; };
    const auto* const found = std::find_if(patterns.begin(), patterns.end(), hasPattern);
    return found == patterns.end() ? ExColorFilterArray::None : found->name;
}

SxPicBufInfo movedInfo(const SxPicBufInfo& source, const PixelMove& move)
{
    SxPicBufInfo info = source;
    info.colorFilterArray = movedPattern(source, move);
    if (move.exchangesSides) {
        std::swap(info.width, info.height);
        info.stride = (info.width * info.bytesPerPixel() + 3) / 4 * 4;
    }
    return info;
}

/// The size in bytes of the largest units on which all pixels of both pictures begin.
int unitSizeFor(const SxPicBuf& a, const SxPicBuf& b)
{
    const auto address = [](const SxPicBuf& buffer) {
        return reinterpret_cast<std::uintptr_t>(buffer.data) | buffer.stride;
    };
    const std::uintptr_t all = address(a) | address(b) | a.bytesPerPixel();
    return all % 4 == 0 ? 4 : all % 2 == 0 ? 2 : 1;
}

int depthOfUnits(int size) { return size == 4 ? CV_32S : size == 2 ? CV_16U : CV_8U; }

/// OpenCV transposes pixels of some sizes only: others go value by value.
void moveChannels(const cv::Mat& from, cv::Mat& to, const PixelMove& move)
{
    for (int channel = 0; channel < from.channels(); ++channel) {
        cv::Mat plane;
        cv::Mat moved;
        cv::extractChannel(from, plane, channel);
        move.move(plane, moved);
        cv::insertChannel(moved, to, channel);
    }
}

bool isTransposed(std::size_t pixelBytes)
{
    constexpr std::array<std::size_t, 10> known{1, 2, 3, 4, 6, 8, 12, 16, 24, 32};
    return std::count(known.begin(), known.end(), pixelBytes) > 0;
}

cv::Mat pixelsOver(const SxPicBuf& buffer, int type)
{
    return {static_cast<int>(buffer.height), static_cast<int>(buffer.width), type, buffer.data,
            buffer.stride};
}

} // namespace

QString movePixels(CxImageData& image, ResultPicture& result, const PixelMove& move)
{
    const SxPicBuf& source = *image.picBuf();
    const SxPicBuf& target = result.shaped(movedInfo(source, move));
    const int unitSize = unitSizeFor(source, target);
    const int units = static_cast<int>(source.bytesPerPixel()) / unitSize;
    if (units > CV_CN_MAX)
        return QStringLiteral("they have too many channels");
    const int type = CV_MAKETYPE(depthOfUnits(unitSize), units);
    const cv::Mat from = pixelsOver(source, type);
    cv::Mat to = pixelsOver(target, type);
    if (move.exchangesSides && !isTransposed(from.elemSize()))
        moveChannels(from, to, move);
    else
        move.move(from, to);
    result.exchange(image);
    return {};
}

} // namespace vistrel
