// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The model of a chart.
#include "FuncGraph/GraphData.h"

const std::array<Qt::GlobalColor, 12> g_clDefAxesColors{
    Qt::red,     Qt::blue,     Qt::green,     Qt::cyan,     Qt::magenta,     Qt::yellow,
    Qt::darkRed, Qt::darkBlue, Qt::darkGreen, Qt::darkCyan, Qt::darkMagenta, Qt::darkYellow,
};

qsizetype CxGraphData::addSeries()
{
    const auto index = static_cast<std::size_t>(nextColorIndex);
    series.append({{}, g_clDefAxesColors[index]});
    nextColorIndex = static_cast<int>((index + 1) % g_clDefAxesColors.size());
    return series.size() - 1;
}

CxGraphData::CxSeries* CxGraphData::seriesAt(int index)
{
    return index >= 0 && index < series.size() ? &series[index] : nullptr;
}

void CxGraphData::setDarkColorTheme(bool on)
{
    backgroundColor = on ? QColor(55, 55, 55) : QColor(Qt::white);
    axesColor = on ? QColor(230, 230, 230) : QColor(Qt::black);
    gridColor = on ? QColor(80, 80, 80) : QColor(Qt::lightGray);
}
