// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of one processing element, for changing.
#pragma once

#include "viewer/chains/SettingField.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <vector>

class QFormLayout;

namespace vistrel {

class ChainElement;

/// Has a field for each setting, under the name that scripts give it. A change takes effect at
/// once, also while frames stream. GUI thread.
class ElementForm : public QWidget {
    Q_OBJECT

public:
    explicit ElementForm(QWidget* parent = nullptr);

    /// Shows an element as it is now; null: nothing. It may go while it is shown.
    void showElement(ChainElement* element);

private:
    void makeFields();
    void showValues();
    void change(std::size_t place, double value);

    QPointer<ChainElement> m_element;
    QFormLayout* m_layout;
    std::vector<SettingField> m_fields; // one for each setting of the element
};

} // namespace vistrel
