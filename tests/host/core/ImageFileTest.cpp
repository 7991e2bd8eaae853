// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What goes into image files and comes out of them again.
#include "FileFixture.h"

#include <QtCore/QFile>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cmath>
#include <limits>
#include <thread>

namespace {

using namespace vistrel::test;
using enum ExImageDataType;

constexpr unsigned width = 37;
constexpr unsigned height = 11;

/// Values that fill the type's range and differ from channel to channel.
template<typename Element>
std::vector<Element> variedValues()
{
    std::vector<Element> values;
    for (int i = 0; i < 101; ++i) {
        if constexpr (std::is_floating_point_v<Element>)
            values.push_back(static_cast<Element>(i - 50) * static_cast<Element>(1.1));
        else
            values.push_back(
                static_cast<Element>(static_cast<quint64>(i) * 0x0123'4567'89AB'CDEFU));
    }
    return values;
}

class ImageFile : public FileFixture {
protected:
    /// Saves a picture and expects the same to come back.
    template<typename Element>
    void expectKept(const char* name, Layout layout, const std::vector<Element>& values)
    {
        SCOPED_TRACE(name);
        layout.width = width;
        layout.height = height;
        const auto image = newImage(layout);
        fill(*image->picBuf(), values);
        ASSERT_TRUE(save(name, *image)) << qPrintable(LogLines::joined());
        const auto loaded = load(name);
        ASSERT_NE(loaded, nullptr) << qPrintable(LogLines::joined());
        const SxPicBuf& buffer = *loaded->picBuf();
        EXPECT_EQ(buffer.width, width);
        EXPECT_EQ(buffer.height, height);
        ASSERT_EQ(buffer.channels, layout.channels);
        ASSERT_EQ(buffer.dataType, layout.type);
        EXPECT_EQ(buffer.bpc, sizeof(Element) * 8);
        EXPECT_EQ(buffer.isRgb, layout.channels >= 3);
        EXPECT_EQ(buffer.storageFormat, ExDataStorageFormat::Interleaved);
        EXPECT_EQ(valuesIn<Element>(buffer), valuesIn<Element>(*image->picBuf()));
    }

    template<typename Element>
    void expectKept(const char* name, ExImageDataType type, unsigned channels)
    {
        expectKept<Element>(
            name, {.channels = channels, .type = type, .bpc = sizeof(Element) * 8, .isRgb = true},
            variedValues<Element>());
    }

    /// Saves a picture of one line and returns what lies in the file.
    template<typename Element>
    std::unique_ptr<CxImageData> saved(const char* name, Layout layout,
                                       const std::vector<Element>& values)
    {
        const auto image = newImage(layout);
        fill(*image->picBuf(), values);
        return save(name, *image) ? load(name) : nullptr;
    }
};

TEST_F(ImageFile, PngKeepsEightAndSixteenBitsAndAlpha)
{
    for (const unsigned channels : {1U, 3U, 4U}) {
        expectKept<quint8>("a.png", UInt8, channels);
        expectKept<quint16>("b.png", UInt16, channels);
    }
}

TEST_F(ImageFile, TiffKeepsBytesWordsAndFloats)
{
    for (const unsigned channels : {1U, 3U, 4U}) {
        expectKept<quint8>("a.tif", UInt8, channels);
        expectKept<quint16>("b.tiff", UInt16, channels);
        expectKept<float>("c.tif", Float, channels);
    }
}

TEST_F(ImageFile, TiffKeepsSignedIntegersAndDoublesOfOneChannel)
{
    expectKept<qint8>("a.tif", Int8, 1);
    expectKept<qint16>("b.tif", Int16, 1);
    expectKept<qint32>("c.tif", Int32, 1);
    expectKept<double>("d.tif", Double, 1);
}

TEST_F(ImageFile, TiffKeepsFloatsThatAreNoNumbers)
{
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const auto file =
        saved<float>("a.tif", {.width = 3, .type = Float}, {infinity, -infinity, nan});
    ASSERT_NE(file, nullptr);
    const auto values = valuesIn<float>(*file->picBuf());
    EXPECT_EQ(values[0], infinity);
    EXPECT_EQ(values[1], -infinity);
    EXPECT_TRUE(std::isnan(values[2]));
    EXPECT_EQ(file->picBuf()->saturation, 1.0F);
}

TEST_F(ImageFile, BmpAndPnmKeepWhatTheyHold)
{
    expectKept<quint8>("a.bmp", UInt8, 1);
    expectKept<quint8>("a.bmp", UInt8, 3);
    expectKept<quint8>("a.pgm", UInt8, 1);
    expectKept<quint16>("b.pgm", UInt16, 1);
    expectKept<quint8>("a.ppm", UInt8, 3);
    expectKept<quint16>("b.ppm", UInt16, 3);
    for (const unsigned channels : {1U, 3U}) {
        expectKept<quint8>("a.pnm", UInt8, channels);
        expectKept<quint16>("b.pnm", UInt16, channels);
    }
    expectKept<quint8>("a.pbm", {}, {0, 255, 255, 0, 0});
}

TEST_F(ImageFile, JpegComesBackNearly)
{
    for (const unsigned channels : {1U, 3U}) {
        const auto file =
            saved<quint8>("a.JPG", {.width = 64, .height = 64, .channels = channels, .isRgb = true},
                          std::vector<quint8>(channels == 1 ? std::vector<quint8>{200}
                                                            : std::vector<quint8>{200, 100, 50}));
        ASSERT_NE(file, nullptr);
        EXPECT_NEAR(file->picBuf()->data[0], 200, 2);
        if (channels == 3) {
            EXPECT_NEAR(file->picBuf()->data[1], 100, 2);
            EXPECT_NEAR(file->picBuf()->data[2], 50, 2);
        }
    }
}

TEST_F(ImageFile, ColourOrderOfTheBufferDoesNotShowInTheFile)
{
    for (const char* name : {"a.png", "a.tif", "a.bmp", "a.ppm"}) {
        const auto file =
            saved<quint8>(name, {.width = 2, .channels = 3, .isRgb = false}, {10, 20, 30});
        ASSERT_NE(file, nullptr) << name;
        EXPECT_TRUE(file->picBuf()->isRgb);
        EXPECT_EQ(valuesIn<quint8>(*file->picBuf()), (std::vector<quint8>{30, 20, 10, 30, 20, 10}));
    }
}

TEST_F(ImageFile, AlphaStaysTheFourthChannelInEitherOrder)
{
    for (const char* name : {"a.png", "a.tif"}) {
        const auto file = saved<quint8>(name, {.channels = 4, .isRgb = false}, {10, 20, 30, 40});
        ASSERT_NE(file, nullptr) << name;
        EXPECT_EQ(valuesIn<quint8>(*file->picBuf()), (std::vector<quint8>{30, 20, 10, 40}));
    }
}

TEST_F(ImageFile, SavingLeavesTheImageAsItWas)
{
    const auto image = newImage({.width = 2, .channels = 3, .isRgb = true});
    fill<quint8>(*image->picBuf(), {10, 20, 30});
    ASSERT_TRUE(save("a.png", *image));
    EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), (std::vector<quint8>{10, 20, 30, 10, 20, 30}));
    EXPECT_TRUE(image->picBuf()->isRgb);
}

TEST_F(ImageFile, PaddedAndOddStridesAreWrittenWithoutTheirPadding)
{
    for (const unsigned stride : {128U, 117U}) {
        expectKept<quint8>("a.png", {.channels = 3, .isRgb = true, .stride = stride},
                           variedValues<quint8>());
        expectKept<quint8>("a.tif", {.channels = 3, .isRgb = true, .stride = stride},
                           variedValues<quint8>());
    }
}

TEST_F(ImageFile, FewerSignificantBitsAreKeptAsTheyAreInPngTiffAndPnm)
{
    for (const char* name : {"a.png", "a.tif", "a.pgm"}) {
        for (const unsigned bpc : {10U, 12U, 14U})
            expectKept<quint16>(name, {.type = UInt16, .bpc = bpc}, {0, 1, 512, 1023});
    }
}

TEST_F(ImageFile, BmpAndJpegScaleMoreSignificantBitsDown)
{
    for (const unsigned bpc : {10U, 12U, 14U, 16U}) {
        const auto full = static_cast<quint16>((1U << bpc) - 1);
        const auto half = static_cast<quint16>(full / 2);
        const auto file =
            saved<quint16>("a.bmp", {.width = 3, .type = UInt16, .bpc = bpc}, {0, half, full});
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(file->picBuf()->dataType, UInt8);
        const auto values = valuesIn<quint8>(*file->picBuf());
        EXPECT_EQ(values[0], 0);
        EXPECT_NEAR(values[1], 127, 1);
        EXPECT_EQ(values[2], 255);
    }
    const auto jpeg =
        saved<quint16>("a.jpg", {.width = 16, .height = 16, .type = UInt16, .bpc = 12}, {2048});
    ASSERT_NE(jpeg, nullptr);
    EXPECT_NEAR(jpeg->picBuf()->data[0], 128, 2);
    const auto wide = saved<quint32>("b.bmp", {.type = UInt32, .bpc = 32}, {0xFFFFFFFF});
    ASSERT_NE(wide, nullptr);
    EXPECT_EQ(wide->picBuf()->data[0], 255);
}

TEST_F(ImageFile, MonoGoesIntoColourFormatsAsGrey)
{
    const auto file = saved<quint8>("a.ppm", {.width = 2}, {7, 9});
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(valuesIn<quint8>(*file->picBuf()), (std::vector<quint8>{7, 7, 7, 9, 9, 9}));
}

TEST_F(ImageFile, AnAlphaChannelThatSaysNothingIsDroppedWhereThereIsNoPlaceForIt)
{
    for (const char* name : {"a.bmp", "a.ppm", "a.pnm"}) {
        const auto file = saved<quint8>(name, {.channels = 4, .isRgb = true}, {10, 20, 30, 255});
        ASSERT_NE(file, nullptr) << name;
        EXPECT_EQ(valuesIn<quint8>(*file->picBuf()), (std::vector<quint8>{10, 20, 30}));
    }
    const auto words = saved<quint16>(
        "b.ppm", {.channels = 4, .type = UInt16, .bpc = 12, .isRgb = true}, {10, 20, 3000, 4095});
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(valuesIn<quint16>(*words->picBuf()), (std::vector<quint16>{10, 20, 3000}));
}

TEST_F(ImageFile, IntegersOfOtherTypesAreKeptByValue)
{
    const auto png = saved<qint16>("a.png", {.width = 2, .type = Int16, .bpc = 16}, {0, 32767});
    ASSERT_NE(png, nullptr);
    EXPECT_EQ(valuesIn<quint16>(*png->picBuf()), (std::vector<quint16>{0, 32767}));
    const auto words = saved<quint32>("b.png", {.width = 2, .type = UInt32, .bpc = 32}, {3, 65535});
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(valuesIn<quint16>(*words->picBuf()), (std::vector<quint16>{3, 65535}));
    const auto doubles =
        saved<quint32>("c.tif", {.width = 2, .type = UInt32, .bpc = 32}, {3, 0xFFFFFFFF});
    ASSERT_NE(doubles, nullptr);
    EXPECT_EQ(valuesIn<double>(*doubles->picBuf()), (std::vector<double>{3.0, 4294967295.0}));
    const auto ints =
        saved<qint64>("d.tif", {.width = 2, .type = Int64, .bpc = 64}, {-1, 1LL << 52});
    ASSERT_NE(ints, nullptr);
    EXPECT_EQ(valuesIn<double>(*ints->picBuf()), (std::vector<double>{-1.0, 0x1p52}));
    const auto signedColour = saved<qint16>(
        "e.tif", {.channels = 3, .type = Int16, .bpc = 16, .isRgb = true}, {-5, 0, 32767});
    ASSERT_NE(signedColour, nullptr);
    EXPECT_EQ(valuesIn<float>(*signedColour->picBuf()),
              (std::vector<float>{-5.0F, 0.0F, 32767.0F}));
}

TEST_F(ImageFile, PackedPixelsBecomeBytesOfFullScale)
{
    const auto file =
        saved<quint16>("a.png", {.width = 4, .channels = 3, .type = Packed565, .bpc = 8},
                       {0xFFFF, 0xF800, 0x07E0, 0x001F});
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(valuesIn<quint8>(*file->picBuf()),
              (std::vector<quint8>{255, 255, 255, 255, 0, 0, 0, 255, 0, 0, 0, 255}));
}

TEST_F(ImageFile, LongLinesAndColumnsAreKept)
{
    for (const auto& [columns, lines] : {std::pair{65536U, 1U}, {1U, 65536U}, {1U, 1U}}) {
        for (const char* name : {"a.png", "a.tif", "a.bmp", "a.pgm"}) {
            const auto file =
                saved<quint8>(name, {.width = columns, .height = lines}, variedValues<quint8>());
            ASSERT_NE(file, nullptr) << name << qPrintable(LogLines::joined());
            EXPECT_EQ(file->picBuf()->width, columns);
            EXPECT_EQ(file->picBuf()->height, lines);
        }
    }
}

TEST_F(ImageFile, ALoaderReadsAgainOnAnotherThread)
{
    const auto image = newImage({.width = 20, .height = 20});
    fill<quint8>(*image->picBuf(), {1, 2, 3});
    ASSERT_TRUE(save("a.png", *image));
    std::unique_ptr<CxImageData> loaded;
    std::thread([&] { loaded = load("a.png"); }).join();
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(valuesIn<quint8>(*loaded->picBuf()), valuesIn<quint8>(*image->picBuf()));
}

TEST_F(ImageFile, SeveralThreadsMayOpenTheFirstFile)
{
    QFile(path("a.pgm")).open(QIODevice::WriteOnly); // no content: fails after loading the codecs
    std::atomic<int> refused = 0;
    std::array<std::thread, 4> threads;
    for (std::thread& thread : threads)
        thread = std::thread([&] { refused += load("a.pgm") == nullptr ? 1 : 0; });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(refused, 4);
}

} // namespace
