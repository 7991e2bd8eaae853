// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A chart in a picture, read as its reader would: where its axes run, what is drawn at a point.
#pragma once

#include <CxImageData.h>

#include <QtCore/QRectF>
#include <QtGui/QColor>
#include <QtGui/QImage>

/// Looks at a picture of 3 or 4 channels that a chart was drawn into. The axes are found in the
/// picture itself: the longest runs of their colour.
class ChartPicture {
public:
    ChartPicture(CxImageData& image, QColor axes = Qt::black)
        : m_image(copyOf(*image.picBuf()))
        , m_axes(axes)
    {
        for (int y = 0; y < m_image.height(); ++y)
            keepLongest(m_xAxis, runIn(m_image.width(), [&](int x) { return isAxis(x, y); }));
        for (int x = 0; x < m_image.width(); ++x)
            keepLongest(m_yAxis, runIn(m_image.height(), [&](int y) { return isAxis(x, y); }));
    }

    /// Whether a point of the data, with these ranges on the axes, is painted in a colour.
    bool shows(QColor color, double x, double y, const QRectF& ranges) const
    {
        const double right = (x - ranges.left()) / ranges.width();
        const double up = (y - ranges.top()) / ranges.height();
        const int column = m_xAxis.from + qRound(right * (m_xAxis.to - m_xAxis.from));
        const int row = m_yAxis.to - qRound(up * (m_yAxis.to - m_yAxis.from));
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (m_image.valid(column + dx, row + dy)
                    && m_image.pixelColor(column + dx, row + dy) == color)
                    return true;
            }
        }
        return false;
    }

    /// Number of pixels of a colour.
    int count(QColor color) const
    {
        int found = 0;
        for (int y = 0; y < m_image.height(); ++y) {
            for (int x = 0; x < m_image.width(); ++x)
                found += m_image.pixelColor(x, y) == color ? 1 : 0;
        }
        return found;
    }

    /// Whether both axes were found, each at least half as long as the picture.
    bool hasAxes() const
    {
        return 2 * (m_xAxis.to - m_xAxis.from) > m_image.width()
               && 2 * (m_yAxis.to - m_yAxis.from) > m_image.height();
    }

    QColor corner() const { return m_image.pixelColor(0, 0); }
    const QImage& image() const { return m_image; }

private:
    struct Run {
        int from = 0;
        int to = 0;
    };

    static QImage copyOf(const SxPicBuf& buffer)
    {
        const auto format = buffer.channels == 4 ? QImage::Format_RGBA8888 : QImage::Format_RGB888;
        return QImage(buffer.data, static_cast<int>(buffer.width), static_cast<int>(buffer.height),
                      static_cast<qsizetype>(buffer.stride), format)
            .copy();
    }

    bool isAxis(int x, int y) const { return m_image.pixelColor(x, y) == m_axes; }

    template<class Test>
    static Run runIn(int length, Test test)
    {
        Run longest;
        for (int at = 0; at < length; ++at) {
            const int from = at;
            while (at < length && test(at))
                ++at;
            if (at - 1 - from > longest.to - longest.from)
                longest = {from, at - 1};
        }
        return longest;
    }

    static void keepLongest(Run& longest, Run found)
    {
        if (found.to - found.from > longest.to - longest.from)
            longest = found;
    }

    QImage m_image;
    QColor m_axes;
    Run m_xAxis;
    Run m_yAxis;
};
