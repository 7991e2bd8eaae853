// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Adds, subtracts and divides pictures in place.
#include <CxPicBufAPI.h>

#include "core/Packed565.h"
#include "core/PicBufMat.h"
#include "core/PicBufView.h"

#include <array>
#include <cmath>
#include <type_traits>

namespace {

using vistrel::AlignedPicture;

template<class Element>
constexpr Element lowest = std::numeric_limits<Element>::lowest();
template<class Element>
constexpr Element highest = std::numeric_limits<Element>::max();

/// Written without a branch on overflow of the sum, so that it becomes vector code. `limit` is what
/// the sum saturates at; it is not used for signed and floating-point elements.
struct Plus {
    template<class Element>
    static Element apply(Element a, Element b, [[maybe_unused]] Element limit)
    {
        if constexpr (std::is_floating_point_v<Element>) {
            return a + b;
        } else if constexpr (std::is_signed_v<Element>) {
            using Bits = std::make_unsigned_t<Element>;
            const auto sum =
                static_cast<Element>(static_cast<Bits>(a) + static_cast<Bits>(b)); // may wrap
            const bool hasOverflown = ((a ^ sum) & (b ^ sum)) < 0;
            return hasOverflown ? (a < 0 ? lowest<Element> : highest<Element>) : sum;
        } else {
            const auto sum = static_cast<Element>(a + b);
            return sum < a || sum > limit ? limit : sum;
        }
    }
};

struct Minus {
    template<class Element>
    static Element apply(Element a, Element b, Element /*limit*/)
    {
        if constexpr (std::is_floating_point_v<Element>) {
            return a - b;
        } else if constexpr (std::is_signed_v<Element>) {
            using Bits = std::make_unsigned_t<Element>;
            const auto difference =
                static_cast<Element>(static_cast<Bits>(a) - static_cast<Bits>(b)); // may wrap
            const bool hasOverflown = ((a ^ b) & (a ^ difference)) < 0;
            return hasOverflown ? (a < 0 ? lowest<Element> : highest<Element>) : difference;
        } else {
            return a > b ? static_cast<Element>(a - b) : Element{0};
        }
    }
};

template<class Operation, class Element>
void combineLines(const SxPicBuf& target, const SxPicBuf& other)
{
    const auto limit = static_cast<Element>(vistrel::fullScale(vistrel::significantBits(target)));
    const std::size_t values = vistrel::valuesPerLine(target);
    for (std::size_t y = 0; y < target.height; ++y) {
        auto* const line = vistrel::lineOf<Element>(target, y);
        const auto* const others = vistrel::lineOf<Element>(other, y);
        for (std::size_t i = 0; i < values; ++i)
            line[i] = Operation::apply(line[i], others[i], limit);
    }
}

template<class Operation>
void combineColors(const SxPicBuf& target, const SxPicBuf& other)
{
    for (std::size_t y = 0; y < target.height; ++y) {
        auto* const line = vistrel::lineOf<quint16>(target, y);
        const auto* const others = vistrel::lineOf<quint16>(other, y);
        for (std::size_t x = 0; x < target.width; ++x) {
            line[x] = vistrel::packed565::changed(line[x], [&](unsigned value, std::size_t color) {
                return Operation::apply(value, vistrel::packed565::valueOf(others[x], color),
                                        vistrel::packed565::largest[color]);
            });
        }
    }
}

/// OpenCV has saturating instructions for these; what it does with 32-bit sums is not saturating.
bool isForOpenCv(const SxPicBuf& buffer)
{
    return vistrel::elementBits(buffer) <= 16 && vistrel::fitsMat(buffer);
}

template<class Operation>
void combineByOpenCv(const SxPicBuf& target, const SxPicBuf& other)
{
    const int depth = *vistrel::matDepthOf(target.dataType);
    cv::Mat result = vistrel::valuesMatOver(target, depth);
    const cv::Mat others = vistrel::valuesMatOver(other, depth);
    if constexpr (std::is_same_v<Operation, Minus>) {
        cv::subtract(result, others, result);
    } else {
        cv::add(result, others, result);
        const unsigned bits = vistrel::significantBits(target);
        const bool isUnsigned = depth == CV_8U || depth == CV_16U;
        if (isUnsigned && bits < vistrel::elementBits(target))
            cv::min(result, static_cast<double>(vistrel::fullScale(bits)), result);
    }
}

template<class Operation>
void combineAligned(const SxPicBuf& target, const SxPicBuf& other)
{
    if (vistrel::isPacked(target)) {
        combineColors<Operation>(target, other);
    } else if (isForOpenCv(target)) {
        combineByOpenCv<Operation>(target, other);
    } else {
        vistrel::visitElementType(target.dataType, [&](auto element) {
            combineLines<Operation, decltype(element)>(target, other);
        });
    }
}

template<class Operation>
bool combine(const SxPicBuf& target, const SxPicBuf& other)
{
    if (!vistrel::hasPixels(target) || !vistrel::hasPixels(other)
        || !vistrel::haveSameSize(target, other) || !vistrel::haveSamePixels(target, other))
        return false;
    return vistrel::guarded("Picture arithmetic", [&] {
        const AlignedPicture alignedTarget(target);
        const AlignedPicture alignedOther(other);
        combineAligned<Operation>(alignedTarget.buffer(), alignedOther.buffer());
        alignedTarget.store();
        return true;
    });
}

template<class Element>
Element quotient(Element value, int divisor)
{
    if constexpr (std::is_floating_point_v<Element>) {
        return value / static_cast<Element>(divisor);
    } else if constexpr (std::is_signed_v<Element>) {
        if (divisor == -1) // the lowest value has no positive counterpart
            return value == lowest<Element> ? highest<Element> : static_cast<Element>(-value);
        return static_cast<Element>(qint64{value} / divisor);
    } else {
        // A negative quotient saturates at 0.
        return divisor > 0 ? static_cast<Element>(value / static_cast<quint64>(divisor))
                           : Element{0};
    }
}

/// Multiplies by the reciprocal in 16 bits, rounded up: the error of a byte's product stays below
/// the distance to the next quotient. Vector code, for divisors from 2 on.
void divideUnsignedBytes(const SxPicBuf& buffer, int divisor)
{
    const auto reciprocal = static_cast<quint16>(65536 / divisor + 1);
    vistrel::forEachLine<quint8>(buffer, [reciprocal](quint8* line, std::size_t values) {
        for (std::size_t i = 0; i < values; ++i)
            line[i] = static_cast<quint8>(quint32{line[i]} * reciprocal >> 16);
    });
}

void divideBytes(const SxPicBuf& buffer, int divisor)
{
    const bool isSigned = buffer.dataType == ExImageDataType::Int8;
    std::array<quint8, 256> quotients{};
    for (std::size_t i = 0; i < quotients.size(); ++i) {
        const auto byte = static_cast<quint8>(i);
        quotients[i] = isSigned ? static_cast<quint8>(quotient(static_cast<qint8>(byte), divisor))
                                : quotient(byte, divisor);
    }
    vistrel::forEachLine<quint8>(buffer, [&](quint8* line, std::size_t values) {
        for (std::size_t i = 0; i < values; ++i)
            line[i] = quotients[line[i]];
    });
}

/// Integers of at most half as many bits as the floating-point type's mantissa are divided there,
/// which is vector code: rounding never lifts such a quotient to the next integer.
template<class Element, class Exact>
void divideInFloatingPoint(const SxPicBuf& buffer, int divisor)
{
    const auto by = static_cast<Exact>(divisor);
    vistrel::forEachLine<Element>(buffer, [by](Element* line, std::size_t values) {
        for (std::size_t i = 0; i < values; ++i)
            line[i] = static_cast<Element>(static_cast<qint32>(static_cast<Exact>(line[i]) / by));
    });
}

template<class Element>
void divideEach(const SxPicBuf& buffer, int divisor)
{
    vistrel::forEachLine<Element>(buffer, [divisor](Element* line, std::size_t values) {
        for (std::size_t i = 0; i < values; ++i)
            line[i] = quotient(line[i], divisor);
    });
}

template<class Element>
void divideElements(const SxPicBuf& buffer, int divisor)
{
    constexpr bool isNarrow = std::is_integral_v<Element> && sizeof(Element) == 2;
    constexpr bool is32Bit = std::is_integral_v<Element> && sizeof(Element) == 4;
    // Divisors from 2 on keep every quotient within a signed 32-bit number.
    if constexpr (isNarrow || is32Bit) {
        if (divisor > 1) {
            divideInFloatingPoint<Element, std::conditional_t<isNarrow, float, double>>(buffer,
                                                                                        divisor);
            return;
        }
    }
    divideEach<Element>(buffer, divisor);
}

void divideAligned(const SxPicBuf& buffer, int divisor)
{
    if (vistrel::isPacked(buffer)) {
        vistrel::forEachLine<quint16>(buffer, [divisor](quint16* line, std::size_t values) {
            for (std::size_t i = 0; i < values; ++i)
                line[i] = vistrel::packed565::changed(
                    line[i], [&](unsigned value, std::size_t) { return quotient(value, divisor); });
        });
    } else if (vistrel::elementBits(buffer) == 8 && divisor > 1
               && buffer.dataType != ExImageDataType::Int8) {
        divideUnsignedBytes(buffer, divisor);
    } else if (vistrel::elementBits(buffer) == 8) {
        divideBytes(buffer, divisor);
    } else {
        vistrel::visitElementType(buffer.dataType, [&](auto element) {
            divideElements<decltype(element)>(buffer, divisor);
        });
    }
}

} // namespace

bool CxPicBufAPI::Add(SxPicBuf& target, const SxPicBuf& other)
{
    return combine<Plus>(target, other);
}

bool CxPicBufAPI::Subtract(SxPicBuf& target, const SxPicBuf& other)
{
    return combine<Minus>(target, other);
}

bool CxPicBufAPI::DivideByValue(SxPicBuf& target, int divisor)
{
    if (divisor == 0 || !vistrel::hasPixels(target))
        return false;
    return vistrel::guarded("Dividing a picture", [&] {
        const AlignedPicture aligned(target);
        divideAligned(aligned.buffer(), divisor);
        aligned.store();
        return true;
    });
}
