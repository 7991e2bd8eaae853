// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The reference host's cameras: GigE Vision and USB3 Vision devices and a simulated one, by Aravis.
#include "cameras/CameraManager.h"

#include "cameras/AravisSystem.h"
#include "cameras/Camera.h"
#include "cameras/Mailbox.h"
#include "core/Log.h"
#include "core/LongWork.h"

#include <QtCore/QStringList>
#include <QtCore/QTimer>

#include <algorithm>
#include <chrono>
#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace vistrel {

namespace {

using namespace std::chrono_literals;

/// How long a camera may take to be found again, and how long it is left alone before each look.
constexpr auto restartPatience = 30s;
constexpr auto restartPause = 100ms;
/// The longest that the user interface may stand still for a camera that is closed.
constexpr auto closingPatience = 3s;

const QString lookingForCameras = QStringLiteral("Looking for cameras");

/// Lets go of a camera on a thread of its own, which may go on when everything else has gone.
std::future<void> letGo(std::unique_ptr<Camera> camera)
{
    std::packaged_task<void()> task(
        [camera = std::move(camera), aravis = std::make_unique<AravisSystem>()]() mutable {
            camera.reset();
            aravis.reset();
        });
    std::future<void> done = task.get_future();
    std::thread(std::move(task)).detach();
    return done;
}

// A camera that does not answer any more takes seconds to let go of. Every other one is closed
// when this returns, so that it can be opened again.
void release(std::unique_ptr<Camera> camera)
{
    if (!camera)
        return;
    const auto limit = std::chrono::steady_clock::now() + closingPatience;
    camera->stopStream();
    const bool answers = !camera->lost();
    const std::future<void> done = letGo(std::move(camera));
    if (answers)
        done.wait_until(limit);
}

std::vector<DeviceEntry> search(const QString& id)
{
    return id == QLatin1String(CameraManager::simulatedId) ? AravisSystem::searchSimulated()
                                                           : AravisSystem::searchAll();
}

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

/// The simulated one comes last.
std::vector<CameraListing> listingsOf(std::vector<DeviceEntry> entries)
{
    std::stable_partition(entries.begin(), entries.end(), std::not_fn(isSimulated));
    std::vector<CameraListing> listings;
    listings.reserve(entries.size());
    for (const DeviceEntry& entry : entries)
        listings.push_back({publicId(entry), entry.vendor, entry.model, entry.serialNumber});
    return listings;
}

QString notOpened() { return QStringLiteral("the camera is not open"); }

} // namespace

CameraManager::CameraManager()
    : m_aravis(std::make_unique<AravisSystem>())
    , m_mailbox(std::make_shared<Mailbox>(*this))
{
}

CameraManager::~CameraManager()
{
    while (!m_cameras.empty())
        close(m_cameras.back()->handle());
    m_mailbox->close();
}

std::vector<CameraListing> CameraManager::discover()
{
    const LongWork work(lookingForCameras);
    return listingsOf(AravisSystem::searchAll());
}

void* CameraManager::open(const QString& id, QString& error)
{
    std::optional<LongWork> work;
    if (id != QLatin1String(simulatedId))
        work.emplace(lookingForCameras);
    return openFound(search(id), id, error);
}

void* CameraManager::openFound(const Entries& entries, const QString& id, QString& error)
{
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
    // By mail, because the connection breaks on a thread of Aravis, which must not wait.
    const auto onLost = [this, mailbox = m_mailbox] {
        mailbox->post([this] { closeLostCameras(); });
    };
    auto camera = Camera::open(*entry, id, &m_handles.emplace_back(), onLost, error);
    return camera ? add(std::move(camera)) : nullptr;
}

void CameraManager::discoverInBackground(std::function<void(std::vector<CameraListing>)> onFound)
{
    searchInBackground(QString(), [onFound = std::move(onFound)](const Entries& entries) {
        onFound(listingsOf(entries));
    });
}

void CameraManager::openInBackground(
    const QString& id, std::function<void(void* cameraHandle, const QString& error)> onOpened)
{
    searchInBackground(id, [this, id, onOpened = std::move(onOpened)](const Entries& entries) {
        QString error;
        void* const camera = openFound(entries, id, error);
        onOpened(camera, error);
    });
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
    const QString id = camera->id();
    m_restarts[id] = {QDeadlineTimer(restartPatience),
                      std::make_unique<LongWork>(QStringLiteral("Restarting camera %1").arg(id))};
    camera->stopStream();
    camera->parameters().restoreDefaults(keptOf(*camera).defaults);
    close(cameraHandle);
    openAgain(id);
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

QString CameraManager::idOf(void* cameraHandle) const
{
    const Camera* camera = find(cameraHandle);
    return camera ? camera->id() : QString();
}

CameraFeatures* CameraManager::features(void* cameraHandle)
{
    Camera* camera = find(cameraHandle);
    return camera ? &camera->parameters() : nullptr;
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

void CameraManager::openAgain(const QString& id)
{
    QTimer::singleShot(restartPause, this, [this, id] {
        if (isOpen(id))
            m_restarts.erase(id);
        else
            searchInBackground(id,
                               [this, id](const Entries& entries) { openIfFound(entries, id); });
    });
}

// Looking at all interfaces takes too long for the GUI thread to do it again and again.
void CameraManager::searchInBackground(const QString& id,
                                       std::function<void(const Entries&)> onFound)
{
    auto work = [id, onFound = std::move(onFound), mailbox = m_mailbox,
                 aravis = std::make_unique<AravisSystem>()] {
        mailbox->post([onFound, entries = search(id)] { onFound(entries); });
    };
    std::thread(std::move(work)).detach();
}

void CameraManager::openIfFound(const Entries& entries, const QString& id)
{
    const auto restart = m_restarts.find(id);
    if (restart == m_restarts.end())
        return;
    QString error;
    const bool isDone = isOpen(id) || openFound(entries, id, error);
    if (!isDone && !restart->second.limit.hasExpired())
        return openAgain(id);
    if (!isDone)
        logError(QStringLiteral("a restarted camera did not come back: %1").arg(error));
    m_restarts.erase(restart);
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

} // namespace vistrel
