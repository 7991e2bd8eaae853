// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Records what comes out of a chain into a film file.
#pragma once

#include "chains/FrameWorker.h"

#include <QtCore/QString>

#include <atomic>
#include <memory>

class CxImageData;

namespace vistrel {

class FilmWriter;

/// Writes on a thread of its own. When a camera's pictures come faster than they can be encoded,
/// whole ones are dropped, counted, and the count is logged at the end. GUI thread, if not said
/// otherwise.
class FilmRecorder {
public:
    /// Makes ready to record: checks the ending (.avi or .mp4), makes missing folders, loads what
    /// writes films. The film itself begins with the first picture. Null with the reason in
    /// `error`, also when another recording writes that file.
    static std::shared_ptr<FilmRecorder> start(const QString& path, double framesPerSecond,
                                               QString& error);
    /// Ends the film.
    ~FilmRecorder();
    FilmRecorder(const FilmRecorder&) = delete;
    FilmRecorder& operator=(const FilmRecorder&) = delete;

    /// Takes a copy of a picture, unless too many wait already. Returns soon. Any thread.
    void take(CxImageData& image);
    /// The same for a picture that is shown once and behind which no camera waits: while too many
    /// wait already, waits for room first, as long as the disk is not stuck altogether.
    void takeStill(CxImageData& image);
    /// Writes what waits and ends the film; afterwards the file can be played. A file that no
    /// picture has come for is removed if it was not there before.
    void finish();
    /// False when it was finished, and when it ended by itself because the disk is full or the
    /// film could not be written: that is logged. Any thread.
    bool isRecording() const { return m_recording; }

private:
    class Claim;

    FilmRecorder(std::unique_ptr<Claim> claim, double framesPerSecond);
    void write(CxImageData& image);
    bool writeTo(CxImageData& image, QString& error);
    void endEarly(const QString& reason);
    void report() const;

    std::unique_ptr<Claim> m_claim; ///< until it is finished
    const double m_framesPerSecond;
    std::unique_ptr<FilmWriter> m_writer; ///< the worker's while there is one
    quint64 m_written = 0;                ///< likewise
    bool m_ended = false;                 ///< likewise: ended by itself
    std::atomic<bool> m_recording{true};
    std::atomic<quint64> m_dropped{0};
    FrameWorker m_worker; // last: it ends first
};

} // namespace vistrel
