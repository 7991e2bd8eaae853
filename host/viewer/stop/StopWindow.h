// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The window that ends a script while the viewer itself cannot answer.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

class QLabel;
class QPushButton;

namespace vistrel {

/// Lives in a small process of its own, because a script that only computes holds the viewer's user
/// interface. It hears from the viewer line by line and shows itself when a run is on and the
/// viewer has not been heard of for a while.
class StopWindow : public QWidget {
    Q_OBJECT

public:
    /// How long the viewer may be silent.
    static constexpr int patienceMs = 2000;

    StopWindow();

    /// Takes a line from the viewer: "run NAME" when a script starts, "alive" now and then while
    /// the viewer answers, "stop" when the user has asked there, "end" when the script has ended.
    void take(const QByteArray& line);

Q_SIGNALS:
    /// The user wants the script to end.
    void stopRequested();

private:
    void begin(const QString& name);
    void end();
    void showWaiting();
    void noteRequest();
    void showTime();

    QLabel* m_text;
    QLabel* m_time;
    QPushButton* m_button;
    QTimer m_silence;
    QTimer m_clock;
    QElapsedTimer m_sinceStart;
    bool m_running = false;
};

} // namespace vistrel
