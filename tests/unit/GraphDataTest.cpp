// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The model of a chart and the workers on it that need no user interface.
#include "FuncGraph/GraphData.h"
#include "FuncGraph/GraphClipboard.h"
#include "FuncGraph/GraphRendering.h"

#include <CxImageData.h>

#include <gtest/gtest.h>

namespace {

TEST(GraphData, StartsWithTheDefaults)
{
    const CxGraphData graph;
    EXPECT_TRUE(graph.series.isEmpty());
    EXPECT_EQ(graph.xMinimum, 0.0);
    EXPECT_EQ(graph.xMaximum, 256.0);
    EXPECT_EQ(graph.yMinimum, 0.0);
    EXPECT_EQ(graph.yMaximum, 256.0);
    EXPECT_TRUE(graph.xAutomatic && graph.yAutomatic);
    EXPECT_EQ(graph.backgroundColor, QColor(Qt::white));
    EXPECT_EQ(graph.axesColor, QColor(Qt::black));
    EXPECT_EQ(graph.gridColor, QColor(Qt::lightGray));
}

TEST(GraphData, GivesTwelveColorsInTurn)
{
    const Qt::GlobalColor colors[] = {Qt::red,       Qt::blue,     Qt::green,       Qt::cyan,
                                      Qt::magenta,   Qt::yellow,   Qt::darkRed,     Qt::darkBlue,
                                      Qt::darkGreen, Qt::darkCyan, Qt::darkMagenta, Qt::darkYellow,
                                      Qt::red,       Qt::blue};
    CxGraphData graph;
    for (const Qt::GlobalColor color : colors)
        EXPECT_EQ(graph.series[graph.addSeries()].lineColor, QColor(color));
}

TEST(GraphData, HasNoSeriesOutsideItsList)
{
    CxGraphData graph;
    graph.addSeries();
    EXPECT_EQ(graph.seriesAt(0), &graph.series[0]);
    EXPECT_EQ(graph.seriesAt(1), nullptr);
    EXPECT_EQ(graph.seriesAt(-1), nullptr);
    EXPECT_EQ(graph.seriesAt(2147483647), nullptr);
}

TEST(GraphData, BothThemesSetAllThreeColors)
{
    CxGraphData graph;
    graph.setDarkColorTheme(true);
    EXPECT_EQ(graph.backgroundColor, QColor(55, 55, 55));
    EXPECT_EQ(graph.axesColor, QColor(230, 230, 230));
    EXPECT_EQ(graph.gridColor, QColor(80, 80, 80));
    graph.setDarkColorTheme(false);
    EXPECT_EQ(graph.backgroundColor, QColor(Qt::white));
    EXPECT_EQ(graph.axesColor, QColor(Qt::black));
    EXPECT_EQ(graph.gridColor, QColor(Qt::lightGray));
}

TEST(GraphWithoutUserInterface, IsNotDrawn)
{
    const CxGraphData graph;
    CxImageData image;
    EXPECT_STREQ(fx_script_DrawIntoImage(&graph, &image),
                 "a graph cannot be drawn: the host has no user interface");
}

TEST(GraphWithoutUserInterface, IsNotCopiedWhichIsNotReported)
{
    EXPECT_EQ(graph_clipboard::copy({{{1, 2}}, Qt::red}), nullptr);
    EXPECT_EQ(graph_clipboard::textOf({{{0.1, 2}}, Qt::red}).toStdString(), "x\ty\n0.1\t2\n");
}

} // namespace
