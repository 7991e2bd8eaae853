// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Cutting lines off at a rectangle and joining what remains.
#include "FuncGraph/LinePieces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const QRectF view(0, 0, 100, 50);
constexpr double infinity = std::numeric_limits<double>::infinity();

QLineF cut(double x1, double y1, double x2, double y2)
{
    return line_pieces::clipped(QLineF(x1, y1, x2, y2), view);
}

TEST(LinePieces, ASegmentInsideStaysAsItIs) { EXPECT_EQ(cut(1, 2, 30, 40), QLineF(1, 2, 30, 40)); }

TEST(LinePieces, ASegmentIsCutOffAtTheBorders)
{
    EXPECT_EQ(cut(-50, 25, 150, 25), QLineF(0, 25, 100, 25));
    EXPECT_EQ(cut(50, 100, 50, -100), QLineF(50, 50, 50, 0));
    EXPECT_EQ(cut(-10, -10, 10, 10), QLineF(0, 0, 10, 10));
}

TEST(LinePieces, ASegmentOutsideIsGone)
{
    EXPECT_TRUE(cut(-10, 5, -1, 20).isNull());
    EXPECT_TRUE(cut(-20, 10, 10, -20).isNull()) << "passes a corner";
    EXPECT_TRUE(cut(5, 60, 90, 60).isNull()) << "along a border";
}

TEST(LinePieces, TheLargestNumbersAreCutOffToo)
{
    const double most = std::numeric_limits<double>::max();
    for (const QLineF& line :
         {cut(10, -most, 20, most), cut(-most, 10, most, 20), cut(-most, -most, most, most)}) {
        EXPECT_TRUE(view.adjusted(-1, -1, 1, 1).contains(line.p1()));
        EXPECT_TRUE(view.adjusted(-1, -1, 1, 1).contains(line.p2()));
    }
}

TEST(LinePieces, PointsThatAreNotFiniteInterruptTheLine)
{
    for (const double odd : {infinity, -infinity, std::nan("")}) {
        const QList<QPointF> points{{0, 0}, {10, 10}, {20, odd}, {30, 10}, {40, 10}, {odd, 5}};
        EXPECT_EQ(line_pieces::visibleSegments(points, view),
                  (QList<QLineF>{{0, 0, 10, 10}, {30, 10, 40, 10}}));
    }
}

TEST(LinePieces, NoPointsAndOnePointMakeNoSegments)
{
    EXPECT_TRUE(line_pieces::visibleSegments({}, view).isEmpty());
    EXPECT_TRUE(line_pieces::visibleSegments({{1, 1}}, view).isEmpty());
}

TEST(LinePieces, JoiningCostsTheSquareOfTheRowsThatASegmentCrosses)
{
    EXPECT_EQ(line_pieces::joiningCost({}), 0.0);
    EXPECT_EQ(line_pieces::joiningCost({{0, 5, 900, 5}}), 0.0);
    EXPECT_EQ(line_pieces::joiningCost({{0, 0, 1, 30}, {1, 30, 2, -10}}), 30.0 * 30 + 40.0 * 40);
}

TEST(LinePieces, SegmentsThatMeetAreJoinedUpToALength)
{
    const QList<QLineF> segments{{0, 0, 1, 0}, {1, 0, 2, 0}, {2, 0, 3, 0}, {7, 0, 8, 0}};
    const QList<QList<QPointF>> expected{
        {{0, 0}, {1, 0}, {2, 0}}, {{2, 0}, {3, 0}}, {{7, 0}, {8, 0}}};
    EXPECT_EQ(line_pieces::joined(segments, 3), expected);
}

} // namespace
