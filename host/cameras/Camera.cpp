// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One opened camera: its device, its parameters, its stream, and the watch over its connection.
#include "cameras/Camera.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QRegularExpression>
#include <QtCore/QThread>

#include <chrono>
#include <utility>

namespace vistrel {

namespace {

// Aravis takes out-of-range values in silence unless it is told not to, and writes to read-only
// registers.
void switchChecksOn(ArvDevice* device)
{
    arv_device_set_access_check_policy(device, ARV_ACCESS_CHECK_POLICY_ENABLE);
    arv_device_set_range_check_policy(device, ARV_RANGE_CHECK_POLICY_ENABLE);
}

QString deviceType(const DeviceEntry& entry)
{
    return entry.id == QLatin1String(AravisSystem::simulatedDevice) ? QStringLiteral("Simulated")
                                                                    : entry.protocol;
}

// A network camera's hardware address alone may be the same twice: simulated ones have none.
QString instancePath(const DeviceEntry& entry)
{
    if (entry.protocol != u"GigEVision")
        return entry.physicalId;
    return QStringLiteral("%1@%2").arg(entry.physicalId, entry.address);
}

QString userId(ArvCamera* camera)
{
    constexpr char node[] = "DeviceUserID";
    if (!arv_camera_is_feature_available(camera, node, nullptr))
        return {};
    return QString::fromUtf8(arv_camera_get_string(camera, node, nullptr));
}

// Makers number their models within the name; 0 when one does not.
int modelNumber(const QString& model)
{
    static const QRegularExpression digits(QStringLiteral("[0-9]+"));
    return digits.match(model).captured().left(9).toInt();
}

SxCameraInfo cameraInfo(ArvCamera* camera, const DeviceEntry& entry)
{
    SxCameraInfo info;
    info.deviceName = entry.model;
    info.deviceType = deviceType(entry);
    info.modelId = modelNumber(entry.model);
    info.serialNumber = entry.serialNumber;
    info.userId = userId(camera);
    info.instancePath = instancePath(entry);
    return info;
}

// Whoever lets go of the last reference waits for the device's heartbeat thread. While that thread
// still reports the lost connection it holds a reference itself, and must not be the last: it would
// wait for itself.
void waitForLastReference(ArvDevice* device)
{
    using namespace std::chrono_literals;
    const QDeadlineTimer limit(5s);
    auto* count = reinterpret_cast<gint*>(&G_OBJECT(device)->ref_count);
    while (g_atomic_int_get(count) > 1 && !limit.hasExpired())
        QThread::msleep(1);
}

} // namespace

std::unique_ptr<Camera> Camera::open(const DeviceEntry& entry, const QString& id, void* handle,
                                     CameraConnection::LostHandler onLost, QString& error)
{
    ArvFailure failure;
    if (auto camera = AravisSystem::open(entry, failure))
        return std::unique_ptr<Camera>(
            new Camera(std::move(camera), entry, id, handle, std::move(onLost)));
    error = QStringLiteral("camera %1 cannot be opened: %2").arg(id, failure.message());
    return nullptr;
}

Camera::Camera(ObjectRef<ArvCamera> camera, const DeviceEntry& entry, QString id, void* handle,
               CameraConnection::LostHandler onLost)
    : m_id(std::move(id))
    , m_handle(handle)
    , m_connection(std::make_shared<CameraConnection>(std::move(onLost)))
    , m_device(ObjectRef<ArvDevice>::share(arv_camera_get_device(camera.get())))
    , m_camera(std::move(camera))
    , m_stream(m_camera.get(), *m_connection, m_id)
    , m_parameters(m_device.get(), *m_connection, m_stream, cameraInfo(m_camera.get(), entry))
{
    switchChecksOn(m_device.get());
    watchConnection();
}

Camera::~Camera()
{
    g_signal_handler_disconnect(m_device.get(), m_signal);
    stopStream();
    m_stream.letGo();
    m_camera.reset();
    waitForLastReference(m_device.get());
}

QString Camera::description() const
{
    return QStringLiteral("%1 (%2)").arg(m_parameters.cameraInfo().deviceName, m_id);
}

void Camera::stopStream() { m_stream.stop(); }

void Camera::watchConnection()
{
    const auto forget = [](void* connection, GClosure*) {
        delete static_cast<std::shared_ptr<CameraConnection>*>(connection);
    };
    m_signal = g_signal_connect_data(m_device.get(), "control-lost", G_CALLBACK(&onControlLost),
                                     new std::shared_ptr<CameraConnection>(m_connection), forget,
                                     static_cast<GConnectFlags>(0));
}

void Camera::onControlLost(ArvDevice*, void* connection)
{
    const auto shared = *static_cast<std::shared_ptr<CameraConnection>*>(connection);
    shared->breakOff();
}

} // namespace vistrel
