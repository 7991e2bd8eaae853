// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Frames in memory into pictures, for formats that no simulated camera sends.
#include "cameras/FrameConverter.h"
#include "cameras/ParameterNames.h"

#include <CxPicBufAPI.h>

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace vistrel::test {

namespace {

/// A picture that gives its memory back.
struct Picture : SxPicBuf {
    Picture() = default;
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture() { CxPicBufAPI::FreePicBuf(*this, true); }
};

template<std::size_t Size>
RawFrame frameOf(ArvPixelFormat format, quint32 width, quint32 height,
                 const std::array<quint8, Size>& bytes)
{
    return {format, width, height, 0, bytes.data(), Size};
}

TEST(FrameConverter, LinesAreCopiedWithoutTheirPadding)
{
    const std::array<quint8, 8> bytes = {1, 2, 3, 99, 4, 5, 6, 99};
    RawFrame frame = frameOf(ARV_PIXEL_FORMAT_MONO_8, 3, 2, bytes);
    frame.linePadding = 1;
    Picture picture;
    ASSERT_EQ(convertFrame(frame, picture), ConvertResult::Done);
    ASSERT_GE(picture.stride, 3U);
    for (quint32 y = 0; y < 2; ++y)
        for (quint32 x = 0; x < 3; ++x)
            EXPECT_EQ(picture.data[y * picture.stride + x], y * 3 + x + 1);
}

TEST(FrameConverter, ThePaddingOfTheLastLineMayBeMissing)
{
    const std::array<quint8, 7> bytes = {1, 2, 3, 99, 4, 5, 6};
    RawFrame frame = frameOf(ARV_PIXEL_FORMAT_MONO_8, 3, 2, bytes);
    frame.linePadding = 1;
    Picture picture;
    EXPECT_EQ(convertFrame(frame, picture), ConvertResult::Done);
}

TEST(FrameConverter, AFrameThatIsTooShortIsRefused)
{
    const std::array<quint8, 11> bytes = {};
    Picture picture;
    EXPECT_EQ(convertFrame(frameOf(ARV_PIXEL_FORMAT_MONO_12, 3, 2, bytes), picture),
              ConvertResult::TooShort);
    EXPECT_EQ(picture.data, nullptr);
}

TEST(FrameConverter, AFrameWithoutPixelsIsRefused)
{
    const std::array<quint8, 4> bytes = {};
    Picture picture;
    EXPECT_NE(convertFrame(frameOf(ARV_PIXEL_FORMAT_MONO_8, 0, 0, bytes), picture),
              ConvertResult::Done);
    EXPECT_NE(convertFrame({ARV_PIXEL_FORMAT_MONO_8, 2, 2, 0, nullptr, 4}, picture),
              ConvertResult::Done);
    EXPECT_EQ(picture.data, nullptr);
}

TEST(FrameConverter, PackedPixelsAreRefused)
{
    const std::array<quint8, 12> bytes = {};
    Picture picture;
    EXPECT_EQ(convertFrame(frameOf(ARV_PIXEL_FORMAT_MONO_12_PACKED, 2, 2, bytes), picture),
              ConvertResult::UnsupportedFormat);
    EXPECT_EQ(convertFrame(frameOf(ARV_PIXEL_FORMAT_BAYER_BG_10P, 2, 2, bytes), picture),
              ConvertResult::UnsupportedFormat);
}

TEST(FrameConverter, WordsKeepTheirSignificantBits)
{
    struct Case {
        ArvPixelFormat format;
        quint32 bpc;
        ExColorFilterArray colorFilter;
    };
    for (const Case& expected : std::to_array<Case>({
             {ARV_PIXEL_FORMAT_MONO_10, 10, ExColorFilterArray::None},
             {ARV_PIXEL_FORMAT_MONO_12, 12, ExColorFilterArray::None},
             {ARV_PIXEL_FORMAT_MONO_14, 14, ExColorFilterArray::None},
             {ARV_PIXEL_FORMAT_BAYER_GR_10, 10, ExColorFilterArray::GRBG},
             {ARV_PIXEL_FORMAT_BAYER_RG_12, 12, ExColorFilterArray::RGGB},
             {0x0110010B, 14, ExColorFilterArray::GBRG},
             {ARV_PIXEL_FORMAT_BAYER_BG_16, 16, ExColorFilterArray::BGGR},
         })) {
        const auto info = pictureInfo(expected.format, 4, 4);
        ASSERT_TRUE(info.has_value()) << std::hex << expected.format;
        EXPECT_EQ(info->bpc, expected.bpc);
        EXPECT_EQ(info->dataType, ExImageDataType::UInt16);
        EXPECT_EQ(info->colorFilterArray, expected.colorFilter);
        EXPECT_EQ(info->bytesPerPixel(), 2U);
    }
}

TEST(FrameConverter, BlueFirstIsKeptAndSaidSo)
{
    const std::array<quint8, 3> bytes = {10, 20, 30};
    Picture picture;
    ASSERT_EQ(convertFrame(frameOf(ARV_PIXEL_FORMAT_BGR_8_PACKED, 1, 1, bytes), picture),
              ConvertResult::Done);
    EXPECT_FALSE(picture.isRgb);
    EXPECT_EQ(picture.channels, 3U);
    EXPECT_EQ(picture.data[0], 10);
    EXPECT_EQ(picture.data[2], 30);
}

TEST(ParameterNames, AreKnownByTheirExactName)
{
    EXPECT_TRUE(isKnownParameterName(QStringLiteral("exposure_time_us")));
    EXPECT_FALSE(isKnownParameterName(QStringLiteral("EXPOSURE_TIME_US")));
    EXPECT_FALSE(isKnownParameterName(QString()));
    EXPECT_EQ(parameterNames().size(), 11);
}

TEST(ParameterNames, EnumerationValuesBelongToAParameterAndAreUnique)
{
    std::set<QString> names;
    std::set<std::pair<QString, int>> values;
    for (const ParameterEnumValue& value : parameterEnumValues()) {
        EXPECT_TRUE(isKnownParameterName(value.parameter)) << value.parameter.toStdString();
        EXPECT_TRUE(value.name.startsWith(value.parameter.toUpper() + u'_'));
        EXPECT_TRUE(names.insert(value.name).second) << value.name.toStdString();
        EXPECT_TRUE(values.insert({value.parameter, value.value}).second);
    }
}

} // namespace

} // namespace vistrel::test
