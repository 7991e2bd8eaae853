// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A series as text on the system's clipboard.
#include "FuncGraph/GraphClipboard.h"

#include "FuncGraph/GraphMessages.h"
#include "FuncGraph/UserInterface.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

namespace graph_clipboard {

QString textOf(const CxGraphData::CxSeries& series)
{
    QString text = QStringLiteral("x\ty\n");
    const QString line = QStringLiteral("%1\t%2\n");
    for (const QPointF& point : series.points)
        text += line.arg(point.x(), 0, 'g', 16).arg(point.y(), 0, 'g', 16);
    return text;
}

const char* copy(const CxGraphData::CxSeries& series)
{
    if (!user_interface::hasClipboard())
        return nullptr;
    if (!user_interface::isGuiThread())
        return graph_messages::wrongThread;
    QGuiApplication::clipboard()->setText(textOf(series), QClipboard::Clipboard);
    return nullptr;
}

} // namespace graph_clipboard
