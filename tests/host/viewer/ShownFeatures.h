// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What tests find in the panel of a camera's parameters.
#pragma once

#include "viewer/cameras/ParameterPanel.h"
#include "viewer/cameras/ParameterRow.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

#include <gtest/gtest.h>

namespace vistrel {

/// Opens or closes a heading by a click.
inline void clickHeading(ParameterPanel& panel, const QString& title)
{
    for (QToolButton* button : panel.findChildren<QToolButton*>()) {
        if (button->text() == title)
            return QTest::mouseClick(button, Qt::LeftButton);
    }
    ADD_FAILURE() << "no heading " << qPrintable(title);
}

/// A feature's part of the panel, of the kind that it is shown by.
template<class Part>
Part& partOf(ParameterPanel& panel, const QString& feature)
{
    ParameterRow* row = panel.row(feature);
    Part* part = row ? row->findChild<Part*>() : nullptr;
    if (!part)
        throw std::runtime_error("no such part of " + feature.toStdString());
    return *part;
}

inline QLineEdit& fieldOf(ParameterPanel& panel, const QString& feature)
{
    return partOf<QLineEdit>(panel, feature);
}

/// Types a value into a feature's field, and presses Return.
inline void enter(ParameterPanel& panel, const QString& feature, const QString& text)
{
    QLineEdit& field = fieldOf(panel, feature);
    QTest::mouseDClick(&field, Qt::LeftButton);
    field.selectAll();
    QTest::keyClicks(&field, text);
    QTest::keyClick(&field, Qt::Key_Return);
}

/// All that a feature's row says.
inline std::string textsOf(ParameterPanel& panel, const QString& feature)
{
    QStringList texts;
    for (const QLabel* label : panel.row(feature)->findChildren<QLabel*>())
        if (label->isVisible())
            texts.append(label->text());
    return texts.join(u'|').toStdString();
}

} // namespace vistrel
