// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The reference host's cameras: GigE Vision and USB3 Vision devices and a simulated one, by Aravis.
#pragma once

#include "cameras/CameraValues.h"

#include <CxCameraManager.h>
#include <CxShadingPreset.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <atomic>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

class CxImageData;

namespace vistrel {

class AravisSystem;
class Camera;
class CameraFeatures;
class LongWork;
class Mailbox;
struct DeviceEntry;

/// A camera that was found, opened or not.
struct CameraListing {
    QString id; ///< what open() takes
    QString vendor;
    QString model;
    QString serialNumber;
};

/// Numbers of a stream since it was started.
struct StreamStatistics {
    quint64 framesTaken = 0;
    quint64 framesDropped = 0; ///< incomplete, lost on the way, unusable, or the sink was late
};

/// Receives every complete frame, on the camera's stream thread. It must return soon and must not
/// throw: while it is late by more than a few frames, frames are dropped; stop() waits for it.
using FrameSink = std::function<void(std::unique_ptr<CxImageData>)>;

/// Opens, streams and closes cameras. GUI thread, if not said otherwise.
class CameraManager : public QObject, public CxCameraManager {
    Q_OBJECT

public:
    /// The id of the simulated camera that is part of this program.
    static constexpr char simulatedId[] = "sim";

    CameraManager();
    /// Stops all streams and closes all cameras. A camera that does not answer any more is let go
    /// of afterwards, on a thread that nobody waits for.
    ~CameraManager() override;

    /// Looks for cameras on all interfaces; takes about a second. The simulated one comes last.
    std::vector<CameraListing> discover();

    /// Opens a camera by its Aravis id, or the simulated one. Returns its handle, or null with the
    /// reason in `error`. With `simulatedId` no other interface is searched.
    void* open(const QString& id, QString& error);
    /// What discover() and open() do, while the event loop goes on; it calls back when there is
    /// a result, unless the manager goes before.
    void discoverInBackground(std::function<void(std::vector<CameraListing>)> onFound);
    void openInBackground(const QString& id,
                          std::function<void(void* cameraHandle, const QString& error)> onOpened);
    /// Stops and closes a camera; its handle is dead afterwards. It can be opened again at once,
    /// unless it did not answer: it is waited for 3 seconds at most. Unknown handles are ignored.
    void close(void* cameraHandle);
    /// Gives a camera its defaults (its own, or what it had when it was opened first), closes it
    /// and opens it again, under a new handle: later, from the event loop, and again for half a
    /// minute when it is not back at once. It is looked for on another thread. False, with a line
    /// in the log, for an unknown handle and a camera that is lost.
    bool restartWithDefaults(void* cameraHandle);

    /// Starts the stream; true also when it runs already (the sink is kept then). False with the
    /// reason in `error` when the camera refuses or the handle is unknown.
    bool start(void* cameraHandle, FrameSink sink, QString& error);
    /// Stops the stream; when it returns the sink is not called any more.
    void stop(void* cameraHandle);
    bool isStreaming(void* cameraHandle) const;
    StreamStatistics statistics(void* cameraHandle) const;

    QList<void*> openedCameras() override;
    unsigned openedCameraCount() override;
    CxCameraParameters* cameraParameters(void* cameraHandle) override;
    /// What an opened camera was opened by; empty for every handle of none.
    QString idOf(void* cameraHandle) const;
    /// The same parameters for whoever shows them; null likewise.
    CameraFeatures* features(void* cameraHandle);

Q_SIGNALS:
    /// The connection to a camera broke; it has been closed and its handle is dead. Emitted on the
    /// GUI thread.
    void cameraLost(void* cameraHandle, const QString& description);
    /// A camera is about to be closed, lost or not; its handle still resolves.
    void cameraClosing(void* cameraHandle);

private:
    /// What stays of a camera while it is closed.
    struct Kept {
        CameraValues defaults; ///< empty when the camera keeps its own
        QList<CxShadingPreset> presets;
    };
    /// A camera that has been closed and is to be opened again.
    struct Restart {
        QDeadlineTimer limit;
        std::unique_ptr<LongWork> work;
    };
    using Entries = std::vector<DeviceEntry>;

    void* openFound(const Entries& entries, const QString& id, QString& error);
    bool isOpen(const QString& id) const;
    void* add(std::unique_ptr<Camera> camera);
    Kept& keptOf(Camera& camera);
    void openAgain(const QString& id);
    void searchInBackground(const QString& id, std::function<void(const Entries&)> onFound);
    void openIfFound(const Entries& entries, const QString& id);
    Camera* find(const void* cameraHandle) const;
    std::unique_ptr<Camera> take(const Camera* camera);
    void closeLostCameras();
    void closeLost(Camera* camera);

    std::unique_ptr<AravisSystem> m_aravis;
    std::shared_ptr<Mailbox> m_mailbox; ///< for other threads
    std::vector<std::unique_ptr<Camera>> m_cameras;
    // A handle is the address of an element. None is used twice, so that a handle of a closed
    // camera never names another one.
    std::deque<char> m_handles;
    std::map<QString, Kept> m_kept;          ///< by model and serial number
    std::map<QString, Restart> m_restarts;   ///< by the cameras' ids
    std::atomic<unsigned> m_cameraCount = 0; ///< for other threads
};

} // namespace vistrel
