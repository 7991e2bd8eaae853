// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics against a plain two-pass reference in extended precision.
#include "PixelFixtures.h"

#include <CxPicBufMeas.h>

#include <QtCore/QHash>

#include <climits>
#include <cmath>

using namespace vistrel::test;

namespace {

using Stats = CxHistoData::CxPixelStats;

std::unique_ptr<CxImageData> randomImage(const Layout& layout, unsigned seed)
{
    auto image = newImage(layout);
    fillRandomly(*image->picBuf(), seed);
    return image;
}

/// The value of a channel, unpacked where it is packed.
long double channelValue(const SxPicBuf& buffer, std::size_t x, std::size_t y, std::size_t channel)
{
    if (buffer.dataType == ExImageDataType::Packed565) {
        const quint16 word = valueAt<quint16>(buffer, y, x);
        return channel == 0 ? word >> 11 : channel == 1 ? word >> 5 & 63 : word & 31;
    }
    return vistrel::visitElementType(buffer.dataType, [&](auto element) {
        return static_cast<long double>(
            valueAt<decltype(element)>(buffer, y, x * buffer.channels + channel));
    });
}

/// Deviations are taken of distances to the first value, which extended precision holds exactly.
Stats statsOf(const std::vector<long double>& values)
{
    const auto count = static_cast<long double>(values.size());
    long double distances = 0, squares = 0, deviations = 0;
    for (const long double value : values) {
        distances += value - values[0];
        squares += value * value;
    }
    const long double mean = distances / count;
    for (const long double value : values)
        deviations += (value - values[0] - mean) * (value - values[0] - mean);
    const auto [smallest, largest] = std::minmax_element(values.begin(), values.end());
    return {.minimum = static_cast<double>(*smallest),
            .maximum = static_cast<double>(*largest),
            .mean = static_cast<double>(values[0] + mean),
            .standardDeviation = static_cast<double>(std::sqrt(deviations / count)),
            .rootMeanSquare = static_cast<double>(std::sqrt(squares / count))};
}

Stats referenceIn(const SxPicBuf& buffer, const QRect& rect, int channel)
{
    std::vector<long double> values;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            values.push_back(channelValue(buffer, static_cast<std::size_t>(x),
                                          static_cast<std::size_t>(y),
                                          static_cast<std::size_t>(channel)));
    return statsOf(values);
}

/// Relative to the largest value: a mean of values around 0 is no more exact than they are.
void expectSame(const Stats& actual, const Stats& expected)
{
    const double scale = std::max(std::abs(expected.minimum), std::abs(expected.maximum));
    EXPECT_EQ(actual.minimum, expected.minimum);
    EXPECT_EQ(actual.maximum, expected.maximum);
    EXPECT_NEAR(actual.mean, expected.mean, 1e-12 * scale);
    EXPECT_NEAR(actual.standardDeviation, expected.standardDeviation,
                1e-9 * expected.standardDeviation);
    EXPECT_NEAR(actual.rootMeanSquare, expected.rootMeanSquare, 1e-9 * expected.rootMeanSquare);
}

CxHistoData measured(const CxImageData& image, const QRect& rect,
                     CxHistoData::ExHistoDataFlags flags = CxHistoData::Statistics)
{
    CxHistoData result;
    EXPECT_TRUE(CxPicBufMeas::measureHistogram(result, &image, rect, flags));
    EXPECT_EQ(result.channelNames.size(), result.stats.size());
    return result;
}

TEST(Measuring, AgreesWithTheReferenceInEveryTypeAndLayout)
{
    forEachLayout([](const Layout& layout) {
        const auto image = randomImage(layout, 1);
        const QRect rect(1, 1, static_cast<int>(layout.width) - 3, 3);
        const CxHistoData result = measured(*image, rect);
        const bool isPacked = layout.type == ExImageDataType::Packed565;
        ASSERT_EQ(result.stats.size(), isPacked ? 3 : static_cast<int>(layout.channels));
        for (int c = 0; c < result.stats.size(); ++c)
            expectSame(result.stats[c], referenceIn(*image->picBuf(), rect, c));
    });
}

TEST(Measuring, AgreesWithTheReferenceOnLongLinesOfAnyNumberOfChannels)
{
    for (const ExImageDataType type :
         {ExImageDataType::Int8, ExImageDataType::UInt8, ExImageDataType::Int16,
          ExImageDataType::UInt16, ExImageDataType::Float}) {
        for (unsigned channels = 1; channels <= 9; ++channels) {
            const Layout layout{.width = 301, .height = 4, .channels = channels, .type = type};
            const auto image = randomImage(layout, channels);
            const QRect rect(1, 1, 299, 3);
            const CxHistoData result = measured(*image, rect);
            CxProfileData rows;
            ASSERT_TRUE(
                CxPicBufMeas::measureRowsColumnsProfileStats(true, rows, image.get(), rect));
            for (int c = 0; c < static_cast<int>(channels); ++c) {
                expectSame(result.stats[c], referenceIn(*image->picBuf(), rect, c));
                expectSame(rows.stats[c][2], referenceIn(*image->picBuf(), QRect(1, 3, 299, 1), c));
            }
        }
    }
}

TEST(Measuring, ProfilesAgreeWithTheReferenceInEveryTypeAndLayout)
{
    forEachLayout([](const Layout& layout) {
        const auto image = randomImage(layout, 2);
        const QRect rect(2, 1, static_cast<int>(layout.width) - 3, 4);
        for (const bool rows : {true, false}) {
            CxProfileData result;
            ASSERT_TRUE(
                CxPicBufMeas::measureRowsColumnsProfileStats(rows, result, image.get(), rect));
            ASSERT_EQ(result.stats.size(), result.channelNames.size());
            for (int c = 0; c < result.stats.size(); ++c) {
                ASSERT_EQ(result.stats[c].size(), rows ? rect.height() : rect.width());
                for (int i = 0; i < result.stats[c].size(); ++i) {
                    const QRect line = rows ? QRect(rect.left(), rect.top() + i, rect.width(), 1)
                                            : QRect(rect.left() + i, rect.top(), 1, rect.height());
                    expectSame(result.stats[c][i], referenceIn(*image->picBuf(), line, c));
                }
            }
        }
    });
}

template<class Element>
void expectExactFarFromZero(ExImageDataType type, Element base)
{
    const auto image = newImage({.width = 1501, .height = 40, .type = type});
    std::mt19937 random(3);
    forEachValue<Element>(*image->picBuf(), [&](Element& value) {
        value = static_cast<Element>(base + static_cast<Element>(random() % 16));
    });
    const QRect whole(0, 0, 1501, 40);
    expectSame(measured(*image, whole).stats[0], referenceIn(*image->picBuf(), whole, 0));
    CxProfileData columns;
    ASSERT_TRUE(CxPicBufMeas::measureRowsColumnsProfileStats(false, columns, image.get(), whole));
    expectSame(columns.stats[0][1500], referenceIn(*image->picBuf(), QRect(1500, 0, 1, 40), 0));
}

TEST(Measuring, KeepsSmallDeviationsFarFromZero)
{
    expectExactFarFromZero<quint16>(ExImageDataType::UInt16, 65500);
    expectExactFarFromZero<qint16>(ExImageDataType::Int16, -32768);
    expectExactFarFromZero<quint32>(ExImageDataType::UInt32, 4294967000U);
    expectExactFarFromZero<qint32>(ExImageDataType::Int32, -2147483648);
    expectExactFarFromZero<qint64>(ExImageDataType::Int64, -(qint64{1} << 62));
    expectExactFarFromZero<quint64>(ExImageDataType::UInt64, quint64{1} << 63);
    expectExactFarFromZero<float>(ExImageDataType::Float, 1e7F);
    expectExactFarFromZero<double>(ExImageDataType::Double, 1e12);
}

TEST(Measuring, SumsOfManyLargeValuesDoNotOverflow)
{
    const auto bytes = newImage({.width = 70001, .height = 3});
    fill<quint8>(*bytes->picBuf(), {255});
    expectSame(measured(*bytes, QRect(0, 0, 70001, 3)).stats[0], {255, 255, 255, 0, 255});
    const auto words = newImage({.width = 70001, .height = 3, .type = ExImageDataType::UInt16});
    fill<quint16>(*words->picBuf(), {65535});
    expectSame(measured(*words, QRect(0, 0, 70001, 3)).stats[0], {65535, 65535, 65535, 0, 65535});
    // Pixels of three channels are added up side by side, 16 bytes or 8 words at once.
    const QRect wide(0, 0, 70001, 50);
    const auto byteColors = newImage({.width = 70001, .height = 50, .channels = 3});
    fill<quint8>(*byteColors->picBuf(), {255});
    expectSame(measured(*byteColors, wide).stats[2], {255, 255, 255, 0, 255});
    const auto wordColors =
        newImage({.width = 70001, .height = 50, .channels = 3, .type = ExImageDataType::UInt16});
    fill<quint16>(*wordColors->picBuf(), {65535});
    expectSame(measured(*wordColors, wide).stats[2], {65535, 65535, 65535, 0, 65535});
    const auto high = newImage({.width = 2, .height = 70001});
    fill<quint8>(*high->picBuf(), {255});
    CxProfileData columns;
    ASSERT_TRUE(CxPicBufMeas::measureRowsColumnsProfileStats(false, columns, high.get(),
                                                             QRect(0, 0, 2, 70001)));
    expectSame(columns.stats[0][1], {255, 255, 255, 0, 255});
}

TEST(Measuring, ClipsTheRectangleToTheImage)
{
    const auto image = randomImage({.width = 9, .height = 7}, 4);
    const Stats corner = referenceIn(*image->picBuf(), QRect(5, 4, 4, 3), 0);
    expectSame(measured(*image, QRect(5, 4, 100, 100)).stats[0], corner);
    expectSame(measured(*image, QRect(QPoint(5, 4), QPoint(INT_MAX, INT_MAX))).stats[0], corner);
    expectSame(measured(*image, QRect(QPoint(INT_MIN, INT_MIN), QPoint(1, 1))).stats[0],
               referenceIn(*image->picBuf(), QRect(0, 0, 2, 2), 0));
}

TEST(Measuring, FailsWhereNoPixelIsLeftAndKeepsTheOldResult)
{
    const auto image = randomImage({.width = 9, .height = 7}, 5);
    CxHistoData result;
    result.channelNames << QStringLiteral("old");
    CxProfileData profile;
    const CxImageData empty;
    for (const QRect& rect :
         {QRect(9, 0, 1, 1), QRect(0, -5, 9, 5), QRect(3, 3, 0, 2), QRect(3, 3, -2, -2),
          QRect(QPoint(INT_MAX, INT_MAX), QPoint(INT_MIN, INT_MIN))}) {
        EXPECT_FALSE(
            CxPicBufMeas::measureHistogram(result, image.get(), rect, CxHistoData::Statistics));
        EXPECT_FALSE(
            CxPicBufMeas::measureRowsColumnsProfileStats(true, profile, image.get(), rect));
    }
    const QRect pixel(0, 0, 1, 1);
    EXPECT_FALSE(CxPicBufMeas::measureHistogram(result, &empty, pixel, CxHistoData::Statistics));
    EXPECT_FALSE(CxPicBufMeas::measureHistogram(result, nullptr, pixel, CxHistoData::Statistics));
    EXPECT_FALSE(CxPicBufMeas::measureRowsColumnsProfileStats(false, profile, &empty, pixel));
    EXPECT_EQ(result.channelNames, QList<QString>{QStringLiteral("old")});
}

QString namesOf(const Layout& layout)
{
    return measured(*newImage(layout), QRect(0, 0, 1, 1)).channelNames.join(QLatin1Char(' '));
}

TEST(Measuring, NamesTheChannelsByTheirLayout)
{
    EXPECT_EQ(namesOf({.channels = 1}), QStringLiteral("Mono"));
    EXPECT_EQ(namesOf({.channels = 2}), QStringLiteral("Channel 1 Channel 2"));
    EXPECT_EQ(namesOf({.channels = 3, .isRgb = true}), QStringLiteral("Red Green Blue"));
    EXPECT_EQ(namesOf({.channels = 3}), QStringLiteral("Blue Green Red"));
    EXPECT_EQ(namesOf({.channels = 4, .isRgb = true}), QStringLiteral("Red Green Blue Alpha"));
    EXPECT_EQ(namesOf({.channels = 4}), QStringLiteral("Blue Green Red Alpha"));
    EXPECT_EQ(namesOf({.channels = 5}),
              QStringLiteral("Channel 1 Channel 2 Channel 3 Channel 4 Channel 5"));
    EXPECT_EQ(namesOf({.channels = 1, .type = ExImageDataType::Packed565}),
              QStringLiteral("Red Green Blue"));
}

/// Raw data whose colours are 10, 21, 22 and 30 in the order red, green 1, green 2, blue.
std::unique_ptr<CxImageData> rawImage(ExColorFilterArray pattern, const std::array<int, 4>& values)
{
    auto image = newImage({.width = 5, .height = 5, .type = ExImageDataType::UInt16});
    image->picBuf()->colorFilterArray = pattern;
    for (std::size_t i = 0; i < 25; ++i)
        setValueAt(*image->picBuf(), i / 5, i % 5,
                   static_cast<quint16>(values[i / 5 % 2 * 2 + i % 5 % 2]));
    return image;
}

TEST(Measuring, SplitsRawDataIntoTheColorsOfItsFilter)
{
    const std::vector<std::pair<ExColorFilterArray, std::array<int, 4>>> patterns{
        {ExColorFilterArray::RGGB, {10, 21, 22, 30}},
        {ExColorFilterArray::GRBG, {21, 10, 30, 22}},
        {ExColorFilterArray::GBRG, {21, 30, 10, 22}},
        {ExColorFilterArray::BGGR, {30, 21, 22, 10}}};
    const QHash<QString, double> values{{QStringLiteral("Red"), 10},
                                        {QStringLiteral("Green 1"), 21},
                                        {QStringLiteral("Green 2"), 22},
                                        {QStringLiteral("Blue"), 30}};
    for (const auto& [pattern, positions] : patterns) {
        const auto image = rawImage(pattern, positions);
        for (const QRect& rect : {QRect(0, 0, 5, 5), QRect(1, 1, 4, 3), QRect(1, 2, 2, 2)}) {
            const CxHistoData result =
                measured(*image, rect, CxHistoData::Statistics | CxHistoData::SplitRawColors);
            ASSERT_EQ(result.stats.size(), 4);
            for (int i = 0; i < 4; ++i) {
                EXPECT_EQ(result.stats[i].mean, positions[static_cast<std::size_t>(i)]);
                EXPECT_EQ(result.stats[i].mean, values[result.channelNames[i]]);
                EXPECT_EQ(result.stats[i].standardDeviation, 0.0);
            }
        }
    }
}

/// The values of a rectangle at one of the four positions of a filter.
std::vector<long double> valuesAt(std::size_t position, const SxPicBuf& buffer, const QRect& rect)
{
    std::vector<long double> values;
    for (auto y = static_cast<std::size_t>(rect.top()); y <= std::size_t(rect.bottom()); ++y)
        for (auto x = static_cast<std::size_t>(rect.left()); x <= std::size_t(rect.right()); ++x)
            if (y % 2 * 2 + x % 2 == position)
                values.push_back(channelValue(buffer, x, y, 0));
    return values;
}

TEST(Measuring, SplitsLongLinesOfRawDataOfAnyType)
{
    for (const ExImageDataType type :
         {ExImageDataType::UInt8, ExImageDataType::UInt16, ExImageDataType::Float}) {
        const auto image = randomImage({.width = 203, .height = 6, .type = type}, 7);
        image->picBuf()->colorFilterArray = ExColorFilterArray::RGGB;
        for (const QRect& rect : {QRect(0, 0, 203, 6), QRect(1, 1, 200, 5), QRect(2, 1, 199, 4)}) {
            const CxHistoData result =
                measured(*image, rect, CxHistoData::Statistics | CxHistoData::SplitRawColors);
            ASSERT_EQ(result.stats.size(), 4);
            for (int position = 0; position < 4; ++position)
                expectSame(result.stats[position],
                           statsOf(valuesAt(std::size_t(position), *image->picBuf(), rect)));
        }
    }
}

TEST(Measuring, SplittingLeavesOutColorsWithoutAPixel)
{
    const auto image = rawImage(ExColorFilterArray::RGGB, {10, 21, 22, 30});
    const auto flags = CxHistoData::Statistics | CxHistoData::SplitRawColors;
    const CxHistoData result = measured(*image, QRect(1, 1, 1, 1), flags);
    EXPECT_EQ(result.channelNames, QList<QString>{QStringLiteral("Blue")});
    EXPECT_EQ(result.stats[0].mean, 30.0);
    EXPECT_EQ(measured(*newImage({.width = 2, .height = 2}), QRect(0, 0, 2, 2), flags).channelNames,
              QList<QString>{QStringLiteral("Mono")});
}

TEST(Measuring, IgnoresWhatIsNoNumberForTheExtremesAndShowsItInTheMean)
{
    const auto image = newImage({.width = 3, .height = 1, .type = ExImageDataType::Float});
    fill<float>(*image->picBuf(), {1.0F, std::nanf(""), 3.0F});
    const Stats some = measured(*image, QRect(0, 0, 3, 1)).stats[0];
    EXPECT_EQ(some.minimum, 1.0);
    EXPECT_EQ(some.maximum, 3.0);
    EXPECT_TRUE(std::isnan(some.mean));
    EXPECT_TRUE(std::isnan(measured(*image, QRect(1, 0, 1, 1)).stats[0].minimum));
}

} // namespace
