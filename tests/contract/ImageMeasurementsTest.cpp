// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The image object: statistics of rectangles, lines and columns.
#include "PluginTest.h"

namespace {

constexpr char prelude[] = R"(
def made(w, h, channels=1, bpc=8, value=lambda x, y, c: x + 10 * y + 100 * c):
    i = vistrel.Image()
    i.alloc(w, h, channels, bpc)
    for y in range(h):
        for x in range(w):
            for c in range(channels):
                i.set_pixel_value(value(x, y, c), x, y, c)
    return i
def extremes(stats):
    return [(s['min'], s['max']) for s in stats]
i = made(12, 9)
)";

class ImageMeasurements : public PluginTest {
protected:
    /// What an expression that uses the prelude's names prints.
    QString valueOf(const std::string& expression)
    {
        EXPECT_EQ(run((prelude + ("print(" + expression) + ", end='')").c_str()), QString())
            << expression;
        return output;
    }

    QString errorOf(const std::string& statement) { return error((prelude + statement).c_str()); }
};

TEST_F(ImageMeasurements, EmptyObjectsGiveTheInterpretersOwnError)
{
    for (const char* call :
         {"measure_rect()", "measure_row_profiles_in_rect()", "measure_column_profiles_in_rect()"})
        expectSilentNull(("vistrel.Image()." + std::string(call)).c_str());
}

TEST_F(ImageMeasurements, ADictionaryHasItsKeysInOrderAndFloats)
{
    EXPECT_EQ(valueOf("[(k, type(v).__name__) for k, v in i.measure_rect()[0].items()]"),
              QStringLiteral("[('name', 'str'), ('mean', 'float'), ('stdev', 'float'), "
                             "('variance', 'float'), ('rms', 'float'), ('min', 'float'), "
                             "('max', 'float')]"));
}

TEST_F(ImageMeasurements, WithoutArgumentsTheWholePictureIsMeasured)
{
    EXPECT_EQ(valueOf("extremes(i.measure_rect()), i.measure_rect() == "
                      "i.measure_rect(0, 0, 12, 9) == i.measure_rect(0, 0, -5, -2**31)"),
              QStringLiteral("[(0.0, 91.0)] True"));
}

TEST_F(ImageMeasurements, ACornerAloneReachesToTheBottomRight)
{
    EXPECT_EQ(valueOf("extremes(i.measure_rect(10, 7)), extremes(i.measure_rect(10, 7, 1)), "
                      "extremes(i.measure_rect(10, 7, 0, 1))"),
              QStringLiteral("[(80.0, 91.0)] [(80.0, 90.0)] [(80.0, 81.0)]"));
}

TEST_F(ImageMeasurements, NumbersAreThoseOfThePopulation)
{
    EXPECT_EQ(run((std::string(prelude) + R"(
import math, statistics
for image in (i, made(7, 5, 3, 16, lambda x, y, c: 60000 + 3 * x * y + c), made(1, 1)):
    for c, s in enumerate(image.measure_rect()):
        values = [image.get_pixel_value(x, y, c)
                  for y in range(image.height) for x in range(image.width)]
        near = lambda a, b: math.isclose(a, b, rel_tol=1e-9, abs_tol=1e-9)
        assert near(s['mean'], statistics.fmean(values)), s
        assert near(s['stdev'], statistics.pstdev(values)), (s, statistics.pstdev(values))
        assert near(s['rms'], math.sqrt(statistics.fmean([v * v for v in values]))), s
        assert (s['min'], s['max']) == (min(values), max(values)), s
)")
                      .c_str()),
              QString());
}

TEST_F(ImageMeasurements, VarianceIsTheSquareOfTheDeviationEverywhere)
{
    EXPECT_EQ(
        valueOf("all(s['variance'] == s['stdev'] * s['stdev'] for image in (i, made(5, 4, 3)) "
                "for all in (image.measure_rect(), *image.measure_row_profiles_in_rect(), "
                "*image.measure_column_profiles_in_rect()) for s in all)"),
        QStringLiteral("True"));
}

TEST_F(ImageMeasurements, ThereIsADictionaryForEachChannelWithItsName)
{
    EXPECT_EQ(valueOf("[[s['name'] for s in made(3, 2, c).measure_rect()] for c in (1, 3, 4)]"),
              QStringLiteral("[['Mono'], ['Red', 'Green', 'Blue'], "
                             "['Red', 'Green', 'Blue', 'Alpha']]"));
    EXPECT_EQ(valueOf("extremes(made(3, 2, 3, 8, lambda x, y, c: c).measure_rect())"),
              QStringLiteral("[(0.0, 0.0), (1.0, 1.0), (2.0, 2.0)]"));
}

TEST_F(ImageMeasurements, TheFlagTakesTheColourFilterPositionsAsChannels)
{
    run("pass");
    const auto raw = makeImage(4, 4, 1, ExImageDataType::UInt8, 8);
    const auto mono = raw->picBuf()->colorFilterArray;
    plugin->addImageVariable(QStringLiteral("p"), raw.get());
    EXPECT_EQ(value("len(p.measure_rect(0, 0, 0, 0, True))"), QStringLiteral("1"))
        << "a picture without a filter stays one channel";
    raw->picBuf()->colorFilterArray = static_cast<ExColorFilterArray>(static_cast<int>(mono) + 1);
    EXPECT_EQ(value("(len(p.measure_rect()), len(p.measure_rect(0, 0, 0, 0, False)), "
                    "len(p.measure_rect(0, 0, 0, 0, True)) > 1)"),
              QStringLiteral("(1, 1, True)"));
}

TEST_F(ImageMeasurements, RectanglesPartlyOutsideAreClipped)
{
    EXPECT_EQ(valueOf("extremes(i.measure_rect(10, 7, 100, 100)), "
                      "extremes(i.measure_rect(-5, -5, 7, 6)), "
                      "extremes(i.measure_rect(11, 8, 2**31 - 1, 2**31 - 1))"),
              QStringLiteral("[(80.0, 91.0)] [(0.0, 1.0)] [(91.0, 91.0)]"));
}

TEST_F(ImageMeasurements, RectanglesWithoutAPixelCannotBeMeasured)
{
    for (const char* rect :
         {"12, 0", "0, 9", "100, 100", "-10, 0, 5, 5", "0, -10, 5, 5", "2**31 - 1, 2**31 - 1",
          "2**31 - 1, 0, 2**31 - 1, 5", "-2**31, -2**31, 1, 1"}) {
        const std::string text = rect;
        EXPECT_EQ(errorOf("i.measure_rect(" + text + ")"),
                  QStringLiteral("Exception: Cannot measure data"))
            << rect;
        for (const char* what : {"row", "column"})
            EXPECT_EQ(errorOf("i.measure_" + std::string(what) + "_profiles_in_rect(" + text + ")"),
                      QStringLiteral("Exception: Cannot measure profile data"))
                << rect;
    }
}

TEST_F(ImageMeasurements, RowProfilesGoFromTopToBottom)
{
    EXPECT_EQ(valueOf("[extremes(l) for l in i.measure_row_profiles_in_rect(2, 3, 4, 2)]"),
              QStringLiteral("[[(32.0, 35.0)], [(42.0, 45.0)]]"));
    EXPECT_EQ(valueOf("len(i.measure_row_profiles_in_rect()), "
                      "len(i.measure_row_profiles_in_rect(0, 7))"),
              QStringLiteral("9 2"));
}

TEST_F(ImageMeasurements, ColumnProfilesGoFromLeftToRight)
{
    EXPECT_EQ(valueOf("[extremes(l) for l in i.measure_column_profiles_in_rect(2, 3, 2, 4)]"),
              QStringLiteral("[[(32.0, 62.0)], [(33.0, 63.0)]]"));
    EXPECT_EQ(valueOf("len(i.measure_column_profiles_in_rect()), "
                      "len(i.measure_column_profiles_in_rect(10))"),
              QStringLiteral("12 2"));
}

TEST_F(ImageMeasurements, EveryProfileEntryHasAllChannels)
{
    EXPECT_EQ(valueOf("[{tuple(s['name'] for s in l) for l in profiles} for c in (1, 3) "
                      "for profiles in (made(5, 4, c).measure_row_profiles_in_rect(), "
                      "made(5, 4, c).measure_column_profiles_in_rect())]"),
              QStringLiteral("[{('Mono',)}, {('Mono',)}, {('Red', 'Green', 'Blue')}, "
                             "{('Red', 'Green', 'Blue')}]"));
}

TEST_F(ImageMeasurements, ProfilesOfOneLineAreItsRectangle)
{
    EXPECT_EQ(
        valueOf("all(i.measure_row_profiles_in_rect(1, y, 7, 1) == [i.measure_rect(1, y, 7, 1)]"
                " for y in range(9)), "
                "all(i.measure_column_profiles_in_rect(x, 2, 1, 5) == "
                "[i.measure_rect(x, 2, 1, 5)] for x in range(12))"),
        QStringLiteral("True True"));
}

TEST_F(ImageMeasurements, ArgumentsOfAnotherKindAreRefusedByTheInterpreter)
{
    EXPECT_TRUE(errorOf("i.measure_rect('0')").startsWith(QLatin1String("TypeError")));
    EXPECT_TRUE(errorOf("i.measure_rect(2**31)").startsWith(QLatin1String("OverflowError")));
    EXPECT_TRUE(errorOf("i.measure_row_profiles_in_rect(0, 0, 0, 0, True)")
                    .startsWith(QLatin1String("TypeError")));
}

} // namespace
