// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a camera still answers, shared by everybody who speaks to it.
#pragma once

#include <atomic>
#include <functional>

namespace vistrel {

class ArvFailure;

/// Every call to a dead network camera takes seconds. So the first one that gets no answer breaks
/// the connection for good, and all others are spared. Any thread.
class CameraConnection {
public:
    /// Called once, on the thread that noticed, when the connection broke. It must not wait for
    /// anything.
    using LostHandler = std::function<void()>;

    explicit CameraConnection(LostHandler onLost);

    /// Whether the camera is worth speaking to.
    bool alive() const { return !m_lost; }
    /// The camera is known not to answer any more.
    void breakOff();
    /// Breaks off when an error says that there was no answer.
    void judge(const ArvFailure& failure);

private:
    std::atomic<bool> m_lost = false;
    LostHandler m_onLost;
};

/// Whether an error says that the camera did not answer.
bool isMissingAnswer(const ArvFailure& failure);

} // namespace vistrel
