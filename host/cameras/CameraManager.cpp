// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The reference host's cameras: GigE Vision and USB3 Vision devices and a simulated one, by Aravis.
#include "cameras/CameraManager.h"

#include "cameras/AravisSystem.h"
#include "cameras/Camera.h"
#include "core/Log.h"
#include "core/LongWork.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QRunnable>
#include <QtCore/QStringList>
#include <QtCore/QThreadPool>
#include <QtCore/QTimer>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vistrel {

namespace {

using namespace std::chrono_literals;

/// How long a camera may take to be found again, and how long it is left alone before each look.
constexpr auto restartPatience = 30s;
constexpr auto restartPause = 100ms;

/// Lets go of a camera on the thread that runs it, whose pool deletes it afterwards.
class CameraRelease : public QRunnable {
public:
    explicit CameraRelease(std::unique_ptr<Camera> camera)
        : m_camera(std::move(camera))
    {
    }
    void run() override { m_camera.reset(); }

private:
    std::unique_ptr<Camera> m_camera;
};

bool isSimulated(const DeviceEntry& entry)
{
    return entry.id == QLatin1String(AravisSystem::simulatedDevice);
}

QString publicId(const DeviceEntry& entry)
{
    return isSimulated(entry) ? QString::fromLatin1(CameraManager::simulatedId) : entry.id;
}

QString notFound(const QString& id, const std::vector<DeviceEntry>& entries)
{
    QStringList found;
    for (const DeviceEntry& entry : entries)
        found.append(publicId(entry));
    const QString list =
        found.isEmpty() ? QStringLiteral("no cameras") : found.join(QStringLiteral(", "));
    return QStringLiteral("camera %1 was not found; found: %2").arg(id, list);
}

QString notOpened() { return QStringLiteral("the camera is not open"); }

} // namespace

CameraManager::CameraManager()
    : m_aravis(std::make_unique<AravisSystem>())
    , m_releasing(std::make_unique<QThreadPool>())
{
}

CameraManager::~CameraManager()
{
    while (!m_cameras.empty())
        close(m_cameras.back()->handle());
    m_releasing->waitForDone();
}

std::vector<CameraListing> CameraManager::discover()
{
    auto entries = m_aravis->searchAll();
    std::stable_partition(entries.begin(), entries.end(), std::not_fn(isSimulated));
    std::vector<CameraListing> listings;
    listings.reserve(entries.size());
    for (const DeviceEntry& entry : entries)
        listings.push_back({publicId(entry), entry.vendor, entry.model, entry.serialNumber});
    return listings;
}

void* CameraManager::open(const QString& id, QString& error)
{
    const auto entries = search(id);
    const auto entry = std::find_if(entries.begin(), entries.end(),
                                    [&id](const auto& e) { return publicId(e) == id; });
    if (entry == entries.end()) {
        error = notFound(id, entries);
        return nullptr;
    }
    if (isOpen(id)) {
        error = QStringLiteral("camera %1 is open already").arg(id);
        return nullptr;
    }
    // Queued, because the connection breaks on a thread of Aravis, which must not wait.
    const auto onLost = [this] {
        QMetaObject::invokeMethod(this, &CameraManager::closeLostCameras, Qt::QueuedConnection);
    };
    auto camera = Camera::open(*entry, id, &m_handles.emplace_back(), onLost, error);
    return camera ? add(std::move(camera)) : nullptr;
}

void CameraManager::close(void* cameraHandle)
{
    if (!find(cameraHandle))
        return;
    Q_EMIT cameraClosing(cameraHandle);
    release(take(find(cameraHandle))); // looked up again: a receiver may have closed it
}

bool CameraManager::restartWithDefaults(void* cameraHandle)
{
    Camera* camera = find(cameraHandle);
    if (!camera || camera->lost()) {
        logError(QStringLiteral("a camera cannot be restarted: %1").arg(notOpened()));
        return false;
    }
    auto work =
        std::make_shared<LongWork>(QStringLiteral("Restarting camera %1").arg(camera->id()));
    camera->stopStream();
    camera->parameters().restoreDefaults(keptOf(*camera).defaults);
    const QString id = camera->id();
    close(cameraHandle);
    openAgain(id, QDeadlineTimer(restartPatience), std::move(work));
    return true;
}

bool CameraManager::start(void* cameraHandle, FrameSink sink, QString& error)
{
    Camera* camera = find(cameraHandle);
    if (!camera || camera->lost()) {
        error = notOpened();
        return false;
    }
    return camera->stream().running() || camera->stream().start(std::move(sink), error);
}

void CameraManager::stop(void* cameraHandle)
{
    if (Camera* camera = find(cameraHandle))
        camera->stopStream();
}

bool CameraManager::isStreaming(void* cameraHandle) const
{
    const Camera* camera = find(cameraHandle);
    return camera && camera->stream().running();
}

StreamStatistics CameraManager::statistics(void* cameraHandle) const
{
    const Camera* camera = find(cameraHandle);
    return camera ? camera->stream().statistics() : StreamStatistics();
}

QList<void*> CameraManager::openedCameras()
{
    QList<void*> handles;
    for (const auto& camera : m_cameras)
        handles.append(camera->handle());
    return handles;
}

unsigned CameraManager::openedCameraCount() { return m_cameraCount; }

CxCameraParameters* CameraManager::cameraParameters(void* cameraHandle)
{
    Camera* camera = find(cameraHandle);
    return camera ? &camera->parameters() : nullptr;
}

std::vector<DeviceEntry> CameraManager::search(const QString& id)
{
    return id == QLatin1String(simulatedId) ? m_aravis->searchSimulated() : m_aravis->searchAll();
}

bool CameraManager::isOpen(const QString& id) const
{
    return std::any_of(m_cameras.begin(), m_cameras.end(),
                       [&id](const auto& camera) { return camera->id() == id; });
}

void* CameraManager::add(std::unique_ptr<Camera> camera)
{
    CameraParameters& parameters = camera->parameters();
    Kept& kept = keptOf(*camera);
    parameters.shadingPresets = kept.presets;
    if (kept.defaults.values.empty() && !parameters.keepsDefaults())
        kept.defaults = parameters.settings();
    m_cameras.push_back(std::move(camera));
    ++m_cameraCount;
    return m_cameras.back()->handle();
}

CameraManager::Kept& CameraManager::keptOf(Camera& camera)
{
    const SxCameraInfo& info = camera.parameters().cameraInfo();
    return m_kept[QStringLiteral("%1 %2").arg(info.deviceName, info.serialNumber)];
}

void CameraManager::openAgain(const QString& id, const QDeadlineTimer& limit,
                              std::shared_ptr<LongWork> work)
{
    QTimer::singleShot(restartPause, this, [this, id, limit, work = std::move(work)] {
        QString error;
        if (isOpen(id) || open(id, error))
            return;
        if (limit.hasExpired())
            logError(QStringLiteral("a restarted camera did not come back: %1").arg(error));
        else
            openAgain(id, limit, work);
    });
}

// A handle may be anything: it is compared, not followed.
Camera* CameraManager::find(const void* cameraHandle) const
{
    const auto position =
        std::find_if(m_cameras.begin(), m_cameras.end(), [cameraHandle](const auto& camera) {
            return camera->handle() == cameraHandle;
        });
    return position == m_cameras.end() ? nullptr : position->get();
}

std::unique_ptr<Camera> CameraManager::take(const Camera* camera)
{
    const auto position = std::find_if(m_cameras.begin(), m_cameras.end(),
                                       [camera](const auto& c) { return c.get() == camera; });
    if (position == m_cameras.end())
        return nullptr;
    keptOf(**position).presets = (*position)->parameters().shadingPresets;
    auto taken = std::move(*position);
    m_cameras.erase(position);
    --m_cameraCount;
    return taken;
}

void CameraManager::closeLostCameras()
{
    for (void* handle : openedCameras()) {
        if (Camera* camera = find(handle); camera && camera->lost())
            closeLost(camera);
    }
}

void CameraManager::closeLost(Camera* camera)
{
    void* const handle = camera->handle();
    const QString description = camera->description();
    logError(QStringLiteral("camera %1: the connection broke").arg(description));
    Q_EMIT cameraClosing(handle);
    auto taken = take(find(handle));
    if (!taken)
        return;
    release(std::move(taken));
    Q_EMIT cameraLost(handle, description);
}

// A camera that does not answer any more takes seconds to let go of. Every other one is closed
// when this returns, so that it can be opened again.
void CameraManager::release(std::unique_ptr<Camera> camera)
{
    if (!camera)
        return;
    camera->stopStream();
    if (!camera->lost())
        return;
    m_releasing->start(new CameraRelease(std::move(camera)));
}

} // namespace vistrel
