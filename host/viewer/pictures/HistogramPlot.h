// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Draws how often values occur, and between which of them a picture is shown.
#pragma once

#include "core/ValueCounts.h"

#include <QtWidgets/QWidget>

#include <optional>

class QPainter;

namespace vistrel {

/// Curves in the channels' colours, and a line each for black and white, which the mouse moves.
class HistogramPlot : public QWidget {
    Q_OBJECT

public:
    HistogramPlot();

    /// Nothing shows nothing.
    void setCounts(std::optional<ValueCounts> counts);
    const std::optional<ValueCounts>& counts() const { return m_counts; }
    /// The values that are black and white.
    void setRange(const ValueRange& range);
    /// Makes rare values visible beside frequent ones.
    void setLogarithmic(bool on);

    /// Where a value lies on the horizontal axis.
    double positionOf(double value) const;
    /// The value at a place of the axis, within the counts.
    double valueAt(double position) const;

    QSize sizeHint() const override { return {260, 130}; }
    QSize minimumSizeHint() const override { return {120, 60}; }

Q_SIGNALS:
    /// The user has moved black or white.
    void rangeMoved(const ValueRange& range);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    enum class Line { None, Black, White };

    QRectF plotArea() const;
    std::vector<double> heights(std::size_t channel) const;
    QColor colorOf(const QString& channel) const;
    void paintChannels(QPainter& painter) const;
    void paintAxis(QPainter& painter) const;
    void paintRange(QPainter& painter) const;

    std::optional<ValueCounts> m_counts;
    ValueRange m_range;
    bool m_logarithmic = false;
    Line m_moved = Line::None;
};

} // namespace vistrel
