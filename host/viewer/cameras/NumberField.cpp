// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Typing, and steps by arrows and keys.
#include "viewer/cameras/NumberField.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vistrel {

namespace {

/// A step that changes the second digit, for numbers that have no steps of their own.
double handyStep(double number)
{
    constexpr double smallest = 1e-3;
    const double size = std::fabs(number);
    return size > smallest ? std::pow(10.0, std::floor(std::log10(size)) - 1.0) : smallest;
}

double heldAt(double number, const NodeLimits& limits)
{
    const double least = asNumber(limits.minimum).value_or(number);
    const double greatest = asNumber(limits.maximum).value_or(number);
    return std::max(least, std::min(number, greatest));
}

} // namespace

NumberField::NumberField(QWidget* parent)
    : QAbstractSpinBox(parent)
{
    setAlignment(Qt::AlignRight);
    setKeyboardTracking(false);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { m_isTyped = true; });
    connect(this, &QAbstractSpinBox::editingFinished, this, &NumberField::enterTyped);
}

void NumberField::showNumber(const NodeValue& value, const NodeLimits& limits)
{
    m_value = value;
    m_limits = limits;
    const QString text = valueText(value);
    if (!m_isTyped && lineEdit()->text() != text)
        lineEdit()->setText(text);
}

void NumberField::stepBy(int steps)
{
    if (asNumber(m_value))
        Q_EMIT entered(stepped(steps));
}

// Whole numbers by themselves: a double holds 53 bits.
QString NumberField::stepped(int steps) const
{
    if (const qint64* whole = std::get_if<qint64>(&m_value)) {
        const qint64 step = std::max<qint64>(1, asInteger(m_limits.increment).value_or(1));
        const auto number =
            static_cast<qint64>(static_cast<quint64>(*whole)
                                + static_cast<quint64>(step) * static_cast<quint64>(steps));
        const qint64 least = asInteger(m_limits.minimum).value_or(number);
        const qint64 greatest = asInteger(m_limits.maximum).value_or(number);
        return QString::number(std::max(least, std::min(number, greatest)));
    }
    const double number = asNumber(m_value).value_or(0.0);
    const double step = asNumber(m_limits.increment).value_or(handyStep(number));
    // Sums of decimal steps are no decimals; ten digits are enough for a step.
    const double sum = QString::number(number + step * steps, 'g', 10).toDouble();
    return valueText(heldAt(sum, m_limits));
}

QSize NumberField::sizeHint() const
{
    const QSize digits(fontMetrics().horizontalAdvance(QStringLiteral("000000000000")), 0);
    return digits.expandedTo(QAbstractSpinBox::minimumSizeHint());
}

QAbstractSpinBox::StepEnabled NumberField::stepEnabled() const
{
    const auto number = asNumber(m_value);
    if (isReadOnly() || !number)
        return StepNone;
    StepEnabled steps;
    steps.setFlag(StepUpEnabled, *number < asNumber(m_limits.maximum).value_or(HUGE_VAL));
    steps.setFlag(StepDownEnabled, *number > asNumber(m_limits.minimum).value_or(-HUGE_VAL));
    return steps;
}

void NumberField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape || !m_isTyped)
        return QAbstractSpinBox::keyPressEvent(event);
    m_isTyped = false;
    showNumber(m_value, m_limits);
}

void NumberField::enterTyped()
{
    if (std::exchange(m_isTyped, false))
        Q_EMIT entered(lineEdit()->text().trimmed());
}

} // namespace vistrel
