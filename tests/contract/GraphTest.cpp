// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The graph object: series, points, ranges, colours, as far as a script and a reader can see them.
#include "GraphFixture.h"

using testing::_;

namespace {

class GraphObject : public GraphTest {};

TEST_F(GraphObject, MethodsStandInTheOrderOfTheTable)
{
    EXPECT_EQ(value("' '.join(n for n in vars(vistrel.Graph) if not n.startswith('__'))"),
              QStringLiteral(
                  "add_series series_add_point series_set_line_color get_series_count "
                  "set_x_axis_range set_x_axis_range_auto set_y_axis_range set_y_axis_range_auto "
                  "set_background_color set_axes_color set_grid_color set_dark_color_theme "
                  "draw_into_image copy_series_data_to_clipboard"));
}

TEST_F(GraphObject, HelpOfItsMethodsIsAskedForUnderItsHostName)
{
    EXPECT_CALL(environment, methodHelp(_, _)).Times(testing::AnyNumber());
    EXPECT_CALL(environment, methodHelp(testing::StrEq("graphObj"), _)).Times(14);
    run("pass");
}

TEST_F(GraphObject, HasNoSeriesWhenFresh)
{
    EXPECT_EQ(after("", "g.get_series_count()"), QStringLiteral("0"));
    EXPECT_EQ(value("vistrel.Graph(1, key='x').get_series_count()"), QStringLiteral("0"));
}

TEST_F(GraphObject, SeriesAreCountedFromZero)
{
    EXPECT_EQ(after("", "[g.add_series() for _ in range(13)], g.get_series_count()"),
              QStringLiteral("[0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12] 13"));
}

TEST_F(GraphObject, TheFirstSeriesIsRedTheSecondBlueAndTheThirteenthRedAgain)
{
    const std::string filled = "; g.series_add_point(s, 0, 0); g.series_add_point(s, 9, 9)\n";
    const ChartPicture first = draw("s = g.add_series()" + filled);
    EXPECT_GT(first.count(Qt::red), 100);
    const ChartPicture second = draw("g.add_series(); s = g.add_series()" + filled);
    EXPECT_EQ(second.count(Qt::red), 0);
    EXPECT_GT(second.count(Qt::blue), 100);
    const ChartPicture last = draw("for _ in range(13): s = g.add_series()\n" + filled.substr(2));
    EXPECT_GT(last.count(Qt::red), 100);
}

TEST_F(GraphObject, TheTurnOfColorsBelongsToTheGraphNotToTheProcess)
{
    EXPECT_GT(
        draw("h = vistrel.Graph(); h.add_series()\n" + series("(0, 0), (9, 9)")).count(Qt::red),
        100);
}

TEST_F(GraphObject, APointOfASeriesThatIsNotThereChangesNothing)
{
    const char* const two = "g.add_series(); g.add_series()";
    EXPECT_EQ(after(two, "g.series_add_point(5, 1.0, 2.0), g.series_add_point(-1, 1.0, 2.0), "
                         "g.series_add_point(2, 1, 2), g.get_series_count()"),
              QStringLiteral("None None None 2"));
    const QImage without = draw(two).image();
    EXPECT_EQ(draw(two + std::string("\ng.series_add_point(5, 1.0, 2.0)")).image(), without);
}

TEST_F(GraphObject, AColorOfASeriesThatIsNotThereChangesNothing)
{
    EXPECT_EQ(after("", "g.series_set_line_color(0, 1, 2, 3), "
                        "g.series_set_line_color(-2147483648, 1, 2, 3)"),
              QStringLiteral("None None"));
}

TEST_F(GraphObject, TheLineColorOfASeriesIsSet)
{
    const ChartPicture chart =
        draw(series("(0, 0), (9, 9)") + "g.series_set_line_color(0, 1, 130, 77)");
    EXPECT_GT(chart.count(QColor(1, 130, 77)), 100);
    EXPECT_EQ(chart.count(Qt::red), 0);
}

TEST_F(GraphObject, TheFourthPartOfAColorIsTakenAndIgnored)
{
    const ChartPicture chart = draw(series("(0, 0), (9, 9)")
                                    + "g.series_set_line_color(0, 1, 130, 77, 0)\n"
                                      "g.set_background_color(9, 8, 7, 3)\n"
                                      "g.set_axes_color(200, 0, 200, 4)\n"
                                      "g.set_grid_color(0, 99, 99, -5)");
    EXPECT_EQ(chart.corner(), QColor(9, 8, 7));
    for (const QColor& color : {QColor(1, 130, 77), QColor(200, 0, 200), QColor(0, 99, 99)})
        EXPECT_GT(chart.count(color), 100) << qPrintable(color.name());
}

TEST_F(GraphObject, AColorOutOfRangeIsWhatQtMakesOfIt)
{
    EXPECT_EQ(draw("g.set_background_color(256, 0, 0)").corner(), QColor(Qt::black));
    EXPECT_EQ(draw("g.set_background_color(255, -1, 255)").corner(), QColor(Qt::black));
}

TEST_F(GraphObject, TheGridIsOpaqueRedWhenToldSo)
{
    EXPECT_EQ(draw("").count(Qt::red), 0);
    EXPECT_GT(draw("g.set_grid_color(255, 0, 0)").count(Qt::red), 500);
}

TEST_F(GraphObject, TheDarkThemeIsOnByDefaultAndOffBringsTheLightColorsBack)
{
    const QImage light = draw("").image();
    const ChartPicture dark = draw("g.set_dark_color_theme()", QColor(230, 230, 230));
    EXPECT_EQ(dark.corner(), QColor(55, 55, 55));
    EXPECT_TRUE(dark.hasAxes());
    EXPECT_GT(dark.count(QColor(80, 80, 80)), 500) << "grid";
    EXPECT_EQ(draw("g.set_dark_color_theme(); g.set_dark_color_theme(False)").image(), light);
}

TEST_F(GraphObject, ThemesLeaveSeriesAndRangesAlone)
{
    const ChartPicture chart =
        draw(series("(0, 0), (9, 9)") + "g.set_x_axis_range(0, 20); g.set_dark_color_theme(1)",
             QColor(230, 230, 230));
    EXPECT_TRUE(chart.shows(Qt::red, 4.5, 4.5, {0, 0, 20, 9}));
}

TEST_F(GraphObject, SettingARangeEndsFittingAndFittingDoesNotForgetTheRange)
{
    const std::string line = series("(0, 0), (30, 30)");
    EXPECT_TRUE(draw(line).shows(Qt::red, 15, 15, {0, 0, 30, 30}));
    EXPECT_TRUE(draw(line + "g.set_x_axis_range(10, 20)").shows(Qt::red, 12, 12, {10, 0, 10, 30}));
    EXPECT_TRUE(draw(line + "g.set_x_axis_range(10, 20); g.set_x_axis_range_auto(True)")
                    .shows(Qt::red, 12, 12, {0, 0, 30, 30}));
    EXPECT_TRUE(draw(line
                     + "g.set_x_axis_range(10, 20); g.set_x_axis_range_auto(True); "
                       "g.set_x_axis_range_auto(False)")
                    .shows(Qt::red, 12, 12, {10, 0, 10, 30}));
    EXPECT_TRUE(draw(line + "g.set_y_axis_range(10, 20)").shows(Qt::red, 12, 12, {0, 10, 30, 10}));
}

TEST_F(GraphObject, RangesNotSetAreZeroTo256)
{
    EXPECT_TRUE(draw(series("(0, 0), (30, 30)")
                     + "g.set_x_axis_range_auto(False); g.set_y_axis_range_auto([])")
                    .shows(Qt::red, 15, 15, {0, 0, 256, 256}));
}

TEST_F(GraphObject, MethodsOfAnObjectWithoutModelSayThatItIsEmpty)
{
    bindPicture();
    for (const char* call :
         {"add_series()", "series_add_point(0, 1, 2)", "series_set_line_color(0, 1, 2, 3)",
          "get_series_count()", "set_x_axis_range(1, 2)", "set_x_axis_range_auto(True)",
          "set_y_axis_range(1, 2)", "set_y_axis_range_auto(True)", "set_background_color(1, 2, 3)",
          "set_axes_color(1, 2, 3)", "set_grid_color(1, 2, 3)", "set_dark_color_theme()",
          "draw_into_image(p)", "copy_series_data_to_clipboard(1)"}) {
        const std::string script = std::string("vistrel.Graph.__new__(vistrel.Graph).") + call;
        EXPECT_EQ(error(script.c_str()), QLatin1String(empty)) << call;
    }
}

TEST_F(GraphObject, AnEmptyObjectIsToldBeforeArgumentsAreLookedAt)
{
    EXPECT_EQ(error("vistrel.Graph.__new__(vistrel.Graph).set_x_axis_range('x')"),
              QLatin1String(empty));
    EXPECT_EQ(error("vistrel.Graph.__new__(vistrel.Graph).draw_into_image(5)"),
              QLatin1String(empty));
}

TEST_F(GraphObject, AFreedObjectKeepsItsReferenceToTheType)
{
    EXPECT_EQ(run("import sys\n"
                  "before = sys.getrefcount(vistrel.Graph)\n"
                  "for _ in range(100): vistrel.Graph()\n"
                  "assert sys.getrefcount(vistrel.Graph) - before == 100\n"),
              QString());
}

TEST_F(GraphObject, InitialisedAgainItIsANewGraph)
{
    EXPECT_EQ(after("g.add_series(); g.__init__('x', y=1)", "g.get_series_count()"),
              QStringLiteral("0"));
}

TEST_F(GraphObject, WrongArgumentsAreTheParsersErrors)
{
    for (const char* call :
         {"add_series(1)", "series_add_point(0, 1)", "series_add_point('0', 1, 2)",
          "series_add_point(0, 'x', 2)", "series_set_line_color(0, 1, 2)",
          "series_set_line_color(0, 1, 2, 3, 4, 5)", "set_x_axis_range(1)",
          "set_x_axis_range_auto()", "set_background_color(1, 2)", "set_grid_color(1.5, 2, 3)",
          "set_dark_color_theme(1, 2)", "copy_series_data_to_clipboard()"}) {
        const QString last = error((std::string("vistrel.Graph().") + call).c_str());
        EXPECT_TRUE(last.startsWith(QLatin1String("TypeError: "))) << call << qPrintable(last);
    }
    EXPECT_TRUE(error("vistrel.Graph().series_add_point(2**31, 1, 2)")
                    .startsWith(QLatin1String("OverflowError: ")));
}

TEST_F(GraphObject, ErrorsAreOfTheBaseClassItself)
{
    run("try: vistrel.Graph.__new__(vistrel.Graph).add_series()\n"
        "except Exception as e: print(type(e) is Exception, end='')");
    EXPECT_EQ(output, QStringLiteral("True"));
}

} // namespace
