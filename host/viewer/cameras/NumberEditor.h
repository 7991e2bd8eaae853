// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A slider and a field for a number.
#pragma once

#include "viewer/cameras/SliderScale.h"
#include "viewer/cameras/ValueEditor.h"

#include <QtCore/QTimer>

class QSlider;

namespace vistrel {

class NumberField;

/// The slider is there for numbers between two limits that people can choose on a way of its
/// length.
class NumberEditor : public ValueEditor {
    Q_OBJECT

public:
    explicit NumberEditor(QWidget* parent);

    void showState(const FeatureState& state) override;

private:
    void showSlider(const FeatureState& state);
    void enterFromSlider();

    QSlider* m_slider;
    NumberField* m_field;
    SliderScale m_scale;
    bool m_isWhole = false;
    QTimer m_pause; ///< between the values that a moving slider sends
};

} // namespace vistrel
