// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One feature of a camera in the panel: name, editor, unit, and what the camera said.
#pragma once

#include "cameras/CameraFeatures.h"

#include <QtWidgets/QWidget>

class QLabel;

namespace vistrel {

class ValueEditor;

class ParameterRow : public QWidget {
    Q_OBJECT

public:
    explicit ParameterRow(FeatureDescription feature, QWidget* parent = nullptr);

    const FeatureDescription& feature() const { return m_feature; }
    void showState(const FeatureState& state);
    /// Says below the value why another one was refused; with an empty reason nothing any more.
    void showRefusal(const QString& reason);

    /// Whether the camera has been asked for the state that is shown.
    bool isRead() const { return m_isRead; }
    /// Whether a person sees it, as far as it lies in what is scrolled into sight.
    bool isInSight() const { return isVisible() && !visibleRegion().isEmpty(); }

Q_SIGNALS:
    void entered(const vistrel::NodeValue& value);

private:
    QString stateText(const FeatureState& state) const;

    const FeatureDescription m_feature;
    QLabel* m_name;
    ValueEditor* m_editor;
    QLabel* m_unit;
    QLabel* m_refusal;
    bool m_isRead = false;
};

/// What is wrong stands out in this colour, on light and on dark.
QColor warningColour(const QPalette& palette);

} // namespace vistrel
