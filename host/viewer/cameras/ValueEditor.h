// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What a camera's feature is shown by and set with.
#pragma once

#include "cameras/CameraFeatures.h"

#include <QtWidgets/QWidget>

namespace vistrel {

/// It shows what the camera has: what was entered comes into it by the next showState() only.
class ValueEditor : public QWidget {
    Q_OBJECT

public:
    /// The kind that a feature asks for; the parent's.
    static ValueEditor* make(const FeatureDescription& feature, QWidget* parent);

    /// What somebody is about to enter is left alone.
    virtual void showState(const FeatureState& state) = 0;

Q_SIGNALS:
    /// A person wants the feature to have this value; it may be one that is refused.
    void entered(const vistrel::NodeValue& value);

protected:
    using QWidget::QWidget;
    /// Lays out the parts in a row, the first one as wide as there is room. The wheel turns them
    /// only when they have been clicked, so that scrolling past them changes nothing.
    void setParts(std::initializer_list<QWidget*> parts);

private:
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace vistrel
