// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The error lines of the program, kept for somebody who wants to read them.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QObject>

#include <mutex>

namespace vistrel {

/// While it lives it keeps the newest lines that anybody writes to Qt's critical channel; they go
/// where they went before, too. One at a time, made and destroyed on the GUI thread; whoever
/// installs a message handler meanwhile takes it away before.
class ErrorLog : public QObject {
    Q_OBJECT

public:
    struct Line {
        QDateTime time;
        QString text;
    };

    /// How many lines are kept.
    static constexpr qsizetype most = 1000;

    ErrorLog();
    ~ErrorLog() override;

    /// The lines, the oldest first. Any thread.
    QList<Line> lines() const;
    /// Forgets all lines. Any thread.
    void clear();

Q_SIGNALS:
    /// Lines have come or gone. On the GUI thread when it handles events; one call stands for all
    /// that happened since the last one.
    void changed();

private:
    static void take(QtMsgType type, const QMessageLogContext& context, const QString& text);
    void append(const QString& text);
    void announce();

    mutable std::mutex m_mutex; // guards the following
    QList<Line> m_lines;
    bool m_announced = false;
};

} // namespace vistrel
