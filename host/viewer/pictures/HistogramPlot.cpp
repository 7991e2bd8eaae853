// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The bins that fall on one column of the screen are added up.
#include "viewer/pictures/HistogramPlot.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>

namespace vistrel {

namespace {

constexpr double margin = 6.0;
constexpr double reach = 8.0; // of the mouse to a line, in points

QString numberText(double value) { return QString::number(value, 'g', 6); }

} // namespace

HistogramPlot::HistogramPlot()
{
    setToolTip(tr("How often each value occurs. Drag the lines to choose black and white."));
}

void HistogramPlot::setCounts(std::optional<ValueCounts> counts)
{
    m_counts = std::move(counts);
    update();
}

void HistogramPlot::setRange(const ValueRange& range)
{
    if (m_moved != Line::None)
        return; // the user's hand is quicker than what it brings about
    m_range = range;
    update();
}

void HistogramPlot::setLogarithmic(bool on)
{
    m_logarithmic = on;
    update();
}

QRectF HistogramPlot::plotArea() const
{
    const double text = fontMetrics().height();
    return QRectF(rect()).adjusted(margin, margin, -margin, -margin - text);
}

double HistogramPlot::positionOf(double value) const
{
    const QRectF area = plotArea();
    if (!m_counts)
        return area.left();
    const double span = m_counts->valueOf(m_counts->bins()) - m_counts->first;
    return area.left() + (value - m_counts->first) / span * area.width();
}

double HistogramPlot::valueAt(double position) const
{
    const QRectF area = plotArea();
    if (!m_counts || area.width() <= 0.0)
        return 0.0;
    const double part = std::clamp((position - area.left()) / area.width(), 0.0, 1.0);
    const double bin = part * static_cast<double>(m_counts->bins());
    const double value = m_counts->first + bin * m_counts->binWidth;
    return m_counts->binWidth == 1.0 ? std::round(value) : value;
}

std::vector<double> HistogramPlot::heights(std::size_t channel) const
{
    const std::vector<quint64>& counts = m_counts->channels[channel];
    const auto columns = static_cast<std::size_t>(std::max(1.0, plotArea().width()));
    // Every column has a bin, and every bin a column.
    std::vector<double> result(std::min(columns, counts.size()));
    for (std::size_t bin = 0; bin < counts.size(); ++bin)
        result[bin * result.size() / counts.size()] += static_cast<double>(counts[bin]);
    if (m_logarithmic)
        std::transform(result.begin(), result.end(), result.begin(),
                       [](double count) { return std::log1p(count); });
    return result;
}

QColor HistogramPlot::colorOf(const QString& channel) const
{
    if (channel == QStringLiteral("Red"))
        return {220, 50, 47};
    if (channel == QStringLiteral("Green"))
        return {60, 160, 60};
    if (channel == QStringLiteral("Blue"))
        return {50, 110, 220};
    return palette().color(QPalette::Text);
}

void HistogramPlot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    if (!m_counts) {
        painter.drawText(rect(), Qt::AlignCenter, tr("no picture"));
        return;
    }
    paintChannels(painter);
    paintAxis(painter);
    paintRange(painter);
}

void HistogramPlot::paintChannels(QPainter& painter) const
{
    const QRectF area = plotArea();
    std::vector<std::vector<double>> curves;
    double highest = 0.0;
    for (std::size_t channel = 0; channel < m_counts->channels.size(); ++channel) {
        curves.push_back(heights(channel));
        highest = std::max(highest, *std::max_element(curves.back().begin(), curves.back().end()));
    }
    if (highest <= 0.0)
        return;
    for (std::size_t channel = 0; channel < curves.size(); ++channel) {
        const std::vector<double>& curve = curves[channel];
        const double step = area.width() / static_cast<double>(curve.size());
        QPainterPath path(area.bottomLeft());
        for (std::size_t i = 0; i < curve.size(); ++i) {
            const double y = area.bottom() - curve[i] / highest * area.height();
            path.lineTo(area.left() + static_cast<double>(i) * step, y);
            path.lineTo(area.left() + static_cast<double>(i + 1) * step, y);
        }
        path.lineTo(area.bottomRight());
        QColor color = colorOf(m_counts->names.value(static_cast<qsizetype>(channel)));
        painter.setPen(color);
        color.setAlpha(70);
        painter.fillPath(path, color);
        painter.drawPath(path);
    }
}

void HistogramPlot::paintAxis(QPainter& painter) const
{
    const QRectF area = plotArea();
    const QRectF texts(area.left(), area.bottom() + 2.0, area.width(), height() - area.bottom());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    painter.drawText(texts, Qt::AlignLeft | Qt::AlignTop, numberText(m_counts->first));
    painter.drawText(texts, Qt::AlignRight | Qt::AlignTop,
                     numberText(m_counts->valueOf(m_counts->bins() - 1)));
}

void HistogramPlot::paintRange(QPainter& painter) const
{
    const QRectF area = plotArea();
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
    for (const double value : {m_range.black, m_range.white}) {
        const double x = std::clamp(positionOf(value), area.left(), area.right());
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
    }
}

void HistogramPlot::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_counts)
        return;
    const QRectF area = plotArea();
    const double x = event->position().x();
    const auto distance = [&](double value) {
        return std::abs(std::clamp(positionOf(value), area.left(), area.right()) - x);
    };
    if (std::min(distance(m_range.black), distance(m_range.white)) > reach)
        return;
    m_moved = distance(m_range.black) <= distance(m_range.white) ? Line::Black : Line::White;
}

void HistogramPlot::mouseMoveEvent(QMouseEvent* event)
{
    if (m_moved == Line::None || !m_counts)
        return;
    const double value = valueAt(event->position().x());
    // Each stops a bin before the other.
    if (m_moved == Line::Black)
        m_range.black = std::min(value, m_range.white - m_counts->binWidth);
    else
        m_range.white = std::max(value, m_range.black + m_counts->binWidth);
    update();
    Q_EMIT rangeMoved(m_range);
}

void HistogramPlot::mouseReleaseEvent(QMouseEvent*) { m_moved = Line::None; }

} // namespace vistrel
