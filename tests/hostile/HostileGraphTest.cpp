// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Graphs with whatever numbers a script may pass, into pictures of any size, without memory.
#include "PluginTest.h"

namespace {

class HostileGraph : public PluginTest {
protected:
    /// Runs a script on helpers for pictures and graphs; true when it printed "done".
    bool isDone(const std::string& script)
    {
        const std::string text = "def picture(width, height, channels=4):\n"
                                 "    image = vistrel.Image()\n"
                                 "    image.alloc(width, height, channels, 8)\n"
                                 "    return image\n"
                                 "def line(points):\n"
                                 "    graph = vistrel.Graph()\n"
                                 "    graph.add_series()\n"
                                 "    for x, y in points: graph.series_add_point(0, x, y)\n"
                                 "    return graph\n"
                                 + script + "\nprint('done', end='')";
        EXPECT_EQ(run(text.c_str()), QString());
        return output == QStringLiteral("done");
    }
};

TEST_F(HostileGraph, OddNumbersAsPointsAndRangesAreDrawnSomehow)
{
    EXPECT_TRUE(
        isDone("import itertools\n"
               "inf, nan = float('inf'), float('nan')\n"
               "odd = (0.0, 5.0, -5.0, 1e15, 1e15 + 1, 1e250, 1e300, -1e300, 1.7e308, -1.7e308,\n"
               "       inf, -inf, nan, 1e-280, 1e-320)\n"
               "target = picture(120, 90)\n"
               "for a, b in itertools.product(odd, repeat=2):\n"
               "    graph = line(((0, 0), (a, b), (b, a), (1, 1), (a, a)))\n"
               "    graph.draw_into_image(target)\n"
               "    graph.set_x_axis_range(a, b)\n"
               "    graph.draw_into_image(target)\n"
               "    graph.set_y_axis_range(b, a)\n"
               "    graph.draw_into_image(target)\n"
               "    graph.set_x_axis_range(0, 1)\n"
               "    graph.set_y_axis_range(0, 1)\n"
               "    graph.draw_into_image(target)\n"));
}

TEST_F(HostileGraph, RangesAFewStepsOfADoubleWideAreDrawn)
{
    EXPECT_TRUE(isDone("graph, target = line(((0, 0), (1, 1))), picture(200, 100)\n"
                       "for exponent in range(-280, 250, 10):\n"
                       "    low = 10.0 ** exponent\n"
                       "    for step in (1, 2, 16, 1000):\n"
                       "        graph.set_x_axis_range(low, low * (1 + step * 2.3e-16))\n"
                       "        graph.set_y_axis_range(-low, low)\n"
                       "        graph.draw_into_image(target)\n"));
}

TEST_F(HostileGraph, PicturesOfAnySizeTakeAChart)
{
    EXPECT_TRUE(
        isDone("graph = line((x, x * 7919 % 1000) for x in range(1000))\n"
               "for channels in (3, 4):\n"
               "    for size in ((1, 1), (1, 300), (300, 1), (2, 2), (20, 20), (20000, 20),\n"
               "                 (40000, 3), (3, 20000)):\n"
               "        graph.draw_into_image(picture(*size, channels))\n"));
}

TEST_F(HostileGraph, AMillionPointsInAnyOrderAreDrawn)
{
    EXPECT_TRUE(isDone("graph = line((x * 7919 % 1000003, x % 977) for x in range(1000000))\n"
                       "graph.draw_into_image(picture(640, 480))\n"));
}

TEST_F(HostileGraph, TenMillionPointsAreDrawn)
{
    EXPECT_TRUE(isDone("graph = line((x, x % 977) for x in range(10**7))\n"
                       "graph.draw_into_image(picture(640, 480))\n"));
}

TEST_F(HostileGraph, ManyEqualKeysAndNumbersThatAreNoneAreSorted)
{
    EXPECT_TRUE(
        isDone("nan = float('nan')\n"
               "line((x % 3 if x % 5 else nan, -x) for x in range(20000))"
               ".draw_into_image(picture(200, 100))\n"
               "line((nan, nan) for x in range(100)).draw_into_image(picture(200, 100))\n"));
}

TEST_F(HostileGraph, AThousandSeriesAreDrawn)
{
    EXPECT_TRUE(isDone("graph = vistrel.Graph()\n"
                       "for s in range(1000):\n"
                       "    graph.series_add_point(graph.add_series(), s, s)\n"
                       "    graph.series_add_point(s, 0, s)\n"
                       "graph.draw_into_image(picture(200, 100))\n"));
}

TEST_F(HostileGraph, WithoutMemoryForAPointTheOthersAreKept)
{
    EXPECT_TRUE(
        isDone("import resource\n"
               "limits = resource.getrlimit(resource.RLIMIT_AS)\n"
               "graph, target = line(((0, 0), (1, 1))), picture(64, 48)\n"
               "graph.draw_into_image(target)\n"
               "used = int(open('/proc/self/statm').read().split()[0]) * resource.getpagesize()\n"
               "resource.setrlimit(resource.RLIMIT_AS, (used + 2**26, limits[1]))\n"
               "try:\n"
               "    for x in range(10**8): graph.series_add_point(0, x, x)\n"
               "    raise SystemExit('there is no limit')\n"
               "except Exception as error: text = str(error)\n"
               "resource.setrlimit(resource.RLIMIT_AS, limits)\n"
               "assert text == 'out of memory', text\n"
               "assert x > 1000000\n"
               "graph.draw_into_image(target)\n"
               "graph.series_add_point(0, x, x)\n"));
}

TEST_F(HostileGraph, ObjectsThatAreFreedGiveTheirPointsBack)
{
#ifdef __SANITIZE_ADDRESS__ // keeps 256 MB of what is freed, to find its use
    const std::string limits = "times, most = 300, 300000\n";
#else
    const std::string limits = "times, most = 20, 8000\n";
#endif
    EXPECT_TRUE(isDone(limits
                       + "import resource\n"
                         "def fill(): line((x, x) for x in range(100000))\n"
                         "fill()\n"
                         "before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss\n"
                         "for _ in range(times): fill()\n"
                         "grown = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before\n"
                         "assert grown < most, grown\n"));
}

} // namespace
