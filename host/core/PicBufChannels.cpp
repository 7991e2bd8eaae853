// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Takes single channels out of pictures and exchanges the outer ones.
#include <CxPicBufAPI.h>

#include "core/Packed565.h"
#include "core/PicBufMat.h"
#include "core/PicBufView.h"

#include <opencv2/imgproc.hpp>

#include <cstring>

namespace {

/// Moves elements as raw bytes: the same for all types of a size and for lines on odd addresses.
template<std::size_t ElementSize>
void extract(const SxPicBuf& source, const SxPicBuf& target, std::size_t channel)
{
    const std::size_t step = source.channels * ElementSize;
    for (std::size_t y = 0; y < source.height; ++y) {
        const quint8* from = source.data + y * source.stride + channel * ElementSize;
        quint8* to = target.data + y * target.stride;
        for (std::size_t x = 0; x < source.width; ++x, from += step, to += ElementSize)
            std::memcpy(to, from, ElementSize);
    }
}

/// OpenCV's loop is quicker for the usual pixels; it too moves bits, whatever they mean.
bool extractByOpenCv(const SxPicBuf& source, const SxPicBuf& target, std::size_t channel)
{
    const bool isForOpenCv = source.channels <= 4 && vistrel::fitsMat(source)
                             && vistrel::isAligned(source) && vistrel::isAligned(target);
    if (!isForOpenCv)
        return false;
    const unsigned bits = vistrel::elementBits(source);
    const int depth = bits == 8 ? CV_8U : bits == 16 ? CV_16U : bits == 32 ? CV_32S : CV_64F;
    cv::Mat result = vistrel::matOver(target, depth, 1);
    cv::extractChannel(vistrel::matOver(source, depth, static_cast<int>(source.channels)), result,
                       static_cast<int>(channel));
    return true;
}

/// A packed picture of one colour: the bits of the others are 0.
void keepOneColor(const SxPicBuf& source, const SxPicBuf& target, std::size_t color)
{
    const auto mask = static_cast<quint16>(vistrel::packed565::largest[color]
                                           << vistrel::packed565::shift[color]);
    const vistrel::AlignedPicture from(source);
    const vistrel::AlignedPicture to(target);
    for (std::size_t y = 0; y < source.height; ++y) {
        const auto* const words = vistrel::lineOf<quint16>(from.buffer(), y);
        auto* const results = vistrel::lineOf<quint16>(to.buffer(), y);
        for (std::size_t x = 0; x < source.width; ++x)
            results[x] = static_cast<quint16>(words[x] & mask);
    }
    to.store();
}

bool extractAny(const SxPicBuf& source, const SxPicBuf& target, std::size_t channel)
{
    if (vistrel::isPacked(source)) {
        keepOneColor(source, target, channel);
        return true;
    }
    if (extractByOpenCv(source, target, channel))
        return true;
    switch (vistrel::elementBits(source)) {
    case 8:
        extract<1>(source, target, channel);
        break;
    case 16:
        extract<2>(source, target, channel);
        break;
    case 32:
        extract<4>(source, target, channel);
        break;
    default:
        extract<8>(source, target, channel);
        break;
    }
    return true;
}

/// Moves elements as raw bytes, as above.
template<std::size_t ElementSize>
void swapFirstAndThird(const SxPicBuf& buffer)
{
    const std::size_t pixelBytes = buffer.channels * ElementSize;
    for (std::size_t y = 0; y < buffer.height; ++y) {
        quint8* pixel = buffer.data + y * buffer.stride;
        for (quint8* const end = pixel + buffer.width * pixelBytes; pixel != end;
             pixel += pixelBytes) {
            quint8 first[ElementSize];
            std::memcpy(first, pixel, ElementSize);
            std::memcpy(pixel, pixel + 2 * ElementSize, ElementSize);
            std::memcpy(pixel + 2 * ElementSize, first, ElementSize);
        }
    }
}

/// OpenCV's loop is quicker. It writes each pixel where it read it, so that it may work in place;
/// given one matrix twice it would copy the picture first.
bool swapByOpenCv(const SxPicBuf& buffer)
{
    const unsigned bits = vistrel::elementBits(buffer);
    if (buffer.channels > 4 || bits > 16 || !vistrel::fitsMat(buffer)
        || !vistrel::isAligned(buffer))
        return false;
    const int depth = bits == 8 ? CV_8U : CV_16U;
    const cv::Mat pixels = vistrel::matOver(buffer, depth, static_cast<int>(buffer.channels));
    cv::Mat samePixels = vistrel::matOver(buffer, depth, static_cast<int>(buffer.channels));
    cv::cvtColor(pixels, samePixels,
                 buffer.channels == 3 ? cv::COLOR_RGB2BGR : cv::COLOR_RGBA2BGRA);
    return true;
}

void swapAny(const SxPicBuf& buffer)
{
    if (swapByOpenCv(buffer))
        return;
    switch (vistrel::elementBits(buffer)) {
    case 8:
        swapFirstAndThird<1>(buffer);
        break;
    case 16:
        swapFirstAndThird<2>(buffer);
        break;
    case 32:
        swapFirstAndThird<4>(buffer);
        break;
    default:
        swapFirstAndThird<8>(buffer);
        break;
    }
}

} // namespace

bool CxPicBufAPI::ExtractChannel(const SxPicBuf& source, SxPicBuf& target, unsigned channel)
{
    const unsigned channels =
        vistrel::isPacked(source) ? vistrel::packed565::colors : source.channels;
    if (!vistrel::hasPixels(source) || !vistrel::hasPixels(target)
        || !vistrel::haveSameSize(source, target) || source.dataType != target.dataType
        || channel >= channels || (!vistrel::isPacked(target) && target.channels != 1))
        return false;
    return vistrel::guarded("Extracting a channel",
                            [&] { return extractAny(source, target, channel); });
}

bool CxPicBufAPI::SwapRedAndBlue(SxPicBuf& buffer)
{
    if (!vistrel::hasPixels(buffer) || buffer.channels < 3 || vistrel::isPacked(buffer))
        return false;
    const bool isSwapped = vistrel::guarded("Exchanging red and blue", [&] {
        swapAny(buffer);
        return true;
    });
    if (isSwapped)
        buffer.isRgb = !buffer.isRgb;
    return isSwapped;
}
