// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Converts pictures between element types and numbers of significant bits.
#include <CxPicBufAPI.h>

#include "core/Packed565.h"
#include "core/PicBufMat.h"
#include "core/PicBufView.h"
#include "core/ValueConversion.h"

#include <numeric>
#include <type_traits>
#include <vector>

namespace {

using vistrel::AlignedPicture;
using vistrel::lineOf;

/// Writes rule(value) for every value.
template<class From, class To, class Rule>
void convertEach(const SxPicBuf& source, const SxPicBuf& target, Rule rule)
{
    const std::size_t values = vistrel::valuesPerLine(source);
    for (std::size_t y = 0; y < source.height; ++y) {
        const auto* const from = lineOf<From>(source, y);
        auto* const to = lineOf<To>(target, y);
        for (std::size_t i = 0; i < values; ++i)
            to[i] = rule(from[i]);
    }
}

/// What a saturated pixel has.
long double fullScaleOf(const SxPicBuf& buffer)
{
    if (!vistrel::isFloatingPoint(buffer))
        return static_cast<long double>(vistrel::fullScale(vistrel::significantBits(buffer)));
    return buffer.saturation > 0.0F ? static_cast<long double>(buffer.saturation) : 1.0L;
}

/// Multiplies in doubles, and rounds by adding a half: quick, and exact as long as the product's
/// error stays below the distance of any product from a half, see convertScaled.
template<class From, class To>
void scaleQuickly(const SxPicBuf& source, const SxPicBuf& target)
{
    const auto full = static_cast<double>(fullScaleOf(source));
    const auto factor = static_cast<double>(fullScaleOf(target) / fullScaleOf(source));
    convertEach<From, To>(source, target, [full, factor](From value) {
        double scaled = std::min(static_cast<double>(value), full) * factor;
        if constexpr (std::is_signed_v<From>) {
            scaled = std::max(scaled, -full * factor);
            scaled = scaled < 0 ? scaled - 0.5 : scaled + 0.5;
        } else {
            scaled += 0.5;
        }
        using Whole = std::conditional_t<sizeof(To) == 4, qint64, qint32>;
        return vistrel::cutOff<To>(static_cast<Whole>(scaled));
    });
}

/// value * to / from rounded to the nearest, for integers of at most 32 bits.
template<class To, class From>
To scaledExactly(From value, quint64 from, quint64 to)
{
    const auto wide = static_cast<qint64>(value);
    const auto magnitude = std::min(static_cast<quint64>(wide < 0 ? -wide : wide), from);
    const auto scaled = static_cast<qint64>((magnitude * to + from / 2) / from);
    return vistrel::cutOff<To>(wide < 0 ? -scaled : scaled);
}

template<class From, class To>
void scaleByDivision(const SxPicBuf& source, const SxPicBuf& target)
{
    const quint64 from = vistrel::fullScale(vistrel::significantBits(source));
    const quint64 to = vistrel::fullScale(vistrel::significantBits(target));
    convertEach<From, To>(source, target,
                          [from, to](From value) { return scaledExactly<To>(value, from, to); });
}

/// For 64-bit integers and floating-point values.
template<class Real, class From, class To>
void scaleInReal(const SxPicBuf& source, const SxPicBuf& target)
{
    const auto full = static_cast<Real>(fullScaleOf(source));
    const auto factor = static_cast<Real>(fullScaleOf(target) / fullScaleOf(source));
    convertEach<From, To>(source, target, [&](From value) {
        auto real = static_cast<Real>(value);
        if constexpr (std::is_integral_v<From>)
            real = std::clamp(real, -full, full);
        return vistrel::nearest<To>(real * factor);
    });
}

/// Whether OpenCV's product in floats rounds to the right integer, see convertScaled, and cuts off
/// where we do: values above the source's full scale must have nowhere to go.
bool isScaledExactlyByOpenCv(const SxPicBuf& source, const SxPicBuf& target)
{
    const unsigned bits = vistrel::significantBits(source);
    const unsigned toBits = vistrel::significantBits(target);
    // A product of more than 31 bits would wrap around: values may only be above a full scale that
    // shrinks.
    const bool isCutOff = bits == vistrel::elementBits(source)
                          || (toBits == vistrel::elementBits(target) && toBits <= bits);
    const bool isUnsigned =
        source.dataType != ExImageDataType::Int8 && source.dataType != ExImageDataType::Int16;
    const quint64 from = vistrel::fullScale(bits);
    const quint64 to = vistrel::fullScale(toBits);
    const quint64 divisor = from / std::gcd(from, to);
    // A float has 24 bits, of which rounding the factor and the product leaves 22 right.
    const bool isExact = to * divisor < (1U << 22) || (divisor == 1 && to < (1U << 23));
    return isCutOff && isUnsigned && isExact && vistrel::fitsMat(source);
}

void scaleByOpenCv(const SxPicBuf& source, const SxPicBuf& target)
{
    const int depth = *vistrel::matDepthOf(target.dataType);
    cv::Mat result = vistrel::valuesMatOver(target, depth);
    vistrel::valuesMatOver(source, *vistrel::matDepthOf(source.dataType))
        .convertTo(result, depth, static_cast<double>(fullScaleOf(target) / fullScaleOf(source)));
}

/// Looks every value up in a table of all that the elements can hold: exact for any two depths, and
/// as quick as OpenCV's products. Only for pictures that are larger than the table.
template<class From, class To>
void scaleByTable(const SxPicBuf& source, const SxPicBuf& target)
{
    using Index = std::make_unsigned_t<From>;
    const quint64 from = vistrel::fullScale(vistrel::significantBits(source));
    const quint64 to = vistrel::fullScale(vistrel::significantBits(target));
    std::vector<To> table(std::size_t{std::numeric_limits<Index>::max()} + 1);
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = scaledExactly<To>(static_cast<From>(static_cast<Index>(i)), from, to);
    convertEach<From, To>(source, target,
                          [&](From value) { return table[static_cast<Index>(value)]; });
}

/// Elements of at most 16 bits.
template<class From, class To>
void scaleNarrow(const SxPicBuf& source, const SxPicBuf& target)
{
    constexpr std::size_t tableSize = std::size_t{1} << (8 * sizeof(From));
    if (isScaledExactlyByOpenCv(source, target))
        scaleByOpenCv(source, target);
    else if (vistrel::valuesPerLine(source) * source.height > tableSize)
        scaleByTable<From, To>(source, target);
    else
        scaleByDivision<From, To>(source, target);
}

/// Full scale becomes full scale. A product of integers v * T / S is never a half, as S is odd:
/// with the fraction in lowest terms it is at least 1 / (2 S) away from one, so an error of the
/// product below that changes nothing.
template<class From, class To>
void convertScaled(const SxPicBuf& source, const SxPicBuf& target)
{
    [[maybe_unused]] const auto product = fullScaleOf(source) * fullScaleOf(target);
    if constexpr (std::is_floating_point_v<From> || std::is_floating_point_v<To>)
        scaleInReal<double, From, To>(source, target);
    else if constexpr (sizeof(From) == 8 || sizeof(To) == 8)
        scaleInReal<long double, From, To>(source, target);
    else if constexpr (sizeof(From) <= 2 && sizeof(To) <= 2)
        scaleNarrow<From, To>(source, target);
    else if (product < 0x1p50L)
        scaleQuickly<From, To>(source, target);
    else
        scaleByDivision<From, To>(source, target);
}

/// OpenCV cuts off as we do between these, and has vector code for each pair.
bool isForOpenCv(const SxPicBuf& source, const SxPicBuf& target)
{
    const auto from = vistrel::matDepthOf(source.dataType);
    const auto to = vistrel::matDepthOf(target.dataType);
    return from && to && *from <= CV_32S && vistrel::fitsMat(source);
}

void convertKept(const SxPicBuf& source, const SxPicBuf& target)
{
    if (isForOpenCv(source, target)) {
        const int depth = *vistrel::matDepthOf(target.dataType);
        cv::Mat result = vistrel::valuesMatOver(target, depth);
        vistrel::valuesMatOver(source, *vistrel::matDepthOf(source.dataType))
            .convertTo(result, depth);
        return;
    }
    vistrel::visitElementType(source.dataType, [&](auto from) {
        vistrel::visitElementType(target.dataType, [&](auto to) {
            using From = decltype(from);
            using To = decltype(to);
            convertEach<From, To>(source, target,
                                  [](From value) { return vistrel::cutOff<To>(value); });
        });
    });
}

/// Where a colour, 0 for red, lies among the channels of an unpacked picture.
std::size_t channelOf(const SxPicBuf& unpacked, std::size_t color)
{
    return unpacked.isRgb ? color : vistrel::packed565::colors - 1 - color;
}

template<class To>
void unpackTo(const SxPicBuf& source, const SxPicBuf& target, bool scale)
{
    for (std::size_t i = 0; i < std::size_t{source.height} * source.width; ++i) {
        const std::size_t x = i % source.width;
        const quint16 word = lineOf<quint16>(source, i / source.width)[x];
        To* const pixel = lineOf<To>(target, i / source.width) + x * vistrel::packed565::colors;
        for (std::size_t c = 0; c < vistrel::packed565::colors; ++c) {
            const auto value = static_cast<long double>(vistrel::packed565::valueOf(word, c));
            const auto factor = fullScaleOf(target) / vistrel::packed565::largest[c];
            pixel[channelOf(target, c)] = vistrel::nearest<To>(scale ? value * factor : value);
        }
    }
}

template<class From>
void packFrom(const SxPicBuf& source, const SxPicBuf& target, bool scale)
{
    for (std::size_t i = 0; i < std::size_t{source.height} * source.width; ++i) {
        const std::size_t x = i % source.width;
        const From* const pixel =
            lineOf<From>(source, i / source.width) + x * vistrel::packed565::colors;
        const auto valueFor = [&](unsigned, std::size_t c) {
            const auto value = static_cast<long double>(pixel[channelOf(source, c)]);
            const unsigned largest = vistrel::packed565::largest[c];
            const auto wanted = scale ? value * largest / fullScaleOf(source) : value;
            return std::min(vistrel::nearest<quint32>(wanted), largest);
        };
        lineOf<quint16>(target, i / source.width)[x] = vistrel::packed565::changed(0, valueFor);
    }
}

void convertPacked(const SxPicBuf& source, const SxPicBuf& target, bool scale)
{
    if (vistrel::isPacked(source))
        vistrel::visitElementType(target.dataType, [&](auto element) {
            unpackTo<decltype(element)>(source, target, scale);
        });
    else
        vistrel::visitElementType(source.dataType, [&](auto element) {
            packFrom<decltype(element)>(source, target, scale);
        });
}

void convertAligned(const SxPicBuf& source, SxPicBuf target, bool scale)
{
    if (vistrel::isPacked(source) && vistrel::isPacked(target))
        CxPicBufAPI::CopyPicBuf(target, source, false);
    else if (vistrel::isPacked(source) || vistrel::isPacked(target))
        convertPacked(source, target, scale);
    else if (!scale)
        convertKept(source, target);
    else
        vistrel::visitElementType(source.dataType, [&](auto from) {
            vistrel::visitElementType(target.dataType, [&](auto to) {
                convertScaled<decltype(from), decltype(to)>(source, target);
            });
        });
}

std::size_t colorsOf(const SxPicBufInfo& info)
{
    return vistrel::isPacked(info) ? vistrel::packed565::colors : info.channels;
}

} // namespace

bool CxPicBufAPI::ConvertPicToDifBpc(const SxPicBuf& source, SxPicBuf& target, bool scale)
{
    if (!vistrel::hasPixels(source) || !vistrel::hasPixels(target)
        || !vistrel::haveSameSize(source, target) || colorsOf(source) != colorsOf(target))
        return false;
    // In place only elements that keep their size do not overtake the ones still to be read.
    if (source.data == target.data && source.bytesPerPixel() != target.bytesPerPixel())
        return false;
    return vistrel::guarded("Converting the bits per channel", [&] {
        const AlignedPicture alignedSource(source);
        const AlignedPicture alignedTarget(target);
        convertAligned(alignedSource.buffer(), alignedTarget.buffer(), scale);
        alignedTarget.store();
        return true;
    });
}
