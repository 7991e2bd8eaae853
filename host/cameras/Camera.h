// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One opened camera: its device, its parameters, its stream, and the watch over its connection.
#pragma once

#include "cameras/AravisHandles.h"
#include "cameras/AravisSystem.h"
#include "cameras/CameraConnection.h"
#include "cameras/CameraParameters.h"
#include "cameras/CameraStream.h"

#include <memory>

namespace vistrel {

/// GUI thread, but it may be destroyed on any.
class Camera {
public:
    /// Opens a device that was found. Null with the reason in `error` when it does not let itself
    /// be opened.
    /// @param handle  what the host names it by.
    static std::unique_ptr<Camera> open(const DeviceEntry& entry, const QString& id, void* handle,
                                        CameraConnection::LostHandler onLost, QString& error);
    Camera(const Camera&) = delete;
    Camera& operator=(const Camera&) = delete;
    /// Stops and closes it; takes up to ten seconds when the connection broke.
    ~Camera();

    void* handle() const { return m_handle; }
    /// The id by which it was found and is opened.
    const QString& id() const { return m_id; }
    /// "model (id)", for people.
    QString description() const;
    /// Whether the connection broke. Any thread.
    bool lost() const { return !m_connection->alive(); }

    /// Stops the stream; the sink is not called any more. Returns soon, lost or not.
    void stopStream();

    CameraParameters& parameters() { return m_parameters; }
    CameraStream& stream() { return m_stream; }
    const CameraStream& stream() const { return m_stream; }

private:
    Camera(ObjectRef<ArvCamera> camera, const DeviceEntry& entry, QString id, void* handle,
           CameraConnection::LostHandler onLost);
    void watchConnection();
    static void onControlLost(ArvDevice* device, void* connection);

    QString m_id;
    void* m_handle;
    // Shared with the signal's closure, which Aravis may hold a little longer than the device.
    std::shared_ptr<CameraConnection> m_connection;
    ObjectRef<ArvDevice> m_device;
    ObjectRef<ArvCamera> m_camera;
    gulong m_signal = 0;
    CameraStream m_stream;
    CameraParameters m_parameters;
};

} // namespace vistrel
