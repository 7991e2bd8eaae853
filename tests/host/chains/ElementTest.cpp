// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What each processing element does to a picture.
#include "ChainFixtures.h"

#include <opencv2/imgproc.hpp>

using namespace vistrel;
using namespace vistrel::test;

namespace {

using Bytes = std::vector<quint8>;

/// What an element makes of a picture.
Bytes processed(const char* name, Attributes attributes, const std::unique_ptr<CxImageData>& image)
{
    newElement(name, attributes)->process(*image);
    return valuesIn<quint8>(*image->picBuf());
}

} // namespace

TEST(Flip, MirrorsInEachDirection)
{
    const Bytes values{1, 2, 3, 4, 5, 6};
    EXPECT_EQ(processed("Flip", {}, grey(3, 2, values)), Bytes({3, 2, 1, 6, 5, 4}));
    EXPECT_EQ(processed("Flip", {{"direction", "vertical"}}, grey(3, 2, values)),
              Bytes({4, 5, 6, 1, 2, 3}));
    EXPECT_EQ(processed("Flip", {{"direction", "both"}}, grey(3, 2, values)),
              Bytes({6, 5, 4, 3, 2, 1}));
}

TEST(Rotate, TurnsClockwiseByQuarters)
{
    const Bytes values{1, 2, 3, 4, 5, 6};
    const auto turned = grey(3, 2, values);
    EXPECT_EQ(processed("Rotate", {}, turned), Bytes({4, 1, 5, 2, 6, 3}));
    EXPECT_EQ(turned->picBuf()->width, 2U);
    EXPECT_EQ(turned->picBuf()->height, 3U);
    EXPECT_EQ(processed("Rotate", {{"angle", "180"}}, grey(3, 2, values)),
              Bytes({6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(processed("Rotate", {{"angle", "270"}}, grey(3, 2, values)),
              Bytes({3, 6, 2, 5, 1, 4}));
}

TEST(Rotate, FourQuartersBringPixelsOfEveryKindBack)
{
    forEachLayout([](const Layout& layout) {
        auto image = newImage(layout);
        fillRandomly(*image->picBuf(), 1);
        const std::unique_ptr<QObject> copy(image->clone(0, 0));
        SxPicBuf& original = *qobject_cast<CxImageData*>(copy.get())->picBuf();
        const auto rotate = newElement("Rotate");
        rotate->process(*image);
        EXPECT_EQ(image->picBuf()->width, layout.height);
        for (int i = 0; i < 3; ++i)
            rotate->process(*image);
        visitElementType(layout.type, [&](auto element) {
            using Element = decltype(element);
            EXPECT_EQ(valuesIn<Element>(*image->picBuf()).size(),
                      valuesIn<Element>(original).size());
            EXPECT_EQ(std::memcmp(valuesIn<Element>(*image->picBuf()).data(),
                                  valuesIn<Element>(original).data(),
                                  valuesIn<Element>(original).size() * sizeof(Element)),
                      0);
        });
    });
}

TEST(PixelMoves, TakeAsManyChannelsAsOpenCvAndPassOthersOn)
{
    for (const char* const name : {"Flip", "Rotate"}) {
        for (const unsigned channels : {512U, 513U, 2048U, 2052U}) {
            const LogLines log;
            auto image = newImage({.width = 2, .height = 2, .channels = channels});
            fillRandomly(*image->picBuf(), 1);
            const Bytes before = valuesIn<quint8>(*image->picBuf());
            const auto element = newElement(name);
            element->process(*image);
            const bool isMoved = valuesIn<quint8>(*image->picBuf()) != before;
            EXPECT_EQ(isMoved, LogLines::lines().isEmpty()) << name << channels;
            EXPECT_EQ(isMoved, channels % 512 == 0) << name << channels;
            for (int i = 0; i < 3; ++i)
                element->process(*image);
            EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), before) << name << channels;
        }
    }
}

TEST(Flip, TakesAColourFiltersPatternAlong)
{
    using Cfa = ExColorFilterArray;
    const auto flipped = [](const char* direction, unsigned width) {
        auto image = newImage({.width = width, .height = 4});
        image->picBuf()->colorFilterArray = Cfa::RGGB;
        newElement("Flip", {{"direction", direction}})->process(*image);
        return image->picBuf()->colorFilterArray;
    };
    EXPECT_EQ(flipped("horizontal", 4), Cfa::GRBG);
    EXPECT_EQ(flipped("horizontal", 5), Cfa::RGGB);
    EXPECT_EQ(flipped("vertical", 4), Cfa::GBRG);
    EXPECT_EQ(flipped("both", 4), Cfa::BGGR);
}

TEST(Rotate, TakesAColourFiltersPatternAlong)
{
    using Cfa = ExColorFilterArray;
    const auto turned = [](const char* angle) {
        auto image = newImage({.width = 4, .height = 6});
        image->picBuf()->colorFilterArray = Cfa::RGGB;
        newElement("Rotate", {{"angle", angle}})->process(*image);
        return image->picBuf()->colorFilterArray;
    };
    // R G    G R    B G    G B
    // G B    B G    G R    R G
    EXPECT_EQ(turned("90"), Cfa::GRBG);
    EXPECT_EQ(turned("180"), Cfa::BGGR);
    EXPECT_EQ(turned("270"), Cfa::GBRG);
}

TEST(Threshold, MakesValuesAboveTheLevelWhite)
{
    EXPECT_EQ(processed("Threshold", {{"level", "100"}}, grey(3, 1, {99, 100, 101})),
              Bytes({0, 0, 255}));
    EXPECT_EQ(
        processed("Threshold", {{"level", "100"}, {"invert", "1"}}, grey(3, 1, {99, 100, 101})),
        Bytes({255, 255, 0}));
}

TEST(Threshold, TakesHalfOfWhiteByDefault)
{
    EXPECT_EQ(processed("Threshold", {}, grey(2, 1, {127, 128})), Bytes({0, 255}));
    auto deep =
        imageOf<quint16>({.width = 2, .type = ExImageDataType::UInt16, .bpc = 12}, {2047, 2048});
    newElement("Threshold")->process(*deep);
    EXPECT_EQ(valuesIn<quint16>(*deep->picBuf()), std::vector<quint16>({0, 4095}));
}

TEST(Threshold, FindsALevelByItself)
{
    EXPECT_EQ(processed("Threshold", {{"automatic", "1"}}, grey(4, 1, {10, 12, 50, 52})),
              Bytes({0, 0, 255, 255}));
    auto deep = imageOf<quint16>({.width = 4, .type = ExImageDataType::UInt16, .bpc = 16},
                                 {1000, 1200, 5000, 5200});
    newElement("Threshold", {{"automatic", "1"}})->process(*deep);
    EXPECT_EQ(valuesIn<quint16>(*deep->picBuf()), std::vector<quint16>({0, 0, 65535, 65535}));
}

TEST(Gamma, KeepsBlackAndWhiteAndLightensBetween)
{
    EXPECT_EQ(processed("Gamma", {{"gamma", "2"}}, grey(3, 1, {0, 64, 255})), Bytes({0, 128, 255}));
    auto deep =
        imageOf<quint16>({.width = 3, .type = ExImageDataType::UInt16, .bpc = 12}, {0, 1024, 4095});
    newElement("Gamma", {{"gamma", "2"}})->process(*deep);
    EXPECT_EQ(valuesIn<quint16>(*deep->picBuf()), std::vector<quint16>({0, 2048, 4095}));
    auto real =
        imageOf<float>({.width = 2, .type = ExImageDataType::Float, .bpc = 32}, {0.25F, 1.0F});
    newElement("Gamma", {{"gamma", "2"}})->process(*real);
    EXPECT_EQ(valuesIn<float>(*real->picBuf()), std::vector<float>({0.5F, 1.0F}));
}

TEST(Gamma, FollowsANewSettingAndAnotherDepth)
{
    const auto gamma = newElement("Gamma", {{"gamma", "2"}});
    auto image = grey(1, 1, {64});
    gamma->process(*image);
    EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), Bytes({128}));
    gamma->configure(confOf({{"gamma", "1"}}));
    gamma->process(*image);
    EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), Bytes({128}));
}

TEST(Median, TakesSingleWrongPixelsOut)
{
    EXPECT_EQ(processed("Median", {}, grey(3, 3, {5, 5, 5, 5, 200, 5, 5, 5, 5})), Bytes(9, 5));
    auto deep =
        imageOf<quint16>({.width = 3, .height = 3, .type = ExImageDataType::UInt16, .bpc = 12},
                         {5, 5, 5, 5, 4000, 5, 5, 5, 5});
    newElement("Median")->process(*deep);
    EXPECT_EQ(valuesIn<quint16>(*deep->picBuf()), std::vector<quint16>(9, 5));
}

TEST(GaussianBlur, DoesWhatOpenCvDoes)
{
    Layout layout{
        .width = 40, .height = 30, .channels = 3, .type = ExImageDataType::UInt16, .bpc = 12};
    auto image = newImage(layout);
    fillRandomly(*image->picBuf(), 2);
    auto values = valuesIn<quint16>(*image->picBuf());
    const cv::Mat source(30, 40, CV_16UC3, values.data());
    cv::Mat expected;
    cv::GaussianBlur(source, expected, cv::Size(7, 7), 2.0, 2.0);
    newElement("Gaussian Blur", {{"sigma", "2"}, {"radius", "3"}})->process(*image);
    const auto result = valuesIn<quint16>(*image->picBuf());
    EXPECT_EQ(std::memcmp(result.data(), expected.data, result.size() * sizeof(quint16)), 0);
}

TEST(AFilter, KeepsTheColoursOfRawDataApart)
{
    // One colour is bright: no other may take anything of it.
    for (const char* const name : {"Gaussian Blur", "Median"}) {
        auto image = newImage({.width = 16, .height = 16});
        image->picBuf()->colorFilterArray = ExColorFilterArray::RGGB;
        for (std::size_t y = 0; y < 16; y += 2)
            for (std::size_t x = 0; x < 16; x += 2)
                setValueAt<quint8>(*image->picBuf(), y, x, 200);
        const auto before = valuesIn<quint8>(*image->picBuf());
        newElement(name)->process(*image);
        EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), before) << name;
    }
}

TEST(AFilter, SmoothsWithinAColourOfRawData)
{
    auto image = newImage({.width = 16, .height = 16});
    image->picBuf()->colorFilterArray = ExColorFilterArray::RGGB;
    setValueAt<quint8>(*image->picBuf(), 8, 8, 255);
    newElement("Gaussian Blur")->process(*image);
    EXPECT_LT(valueAt<quint8>(*image->picBuf(), 8, 8), 255);
    EXPECT_GT(valueAt<quint8>(*image->picBuf(), 8, 10), 0);
    EXPECT_EQ(valueAt<quint8>(*image->picBuf(), 8, 9), 0);
}

TEST(AFilter, TakesRawDataOfOddSizes)
{
    for (unsigned width = 1; width <= 5; ++width) {
        for (unsigned height = 1; height <= 5; ++height) {
            auto image = newImage({.width = width, .height = height});
            image->picBuf()->colorFilterArray = ExColorFilterArray::BGGR;
            fill<quint8>(*image->picBuf(), {77});
            newElement("Gaussian Blur")->process(*image);
            EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), Bytes(width * height, 77));
        }
    }
}

TEST(BackgroundSubtraction, ShowsWhatDiffersFromTheFirstFrame)
{
    const auto element = newElement("Background Subtraction", {{"rate", "0"}});
    auto first = grey(2, 1, {10, 200});
    element->process(*first);
    EXPECT_EQ(valuesIn<quint8>(*first->picBuf()), Bytes({0, 0}));
    auto second = grey(2, 1, {30, 150});
    element->process(*second);
    EXPECT_EQ(valuesIn<quint8>(*second->picBuf()), Bytes({20, 50}));
}

TEST(BackgroundSubtraction, ShowsWhatIsBrighterOrDarkerAlone)
{
    for (const auto& [difference, expected] :
         {std::pair("brighter", Bytes({20, 0})), std::pair("darker", Bytes({0, 50}))}) {
        const auto element =
            newElement("Background Subtraction", {{"rate", "0"}, {"difference", difference}});
        element->process(*grey(2, 1, {10, 200}));
        auto second = grey(2, 1, {30, 150});
        element->process(*second);
        EXPECT_EQ(valuesIn<quint8>(*second->picBuf()), expected);
    }
}

TEST(BackgroundSubtraction, FollowsTheFrames)
{
    const auto element = newElement("Background Subtraction", {{"rate", "0.5"}});
    element->process(*grey(1, 1, {0}));
    element->process(*grey(1, 1, {100})); // the background is 50 now
    auto third = grey(1, 1, {100});
    element->process(*third);
    EXPECT_EQ(valuesIn<quint8>(*third->picBuf()), Bytes({50}));
}

TEST(FrameAverage, IsTheMeanOfTheFramesSoFar)
{
    const auto element = newElement("Frame Average", {{"frames", "3"}});
    const std::vector<std::pair<quint8, quint8>> frames{{10, 10}, {20, 15}, {60, 30}, {90, 50}};
    for (const auto& [value, mean] : frames) {
        auto image = grey(1, 1, {value});
        element->process(*image);
        EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), Bytes({mean}));
    }
}

TEST(AnElementThatLooksBack, BeginsAnewWithAnotherSizeTypeOrSetting)
{
    const auto element = newElement("Frame Average");
    element->process(*grey(1, 1, {200}));
    auto wider = grey(2, 1, {10, 20});
    element->process(*wider);
    EXPECT_EQ(valuesIn<quint8>(*wider->picBuf()), Bytes({10, 20}));
    auto deeper =
        imageOf<quint16>({.width = 2, .type = ExImageDataType::UInt16, .bpc = 16}, {3000, 4000});
    element->process(*deeper);
    EXPECT_EQ(valuesIn<quint16>(*deeper->picBuf()), std::vector<quint16>({3000, 4000}));
    element->configure(confOf({}));
    auto again = imageOf<quint16>({.width = 2, .type = ExImageDataType::UInt16, .bpc = 16}, {1, 2});
    element->process(*again);
    EXPECT_EQ(valuesIn<quint16>(*again->picBuf()), std::vector<quint16>({1, 2}));
}

TEST(AnElementThatLooksBack, TellsColourFromThriceTheWidth)
{
    const auto average = newElement("Frame Average");
    const auto subtraction = newElement("Background Subtraction");
    const Layout colour{.width = 1, .channels = 3, .isRgb = true};
    for (const auto& element : {average.get(), subtraction.get()})
        element->process(*imageOf<quint8>(colour, {200, 200, 200}));
    auto averaged = grey(3, 1, {10, 20, 30});
    average->process(*averaged);
    EXPECT_EQ(valuesIn<quint8>(*averaged->picBuf()), Bytes({10, 20, 30}));
    auto subtracted = grey(3, 1, {10, 20, 30});
    subtraction->process(*subtracted);
    EXPECT_EQ(valuesIn<quint8>(*subtracted->picBuf()), Bytes({0, 0, 0}));
}

TEST(EveryElement, KeepsDepthAndNumbersOfTheFrame)
{
    for (const char* const name : {"Gaussian Blur", "Flip", "Rotate", "Threshold", "Gamma",
                                   "Median", "Background Subtraction", "Frame Average"}) {
        auto image = newImage({.width = 6,
                               .height = 4,
                               .channels = 3,
                               .type = ExImageDataType::UInt16,
                               .bpc = 12,
                               .isRgb = true});
        fill<quint16>(*image->picBuf(), {100, 2000, 4000});
        SxPicBuf& buffer = *image->picBuf();
        buffer.frameNumber = 5;
        buffer.acqFrameNumber = 6;
        buffer.timestampUs = 7;
        newElement(name)->process(*image);
        const SxPicBuf& result = *image->picBuf();
        EXPECT_EQ(result.dataType, ExImageDataType::UInt16) << name;
        EXPECT_EQ(result.bpc, 12U) << name;
        EXPECT_EQ(result.channels, 3U) << name;
        EXPECT_TRUE(result.isRgb) << name;
        EXPECT_EQ(result.frameNumber, 5) << name;
        EXPECT_EQ(result.acqFrameNumber, 6) << name;
        EXPECT_EQ(result.timestampUs, 7) << name;
        EXPECT_TRUE(CxPicBufAPI::CheckPicValidData(result)) << name;
    }
}

TEST(EveryElement, TakesPicturesOfEveryKindOrPassesThemOnWithOneLine)
{
    for (const char* const name : {"Gaussian Blur", "Flip", "Rotate", "Threshold", "Gamma",
                                   "Median", "Background Subtraction", "Frame Average"}) {
        forEachLayout([name](const Layout& layout) {
            const LogLines log;
            const auto element = newElement(name);
            for (int i = 0; i < 3; ++i) {
                auto image = newImage(layout);
                fillRandomly(*image->picBuf(), 3);
                const QByteArray before(reinterpret_cast<const char*>(image->picBuf()->data),
                                        static_cast<qsizetype>(image->picBuf()->dataSize()));
                element->process(*image);
                EXPECT_EQ(image->picBuf()->dataType, layout.type) << name;
                if (LogLines::lines().isEmpty())
                    continue;
                EXPECT_EQ(LogLines::lines().size(), 1) << qPrintable(LogLines::joined());
                EXPECT_TRUE(LogLines::joined().contains(QLatin1String(name)));
                EXPECT_EQ(before, QByteArray(reinterpret_cast<const char*>(image->picBuf()->data),
                                             before.size()))
                    << name;
            }
        });
    }
}

TEST(EveryElement, WorksOnIntegersThatOpenCvHasNoTypeFor)
{
    auto image = imageOf<quint32>({.width = 3, .type = ExImageDataType::UInt32, .bpc = 32},
                                  {4000000000U, 1, 4000000000U});
    newElement("Median")->process(*image); // more than a float holds
    EXPECT_EQ(valuesIn<quint32>(*image->picBuf())[1], 1U);
    newElement("Gaussian Blur")->process(*image);
    EXPECT_GT(valuesIn<quint32>(*image->picBuf())[1], 1000000000U);
    fill<quint32>(*image->picBuf(), {4000000000U, 1, 4000000000U});
    newElement("Threshold")->process(*image);
    EXPECT_EQ(valuesIn<quint32>(*image->picBuf()),
              std::vector<quint32>({4294967295U, 0, 4294967295U}));
}

TEST(AnElement, WithoutMemoryPassesThePictureOn)
{
    const LogLines log;
    auto image = grey(3, 1, {1, 2, 3});
    const auto flip = newElement("Flip");
    {
        const NoPictureMemory none;
        flip->process(*image);
    }
    EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), Bytes({1, 2, 3}));
    EXPECT_EQ(LogLines::joined(),
              QStringLiteral("Flip passes pictures on as they are: out of memory"));
    flip->process(*image);
    EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), Bytes({3, 2, 1}));
}

TEST(AnElement, ThatIsOffOrHasNoPixelsChangesNothing)
{
    const auto flip = newElement("Flip");
    flip->setEnabled(false);
    auto image = grey(3, 1, {1, 2, 3});
    flip->process(*image);
    EXPECT_EQ(valuesIn<quint8>(*image->picBuf()), Bytes({1, 2, 3}));
    flip->setEnabled(true);
    CxImageData empty;
    flip->process(empty);
    EXPECT_EQ(empty.picBuf()->data, nullptr);
}
