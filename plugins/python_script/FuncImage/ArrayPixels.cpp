// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Where the elements of foreign pixel memory lie, and copying them.
#include "FuncImage/ArrayPixels.h"

#include "FuncImage/ReadableMemory.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

using array_pixels::Reach;
using Offsets = std::numeric_limits<qint32>;

/// Sizes that no picture has may overflow: that wraps around.
qint64 product(qint64 step, qint64 count)
{
    return static_cast<qint64>(static_cast<quint64>(step) * static_cast<quint64>(count));
}

/// A step as far as an offset of 32 bits holds it.
qint32 offsetStep(qint64 step) { return static_cast<qint32>(static_cast<quint64>(step)); }

qint32 offsetOf(const ArraySource& source, qint64 y, qint64 x, qint64 channel)
{
    const auto part = [](qint64 index, qint64 step) {
        return static_cast<quint32>(index) * static_cast<quint32>(step);
    };
    return static_cast<qint32>(part(y, source.lineStep) + part(x, source.pixelStep)
                               + part(channel, source.channelStep));
}

template<std::size_t Size>
void copyElements(const ArraySource& source, const SxPicBuf& target)
{
    for (qint64 y = 0; y < source.height; ++y) {
        quint8* out = target.data + y * target.stride;
        for (qint64 x = 0; x < source.width; ++x) {
            for (qint64 c = 0; c < source.channels; ++c, out += Size)
                std::memcpy(out, source.data + offsetOf(source, y, x, c), Size);
        }
    }
}

/// Whether all elements lie side by side.
bool isContiguous(const ArraySource& source)
{
    ArraySource contiguous = source;
    contiguous.setContiguousSteps();
    return source.lineStep == contiguous.lineStep && source.pixelStep == contiguous.pixelStep
           && (source.channels == 1 || source.channelStep == contiguous.channelStep);
}

/// Whether the elements of a line lie side by side, as those of the target do, and no offset wraps
/// around.
bool hasWholeLines(const ArraySource& source)
{
    if (isContiguous(source))
        return true;
    const qint64 pixel = product(source.elementSize, source.channels);
    if (source.pixelStep != pixel
        || (source.channels > 1 && source.channelStep != source.elementSize) || source.lineStep < 0
        || source.lineStep > Offsets::max())
        return false;
    return source.lineStep * (source.height - 1) + pixel * source.width <= Offsets::max();
}

void copyLines(const ArraySource& source, const SxPicBuf& target)
{
    const auto bytes = static_cast<std::size_t>(source.width * source.pixelStep);
    for (qint64 y = 0; y < source.height; ++y)
        std::memcpy(target.data + y * target.stride, source.data + y * source.lineStep, bytes);
}

bool isReadable(const ArraySource& source)
{
    const Reach reach = array_pixels::reachOf(source);
    const auto size = static_cast<quint64>(reach.last - reach.first);
    const auto first = reinterpret_cast<quintptr>(source.data) + static_cast<quintptr>(reach.first);
    return isContiguous(source) ? readable_memory::hasReadableEnds(first, size)
                                : readable_memory::isReadable(first, size);
}

} // namespace

void ArraySource::setContiguousSteps()
{
    channelStep = elementSize;
    pixelStep = product(channelStep, channels);
    lineStep = product(pixelStep, width);
}

namespace array_pixels {

Reach reachOf(const ArraySource& source)
{
    if (isContiguous(source))
        return {0, product(source.lineStep, source.height)};
    const qint64 element = source.elementSize;
    Reach reach{0, 0};
    const auto extend = [&reach](qint64 count, qint64 step) {
        qint64& end = offsetStep(step) < 0 ? reach.first : reach.last;
        // Cut off far outside the range of offsets, where sums cannot overflow.
        const qint64 distance = std::min(count - 1, qint64{Offsets::max()}) * offsetStep(step);
        end = std::clamp(end + distance, 2 * qint64{Offsets::min()}, 2 * qint64{Offsets::max()});
    };
    extend(source.height, source.lineStep);
    extend(source.width, source.pixelStep);
    extend(source.channels, source.channelStep);
    if (reach.first < Offsets::min() || reach.last > Offsets::max())
        return {Offsets::min(), Offsets::max() + element};
    return {reach.first, reach.last + element};
}

bool copy(const ArraySource& source, const SxPicBuf& target)
{
    if (source.dataType == ExImageDataType::None)
        return true;
    if (!isReadable(source))
        return false;
    if (hasWholeLines(source))
        copyLines(source, target);
    else if (source.elementSize == 1)
        copyElements<1>(source, target);
    else if (source.elementSize == 2)
        copyElements<2>(source, target);
    else if (source.elementSize == 4)
        copyElements<4>(source, target);
    else
        copyElements<8>(source, target);
    return true;
}

} // namespace array_pixels
