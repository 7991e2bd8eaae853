// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The way of a camera's frames from its stream thread to the user interface.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class CxImageData;

namespace vistrel {

class CameraManager;
class Chain;

/// Sends a camera's frames through a chain and keeps the newest one that comes out until somebody
/// takes it. The camera's thread never waits: a frame that nobody took in time is overwritten by
/// the next one, and counted.
///
/// Belongs to the GUI thread. When the camera is closed or lost the stream ends by itself.
class LiveStream : public QObject {
    Q_OBJECT

public:
    /// Manager and chain must outlive the stream, which is the only one of its chain; the handle is
    /// that of an opened camera.
    LiveStream(CameraManager& cameras, void* cameraHandle, Chain& chain);
    /// Stops the camera's stream.
    ~LiveStream() override;

    /// Shows a camera that was opened again, under another handle; the one before has been closed.
    void follow(void* cameraHandle) { m_camera = cameraHandle; }
    /// Whether it has lost its camera, and this one, opened now, is the same device.
    bool showedDevice(void* cameraHandle) const;
    /// The camera's handle; null as soon as the camera has been closed.
    void* camera() const { return m_camera; }
    /// Starts the camera; true also when it streams already. False with the reason in `error`.
    bool start(QString& error);
    /// Stops the camera and returns when its last frame is through the chain; a frame that waits to
    /// be taken stays.
    void stop();
    bool isStreaming() const;
    /// Frames a second as the camera is set; 0 when it cannot tell.
    double frameRate() const;

    /// The newest frame, null when it has been taken already.
    std::unique_ptr<CxImageData> takeNewest();
    /// How many frames nobody took. Any thread.
    quint64 overwrittenFrames() const;

Q_SIGNALS:
    /// A frame waits to be taken. One call stands for all frames since the last takeNewest().
    void frameReady();
    /// The camera does not stream any more.
    void stopped();
    /// Emitted on the stream's thread; frameReady() follows on the GUI thread.
    void frameArrived();

private:
    class Slot;

    void announce();
    void detach(void* closingCamera);

    CameraManager& m_cameras;
    void* m_camera;
    const QString m_device;
    Chain& m_chain;
    std::shared_ptr<Slot> m_slot; // shared with the end of the chain
};

} // namespace vistrel
