// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Histograms, extremes and percentiles of pictures of every type.
#include "core/ValueCounts.h"

#include "PixelFixtures.h"

#include <numeric>

namespace vistrel::test {

namespace {

quint64 sumOf(const std::vector<quint64>& counts)
{
    return std::accumulate(counts.begin(), counts.end(), quint64{0});
}

template<class Element>
void setLine(SxPicBuf& buffer, const std::vector<Element>& values)
{
    for (std::size_t i = 0; i < values.size(); ++i)
        setValueAt<Element>(buffer, 0, i, values[i]);
}

Layout lineOf(unsigned width, ExImageDataType type, unsigned bpc, unsigned channels = 1)
{
    return {.width = width, .height = 1, .channels = channels, .type = type, .bpc = bpc};
}

} // namespace

TEST(ValueCounts, HaveABinForEachValueOfTheSignificantBits)
{
    Picture picture(lineOf(5, ExImageDataType::UInt16, 12));
    setLine<quint16>(*picture, {0, 7, 7, 4095, 7});
    const auto counts = countValues(*picture, PixelRect::of(*picture));
    ASSERT_TRUE(counts);
    ASSERT_EQ(counts->bins(), 4096U);
    EXPECT_EQ(counts->channels[0][0], 1U);
    EXPECT_EQ(counts->channels[0][7], 3U);
    EXPECT_EQ(counts->channels[0][4095], 1U);
    EXPECT_EQ(sumOf(counts->channels[0]), 5U);
    EXPECT_EQ(counts->names, QStringList({QStringLiteral("Mono")}));
}

TEST(ValueCounts, GrowForValuesBeyondTheSignificantBits)
{
    Picture picture(lineOf(2, ExImageDataType::UInt16, 12));
    setLine<quint16>(*picture, {1, 5000});
    const auto counts = countValues(*picture, PixelRect::of(*picture));
    ASSERT_EQ(counts->bins(), 5001U);
    EXPECT_EQ(counts->channels[0][5000], 1U);
}

TEST(ValueCounts, OfSignedValuesBeginBelowZero)
{
    Picture picture(lineOf(3, ExImageDataType::Int8, 8));
    setLine<qint8>(*picture, {-128, -1, 127});
    const auto counts = countValues(*picture, PixelRect::of(*picture));
    EXPECT_EQ(counts->bins(), 256U);
    EXPECT_EQ(counts->first, -128.0);
    EXPECT_EQ(counts->channels[0][127], 1U);
    EXPECT_EQ(counts->valueOf(127), -1.0);
}

TEST(ValueCounts, AreKeptForEachChannel)
{
    Picture picture(lineOf(2, ExImageDataType::UInt8, 8, 3));
    picture->isRgb = true;
    setLine<quint8>(*picture, {1, 2, 3, 1, 20, 30});
    const auto counts = countValues(*picture, PixelRect::of(*picture));
    ASSERT_EQ(counts->channels.size(), 3U);
    EXPECT_EQ(counts->channels[0][1], 2U);
    EXPECT_EQ(counts->channels[1][2], 1U);
    EXPECT_EQ(counts->channels[2][30], 1U);
    EXPECT_EQ(counts->names.constFirst(), QStringLiteral("Red"));
}

TEST(ValueCounts, OfARegionLeaveTheRestOut)
{
    Picture picture(
        {.width = 4, .height = 4, .channels = 1, .type = ExImageDataType::UInt8, .bpc = 8});
    setValueAt<quint8>(*picture, 1, 1, 9);
    setValueAt<quint8>(*picture, 3, 3, 9);
    const auto counts = countValues(*picture, PixelRect::ofSize(1, 1, 2, 2));
    EXPECT_EQ(counts->channels[0][9], 1U);
    EXPECT_EQ(sumOf(counts->channels[0]), 4U);
    EXPECT_FALSE(countValues(*picture, PixelRect::ofSize(4, 0, 5, 5)));
}

TEST(ValueCounts, OfWideAndRealValuesLieBetweenTheExtremes)
{
    Picture real(lineOf(4, ExImageDataType::Float, 32));
    setLine<float>(*real, {-1.0F, 1.0F, std::numeric_limits<float>::quiet_NaN(),
                           std::numeric_limits<float>::infinity()});
    auto counts = countValues(*real, PixelRect::of(*real));
    EXPECT_EQ(counts->first, -1.0);
    EXPECT_EQ(counts->channels[0].front(), 1U);
    EXPECT_EQ(counts->channels[0].back(), 1U);
    EXPECT_EQ(sumOf(counts->channels[0]), 2U);

    Picture wide(lineOf(3, ExImageDataType::UInt32, 32));
    setLine<quint32>(*wide, {70000, 70009, 70009});
    counts = countValues(*wide, PixelRect::of(*wide));
    EXPECT_EQ(counts->bins(), 10U);
    EXPECT_EQ(counts->channels[0].back(), 2U);
    EXPECT_EQ(counts->valueOf(9), 70009.0);
}

TEST(ValueCounts, OfTheLargestAndSmallestRealNumbersAreHarmless)
{
    Picture picture(lineOf(2, ExImageDataType::Double, 64));
    setLine<double>(*picture,
                    {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max()});
    EXPECT_EQ(sumOf(countValues(*picture, PixelRect::of(*picture))->channels[0]), 2U);
    setLine<double>(*picture, {std::nan(""), std::nan("")});
    EXPECT_FALSE(countValues(*picture, PixelRect::of(*picture)));
    EXPECT_FALSE(extremesOf(*picture));
    EXPECT_FALSE(percentilesOf(*picture, 0.01));
}

TEST(ValueCounts, HoldEveryPixelOfEveryLayout)
{
    forEachLayout([](const Layout& layout) {
        Picture picture(layout);
        fillRandomly(*picture, 5);
        const auto counts = countValues(*picture, PixelRect::of(*picture));
        ASSERT_TRUE(counts);
        for (const auto& channel : counts->channels)
            EXPECT_EQ(sumOf(channel), quint64{layout.width} * layout.height);
        EXPECT_EQ(counts->names.size(), static_cast<qsizetype>(counts->channels.size()));
        const auto extremes = extremesOf(*picture);
        const auto percentiles = percentilesOf(*picture, 0.1);
        ASSERT_TRUE(extremes && percentiles);
        EXPECT_LE(extremes->black, percentiles->black);
        EXPECT_GE(extremes->white, percentiles->white);
    });
}

TEST(ValueCounts, OfNothingAreNone)
{
    EXPECT_FALSE(countValues(SxPicBuf(), PixelRect::ofSize(0, 0, 1, 1)));
    EXPECT_FALSE(extremesOf(SxPicBuf()));
    EXPECT_FALSE(percentilesOf(SxPicBuf(), 0.1));
}

TEST(Extremes, LeaveAlphaOut)
{
    Picture picture(lineOf(2, ExImageDataType::UInt8, 8, 4));
    setLine<quint8>(*picture, {10, 20, 30, 255, 11, 21, 31, 0});
    EXPECT_EQ(extremesOf(*picture), (ValueRange{10.0, 31.0}));
}

TEST(Percentiles, LeaveAFewExtremeValuesOut)
{
    Picture picture(lineOf(1000, ExImageDataType::UInt16, 16));
    std::vector<quint16> values(1000);
    std::iota(values.begin(), values.end(), quint16{1000});
    values[3] = 0;
    values[500] = 65535;
    setLine<quint16>(*picture, values);
    const auto found = percentilesOf(*picture, 0.01);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->black, 1010.0, 2.0);
    EXPECT_NEAR(found->white, 1990.0, 2.0);
    EXPECT_EQ(extremesOf(*picture), (ValueRange{0.0, 65535.0}));
}

TEST(Percentiles, OfALargePictureAreFoundInSomeOfItsLines)
{
    Picture picture(
        {.width = 2000, .height = 1000, .channels = 1, .type = ExImageDataType::UInt8, .bpc = 8});
    for (std::size_t y = 0; y < 1000; ++y)
        for (std::size_t x = 0; x < 2000; ++x)
            setValueAt<quint8>(*picture, y, x, static_cast<quint8>(50 + x / 20));
    const auto found = percentilesOf(*picture, 0.1);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->black, 60.0, 1.0);
    EXPECT_NEAR(found->white, 139.0, 1.0);
}

} // namespace vistrel::test
