// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Copying and scaling of rectangles, wherever they lie.
#include "PixelFixtures.h"

#include <array>
#include <climits>

using namespace vistrel::test;

namespace {

struct RectCopy {
    int targetX, targetY, x, y, w, h;
};

const std::vector<RectCopy>& hostileCopies()
{
    static const std::vector<RectCopy> copies{
        {0, 0, 0, 0, 4, 3},
        {2, 1, 0, 0, 5, 4},
        {0, 0, 2, 1, 100, 100},
        {-2, -1, 1, 1, 4, 4},
        {3, 2, -2, -1, 6, 4},
        {1, 1, 1, 1, 0, 3},
        {1, 1, 1, 1, -3, -3},
        {0, 0, -5, -5, 5, 5},
        {100, 0, 0, 0, 4, 4},
        {INT_MAX, INT_MAX, INT_MIN, INT_MIN, INT_MAX, INT_MAX},
        {INT_MIN, INT_MIN, INT_MAX, INT_MAX, INT_MIN, INT_MIN},
        {INT_MIN, 0, INT_MIN, 0, INT_MAX, 3},
        {-1, -1, -1, -1, INT_MAX, INT_MAX},
        {1 - INT_MAX, 0, -INT_MAX, 0, INT_MAX, 2},
    };
    return copies;
}

/// Copies pixel by pixel out of a snapshot, each checked by itself: slow and plain.
bool copyPlainly(SxPicBuf& target, const SxPicBuf& source, const std::vector<quint8>& snapshot,
                 const RectCopy& c)
{
    bool isAnyCopied = false;
    const std::size_t bytes = source.bytesPerPixel();
    for (qint64 y = 0; y < source.height; ++y) {
        for (qint64 x = 0; x < source.width; ++x) {
            const qint64 toX = x - c.x + c.targetX;
            const qint64 toY = y - c.y + c.targetY;
            const bool isInside = x >= c.x && x - c.x < c.w && y >= c.y && y - c.y < c.h && toX >= 0
                                  && toX < target.width && toY >= 0 && toY < target.height;
            if (!isInside)
                continue;
            isAnyCopied = true;
            std::memcpy(target.data + static_cast<std::size_t>(toY) * target.stride
                            + static_cast<std::size_t>(toX) * bytes,
                        snapshot.data() + static_cast<std::size_t>(y) * source.stride
                            + static_cast<std::size_t>(x) * bytes,
                        bytes);
        }
    }
    return isAnyCopied;
}

TEST(CopyingARectangle, CopiesWhatLiesInsideBothPicturesAndNothingElse)
{
    forEachLayout([](const Layout& layout) {
        Layout larger = layout;
        larger.width += 3;
        larger.stride = 0;
        for (const RectCopy& c : hostileCopies()) {
            Picture source(layout), target(larger), expected(larger);
            fillRandomly(*source, 1);
            fillRandomly(*target, 2);
            fillRandomly(*expected, 2);
            EXPECT_EQ(
                CxPicBufAPI::CopyRect(*target, c.targetX, c.targetY, *source, c.x, c.y, c.w, c.h),
                copyPlainly(*expected, *source, source.bytes(), c));
            EXPECT_EQ(target.bytes(), expected.bytes());
        }
    });
}

TEST(CopyingARectangle, WithinOnePictureReadsNothingThatItHasOverwritten)
{
    forEachLayout([](const Layout& layout) {
        for (const RectCopy& c : hostileCopies()) {
            Picture picture(layout), expected(layout);
            fillRandomly(*picture, 3);
            fillRandomly(*expected, 3);
            CxPicBufAPI::CopyRect(*picture, c.targetX, c.targetY, *picture, c.x, c.y, c.w, c.h);
            copyPlainly(*expected, *expected, expected.bytes(), c);
            EXPECT_EQ(picture.bytes(), expected.bytes());
        }
    });
}

TEST(CopyingARectangle, IsRefusedBetweenDifferentPixelsAndWithoutPixels)
{
    Picture bytes({.width = 4, .height = 4}),
        words({.width = 4, .height = 4, .type = ExImageDataType::UInt16});
    Picture colors({.width = 4, .height = 4, .channels = 3});
    SxPicBuf empty;
    EXPECT_FALSE(CxPicBufAPI::CopyRect(*bytes, 0, 0, *words, 0, 0, 4, 4));
    EXPECT_FALSE(CxPicBufAPI::CopyRect(*bytes, 0, 0, *colors, 0, 0, 4, 4));
    EXPECT_FALSE(CxPicBufAPI::CopyRect(*bytes, 0, 0, empty, 0, 0, 4, 4));
    EXPECT_FALSE(CxPicBufAPI::CopyRect(empty, 0, 0, *bytes, 0, 0, 4, 4));
}

void fillWith(const SxPicBuf& buffer, int value)
{
    vistrel::visitElementType(buffer.dataType, [&](auto element) {
        fill<decltype(element)>(buffer, {static_cast<decltype(element)>(value)});
    });
}

/// Weights add up to 1 but for the last bit, which only doubles show.
void expectAlike(const SxPicBuf& actual, const SxPicBuf& expected)
{
    vistrel::visitElementType(actual.dataType, [&](auto element) {
        using Element = decltype(element);
        for (std::size_t y = 0; y < actual.height; ++y)
            for (std::size_t i = 0; i < valuesPerLine(actual); ++i)
                EXPECT_NEAR(static_cast<double>(valueAt<Element>(actual, y, i)),
                            static_cast<double>(valueAt<Element>(expected, y, i)), 1e-9);
    });
}

TEST(Scaling, APlainSurfaceStaysPlainInEveryTypeAndSize)
{
    forEachLayout([](const Layout& layout) {
        for (const auto& [width, height] : std::array<std::array<unsigned, 2>, 5>{
                 {{3, 2}, {40, 21}, {3, 21}, {1, 1}, {layout.width, layout.height}}}) {
            Layout scaled = layout;
            scaled.width = width;
            scaled.height = height;
            scaled.stride = 0;
            Picture source(layout), target(scaled), expected(scaled);
            fillWith(*source, 0x4A5B);
            fillWith(*expected, 0x4A5B);
            ASSERT_TRUE(CxPicBufAPI::Resize(*source, *target));
            expectAlike(*target, *expected);
        }
    });
}

TEST(Scaling, ToHalfTheSizeTakesTheMeanOfFourPixelsInEveryType)
{
    for (const ExImageDataType type : allTypes()) {
        if (type == ExImageDataType::Packed565)
            continue;
        Picture source({.width = 8, .height = 6, .channels = 2, .type = type});
        Picture target({.width = 4, .height = 3, .channels = 2, .type = type});
        vistrel::visitElementType(type, [&](auto element) {
            using Element = decltype(element);
            for (std::size_t y = 0; y < 6; ++y)
                for (std::size_t i = 0; i < 16; ++i) // multiples of 4, so that no mean is rounded
                    setValueAt(*source, y, i, static_cast<Element>((y * 16 + i) * 7 % 29 * 4));
            ASSERT_TRUE(CxPicBufAPI::Resize(*source, *target));
            const auto at = [&](std::size_t y, std::size_t i) {
                return static_cast<double>(valueAt<Element>(*source, y, i));
            };
            for (std::size_t y = 0; y < 3; ++y) {
                for (std::size_t i = 0; i < 8; ++i) {
                    const std::size_t left = i / 2 * 4 + i % 2;
                    const double sum = at(2 * y, left) + at(2 * y, left + 2) + at(2 * y + 1, left)
                                       + at(2 * y + 1, left + 2);
                    EXPECT_EQ(static_cast<double>(valueAt<Element>(*target, y, i)), sum / 4);
                }
            }
        });
    }
}

TEST(Scaling, IsTheSameInTypesWithAndWithoutOpenCv)
{
    for (const auto& [width, height] :
         std::array<std::array<unsigned, 2>, 4>{{{30, 22}, {5, 4}, {5, 20}, {8, 7}}}) {
        Picture floats({.width = 11, .height = 9, .type = ExImageDataType::Float});
        Picture words({.width = 11, .height = 9, .type = ExImageDataType::UInt32});
        std::mt19937 random(width);
        for (std::size_t i = 0; i < 99; ++i) {
            const auto value = static_cast<quint32>(random() % 60000);
            setValueAt(*floats, i / 11, i % 11, static_cast<float>(value));
            setValueAt(*words, i / 11, i % 11, value);
        }
        Picture scaledFloats({.width = width, .height = height, .type = ExImageDataType::Float});
        Picture scaledWords({.width = width, .height = height, .type = ExImageDataType::UInt32});
        ASSERT_TRUE(CxPicBufAPI::Resize(*floats, *scaledFloats));
        ASSERT_TRUE(CxPicBufAPI::Resize(*words, *scaledWords));
        for (std::size_t y = 0; y < height; ++y)
            for (std::size_t x = 0; x < width; ++x)
                EXPECT_NEAR(valueAt<float>(*scaledFloats, y, x),
                            valueAt<quint32>(*scaledWords, y, x), 0.6);
    }
}

TEST(Scaling, OfAnEmptyRectangleTakesTheWholeSource)
{
    Picture source({.width = 9, .height = 7}), byZero({.width = 4, .height = 3}),
        whole({.width = 4, .height = 3});
    fillRandomly(*source, 5);
    ASSERT_TRUE(CxPicBufAPI::ResizeRect(*source, 0, 0, 0, 0, *byZero, 0, 0, 4, 3));
    ASSERT_TRUE(CxPicBufAPI::Resize(*source, *whole));
    EXPECT_EQ(byZero.bytes(), whole.bytes());
}

TEST(Scaling, OfOnePixelFillsTheTargetWithIt)
{
    Picture source({.width = 9, .height = 7}), target({.width = 4, .height = 4});
    fillRandomly(*source, 6);
    ASSERT_TRUE(CxPicBufAPI::ResizeRect(*source, 0, 0, 1, 1, *target, 0, 0, 4, 4));
    EXPECT_EQ(valuesIn<quint8>(*target), std::vector<quint8>(16, source->data[0]));
}

TEST(Scaling, ToARectanglePartlyOutsideWritesThePartInside)
{
    forEachLayout([](const Layout& layout) {
        Layout largeLayout = layout;
        largeLayout.width = 20;
        largeLayout.height = 18;
        largeLayout.stride = 0;
        Picture source(layout), large(largeLayout), window(layout), expected(layout);
        fillWith(*source, 3); // the two ways of scaling differ in the last bit of a mixture
        fillRandomly(*window, 8);
        fillRandomly(*expected, 8);
        ASSERT_TRUE(CxPicBufAPI::Resize(*source, *large));
        ASSERT_TRUE(CxPicBufAPI::ResizeRect(*source, 0, 0, 0, 0, *window, 4, -3, 20, 18));
        ASSERT_TRUE(CxPicBufAPI::CopyRect(*expected, 4, -3, *large, 0, 0, 20, 18));
        expectAlike(*window, *expected);
    });
}

TEST(Scaling, ToAHugeRectangleTakesMemoryForTheVisiblePartOnly)
{
    for (const ExImageDataType type : allTypes()) {
        Picture source({.width = 3, .height = 2, .type = type});
        Picture target({.width = 5, .height = 4, .type = type});
        fillWith(*source, 0x4A5B);
        EXPECT_TRUE(
            CxPicBufAPI::ResizeRect(*source, 0, 0, 0, 0, *target, -5, -5, INT_MAX, INT_MAX));
        EXPECT_EQ(std::memcmp(target->data, source->data, source->bytesPerPixel()), 0);
    }
}

TEST(Scaling, WithinOnePictureReadsThePixelsAsTheyWere)
{
    Picture picture({.width = 16, .height = 16}), before({.width = 16, .height = 16}),
        expected({.width = 16, .height = 16});
    for (Picture* each : {&picture, &before, &expected})
        fillRandomly(**each, 10);
    ASSERT_TRUE(CxPicBufAPI::ResizeRect(*picture, 0, 0, 8, 8, *picture, 2, 2, 13, 12));
    ASSERT_TRUE(CxPicBufAPI::ResizeRect(*before, 0, 0, 8, 8, *expected, 2, 2, 13, 12));
    EXPECT_EQ(picture.bytes(), expected.bytes());
}

TEST(Scaling, OfNothingOrToNothingIsRefused)
{
    Picture source({.width = 4, .height = 4}), target({.width = 4, .height = 4});
    Picture words({.width = 4, .height = 4, .type = ExImageDataType::UInt16});
    fillRandomly(*source, 11);
    const auto before = target.bytes();
    SxPicBuf empty;
    EXPECT_FALSE(CxPicBufAPI::ResizeRect(*source, 4, 0, 2, 2, *target, 0, 0, 4, 4));
    EXPECT_FALSE(CxPicBufAPI::ResizeRect(*source, 0, 0, -2, 2, *target, 0, 0, 4, 4));
    EXPECT_FALSE(CxPicBufAPI::ResizeRect(*source, 0, 0, 2, 2, *target, 0, 0, 0, 4));
    EXPECT_FALSE(CxPicBufAPI::ResizeRect(*source, 0, 0, 2, 2, *target, 0, 0, 4, INT_MIN));
    EXPECT_FALSE(CxPicBufAPI::ResizeRect(*source, 0, 0, 2, 2, *target, 4, 4, 4, 4));
    EXPECT_FALSE(CxPicBufAPI::ResizeRect(*source, INT_MAX, INT_MIN, INT_MAX, INT_MIN, *target,
                                         INT_MIN, INT_MAX, INT_MAX, INT_MAX));
    EXPECT_FALSE(CxPicBufAPI::Resize(*words, *target));
    EXPECT_FALSE(CxPicBufAPI::Resize(empty, *target));
    EXPECT_FALSE(CxPicBufAPI::Resize(*source, empty));
    EXPECT_EQ(target.bytes(), before);
}

TEST(ExtractingAChannel, TakesItsValuesInEveryTypeAndLeavesTheEndsOfLinesAlone)
{
    forEachLayout([](const Layout& layout) {
        if (layout.type == ExImageDataType::Packed565)
            return;
        Layout mono = layout;
        mono.channels = 1;
        for (unsigned channel = 0; channel < layout.channels; ++channel) {
            Picture source(layout), target(mono), expected(mono);
            fillRandomly(*source, 12);
            fillRandomly(*target, 13);
            fillRandomly(*expected, 13);
            ASSERT_TRUE(CxPicBufAPI::ExtractChannel(*source, *target, channel));
            vistrel::visitElementType(layout.type, [&](auto element) {
                using Element = decltype(element);
                for (std::size_t y = 0; y < layout.height; ++y)
                    for (std::size_t x = 0; x < layout.width; ++x)
                        setValueAt(*expected, y, x,
                                   valueAt<Element>(*source, y, x * layout.channels + channel));
            });
            EXPECT_EQ(target.bytes(), expected.bytes());
        }
    });
}

TEST(ExtractingAChannel, OfPackedPixelsKeepsTheBitsOfTheColor)
{
    Picture source({.type = ExImageDataType::Packed565}),
        target({.type = ExImageDataType::Packed565});
    fill<quint16>(*source, {0xFFFF});
    for (const auto& [channel, word] :
         std::array<std::array<unsigned, 2>, 3>{{{0, 0xF800}, {1, 0x07E0}, {2, 0x001F}}}) {
        ASSERT_TRUE(CxPicBufAPI::ExtractChannel(*source, *target, channel));
        EXPECT_EQ(valueAt<quint16>(*target, 0, 0), word);
    }
    EXPECT_FALSE(CxPicBufAPI::ExtractChannel(*source, *target, 3));
}

TEST(ExtractingAChannel, IsRefusedWhenThePicturesDoNotFit)
{
    Picture source({.width = 4, .height = 4, .channels = 3}), mono({.width = 4, .height = 4}),
        small({.width = 3, .height = 4}),
        words({.width = 4, .height = 4, .type = ExImageDataType::UInt16});
    SxPicBuf empty;
    EXPECT_FALSE(CxPicBufAPI::ExtractChannel(*source, *mono, 3));
    EXPECT_FALSE(CxPicBufAPI::ExtractChannel(*source, *small, 0));
    EXPECT_FALSE(CxPicBufAPI::ExtractChannel(*source, *words, 0));
    EXPECT_FALSE(CxPicBufAPI::ExtractChannel(*source, *source, 0));
    EXPECT_FALSE(CxPicBufAPI::ExtractChannel(empty, *mono, 0));
    EXPECT_FALSE(CxPicBufAPI::ExtractChannel(*source, empty, 0));
}

} // namespace
