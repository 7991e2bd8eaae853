// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Conversions between element types, looking at values, and arithmetic, against plain references.
#include "PixelFixtures.h"

#include <climits>
#include <cmath>

using namespace vistrel::test;

namespace {

/// Integers of every type in one that holds them all.
__extension__ using Wide = __int128;

template<class Element>
Wide limited(Wide value, Wide low = std::numeric_limits<Element>::min(),
             Wide high = std::numeric_limits<Element>::max())
{
    return value < low ? low : value > high ? high : value;
}

template<class Function>
void forEachValueType(Function function)
{
    for (const ExImageDataType type : allTypes())
        if (type != ExImageDataType::Packed565)
            vistrel::visitElementType(type, [&](auto element) { function(type, element); });
}

template<class Element>
unsigned bitsOf()
{
    return sizeof(Element) * 8;
}

/// Converts a picture of random values and gives each pair to check(value, result).
template<class From, class To, class Check>
void convertAndCheck(const Layout& from, const Layout& to, bool scale, Check check)
{
    Picture source(from), target(to);
    fillRandomly(*source, 21);
    ASSERT_TRUE(CxPicBufAPI::ConvertPicToDifBpc(*source, *target, scale));
    for (std::size_t y = 0; y < from.height; ++y)
        for (std::size_t i = 0; i < std::size_t{from.width} * from.channels; ++i)
            check(valueAt<From>(*source, y, i), valueAt<To>(*target, y, i));
}

TEST(ConvertingBits, KeepsValuesCutOffAtTheRangeOfTheTarget)
{
    forEachValueType([](ExImageDataType fromType, auto from) {
        forEachValueType([&](ExImageDataType toType, auto to) {
            using From = decltype(from);
            using To = decltype(to);
            SCOPED_TRACE(testing::Message()
                         << static_cast<int>(fromType) << " to " << static_cast<int>(toType));
            const Layout source{.width = 33,
                                .height = 5,
                                .channels = 3,
                                .type = fromType,
                                .bpc = bitsOf<From>(),
                                .stride = 33 * 3 * sizeof(From) + 3};
            const Layout target{
                .width = 33, .height = 5, .channels = 3, .type = toType, .bpc = bitsOf<To>()};
            convertAndCheck<From, To>(source, target, false, [](From value, To result) {
                if constexpr (std::is_floating_point_v<To>)
                    EXPECT_EQ(result, static_cast<To>(value));
                else if constexpr (std::is_floating_point_v<From>)
                    EXPECT_EQ(Wide{result}, limited<To>(static_cast<Wide>(std::nearbyint(value))));
                else
                    EXPECT_TRUE(Wide{result} == limited<To>(Wide{value}));
            });
        });
    });
}

template<class From, class To>
void checkScaled(const Layout& source, const Layout& target)
{
    SCOPED_TRACE(testing::Message()
                 << static_cast<int>(source.type) << " of " << source.bpc << " to "
                 << static_cast<int>(target.type) << " of " << target.bpc);
    const Wide fromFull = vistrel::fullScale(source.bpc);
    const Wide toFull = vistrel::fullScale(target.bpc);
    convertAndCheck<From, To>(source, target, true, [&](From value, To result) {
        const Wide inRange = limited<From>(Wide{value}, -fromFull, fromFull);
        const Wide magnitude =
            ((inRange < 0 ? -inRange : inRange) * toFull * 2 + fromFull) / (fromFull * 2);
        EXPECT_TRUE(Wide{result} == limited<To>(inRange < 0 ? -magnitude : magnitude))
            << qint64(value) << " became " << qint64(result);
    });
}

TEST(ConvertingBits, ScalesFullScaleToFullScaleRoundedToTheNearest)
{
    forEachValueType([](ExImageDataType fromType, auto from) {
        forEachValueType([&](ExImageDataType toType, auto to) {
            using From = decltype(from);
            using To = decltype(to);
            if constexpr (std::is_integral_v<From> && std::is_integral_v<To> && sizeof(From) < 8
                          && sizeof(To) < 8) {
                for (const unsigned fromBits : {bitsOf<From>(), bitsOf<From>() - 4})
                    for (const unsigned toBits : {bitsOf<To>(), bitsOf<To>() - 3})
                        checkScaled<From, To>(
                            {.width = 500, .height = 3, .type = fromType, .bpc = fromBits},
                            {.width = 500, .height = 3, .type = toType, .bpc = toBits});
            }
        });
    });
}

/// All values that 16 bits hold, also those above the source's significant ones.
template<class To>
void checkEvery16BitValue(unsigned bits, ExImageDataType toType, unsigned toBits)
{
    Picture source({.width = 256, .height = 256, .type = ExImageDataType::UInt16, .bpc = bits});
    Picture target({.width = 256, .height = 256, .type = toType, .bpc = toBits});
    for (unsigned i = 0; i < 65536; ++i)
        setValueAt(*source, i / 256, i % 256, static_cast<quint16>(i));
    ASSERT_TRUE(CxPicBufAPI::ConvertPicToDifBpc(*source, *target, true));
    const quint64 full = vistrel::fullScale(bits);
    for (quint64 i = 0; i < 65536; ++i)
        ASSERT_EQ(valueAt<To>(*target, i / 256, i % 256),
                  (std::min(i, full) * vistrel::fullScale(toBits) + full / 2) / full)
            << i << " of " << bits << " bits to " << toBits;
}

TEST(ConvertingBits, ScalesEvery16BitValueRight)
{
    for (unsigned bits = 1; bits <= 16; ++bits) {
        for (unsigned toBits = 1; toBits <= 16; ++toBits) {
            checkEvery16BitValue<quint16>(bits, ExImageDataType::UInt16, toBits);
            if (toBits <= 8)
                checkEvery16BitValue<quint8>(bits, ExImageDataType::UInt8, toBits);
        }
    }
}

TEST(ConvertingBits, ScalesEveryByteRight)
{
    for (unsigned bits = 1; bits <= 8; ++bits) {
        for (unsigned toBits = 1; toBits <= 16; ++toBits) {
            Picture source({.width = 256, .type = ExImageDataType::UInt8, .bpc = bits});
            Picture target({.width = 256, .type = ExImageDataType::UInt16, .bpc = toBits});
            for (unsigned i = 0; i < 256; ++i)
                setValueAt(*source, 0, i, static_cast<quint8>(i));
            ASSERT_TRUE(CxPicBufAPI::ConvertPicToDifBpc(*source, *target, true));
            const unsigned full = (1U << bits) - 1;
            for (unsigned i = 0; i < 256; ++i)
                ASSERT_EQ(valueAt<quint16>(*target, 0, i),
                          (std::min(i, full) * ((1U << toBits) - 1) + full / 2) / full)
                    << i << " of " << bits << " bits to " << toBits;
        }
    }
}

template<class From, class To>
To converted(ExImageDataType fromType, unsigned fromBits, From value, ExImageDataType toType,
             unsigned toBits, float fromSaturation = 0, float toSaturation = 0)
{
    Picture source({.type = fromType, .bpc = fromBits}), target({.type = toType, .bpc = toBits});
    source->saturation = fromSaturation;
    target->saturation = toSaturation;
    fill<From>(*source, {value});
    EXPECT_TRUE(CxPicBufAPI::ConvertPicToDifBpc(*source, *target, true));
    return valueAt<To>(*target, 0, 0);
}

TEST(ConvertingBits, TakesSaturationOrOneAsTheFullScaleOfFloats)
{
    using Type = ExImageDataType;
    EXPECT_EQ((converted<float, quint8>(Type::Float, 32, 1.0F, Type::UInt8, 8)), 255);
    EXPECT_EQ((converted<float, quint8>(Type::Float, 32, 0.5F, Type::UInt8, 8)), 128);
    EXPECT_EQ((converted<float, quint8>(Type::Float, 32, 9.0F, Type::UInt8, 8)), 255);
    EXPECT_EQ((converted<float, quint8>(Type::Float, 32, -1.0F, Type::UInt8, 8)), 0);
    EXPECT_EQ((converted<float, quint8>(Type::Float, 32, std::nanf(""), Type::UInt8, 8)), 0);
    EXPECT_EQ((converted<double, quint16>(Type::Double, 64, 50.0, Type::UInt16, 12, 200.0F)), 1024);
    EXPECT_EQ((converted<quint8, float>(Type::UInt8, 8, 255, Type::Float, 32)), 1.0F);
    EXPECT_EQ((converted<quint8, double>(Type::UInt8, 8, 51, Type::Double, 64, 0, 10.0F)), 2.0);
    EXPECT_EQ((converted<float, double>(Type::Float, 32, 2.0F, Type::Double, 64, 4.0F, 1.0F)), 0.5);
}

TEST(ConvertingBits, ScalesThe64BitTypes)
{
    using Type = ExImageDataType;
    const quint64 most = std::numeric_limits<quint64>::max();
    EXPECT_EQ((converted<quint64, quint16>(Type::UInt64, 64, most, Type::UInt16, 16)), 65535);
    EXPECT_EQ((converted<quint16, quint64>(Type::UInt16, 16, 65535, Type::UInt64, 64)), most);
    EXPECT_EQ((converted<quint64, quint64>(Type::UInt64, 64, most - 5, Type::UInt64, 64)),
              most - 5);
    EXPECT_EQ((converted<quint64, quint8>(Type::UInt64, 12, 4095, Type::UInt8, 8)), 255);
    EXPECT_EQ((converted<qint64, quint8>(Type::Int64, 64, -1, Type::UInt8, 8)), 0);
}

TEST(ConvertingBits, UnpacksAndPacksThreeColors)
{
    using Type = ExImageDataType;
    Picture packed({.type = Type::Packed565}), rgb({.channels = 3, .isRgb = true}),
        bgr({.channels = 3}), back({.type = Type::Packed565});
    fill<quint16>(*packed, {0xF800 | 32 << 5 | 1});
    ASSERT_TRUE(CxPicBufAPI::ConvertPicToDifBpc(*packed, *rgb, true));
    EXPECT_EQ(valuesIn<quint8>(*rgb), (std::vector<quint8>{255, 130, 8}));
    ASSERT_TRUE(CxPicBufAPI::ConvertPicToDifBpc(*rgb, *back, true));
    EXPECT_EQ(back.bytes(), packed.bytes());
    ASSERT_TRUE(CxPicBufAPI::ConvertPicToDifBpc(*packed, *bgr, false));
    EXPECT_EQ(valuesIn<quint8>(*bgr), (std::vector<quint8>{1, 32, 31}));
    Picture mono({});
    EXPECT_FALSE(CxPicBufAPI::ConvertPicToDifBpc(*packed, *mono, false));
}

TEST(ConvertingBits, SetsNothingButPixelsAndIsRefusedForOtherSizes)
{
    Picture source({.width = 4, .height = 4}),
        target(
            {.width = 4, .height = 4, .channels = 1, .type = ExImageDataType::UInt16, .bpc = 10}),
        small({.width = 3, .height = 4}), colors({.width = 4, .height = 4, .channels = 3});
    SxPicBuf empty;
    const auto before = small.bytes();
    EXPECT_TRUE(CxPicBufAPI::ConvertPicToDifBpc(*source, *target, true));
    EXPECT_EQ(target->bpc, 10U);
    EXPECT_EQ(target->dataType, ExImageDataType::UInt16);
    EXPECT_FALSE(CxPicBufAPI::ConvertPicToDifBpc(*source, *small, true));
    EXPECT_FALSE(CxPicBufAPI::ConvertPicToDifBpc(*source, *colors, true));
    EXPECT_FALSE(CxPicBufAPI::ConvertPicToDifBpc(empty, *small, true));
    EXPECT_FALSE(CxPicBufAPI::ConvertPicToDifBpc(*source, empty, true));
    EXPECT_EQ(small.bytes(), before);
}

template<class Element>
void expectDepth(ExImageDataType type, const std::vector<Element>& values, unsigned depth)
{
    Picture picture({.width = 37, .height = 3, .type = type, .bpc = bitsOf<Element>()});
    std::vector<Element> padded(111, Element{1});
    std::copy(values.begin(), values.end(), padded.end() - static_cast<int>(values.size()));
    fill<Element>(*picture, padded);
    EXPECT_EQ(CxPicBufAPI::DetectColorBitDepth(*picture, bitsOf<Element>(), false), depth);
    EXPECT_EQ(picture->bpc, bitsOf<Element>());
    EXPECT_EQ(CxPicBufAPI::DetectColorBitDepth(*picture, bitsOf<Element>(), true), depth);
    EXPECT_EQ(picture->bpc, depth);
}

TEST(LookingAtValues, FindsTheDepthInEvenStepsFrom8To32Then64)
{
    for (unsigned bits = 1; bits <= 64; ++bits) {
        const unsigned depth = bits <= 8 ? 8 : bits > 32 ? 64 : (bits + 1) / 2 * 2;
        expectDepth<quint64>(ExImageDataType::UInt64, {vistrel::fullScale(bits)}, depth);
        expectDepth<quint64>(ExImageDataType::UInt64, {quint64{1} << (bits - 1)}, depth);
        if (bits <= 16)
            expectDepth<quint16>(ExImageDataType::UInt16,
                                 {static_cast<quint16>(vistrel::fullScale(bits))}, depth);
    }
    Picture picture({.type = ExImageDataType::UInt16, .bpc = 16});
    fill<quint16>(*picture, {65535});
    EXPECT_EQ(CxPicBufAPI::DetectColorBitDepth(*picture, 12, false), 12U);
}

TEST(LookingAtValues, CountsTheSignAmongTheBitsOfNegativePictures)
{
    expectDepth<qint16>(ExImageDataType::Int16, {-128}, 8);
    expectDepth<qint16>(ExImageDataType::Int16, {-129}, 10);
    expectDepth<qint16>(ExImageDataType::Int16, {-1, 128}, 10);
    expectDepth<qint16>(ExImageDataType::Int16, {255}, 8);
    expectDepth<qint32>(ExImageDataType::Int32, {INT_MIN}, 32);
    expectDepth<qint64>(ExImageDataType::Int64, {std::numeric_limits<qint64>::min()}, 64);
}

TEST(LookingAtValues, FindsNegativeValuesAndTheLargestAbsoluteOne)
{
    forEachLayout([](const Layout& layout) {
        Picture picture(layout);
        fillRandomly(*picture, 22);
        const bool isInteger = !vistrel::isPacked(*picture) && !vistrel::isFloatingPoint(*picture);
        bool isNegative = false;
        Wide largest = 0;
        vistrel::visitElementType(layout.type, [&](auto element) {
            for (const auto value : valuesIn<decltype(element)>(*picture)) {
                isNegative = isNegative || value < 0;
                const auto wide = static_cast<Wide>(value);
                largest = std::max(largest, wide < 0 ? -wide : wide);
            }
        });
        EXPECT_EQ(CxPicBufAPI::DetectNegativePixelValue(*picture), isNegative);
        EXPECT_TRUE(CxPicBufAPI::DetectMaxAbsValue(*picture) == (isInteger ? largest : 0));
    });
    Picture lowest({.type = ExImageDataType::Int64});
    fill<qint64>(*lowest, {std::numeric_limits<qint64>::min()});
    EXPECT_EQ(CxPicBufAPI::DetectMaxAbsValue(*lowest), quint64{1} << 63);
}

TEST(LookingAtValues, FindsValuesAboveTheSignificantBits)
{
    Picture picture({.width = 50, .height = 2, .type = ExImageDataType::UInt16, .bpc = 12});
    setValueAt<quint16>(*picture, 1, 49, 4095);
    EXPECT_TRUE(CxPicBufAPI::CheckPicValidData(*picture));
    setValueAt<quint16>(*picture, 1, 49, 4096);
    EXPECT_FALSE(CxPicBufAPI::CheckPicValidData(*picture));
    picture->bpc = 16;
    EXPECT_TRUE(CxPicBufAPI::CheckPicValidData(*picture));
    SxPicBuf empty;
    EXPECT_TRUE(CxPicBufAPI::CheckPicValidData(empty));
    EXPECT_EQ(CxPicBufAPI::DetectMaxAbsValue(empty), 0U);
    EXPECT_FALSE(CxPicBufAPI::DetectNegativePixelValue(empty));
    EXPECT_EQ(CxPicBufAPI::DetectColorBitDepth(empty, 16, true), 0U);
}

/// Runs an operation on random pictures and gives each (own, other, result) to check.
template<class Operation, class Check>
void combineAndCheck(Operation operation, Check check)
{
    forEachLayout([&](const Layout& layout) {
        for (const unsigned fewerBits : {0U, 3U}) {
            Layout mine = layout;
            mine.bpc -= fewerBits;
            Picture target(mine), other(layout);
            fillRandomly(*target, 23);
            fillRandomly(*other, 24);
            vistrel::visitElementType(layout.type, [&](auto element) {
                using Element = decltype(element);
                const auto before = valuesIn<Element>(*target);
                const auto others = valuesIn<Element>(*other);
                ASSERT_TRUE(operation(*target, *other));
                const auto after = valuesIn<Element>(*target);
                if (layout.type != ExImageDataType::Packed565)
                    for (std::size_t i = 0; i < before.size(); ++i)
                        check(before[i], others[i], after[i], mine.bpc);
            });
        }
    });
}

TEST(Arithmetic, AddingSaturatesAtTheSignificantBitsOrTheRangeOfSignedValues)
{
    combineAndCheck(&CxPicBufAPI::Add, [](auto own, auto other, auto result, unsigned bits) {
        using Element = decltype(own);
        if constexpr (std::is_floating_point_v<Element>)
            EXPECT_EQ(result, own + other);
        else if constexpr (std::is_signed_v<Element>)
            EXPECT_TRUE(Wide{result} == limited<Element>(Wide{own} + other));
        else
            EXPECT_TRUE(Wide{result}
                        == limited<Element>(Wide{own} + other, 0, vistrel::fullScale(bits)));
    });
}

TEST(Arithmetic, SubtractingSaturatesAtTheRange)
{
    combineAndCheck(&CxPicBufAPI::Subtract, [](auto own, auto other, auto result, unsigned) {
        if constexpr (std::is_floating_point_v<decltype(own)>)
            EXPECT_EQ(result, own - other);
        else
            EXPECT_TRUE(Wide{result} == limited<decltype(own)>(Wide{own} - other));
    });
}

TEST(Arithmetic, DividingCutsOffTheFraction)
{
    for (const int divisor : {1, 2, 3, 7, 255, 256, 257, 40000, 70000, INT_MAX, -1, -3, INT_MIN}) {
        const auto divide = [divisor](SxPicBuf& target, const SxPicBuf&) {
            return CxPicBufAPI::DivideByValue(target, divisor);
        };
        combineAndCheck(divide, [divisor](auto own, auto, auto result, unsigned) {
            using Element = decltype(own);
            if constexpr (std::is_floating_point_v<Element>)
                EXPECT_EQ(result, own / static_cast<Element>(divisor));
            else
                EXPECT_TRUE(Wide{result} == limited<Element>(Wide{own} / divisor))
                    << qint64(own) << " / " << divisor << " became " << qint64(result);
        });
    }
}

TEST(Arithmetic, DividesEvery16BitValueRight)
{
    Picture picture({.width = 256, .height = 256, .type = ExImageDataType::UInt16});
    for (int divisor = 1; divisor < 1200; divisor += 1 + divisor / 7) {
        for (unsigned i = 0; i < 65536; ++i)
            setValueAt(*picture, i / 256, i % 256, static_cast<quint16>(i));
        ASSERT_TRUE(CxPicBufAPI::DivideByValue(*picture, divisor));
        for (int i = 0; i < 65536; ++i)
            ASSERT_EQ(valueAt<quint16>(*picture, static_cast<unsigned>(i) / 256,
                                       static_cast<unsigned>(i) % 256),
                      i / divisor);
    }
}

TEST(Arithmetic, DividesEveryByteByEveryDivisor)
{
    for (int divisor = 1; divisor < 300; ++divisor) {
        Picture picture({.width = 256});
        for (unsigned i = 0; i < 256; ++i)
            setValueAt(*picture, 0, i, static_cast<quint8>(i));
        ASSERT_TRUE(CxPicBufAPI::DivideByValue(*picture, divisor));
        for (unsigned i = 0; i < 256; ++i)
            ASSERT_EQ(valueAt<quint8>(*picture, 0, i), static_cast<int>(i) / divisor);
    }
}

TEST(Arithmetic, TreatsThePackedColorsOneByOne)
{
    Picture a({.type = ExImageDataType::Packed565}), b({.type = ExImageDataType::Packed565});
    fill<quint16>(*a, {20 << 11 | 40 << 5 | 5});
    fill<quint16>(*b, {20 << 11 | 10 << 5 | 6});
    ASSERT_TRUE(CxPicBufAPI::Add(*a, *b));
    EXPECT_EQ(valueAt<quint16>(*a, 0, 0), 31 << 11 | 50 << 5 | 11);
    ASSERT_TRUE(CxPicBufAPI::DivideByValue(*a, 2));
    EXPECT_EQ(valueAt<quint16>(*a, 0, 0), 15 << 11 | 25 << 5 | 5);
    ASSERT_TRUE(CxPicBufAPI::Subtract(*a, *b));
    EXPECT_EQ(valueAt<quint16>(*a, 0, 0), 0 << 11 | 15 << 5 | 0);
}

TEST(Arithmetic, WithThePictureItselfDoublesOrClearsIt)
{
    Picture picture({.width = 3, .height = 1});
    fill<quint8>(*picture, {1, 100, 200});
    ASSERT_TRUE(CxPicBufAPI::Add(*picture, *picture));
    EXPECT_EQ(valuesIn<quint8>(*picture), (std::vector<quint8>{2, 200, 255}));
    ASSERT_TRUE(CxPicBufAPI::Subtract(*picture, *picture));
    EXPECT_EQ(valuesIn<quint8>(*picture), (std::vector<quint8>{0, 0, 0}));
}

TEST(Arithmetic, LeavesTheEndsOfLinesAlone)
{
    Picture picture({.width = 3, .height = 3, .stride = 8});
    fillRandomly(*picture, 25);
    const auto before = picture.bytes();
    Picture other({.width = 3, .height = 3});
    fillRandomly(*other, 26);
    ASSERT_TRUE(CxPicBufAPI::Add(*picture, *other) && CxPicBufAPI::Subtract(*picture, *other)
                && CxPicBufAPI::DivideByValue(*picture, 3));
    const auto after = picture.bytes();
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (i % 8 >= 3) {
            EXPECT_EQ(after[i], before[i]);
        }
    }
}

TEST(Arithmetic, IsRefusedForOtherSizesTypesAndChannelsAndForTheDivisor0)
{
    Picture picture({.width = 4, .height = 4}), small({.width = 3, .height = 4}),
        words({.width = 4, .height = 4, .type = ExImageDataType::UInt16}),
        colors({.width = 4, .height = 4, .channels = 3});
    fillRandomly(*picture, 27);
    const auto before = picture.bytes();
    SxPicBuf empty;
    for (const SxPicBuf* other : {&*small, &*words, &*colors, &empty}) {
        EXPECT_FALSE(CxPicBufAPI::Add(*picture, *other));
        EXPECT_FALSE(CxPicBufAPI::Subtract(*picture, *other));
    }
    EXPECT_FALSE(CxPicBufAPI::DivideByValue(*picture, 0));
    EXPECT_FALSE(CxPicBufAPI::Add(empty, *picture));
    EXPECT_FALSE(CxPicBufAPI::DivideByValue(empty, 2));
    EXPECT_EQ(picture.bytes(), before);
}

TEST(Arithmetic, FailsWithoutMemoryForLinesOnOddAddressesAndSaysSo)
{
    Picture picture({.width = 3, .height = 3, .type = ExImageDataType::UInt16, .stride = 7});
    fillRandomly(*picture, 28);
    const auto before = picture.bytes();
    const LogLines log;
    const NoPictureMemory none;
    EXPECT_FALSE(CxPicBufAPI::DivideByValue(*picture, 2));
    EXPECT_EQ(picture.bytes(), before);
    EXPECT_TRUE(LogLines::joined().contains(QStringLiteral("out of memory")));
}

} // namespace
