// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The viewer's side of the Stop window, which is a process of its own.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QProcess>
#include <QtCore/QTimer>

namespace vistrel {

/// Tells the companion process when a script runs and that the viewer is alive. Where the process
/// cannot be started, scripts run without it, and the log says so once.
class StopCompanion : public QObject {
    Q_OBJECT

public:
    /// The companion of this program, in a build tree or installed.
    static QString programFile();

    explicit StopCompanion(const QString& program = programFile(), QObject* parent = nullptr);
    /// Ends the process.
    ~StopCompanion() override;

    /// A script starts.
    void begin(const QString& name);
    /// The user has asked in the viewer for its end.
    void noteRequest() { send("stop"); }
    void end();

Q_SIGNALS:
    /// The user has asked in the companion; the script has been interrupted already.
    void stopRequested();

private:
    void send(const QByteArray& line);

    QString m_program;
    QProcess m_process;
    QTimer m_beat;
};

} // namespace vistrel
