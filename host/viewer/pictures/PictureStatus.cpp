// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Two labels at the right end of the status bar.
#include "viewer/pictures/PictureStatus.h"

#include "app/AppDelegate.h"
#include "app/ImageView.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QStatusBar>

namespace vistrel {

namespace {

QString zoomText(double zoom)
{
    const double percent = 100.0 * zoom;
    return QStringLiteral("%1 %").arg(percent, 0, 'f', percent < 10.0 ? 1 : 0);
}

QLabel* addLabel(QStatusBar& bar, const QString& name, const QString& widest)
{
    auto* label = new QLabel;
    label->setObjectName(name);
    // Neighbours do not jump when a number gets longer.
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest));
    bar.addPermanentWidget(label);
    return label;
}

} // namespace

PictureStatus::PictureStatus(AppDelegate& delegate, QStatusBar& bar)
    : m_delegate(delegate)
    , m_pixel(addLabel(bar, QStringLiteral("pixelText"), QStringLiteral("x 2000, y 2000: 65535")))
    , m_zoom(addLabel(bar, QStringLiteral("zoomText"), QStringLiteral("1600 %")))
{
    m_zoom->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(&delegate, &AppDelegate::viewOpened, this, [this](ImageView* view) { follow(*view); });
    connect(&delegate, &AppDelegate::viewClosed, m_pixel, &QLabel::clear);
    connect(&delegate, &AppDelegate::activeViewChanged, this, &PictureStatus::showZoom);
}

void PictureStatus::follow(ImageView& view)
{
    connect(&view, &ImageView::pixelTextChanged, m_pixel, &QLabel::setText);
    connect(&view, &ImageView::zoomChanged, this, &PictureStatus::showZoom);
    connect(&view, &ImageView::pictureChanged, this, &PictureStatus::showZoom);
}

void PictureStatus::showZoom()
{
    const ImageView* view = m_delegate.imageView(m_delegate.activeViewId());
    m_zoom->setText(view && view->picture() ? zoomText(view->zoomPan().zoom()) : QString());
}

} // namespace vistrel
