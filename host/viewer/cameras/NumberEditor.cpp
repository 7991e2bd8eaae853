// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A slider and a field for a number.
#include "viewer/cameras/NumberEditor.h"

#include "viewer/cameras/NumberField.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QSlider>

#include <cmath>

namespace vistrel {

namespace {

/// A camera over a network answers in less; a size restarts its stream and takes more.
constexpr int pauseMs = 40;
/// A register of 32 bits is no number that people choose on a slider.
constexpr double widestRange = 1e9;

bool hasWay(const FeatureState& state)
{
    const auto least = asNumber(state.limits.minimum);
    const auto greatest = asNumber(state.limits.maximum);
    return least && greatest && *greatest > *least && *greatest - *least <= widestRange
           && asNumber(state.value);
}

} // namespace

NumberEditor::NumberEditor(QWidget* parent)
    : ValueEditor(parent)
    , m_slider(new QSlider(Qt::Horizontal, this))
    , m_field(new NumberField(this))
{
    setParts({m_slider, m_field});
    setFocusProxy(m_field);
    m_pause.setSingleShot(true);
    connect(m_field, &NumberField::entered, this,
            [this](const QString& text) { Q_EMIT entered(text); });
    connect(m_slider, &QSlider::valueChanged, this, [this] {
        if (!m_pause.isActive())
            m_pause.start(pauseMs);
    });
    connect(m_slider, &QSlider::sliderReleased, this, [this] {
        if (m_pause.isActive())
            enterFromSlider();
    });
    connect(&m_pause, &QTimer::timeout, this, &NumberEditor::enterFromSlider);
}

void NumberEditor::showState(const FeatureState& state)
{
    m_isWhole = std::holds_alternative<qint64>(state.value);
    m_field->setReadOnly(!state.isWritable);
    m_field->setButtonSymbols(state.isWritable ? QAbstractSpinBox::UpDownArrows
                                               : QAbstractSpinBox::NoButtons);
    m_field->showNumber(state.value, state.limits);
    m_slider->setVisible(state.isWritable && hasWay(state));
    if (!m_slider->isHidden() && !m_slider->isSliderDown() && !m_pause.isActive())
        showSlider(state);
}

void NumberEditor::showSlider(const FeatureState& state)
{
    const QSignalBlocker quiet(m_slider);
    m_scale = SliderScale(asNumber(state.limits.minimum).value_or(0.0),
                          asNumber(state.limits.maximum).value_or(0.0),
                          asNumber(state.limits.increment).value_or(0.0));
    m_slider->setRange(0, m_scale.lastPosition());
    m_slider->setPageStep(std::max(1, m_scale.lastPosition() / 10));
    m_slider->setValue(m_scale.positionOf(asNumber(state.value).value_or(0.0)));
}

void NumberEditor::enterFromSlider()
{
    m_pause.stop();
    const double number = m_scale.numberAt(m_slider->value());
    if (m_isWhole)
        Q_EMIT entered(static_cast<qint64>(std::llround(number)));
    else
        Q_EMIT entered(number);
}

} // namespace vistrel
