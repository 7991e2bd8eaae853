// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What comes from the active view's camera, in a line.
#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QLabel>

#include <chrono>
#include <deque>

namespace vistrel {

class HostApplication;
class ImageView;

/// Frames a second over the last two seconds.
class FrameRateMeter {
public:
    using Clock = std::chrono::steady_clock;

    /// How many frames there were at a time. Fewer than before: another stream has begun.
    void note(quint64 frames, Clock::time_point time);
    /// 0 until there is something to compare with.
    double rate() const;
    void clear() { m_notes.clear(); }

private:
    struct Note {
        quint64 frames;
        Clock::time_point time;
    };
    std::deque<Note> m_notes;
};

/// Empty while the active view has no camera that streams.
class LiveStatus : public QLabel {
    Q_OBJECT

public:
    /// The host must outlive the label.
    explicit LiveStatus(HostApplication& host, QWidget* parent = nullptr);

private:
    void follow();
    QString textFor(ImageView& view);

    HostApplication& m_host;
    void* m_camera = nullptr; ///< whose frames are counted
    FrameRateMeter m_meter;
    QTimer m_timer;
};

} // namespace vistrel
