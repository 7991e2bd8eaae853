// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of every layout as 8-bit red, green, blue, alpha.
#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

/// A picture with pixels of its own, freed at the end.
class Picture {
public:
    Picture(unsigned width, unsigned height, unsigned channels, ExImageDataType type, unsigned bpc,
            bool isRgb = false)
    {
        CxPicBufAPI::AllocPicBufFromHeap(m_buffer, width, height, channels, type, 0, 0, bpc,
                                         ExDataStorageFormat::Interleaved, ExColorFilterArray::None,
                                         isRgb, true, 0);
    }
    ~Picture() { CxPicBufAPI::FreePicBuf(m_buffer, true); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    SxPicBuf& buffer() { return m_buffer; }

    template<class Element>
    void fill(const std::vector<Element>& values)
    {
        std::copy(values.begin(), values.end(), reinterpret_cast<Element*>(m_buffer.data));
    }

private:
    SxPicBuf m_buffer;
};

using Pixel = std::array<int, 4>;

/// The first pixel of the conversion.
Pixel firstPixelOf(Picture& source)
{
    Picture target(source.buffer().width, source.buffer().height, 4, ExImageDataType::UInt8, 8);
    EXPECT_TRUE(CxPicBufAPI::ConvertPicToRGB(source.buffer(), target.buffer()));
    EXPECT_TRUE(target.buffer().isRgb);
    const quint8* data = target.buffer().data;
    return {data[0], data[1], data[2], data[3]};
}

template<class Element>
Pixel monoPixel(ExImageDataType type, unsigned bpc, Element value)
{
    Picture source(1, 1, 1, type, bpc);
    source.fill<Element>({value});
    return firstPixelOf(source);
}

TEST(ConvertPicToRgb, MonoOfEveryTypeIsScaledByItsBits)
{
    EXPECT_EQ(monoPixel<quint8>(ExImageDataType::UInt8, 8, 77), (Pixel{77, 77, 77, 255}));
    EXPECT_EQ(monoPixel<quint8>(ExImageDataType::UInt8, 4, 15), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(monoPixel<quint16>(ExImageDataType::UInt16, 12, 4095), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(monoPixel<quint16>(ExImageDataType::UInt16, 12, 65535), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(monoPixel<qint16>(ExImageDataType::Int16, 16, -5), (Pixel{0, 0, 0, 255}));
    EXPECT_EQ(monoPixel<qint32>(ExImageDataType::Int32, 10, 1023), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(monoPixel<quint32>(ExImageDataType::UInt32, 32, 0x80000000U)[0], 128);
    EXPECT_EQ(monoPixel<quint64>(ExImageDataType::UInt64, 20, 1048575)[1], 255);
    EXPECT_EQ(monoPixel<qint64>(ExImageDataType::Int64, 20, -1)[1], 0);
    EXPECT_EQ(monoPixel<float>(ExImageDataType::Float, 32, 1.0F)[2], 255);
    EXPECT_EQ(monoPixel<double>(ExImageDataType::Double, 64, 0.2)[2], 51);
}

TEST(ConvertPicToRgb, AllBitsCountWhereTheRecordNamesNoneOrMoreThanThereAre)
{
    EXPECT_EQ(monoPixel<quint8>(ExImageDataType::UInt8, 0, 77)[0], 77);
    EXPECT_EQ(monoPixel<quint16>(ExImageDataType::UInt16, 0, 32768)[0], 128);
    EXPECT_EQ(monoPixel<quint16>(ExImageDataType::UInt16, 40, 65535)[0], 255);
}

TEST(ConvertPicToRgb, FloatsAreScaledByTheirSaturation)
{
    Picture source(1, 1, 1, ExImageDataType::Float, 32);
    source.buffer().saturation = 200.0F;
    source.fill<float>({100.0F});
    EXPECT_EQ(firstPixelOf(source)[0], 128);
}

TEST(ConvertPicToRgb, ColourOrderFollowsTheFlag)
{
    Picture rgb(1, 1, 3, ExImageDataType::UInt8, 8, true);
    rgb.fill<quint8>({10, 20, 30});
    EXPECT_EQ(firstPixelOf(rgb), (Pixel{10, 20, 30, 255}));
    Picture bgra(1, 1, 4, ExImageDataType::UInt8, 8, false);
    bgra.fill<quint8>({10, 20, 30, 40});
    EXPECT_EQ(firstPixelOf(bgra), (Pixel{30, 20, 10, 40}));
    Picture rgba(1, 1, 4, ExImageDataType::UInt8, 8, true);
    rgba.fill<quint8>({10, 20, 30, 40});
    EXPECT_EQ(firstPixelOf(rgba), (Pixel{10, 20, 30, 40}));
}

TEST(ConvertPicToRgb, PackedPixelsHaveRedInTheHighBits)
{
    Picture source(1, 1, 3, ExImageDataType::Packed565, 16);
    source.fill<quint16>({0xF800});
    EXPECT_EQ(firstPixelOf(source), (Pixel{248, 0, 0, 255}));
}

TEST(ConvertPicToRgb, RawDataIsDemosaicedByItsPattern)
{
    struct Case {
        ExColorFilterArray pattern;
        bool redAtX;
        bool redAtY;
    };
    for (const Case& c :
         {Case{ExColorFilterArray::RGGB, false, false}, Case{ExColorFilterArray::GRBG, true, false},
          Case{ExColorFilterArray::GBRG, false, true},
          Case{ExColorFilterArray::BGGR, true, true}}) {
        Picture source(8, 8, 1, ExImageDataType::UInt8, 8);
        source.buffer().colorFilterArray = c.pattern;
        for (unsigned y = 0; y < 8; ++y) {
            for (unsigned x = 0; x < 8; ++x) {
                const bool isRed = (x % 2 == 1) == c.redAtX && (y % 2 == 1) == c.redAtY;
                source.buffer().data[std::size_t{y} * source.buffer().stride + x] = isRed ? 200 : 0;
            }
        }
        Picture target(8, 8, 4, ExImageDataType::UInt8, 8);
        ASSERT_TRUE(CxPicBufAPI::ConvertPicToRGB(source.buffer(), target.buffer()));
        const quint8* middle = target.buffer().data + 4 * target.buffer().stride + 4 * 4;
        EXPECT_EQ(middle[0], 200) << static_cast<int>(c.pattern);
        EXPECT_EQ(middle[1], 0);
        EXPECT_EQ(middle[2], 0);
    }
}

TEST(ConvertPicToRgb, PaddedLinesAreRead)
{
    Picture source(3, 2, 1, ExImageDataType::UInt8, 8);
    ASSERT_EQ(source.buffer().stride, 4U);
    source.buffer().data[4] = 99;
    Picture target(3, 2, 4, ExImageDataType::UInt8, 8);
    ASSERT_TRUE(CxPicBufAPI::ConvertPicToRGB(source.buffer(), target.buffer()));
    EXPECT_EQ(target.buffer().data[target.buffer().stride], 99);
}

TEST(ConvertPicToRgb, BytesOfFewerBitsStayAsTheyAre)
{
    Picture source(1, 1, 1, ExImageDataType::UInt8, 6);
    source.fill<quint8>({63});
    EXPECT_EQ(firstPixelOf(source), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(source.buffer().data[0], 63);
}

TEST(ConvertPicToRgb, OddLayoutsAreShownByTheirFirstChannelOrRefused)
{
    Picture five(1, 1, 5, ExImageDataType::UInt8, 8);
    five.fill<quint8>({9, 1, 1, 1, 1});
    EXPECT_EQ(firstPixelOf(five), (Pixel{9, 9, 9, 255}));
    Picture target(1, 1, 4, ExImageDataType::UInt8, 8);
    Picture larger(2, 1, 1, ExImageDataType::UInt8, 8);
    EXPECT_FALSE(CxPicBufAPI::ConvertPicToRGB(larger.buffer(), target.buffer()));
    Picture thousand(1, 1, 1000, ExImageDataType::UInt8, 8);
    EXPECT_FALSE(CxPicBufAPI::ConvertPicToRGB(thousand.buffer(), target.buffer()));
    SxPicBuf empty;
    EXPECT_FALSE(CxPicBufAPI::ConvertPicToRGB(empty, target.buffer()));
}

} // namespace
