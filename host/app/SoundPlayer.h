// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the sounds module offers: playing files on the system's audio device.
#pragma once

#include <QtCore/QString>

#include <functional>

namespace vistrel {

/// Made, used and destroyed on one thread that has an event loop. Its end cuts what still plays.
class SoundPlayer {
public:
    /// Told once for every sound: an empty text when it was played to its end, the reason when it
    /// was not. It may be called within play(), and not any more once the player's end has begun.
    using Ended = std::function<void(const QString& reason)>;

    virtual ~SoundPlayer() = default;

    /// Begins to play a file, besides what plays already.
    virtual void play(const QString& path, Ended ended) = 0;
};

/// Name and type of the one function that the module exports. The player belongs to the caller.
inline constexpr char soundPlayerEntry[] = "vistrel_makeSoundPlayer";
using SoundPlayerEntry = SoundPlayer* (*)();

} // namespace vistrel
