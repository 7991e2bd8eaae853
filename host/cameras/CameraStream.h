// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The stream of one opened camera: takes its frames and hands them to a sink as images.
#pragma once

#include "cameras/AravisHandles.h"
#include "cameras/CameraManager.h"
#include "cameras/FrameConverter.h"

#include <atomic>
#include <memory>
#include <semaphore>
#include <thread>

namespace vistrel {

class CameraConnection;

/// Aravis receives frames on a thread of its own; a second thread, the stream's, turns them into
/// images and calls the sink. So a slow sink never costs packets of the frame under way: it runs
/// the receiver out of buffers, and whole frames are dropped.
/// Used on one thread at a time, which is never the stream's.
class CameraStream {
public:
    /// @param camera, connection  outlive the stream.
    /// @param id                  of the camera, for messages.
    CameraStream(ArvCamera* camera, CameraConnection& connection, QString id);
    CameraStream(const CameraStream&) = delete;
    CameraStream& operator=(const CameraStream&) = delete;
    ~CameraStream();

    /// Starts, with numbers from 0. False with the reason in `error` when the camera refuses.
    bool start(FrameSink sink, QString& error);
    /// Stops the camera and forgets the sink, which is not called any more. When the camera does
    /// not answer any more, what Aravis holds stays until letGo(), which then takes seconds.
    void stop();
    /// Gives back what Aravis holds; the stream has been stopped.
    void letGo();
    bool running() const { return m_thread.joinable(); }

    /// Stops the camera but keeps sink and numbers, for changes that it refuses while it runs.
    void pause();
    /// Goes on after pause().
    bool resume(QString& error);

    StreamStatistics statistics() const;
    /// Reads anew what goes into the acquisition records of a running stream; for every change of
    /// the camera's settings. Not done frame by frame: over a network it takes longer than a frame
    /// may last, and the camera's nodes bear one thread only.
    void refreshRecordedSettings();

private:
    void readRecordedSettings();
    bool open(QString& error);
    bool createStream(ArvFailure& failure);
    void startAcquisition(ArvFailure& failure);
    void endDelivery();
    void closeStream();
    quint64 underruns() const;

    static void onStreamEvent(void* self, ArvStreamCallbackType type, ArvBuffer* buffer);
    void deliverFrames();
    void deliver(ArvBuffer* buffer);
    std::unique_ptr<CxImageData> tryToMakeImage(ArvBuffer* buffer) noexcept;
    void countMissing(quint64 frameId);
    std::unique_ptr<CxImageData> image(ArvBuffer* buffer);
    void logRefusal(ConvertResult result, ArvPixelFormat format);

    ArvCamera* m_camera;
    CameraConnection& m_connection;
    QString m_id;
    FrameSink m_sink;
    ObjectRef<ArvStream> m_stream;
    quint64 m_earlierUnderruns = 0; ///< from before the last pause

    std::counting_semaphore<> m_finished{0}; ///< buffers that wait for delivery
    std::atomic<bool> m_ending = false;
    std::thread m_thread;

    // Written by the stream's thread.
    std::atomic<quint64> m_taken = 0;
    std::atomic<quint64> m_dropped = 0;
    quint64 m_lastFrameId = 0; ///< 0: none yet
    bool m_refusalLogged = false;

    // Read by the stream's thread.
    std::atomic<double> m_exposureUs = 0.0;
    std::atomic<double> m_gainDb = 0.0;
};

} // namespace vistrel
