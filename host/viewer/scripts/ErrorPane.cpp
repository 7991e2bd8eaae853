// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Each line of a traceback that names a place becomes a link to it.
#include "viewer/scripts/ErrorPane.h"

#include <QtCore/QUrl>
#include <QtGui/QFontDatabase>

namespace vistrel {

ErrorPane::ErrorPane(QWidget* parent)
    : QTextBrowser(parent)
{
    setOpenLinks(false);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(this, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& link) { Q_EMIT placeChosen(m_places.at(link.path().toInt())); });
}

void ErrorPane::showErrors(const QString& errors)
{
    m_places.clear();
    QStringList lines = errors.split(u'\n');
    for (QString& line : lines)
        line = htmlOf(line);
    setHtml(QStringLiteral("<pre>") + lines.join(u'\n') + QStringLiteral("</pre>"));
    moveCursor(QTextCursor::End);
}

QString ErrorPane::htmlOf(const QString& line)
{
    const std::optional<SourcePlace> place = sourcePlaceOf(line);
    if (!place)
        return line.toHtmlEscaped();
    m_places.append(*place);
    return QStringLiteral("<a href=\"place:%1\">%2</a>")
        .arg(m_places.size() - 1)
        .arg(line.toHtmlEscaped());
}

} // namespace vistrel
