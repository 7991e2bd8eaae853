// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A field for a number that takes every text and leaves the judgement to the camera.
#pragma once

#include "cameras/NodeResult.h"

#include <QtWidgets/QAbstractSpinBox>

namespace vistrel {

/// Not one of Qt's number fields: they hold 32 bits or a fixed count of decimals, and drop what is
/// out of their limits without a word.
class NumberField : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit NumberField(QWidget* parent = nullptr);

    /// What somebody is typing is left alone until it is entered or given up (Escape).
    void showNumber(const NodeValue& value, const NodeLimits& limits);

    void stepBy(int steps) override;
    QSize sizeHint() const override;

Q_SIGNALS:
    /// A text was typed, or a step taken.
    void entered(const QString& text);

protected:
    StepEnabled stepEnabled() const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void enterTyped();
    QString stepped(int steps) const;

    bool m_isTyped = false; ///< and not entered yet; Return makes the text count as unmodified
    NodeValue m_value;
    NodeLimits m_limits;
};

} // namespace vistrel
