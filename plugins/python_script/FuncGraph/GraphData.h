// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The model of a chart: series of points, axis ranges, colours. Free of Python and of drawing.
#pragma once

#include <QtCore/QList>
#include <QtCore/QPointF>
#include <QtGui/QColor>

#include <array>

/// Colours that new series take in turn.
extern const std::array<Qt::GlobalColor, 12> g_clDefAxesColors;

/// What a script has told a graph. Ranges are kept as given, whatever the numbers: who draws sees
/// to what can be drawn.
struct CxGraphData {
    struct CxSeries {
        QList<QPointF> points; ///< in the order added
        QColor lineColor;
    };

    QList<CxSeries> series;
    double xMinimum = 0.0; ///< the manual range, kept also while the automatic one is on
    double xMaximum = 256.0;
    double yMinimum = 0.0;
    double yMaximum = 256.0;
    bool xAutomatic = true; ///< the range fits the data
    bool yAutomatic = true;
    QColor backgroundColor = Qt::white;
    QColor axesColor = Qt::black; ///< axis lines, ticks and their labels
    QColor gridColor = Qt::lightGray;
    int nextColorIndex = 0; ///< the colour of the next new series

    /// Appends a series without points; returns its index.
    qsizetype addSeries();
    /// The series of that index, from 0; null when there is none.
    CxSeries* seriesAt(int index);
    /// Switches to the dark colours, or back to the ones that a new graph has. Series keep theirs.
    void setDarkColorTheme(bool on);
};
