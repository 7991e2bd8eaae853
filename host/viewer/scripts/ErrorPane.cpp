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
    const qsizetype excess = lines.size() - keptLines - 1; // the last one is empty
    if (excess > 0)
        lines = lines.mid(excess);
    for (QString& line : lines)
        line = htmlOf(line);
    if (excess > 0)
        lines.prepend(tr("%L1 lines before these were cut.").arg(excess));
    setHtml(QStringLiteral("<pre style=\"white-space: pre-wrap\">") + lines.join(u'\n')
            + QStringLiteral("</pre>"));
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
