// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Plays sound files without holding anybody up.
#pragma once

#include "app/SoundPlayer.h"

#include <QtCore/QObject>
#include <QtCore/QThread>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace vistrel {

/// Sounds have a thread of their own, because a script may keep the GUI thread busy. The thread,
/// and the libraries that play, come with the first sound. What is not played leaves a line in the
/// log. Made and destroyed on the GUI thread.
class Sounds {
public:
    /// Makes the player, on the sounds' thread; null with the reason in the text.
    using Maker = std::function<std::unique_ptr<SoundPlayer>(QString& error)>;

    /// How many sounds may be under way; what comes in addition is not played.
    static constexpr int most = 8;

    Sounds();
    explicit Sounds(Maker maker);
    /// Cuts what still plays.
    ~Sounds();
    Q_DISABLE_COPY_MOVE(Sounds)

    /// Begins to play a file and returns at once. Any thread.
    void play(const QString& path);
    /// Waits until everything has been played; false when that takes longer. Any thread.
    bool waitUntilSilent(std::chrono::milliseconds longest);

private:
    bool enter();
    void begin(const QString& path);
    void end(const QString& path, const QString& reason);

    const Maker m_maker;
    QThread m_thread;
    QObject m_context; // lives in the thread
    // On the thread only.
    std::unique_ptr<SoundPlayer> m_player;
    QString m_noPlayer; // why there is none

    std::mutex m_mutex; // guards the following, and the thread's start
    std::condition_variable m_ended;
    int m_underWay = 0;
};

} // namespace vistrel
