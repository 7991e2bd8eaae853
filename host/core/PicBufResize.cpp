// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Scales pictures and rectangles of pictures.
#include <CxPicBufAPI.h>

#include "core/Packed565.h"
#include "core/PicBufMat.h"
#include "core/PicBufRects.h"
#include "core/PicBufView.h"
#include "core/Resampler.h"

#include <opencv2/imgproc.hpp>

#include <functional>
#include <new>

namespace {

using vistrel::AlignedPicture;
using vistrel::PixelRect;

/// Pixels of its own, freed at the end.
class OwnPicture {
public:
    explicit OwnPicture(SxPicBufInfo info)
    {
        info.stride = 0;
        CxPicBufAPI::AllocPicBufFromHeap(m_buffer, info, false, 0);
        if (m_buffer.data == nullptr)
            throw std::bad_alloc();
    }
    ~OwnPicture() { CxPicBufAPI::FreePicBuf(m_buffer, true); }
    OwnPicture(const OwnPicture&) = delete;
    OwnPicture& operator=(const OwnPicture&) = delete;

    SxPicBuf& buffer() { return m_buffer; }

private:
    SxPicBuf m_buffer;
};

SxPicBufInfo infoOfPart(const SxPicBufInfo& whole, const PixelRect& part)
{
    SxPicBufInfo info = whole;
    info.width = static_cast<quint32>(part.width());
    info.height = static_cast<quint32>(part.height());
    return info;
}

/// A rectangle of a picture as a picture.
SxPicBuf partOf(const SxPicBuf& whole, const PixelRect& part)
{
    SxPicBuf result = whole;
    static_cast<SxPicBufInfo&>(result) = infoOfPart(whole, part);
    result.data += static_cast<std::size_t>(part.top) * whole.stride
                   + static_cast<std::size_t>(part.left) * whole.bytesPerPixel();
    return result;
}

/// OpenCV scales these types, doubles too, but with weights of single precision; the picture's
/// rectangle must be small enough for its counters.
bool isForOpenCv(const SxPicBuf& buffer)
{
    const auto depth = vistrel::matDepthOf(buffer.dataType);
    return depth && *depth != CV_8S && *depth != CV_32S && *depth != CV_64F && buffer.channels <= 4
           && vistrel::fitsMat(buffer);
}

void scaleByOpenCv(const SxPicBuf& source, const SxPicBuf& target,
                   vistrel::Interpolation interpolation)
{
    const int depth = *vistrel::matDepthOf(source.dataType);
    const auto channels = static_cast<int>(source.channels);
    cv::Mat pixels = vistrel::matOver(target, depth, channels);
    cv::resize(vistrel::matOver(source, depth, channels), pixels, pixels.size(), 0.0, 0.0,
               interpolation == vistrel::Interpolation::Area ? cv::INTER_AREA : cv::INTER_LINEAR);
}

/// Scales between pictures that do not overlap; `from` and `to` are not empty.
void scaleUnpacked(const SxPicBuf& source, const PixelRect& from, const SxPicBuf& target,
                   const PixelRect& to)
{
    const auto interpolation = vistrel::interpolationFor(from, to);
    const PixelRect visible = to.within(PixelRect::of(target));
    const bool isWhole = visible.width() == to.width() && visible.height() == to.height();
    const SxPicBuf part = partOf(source, from);
    if (isWhole && isForOpenCv(part) && isForOpenCv(target))
        scaleByOpenCv(part, partOf(target, to), interpolation);
    else
        vistrel::resample(source, from, target, to, interpolation);
}

SxPicBufInfo unpackedInfo(const SxPicBufInfo& info)
{
    SxPicBufInfo result = info;
    result.dataType = ExImageDataType::UInt8;
    result.channels = vistrel::packed565::colors;
    return result;
}

void unpack(const SxPicBuf& packed, const SxPicBuf& unpacked)
{
    for (std::size_t y = 0; y < packed.height; ++y) {
        const auto* const words = vistrel::lineOf<quint16>(packed, y);
        auto* const values = vistrel::lineOf<quint8>(unpacked, y);
        for (std::size_t i = 0; i < packed.width * vistrel::packed565::colors; ++i)
            values[i] = static_cast<quint8>(vistrel::packed565::valueOf(
                words[i / vistrel::packed565::colors], i % vistrel::packed565::colors));
    }
}

void pack(const SxPicBuf& unpacked, const SxPicBuf& packed)
{
    for (std::size_t y = 0; y < packed.height; ++y) {
        auto* const words = vistrel::lineOf<quint16>(packed, y);
        const auto* values = vistrel::lineOf<quint8>(unpacked, y);
        for (std::size_t x = 0; x < packed.width; ++x, values += vistrel::packed565::colors)
            words[x] = vistrel::packed565::wordOf(values[0], values[1], values[2]);
    }
}

/// The colours of packed words are scaled as channels of their own.
void scalePacked(const SxPicBuf& source, const PixelRect& from, const SxPicBuf& target,
                 const PixelRect& to)
{
    const PixelRect visible = to.within(PixelRect::of(target));
    OwnPicture colors(unpackedInfo(infoOfPart(source, from)));
    OwnPicture scaled(unpackedInfo(infoOfPart(target, visible)));
    unpack(partOf(source, from), colors.buffer());
    scaleUnpacked(colors.buffer(), PixelRect::of(colors.buffer()), scaled.buffer(),
                  to.movedBy(-visible.left, -visible.top));
    pack(scaled.buffer(), partOf(target, visible));
}

bool overlap(const SxPicBuf& a, const SxPicBuf& b)
{
    const std::less<> before;
    return before(a.data, b.data + b.dataSize()) && before(b.data, a.data + a.dataSize());
}

void scale(const SxPicBuf& source, const PixelRect& from, const SxPicBuf& target,
           const PixelRect& to)
{
    if (vistrel::isPacked(source)) {
        scalePacked(source, from, target, to);
    } else if (overlap(source, target)) {
        OwnPicture copy(infoOfPart(source, from));
        CxPicBufAPI::CopyPicBuf(copy.buffer(), partOf(source, from), false);
        scaleUnpacked(copy.buffer(), PixelRect::of(copy.buffer()), target, to);
    } else {
        scaleUnpacked(source, from, target, to);
    }
}

/// Scales where something is left of the source and something of the target is seen.
bool scaleClipped(const SxPicBuf& source, const PixelRect& rect, SxPicBuf& target,
                  const PixelRect& to)
{
    const PixelRect from = rect.within(PixelRect::of(source));
    if (from.isEmpty() || to.within(PixelRect::of(target)).isEmpty())
        return false;
    if (from.width() == to.width() && from.height() == to.height())
        return vistrel::copyClipped(target, source, from, to.left - from.left, to.top - from.top);
    return vistrel::guarded("Scaling a picture", [&] {
        const AlignedPicture alignedSource(source);
        const AlignedPicture alignedTarget(target);
        scale(alignedSource.buffer(), from, alignedTarget.buffer(), to);
        alignedTarget.store();
        return true;
    });
}

bool canBeScaled(const SxPicBuf& source, const SxPicBuf& target)
{
    return vistrel::hasPixels(source) && vistrel::hasPixels(target)
           && vistrel::haveSamePixels(source, target);
}

} // namespace

bool CxPicBufAPI::Resize(const SxPicBuf& source, SxPicBuf& target)
{
    return canBeScaled(source, target)
           && scaleClipped(source, PixelRect::of(source), target, PixelRect::of(target));
}

bool CxPicBufAPI::ResizeRect(const SxPicBuf& source, int x, int y, int w, int h, SxPicBuf& target,
                             int targetX, int targetY, int targetW, int targetH)
{
    if (!canBeScaled(source, target))
        return false;
    const qint64 width = w == 0 ? qint64{source.width} : w;
    const qint64 height = h == 0 ? qint64{source.height} : h;
    const PixelRect to = PixelRect::ofSize(targetX, targetY, targetW, targetH);
    return !to.isEmpty()
           && scaleClipped(source, PixelRect::ofSize(x, y, width, height), target, to);
}
