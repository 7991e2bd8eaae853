// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Takes single channels out of pictures.
#include <CxPicBufAPI.h>

#include "core/Packed565.h"
#include "core/PicBufMat.h"
#include "core/PicBufView.h"

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
