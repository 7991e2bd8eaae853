// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters of one opened camera: its GenICam nodes by name, and the region of interest.
#include "cameras/CameraParameters.h"

#include "cameras/CameraStream.h"
#include "cameras/GenICamNodes.h"
#include "core/Log.h"

#include <QtCore/QStringList>

#include <utility>

namespace vistrel {

namespace {

// A camera refuses these while it runs, and the buffers of a running stream would not fit.
bool changesFrameSize(const QString& name)
{
    static const QStringList names = {
        QStringLiteral("Width"),
        QStringLiteral("Height"),
        QStringLiteral("PixelFormat"),
        QStringLiteral("BinningHorizontal"),
        QStringLiteral("BinningVertical"),
        QStringLiteral("DecimationHorizontal"),
        QStringLiteral("DecimationVertical"),
    };
    return names.contains(name);
}

QRect region(ArvCamera* camera, ArvFailure& failure)
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    arv_camera_get_region(camera, &x, &y, &width, &height, failure.receive());
    return failure ? QRect() : QRect(x, y, width, height);
}

void setOffset(ArvCamera* camera, int x, int y, ArvFailure& failure)
{
    if (arv_camera_is_region_offset_available(camera, nullptr))
        arv_camera_set_region(camera, x, y, -1, -1, failure.receive());
}

// The bounds of size and offset depend on each other; with the offset out of the way every order
// of old and new regions is good.
void setRegion(ArvCamera* camera, const QRect& rect, ArvFailure& failure)
{
    setOffset(camera, 0, 0, failure);
    if (!failure)
        arv_camera_set_region(camera, -1, -1, rect.width(), rect.height(), failure.receive());
    if (!failure)
        setOffset(camera, rect.x(), rect.y(), failure);
}

QString regionText(const QRect& rect)
{
    return QStringLiteral("(%1, %2, %3, %4)")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

// Some cameras take every offset by itself and then send a picture that reaches past the sensor.
QString reachesPastSensor(ArvCamera* camera, const QRect& rect)
{
    ArvFailure failure;
    int width = 0;
    int height = 0;
    arv_camera_get_sensor_size(camera, &width, &height, failure.receive());
    if (failure || (!rect.isEmpty() && QRect(0, 0, width, height).contains(rect)))
        return {};
    return QStringLiteral("the sensor has %1 x %2 pixels").arg(width).arg(height);
}

NodeResult disconnected()
{
    return {ParameterStatus::Disconnected, QStringLiteral("the connection broke")};
}

void report(const NodeResult& result, int* status)
{
    if (status)
        *status = static_cast<int>(result.status);
}

} // namespace

CameraParameters::CameraParameters(ArvCamera* camera, CameraStream& stream, SxCameraInfo info,
                                   ConnectionProbe connected)
    : m_camera(camera)
    , m_stream(stream)
    , m_info(std::move(info))
    , m_connected(std::move(connected))
{
}

CameraParameters::~CameraParameters() = default;

CxCameraParam* CameraParameters::findParam(const QString&, bool)
{
    return nullptr; // every name goes to the camera's own nodes
}

bool CameraParameters::getParamDirect(const QString& name, CxValue& value, int* status)
{
    const NodeResult result =
        m_connected() ? readNode(arv_camera_get_device(m_camera), name, value) : disconnected();
    report(result, status);
    if (!result.done())
        logLine(QStringLiteral("parameter %1 cannot be read: %2").arg(name, result.reason));
    return result.done();
}

bool CameraParameters::setParamDirect(const QString& name, const CxValue& value, int* status,
                                      ExCommitRefreshGuiMode)
{
    NodeResult result = disconnected();
    const auto write = [&] { result = writeNode(arv_camera_get_device(m_camera), name, value); };
    if (m_connected() && changesFrameSize(name))
        whileStreamPaused(write);
    else if (m_connected())
        write();
    report(result, status);
    if (result.done())
        m_stream.refreshRecordedSettings();
    else
        logLine(QStringLiteral("parameter %1 cannot be set to %2: %3")
                    .arg(name, value.toString(), result.reason));
    return result.done();
}

QRect CameraParameters::currentROIRectParams()
{
    ArvFailure failure;
    const QRect rect = m_connected() ? region(m_camera, failure) : QRect();
    if (failure)
        logLine(QStringLiteral("the region cannot be read: %1").arg(failure.message()));
    return rect;
}

void CameraParameters::setROIRectParams(int x, int y, int width, int height, bool)
{
    const QRect wanted(x, y, width, height);
    QString reason = m_connected() ? reachesPastSensor(m_camera, wanted) : disconnected().reason;
    const auto change = [&] {
        ArvFailure failure;
        const QRect before = region(m_camera, failure);
        if (!failure)
            setRegion(m_camera, wanted, failure);
        reason = failure.message();
        if (failure && !before.isEmpty())
            setRegion(m_camera, before, failure);
    };
    if (reason.isEmpty())
        whileStreamPaused(change);
    if (!reason.isEmpty())
        logLine(
            QStringLiteral("the region cannot be set to %1: %2").arg(regionText(wanted), reason));
}

bool CameraParameters::saveParamValuesToFile(const QString& path, CxCameraParam::ExVisibility)
{
    logLine(QStringLiteral("settings cannot be saved to %1: not available").arg(path));
    return false;
}

bool CameraParameters::loadParamValuesFromFile(const QString& path, CxCameraParam::ExVisibility,
                                               QList<QString>* messages, bool logErrors)
{
    const QString text = QStringLiteral("settings cannot be loaded from %1: not available");
    if (messages)
        messages->append(text.arg(path));
    if (logErrors)
        logLine(text.arg(path));
    return false;
}

// Nobody shows the presets but whoever asks for them, so there is nobody to tell.
void CameraParameters::notifyShadingChanged() {}

void CameraParameters::whileStreamPaused(const std::function<void()>& change)
{
    if (!m_stream.running())
        return change();
    m_stream.pause();
    change();
    QString error;
    if (!m_stream.resume(error))
        logLine(error);
}

void CameraParameters::logLine(const QString& text) const
{
    logError(QStringLiteral("camera %1: %2").arg(m_info.deviceName, text));
}

} // namespace vistrel
