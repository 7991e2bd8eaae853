// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Frames in memory into pictures, for formats that no simulated camera sends.
#include "cameras/FrameConverter.h"
#include "cameras/ParameterNames.h"

#include <CxPicBufAPI.h>

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <set>
#include <vector>

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

TEST(FrameConverter, AFormatThatIsNotSupportedIsRefused)
{
    const std::array<quint8, 12> bytes = {};
    Picture picture;
    EXPECT_EQ(convertFrame(frameOf(ARV_PIXEL_FORMAT_YUV_422_PACKED, 2, 2, bytes), picture),
              ConvertResult::UnsupportedFormat);
    EXPECT_EQ(picture.data, nullptr);
}

std::vector<int> words(const SxPicBuf& picture)
{
    std::vector<int> values;
    for (quint32 y = 0; y < picture.height; ++y) {
        for (quint32 x = 0; x < picture.width; ++x) {
            quint16 value = 0;
            std::memcpy(&value, picture.data + y * picture.stride + 2 * x, sizeof value);
            values.push_back(value);
        }
    }
    return values;
}

struct PackedCase {
    const char* name;
    ArvPixelFormat format;
    quint32 bpc;
    std::vector<quint8> bytes; ///< of the pixels in `packedPixels`
    ExColorFilterArray colorFilter = ExColorFilterArray::None;
};

const std::vector<int> packedPixels10 = {0x3FF, 0x001, 0x2AA, 0x155, 0x200, 0x123};
const std::vector<int> packedPixels12 = {0xFFF, 0x001, 0xABC, 0x123, 0x800, 0x7F4};

// Written down by hand from the layouts' definitions.
const std::vector<quint8> lowFirst10 = {0xFF, 0x07, 0xA0, 0x6A, 0x55, 0x00, 0x8E, 0x04};
const std::vector<quint8> lowFirst12 = {0xFF, 0x1F, 0x00, 0xBC, 0x3A, 0x12, 0x00, 0x48, 0x7F};
const std::vector<quint8> pairs10 = {0xFF, 0x13, 0x00, 0xAA, 0x12, 0x55, 0x80, 0x30, 0x48};
const std::vector<quint8> pairs12 = {0xFF, 0x1F, 0x00, 0xAB, 0x3C, 0x12, 0x80, 0x40, 0x7F};

const std::vector<PackedCase> packedCases = {
    {"Mono10p", 0x010A0046, 10, lowFirst10},
    {"Mono12p", 0x010C0047, 12, lowFirst12},
    {"Mono10Packed", ARV_PIXEL_FORMAT_MONO_10_PACKED, 10, pairs10},
    {"Mono12Packed", ARV_PIXEL_FORMAT_MONO_12_PACKED, 12, pairs12},
    {"BayerBG10p", ARV_PIXEL_FORMAT_BAYER_BG_10P, 10, lowFirst10, ExColorFilterArray::BGGR},
    {"BayerRG12p", ARV_PIXEL_FORMAT_BAYER_RG_12P, 12, lowFirst12, ExColorFilterArray::RGGB},
    {"BayerGR10Packed", ARV_PIXEL_FORMAT_BAYER_GR_10_PACKED, 10, pairs10, ExColorFilterArray::GRBG},
    {"BayerGB12Packed", ARV_PIXEL_FORMAT_BAYER_GB_12_PACKED, 12, pairs12, ExColorFilterArray::GBRG},
};

const std::vector<int>& pixelsOf(const PackedCase& packed)
{
    return packed.bpc == 10 ? packedPixels10 : packedPixels12;
}

TEST(FrameConverter, PackedPixelsGetTwoBytesEach)
{
    for (const PackedCase& packed : packedCases) {
        SCOPED_TRACE(packed.name);
        Picture picture;
        // 3 pixels a line: the second line begins within a byte, or within a pair.
        const RawFrame frame{packed.format, 3, 2, 0, packed.bytes.data(), packed.bytes.size()};
        ASSERT_EQ(convertFrame(frame, picture), ConvertResult::Done);
        EXPECT_EQ(words(picture), pixelsOf(packed));
        EXPECT_EQ(picture.bpc, packed.bpc);
        EXPECT_EQ(picture.dataType, ExImageDataType::UInt16);
        EXPECT_EQ(picture.colorFilterArray, packed.colorFilter);
    }
}

TEST(FrameConverter, PackedLinesWithPaddingBeginAtAByte)
{
    for (const PackedCase& packed : packedCases) {
        SCOPED_TRACE(packed.name);
        const auto& pixels = pixelsOf(packed);
        const std::size_t lineBytes = packed.bpc == 12 || packed.bytes.size() == 9 ? 6 : 5;
        std::vector<quint8> bytes(packed.bytes.begin(),
                                  packed.bytes.begin() + static_cast<long>(lineBytes));
        bytes.push_back(99);
        bytes.insert(bytes.end(), packed.bytes.begin(),
                     packed.bytes.begin() + static_cast<long>(lineBytes));
        Picture picture;
        const RawFrame frame{packed.format, 4, 2, 1, bytes.data(), bytes.size()};
        ASSERT_EQ(convertFrame(frame, picture), ConvertResult::Done);
        std::vector<int> expected(pixels.begin(), pixels.begin() + 4);
        expected.insert(expected.end(), pixels.begin(), pixels.begin() + 4);
        EXPECT_EQ(words(picture), expected);
    }
}

TEST(FrameConverter, PackedFramesThatAreTooShortAreRefused)
{
    for (const PackedCase& packed : packedCases) {
        SCOPED_TRACE(packed.name);
        Picture picture;
        const RawFrame frame{packed.format, 3, 2, 0, packed.bytes.data(), packed.bytes.size() - 1};
        EXPECT_EQ(convertFrame(frame, picture), ConvertResult::TooShort);
        const RawFrame huge{packed.format,       0x7FFFFFFF,         0x7FFFFFFF, 0,
                            packed.bytes.data(), packed.bytes.size()};
        EXPECT_EQ(convertFrame(huge, picture), ConvertResult::TooShort);
        EXPECT_EQ(picture.data, nullptr);
    }
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
