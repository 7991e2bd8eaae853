// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Lets GoogleTest print Qt's texts.
#pragma once

#include <QtCore/QString>

#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE
