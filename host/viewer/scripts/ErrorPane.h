// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What a script wrote to its error stream, with its tracebacks as links.
#pragma once

#include "viewer/scripts/TracebackLines.h"

#include <QtCore/QList>
#include <QtWidgets/QTextBrowser>

namespace vistrel {

class ErrorPane : public QTextBrowser {
    Q_OBJECT

public:
    /// How many lines are shown, the last ones.
    static constexpr int keptLines = 2000;

    explicit ErrorPane(QWidget* parent = nullptr);

    /// Shows the text of a run, and says how many lines before its last ones are left out; an empty
    /// text clears the pane.
    void showErrors(const QString& errors);

Q_SIGNALS:
    /// A line of a traceback was clicked.
    void placeChosen(const vistrel::SourcePlace& place);

private:
    QString htmlOf(const QString& line);

    QList<SourcePlace> m_places; // a link's text is an index of this list
};

} // namespace vistrel
