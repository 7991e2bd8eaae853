// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Drawing a chart into a picture. The one file that includes QCustomPlot: its header costs seconds.
#include "FuncGraph/GraphRendering.h"

#include "FuncGraph/GraphData.h"
#include "FuncGraph/GraphMessages.h"
#include "FuncGraph/LinePieces.h"
#include "FuncGraph/PictureCanvas.h"
#include "FuncGraph/UserInterface.h"
#include "Logging.h"

#include <CxImageData.h>

#include <qcustomplot.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double lineWidth = 2.0;
/// Coordinates at which Qt's painter cuts everything off.
constexpr int farthestPixel = (1 << 23) - 1;

/// A graph that draws its line in pieces. Qt's painter takes one line through n points as one
/// shape, at a cost that grows with n squared where the line runs up and down: half a second for
/// 1000 random points. It also never ends with coordinates far outside. Pieces cost the same each.
class PiecewiseGraph : public QCPGraph {
public:
    using QCPGraph::QCPGraph;

protected:
    void drawLinePlot(QCPPainter* painter, const QVector<QPointF>& points) const override
    {
        applyDefaultAntialiasingHint(painter);
        const double border = 4 * lineWidth; // keeps cut-off ends and joins out of sight
        const QRectF view = QRectF(clipRect()).adjusted(-border, -border, border, border);
        const QList<QLineF> segments = line_pieces::visibleSegments(points, view);
        if (isMuchToJoin(segments, view.height()))
            painter->drawLines(segments);
        else
            drawJoined(painter, segments);
    }

private:
    /// Of many segments, one cannot see how they are joined; of long steep ones, hardly.
    static bool isMuchToJoin(const QList<QLineF>& segments, double height)
    {
        constexpr double mostRows = 256.0 * 1024.0;
        constexpr double highestCost = 8e6; // some 50 ms
        return static_cast<double>(segments.size()) * height > mostRows
               || line_pieces::joiningCost(segments) > highestCost;
    }

    static void drawJoined(QCPPainter* painter, const QList<QLineF>& segments)
    {
        constexpr int pointsOfAPiece = 9;
        for (const QList<QPointF>& line : line_pieces::joined(segments, pointsOfAPiece))
            painter->drawPolyline(line.constData(), static_cast<int>(line.size()));
    }
};

void setColors(QCPAxis& axis, const CxGraphData& graph)
{
    const QPen axesPen(graph.axesColor);
    axis.setBasePen(axesPen);
    axis.setTickLabelColor(graph.axesColor);
    axis.setTickPen(axesPen);
    axis.setSubTickPen(axesPen);
    axis.grid()->setPen(QPen(graph.gridColor));
}

/// The points in the order of x; those with equal x stay in the order added. A point whose x is no
/// finite number has no place on the axis; one whose y is none leaves a gap.
QVector<QCPGraphData> plotData(const QList<QPointF>& points)
{
    constexpr double gap = std::numeric_limits<double>::quiet_NaN();
    QVector<QCPGraphData> data(points.size(), QCPGraphData());
    auto next = data.begin();
    for (const QPointF& point : points) {
        if (!std::isfinite(point.x()))
            continue;
        // Its constructor is a call into QCustomPlot, for each of perhaps a million points.
        next->key = point.x();
        next->value = std::isfinite(point.y()) ? point.y() : gap;
        ++next;
    }
    data.erase(next, data.end());
    if (!std::is_sorted(data.cbegin(), data.cend(), qcpLessThanSortKey<QCPGraphData>))
        std::stable_sort(data.begin(), data.end(), qcpLessThanSortKey<QCPGraphData>);
    return data;
}

/// Sorted data are shared with the plot; the plot would sort a copy.
void addSeries(QCustomPlot& plot, const CxGraphData::CxSeries& series)
{
    auto* const graph = new PiecewiseGraph(plot.xAxis, plot.yAxis); // the plot takes it over
    graph->data()->set(plotData(series.points), true);
    graph->setPen(QPen(QBrush(series.lineColor, Qt::SolidPattern), lineWidth, Qt::SolidLine,
                       Qt::SquareCap, Qt::BevelJoin));
}

/// Manual ranges override what fits the data, axis by axis. QCustomPlot turns an inverted range
/// round and ignores one that it cannot divide into ticks: empty, not finite, too large or small.
void setRanges(QCustomPlot& plot, const CxGraphData& graph)
{
    plot.rescaleAxes(false);
    if (!graph.xAutomatic)
        plot.xAxis->setRange(graph.xMinimum, graph.xMaximum);
    if (!graph.yAutomatic)
        plot.yAxis->setRange(graph.yMinimum, graph.yMaximum);
}

void fill(QCustomPlot& plot, const CxGraphData& graph)
{
    plot.setBackground(QBrush(graph.backgroundColor, Qt::SolidPattern));
    setColors(*plot.xAxis, graph);
    setColors(*plot.yAxis, graph);
    for (const CxGraphData::CxSeries& series : graph.series)
        addSeries(plot, series);
    setRanges(plot, graph);
}

void logWhatIsNotPainted(const QSize& size)
{
    if (size.width() <= farthestPixel && size.height() <= farthestPixel)
        return;
    logCritical("fx_script_DrawIntoImage(): %1",
                QStringLiteral("the picture has %1 x %2 pixels, of which a chart takes %3 in each "
                               "direction")
                    .arg(size.width())
                    .arg(size.height())
                    .arg(farthestPixel));
}

} // namespace

const char* fx_script_DrawIntoImage(const CxGraphData* graph, CxImageData* image)
{
    if (!user_interface::hasWidgets())
        return graph_messages::noUserInterface;
    if (!user_interface::isGuiThread())
        return graph_messages::wrongThread;
    QCustomPlot plot;
    fill(plot, *graph);
    PictureCanvas canvas(*image->picBuf());
    if (canvas.image().isNull())
        return nullptr;
    logWhatIsNotPainted(canvas.image().size());
    plot.resize(canvas.image().size());
    QCPPainter painter(&canvas.image());
    plot.toPainter(&painter, 0, 0);
    painter.end();
    return nullptr;
}
