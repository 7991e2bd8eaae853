// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Inputs that write into the view's brightness, and a plot that reads the view's picture.
#include "viewer/pictures/BrightnessPanel.h"

#include "app/AppDelegate.h"
#include "app/ImageView.h"
#include "core/PicBufView.h"
#include "viewer/pictures/HistogramPlot.h"

#include <QtCore/QSettings>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace vistrel {

namespace {

using namespace std::chrono_literals;
using Mode = Brightness::Mode;

constexpr auto refreshInterval = 300ms;
constexpr double largestValue = 1e15;

QString logarithmicKey() { return QStringLiteral("histogram/logarithmic"); }

QDoubleSpinBox* valueBox(const QString& name)
{
    auto* box = new QDoubleSpinBox;
    box->setObjectName(name);
    box->setKeyboardTracking(false); // a number counts when it is complete
    box->setRange(-largestValue, largestValue);
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // not as wide as that
    return box;
}

/// Enough to tell a thousandth of the range.
int decimalsFor(const ValueRange& range)
{
    return std::clamp(3 - static_cast<int>(std::floor(std::log10(range.white - range.black))), 1,
                      15);
}

PixelRect countedPart(const ImageView& view)
{
    const QRect& region = view.region();
    return region.isEmpty()
               ? PixelRect::of(*view.picture())
               : PixelRect::ofSize(region.x(), region.y(), region.width(), region.height());
}

QString countedText(const QRect& region)
{
    return region.isEmpty() ? BrightnessPanel::tr("whole picture")
                            : BrightnessPanel::tr("x %1, y %2, %3 x %4 pixels")
                                  .arg(region.x())
                                  .arg(region.y())
                                  .arg(region.width())
                                  .arg(region.height());
}

} // namespace

BrightnessPanel::BrightnessPanel(AppDelegate& delegate)
    : m_delegate(delegate)
    , m_mode(new QComboBox)
    , m_black(valueBox(QStringLiteral("black")))
    , m_white(valueBox(QStringLiteral("white")))
    , m_plot(new HistogramPlot)
    , m_logarithmic(new QCheckBox(tr("&Logarithmic")))
    , m_drawRegion(new QPushButton(tr("&Count region")))
    , m_wholePicture(new QPushButton(tr("Count w&hole")))
    , m_counted(new QLabel)
{
    // in the order of the modes
    m_mode->addItems(
        {tr("Full scale"), tr("Smallest to largest"), tr("99 % of the pixels"), tr("Chosen")});
    m_drawRegion->setCheckable(true);
    m_logarithmic->setChecked(QSettings().value(logarithmicKey(), false).toBool());
    m_plot->setLogarithmic(m_logarithmic->isChecked());
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(refreshInterval);
    arrange();
    connectInputs();
    connect(&m_refresh, &QTimer::timeout, this, &BrightnessPanel::refresh);
    connect(&delegate, &AppDelegate::activeViewChanged, this, &BrightnessPanel::followActiveView);
    followActiveView();
}

void BrightnessPanel::arrange()
{
    auto* form = new QFormLayout(this);
    form->addRow(tr("&Brightness"), m_mode);
    form->addRow(tr("B&lack"), m_black);
    form->addRow(tr("&White"), m_white);
    form->addRow(m_plot);
    auto* counted = new QHBoxLayout;
    counted->addWidget(m_counted, 1);
    counted->addWidget(m_logarithmic);
    form->addRow(counted);
    auto* region = new QHBoxLayout;
    region->addWidget(m_drawRegion);
    region->addWidget(m_wholePicture);
    form->addRow(region);
    m_plot->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void BrightnessPanel::connectInputs()
{
    connect(m_mode, &QComboBox::currentIndexChanged, this, &BrightnessPanel::chooseMode);
    for (QDoubleSpinBox* box : {m_black, m_white})
        connect(box, &QDoubleSpinBox::valueChanged, this, [this] {
            choose({m_black->value(), m_white->value()});
        });
    connect(m_plot, &HistogramPlot::rangeMoved, this, &BrightnessPanel::choose);
    connect(m_logarithmic, &QCheckBox::toggled, this, [this](bool on) {
        QSettings().setValue(logarithmicKey(), on);
        m_plot->setLogarithmic(on);
    });
    connect(m_drawRegion, &QPushButton::clicked, this, [this](bool on) {
        if (on)
            askForRegion();
        else if (m_view)
            m_view->cancelRectangle();
    });
    connect(m_wholePicture, &QPushButton::clicked, this, &BrightnessPanel::clearRegion);
}

void BrightnessPanel::followActiveView()
{
    ImageView* const view = m_delegate.imageView(m_delegate.activeViewId());
    if (view == m_view && view)
        return;
    if (m_view)
        m_view->disconnect(this);
    m_drawRegion->setChecked(false);
    m_view = view;
    setEnabled(view != nullptr);
    if (view) {
        connect(view, &ImageView::pictureChanged, this, &BrightnessPanel::refreshSoon);
        connect(view, &ImageView::brightnessChanged, this, &BrightnessPanel::showBrightness);
        connect(view, &ImageView::regionChanged, this, &BrightnessPanel::refresh);
        connect(view, &ImageView::rectangleModeChanged, this, [this](bool on) {
            if (!on)
                m_drawRegion->setChecked(false);
        });
    }
    refresh();
}

void BrightnessPanel::askForRegion()
{
    if (!m_view)
        return;
    m_view->drawRectangle(this, [view = m_view](const QRect& pixels) {
        if (view)
            view->setRegion(pixels);
    });
    m_drawRegion->setChecked(true);
}

void BrightnessPanel::clearRegion()
{
    if (m_view)
        m_view->setRegion(QRect());
}

void BrightnessPanel::showEvent(QShowEvent*) { refresh(); }

void BrightnessPanel::refreshSoon()
{
    // A first picture at once; the next ones when the time has come.
    if (!m_plot->counts())
        refresh();
    else if (isVisible() && !m_refresh.isActive())
        m_refresh.start();
}

void BrightnessPanel::refresh()
{
    if (!isVisible())
        return;
    const SxPicBuf* const picture = m_view ? m_view->picture() : nullptr;
    m_plot->setCounts(picture ? countValues(*picture, countedPart(*m_view)) : std::nullopt);
    m_counted->setText(countedText(m_view ? m_view->region() : QRect()));
    m_wholePicture->setEnabled(m_view && !m_view->region().isEmpty());
    showBrightness();
}

void BrightnessPanel::showBrightness()
{
    if (!m_view || !m_view->picture())
        return;
    const QSignalBlocker blocked(m_mode);
    m_mode->setCurrentIndex(static_cast<int>(m_view->brightness().mode));
    const ValueRange range = m_view->shownRange();
    setValueBoxes(range);
    m_plot->setRange(range);
}

void BrightnessPanel::setValueBoxes(const ValueRange& range)
{
    const SxPicBuf& picture = *m_view->picture();
    const int decimals = isFloatingPoint(picture) ? decimalsFor(range) : 0;
    for (auto [box, value] : {std::pair(m_black, range.black), std::pair(m_white, range.white)}) {
        if (box->hasFocus())
            continue; // the user is writing
        const QSignalBlocker blocked(box);
        box->setDecimals(decimals);
        box->setSingleStep(decimals > 0 ? (range.white - range.black) / 100.0 : 1.0);
        box->setValue(value);
    }
}

void BrightnessPanel::choose(const ValueRange& range)
{
    if (m_view)
        m_view->setBrightness({Mode::Chosen, range});
}

void BrightnessPanel::chooseMode(int index)
{
    if (!m_view)
        return;
    // What was found is what one begins to choose from.
    const ValueRange found = m_view->shownRange();
    m_view->setBrightness({static_cast<Mode>(index), found});
}

} // namespace vistrel
