// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of graphs share: pictures to draw into, and looks at what came out.
#pragma once

#include "ChartPicture.h"
#include "PluginTest.h"

#include <string>

class GraphTest : public PluginTest {
protected:
    /// Binds a host image under the name `p`.
    CxImageData& bind(std::unique_ptr<CxImageData> image)
    {
        run("pass");
        bound = std::move(image);
        plugin->addImageVariable(QStringLiteral("p"), bound.get());
        return *bound;
    }
    CxImageData& bindPicture(unsigned width = 400, unsigned height = 300, unsigned channels = 4)
    {
        return bind(makeImage(width, height, channels, ExImageDataType::UInt8, 8));
    }

    /// Draws a graph `g`, on which a script has worked, into the bound picture.
    ChartPicture draw(const std::string& script, QColor axes = Qt::black)
    {
        if (bound == nullptr)
            bindPicture();
        const std::string text = "g = vistrel.Graph()\n" + script + "\ng.draw_into_image(p)";
        EXPECT_EQ(run(text.c_str()), QString());
        return {*bound, axes};
    }

    /// What an expression on a graph `g` gives after a script has worked on it.
    QString after(const std::string& script, const char* expression)
    {
        EXPECT_EQ(
            run(("g = vistrel.Graph()\n" + script + "\nprint(" + expression + ", end='')").c_str()),
            QString());
        return output;
    }

    /// A script that adds a series with these points, as Python writes pairs.
    static std::string series(const char* points)
    {
        return std::string("s = g.add_series()\nfor x, y in (") + points
               + ",): g.series_add_point(s, x, y)\n";
    }

    static constexpr char empty[] = "Exception: Graph object is empty";
    std::unique_ptr<CxImageData> bound;
};
