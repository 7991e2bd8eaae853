// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What scripts print.
#pragma once

#include "viewer/scripts/OutputBuffer.h"

#include <QtWidgets/QWidget>

class QLabel;
class QPlainTextEdit;
class QTimer;

namespace vistrel {

/// Shows the last lines of the output, and says when it has cut lines before them. Text may come
/// from any thread and as fast as it likes: it is shown a few times a second.
class OutputPane : public QWidget {
    Q_OBJECT

public:
    /// How many lines are kept.
    static constexpr int keptLines = 10'000;

    explicit OutputPane(QWidget* parent = nullptr);

    /// Takes text. Any thread.
    void append(const QString& text) { m_buffer.append(text); }
    /// Shows now what waits to be shown; of a flood only the next lines, the others follow.
    void flush();
    void clear();

    /// What is shown.
    QString text() const;
    /// Lines that were written but are not shown any more.
    qint64 cutLines() const { return m_cutLines; }

private:
    void noteCutLines();

    OutputBuffer m_buffer{keptLines};
    QPlainTextEdit* m_view;
    QLabel* m_note;
    QTimer* m_timer;
    qint64 m_shownLineEnds = 0; // of all that has been given to the view
    qint64 m_cutLines = 0;
};

} // namespace vistrel
