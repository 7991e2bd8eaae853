// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Two palettes for Qt's own style, which takes all its colours from them.
#include "viewer/window/Theme.h"

#include <QtCore/QSettings>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>

namespace vistrel {

namespace {

const char* const settingsKey = "darkTheme";
constexpr int darkestLight = 128; // a window darker than this is a dark desktop's

QPalette lightPalette()
{
    QPalette palette(QColor(0xf0, 0xf1, 0xf3), QColor(0xf0, 0xf1, 0xf3));
    palette.setColor(QPalette::Base, QColor(Qt::white));
    palette.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf7, 0xf9));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb7));
    palette.setColor(QPalette::HighlightedText, QColor(Qt::white));
    palette.setColor(QPalette::Dark, QColor(0xb4, 0xb9, 0xc0));
    palette.setColor(QPalette::Link, QColor(0x1d, 0x5f, 0xa8));
    palette.setColor(QPalette::PlaceholderText, QColor(0x80, 0x86, 0x8c));
    return palette;
}

QPalette darkPalette()
{
    QPalette palette(QColor(0x33, 0x37, 0x3d), QColor(0x2a, 0x2d, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1f, 0x22, 0x26));
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x29, 0x2e));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x7f, 0xc4));
    palette.setColor(QPalette::HighlightedText, QColor(Qt::white));
    palette.setColor(QPalette::Dark, QColor(0x16, 0x18, 0x1b));
    palette.setColor(QPalette::Link, QColor(0x7c, 0xbc, 0xf2));
    palette.setColor(QPalette::PlaceholderText, QColor(0x8a, 0x90, 0x97));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(0xdd, 0xe0, 0xe4));
        palette.setColor(QPalette::Disabled, role, QColor(0x77, 0x7d, 0x84));
    }
    return palette;
}

} // namespace

void setDarkTheme(bool dark)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(dark ? darkPalette() : lightPalette());
}

void chooseDarkTheme(bool dark)
{
    setDarkTheme(dark);
    QSettings().setValue(QLatin1String(settingsKey), dark);
}

bool isDarkThemeChosen()
{
    const QPalette desktop = QApplication::palette();
    const bool isDark = desktop.color(QPalette::Window).lightness() < darkestLight;
    return QSettings().value(QLatin1String(settingsKey), isDark).toBool();
}

} // namespace vistrel
