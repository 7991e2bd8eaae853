// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Where a script's output waits for the window.
#pragma once

#include <QtCore/QString>

#include <mutex>

namespace vistrel {

/// Takes text from any thread and gives it out in larger pieces. However much is written between
/// two calls of take(), it keeps no more than its last lines.
class OutputBuffer {
public:
    struct Piece {
        QString text;
        qint64 cutLines; ///< lines before the text that were not kept
    };

    explicit OutputBuffer(int lines)
        : m_lines(lines)
    {
    }

    void append(const QString& text);
    /// The first lines of what waits, at most that many, and all there is after the last line end.
    Piece take(qint64 most);
    /// All that waits.
    Piece takeAll() { return take(m_lines); }

private:
    QString takeLines(qint64 most);
    void cut();

    const qint64 m_lines;
    std::mutex m_mutex; // guards the following
    QString m_text;
    qint64 m_lineEnds = 0; // in m_text
    qint64 m_cutLines = 0;
};

} // namespace vistrel
