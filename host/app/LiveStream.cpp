// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A slot for one frame, filled on the chain's thread and emptied on the GUI thread.
#include "app/LiveStream.h"

#include "cameras/CameraManager.h"
#include "chains/Chain.h"

#include <CxCameraParameters.h>
#include <CxImageData.h>

#include <mutex>
#include <utility>

namespace vistrel {

namespace {

/// The same whenever the device is opened.
QString deviceName(CameraManager& cameras, void* cameraHandle)
{
    const SxCameraInfo& info = cameras.cameraParameters(cameraHandle)->cameraInfo();
    return QStringLiteral("%1 %2").arg(info.instancePath, info.serialNumber);
}

} // namespace

/// Each operation may be called on any thread.
class LiveStream::Slot {
public:
    /// @param stream  is told when a frame waits; until close().
    explicit Slot(LiveStream& stream)
        : m_stream(&stream)
    {
    }

    void put(std::unique_ptr<CxImageData> frame);
    std::unique_ptr<CxImageData> take();
    void close();
    quint64 overwritten() const;

    /// Until this the stream is told of no further frame.
    void allowNextAnnouncement();

private:
    mutable std::mutex m_mutex;
    LiveStream* m_stream;
    std::unique_ptr<CxImageData> m_newest;
    bool m_announced = false;
    quint64 m_overwritten = 0;
};

void LiveStream::Slot::put(std::unique_ptr<CxImageData> frame)
{
    const std::scoped_lock lock(m_mutex);
    if (!m_stream)
        return;
    if (m_newest)
        ++m_overwritten;
    m_newest.swap(frame); // the old one goes after the lock
    if (!std::exchange(m_announced, true))
        Q_EMIT m_stream->frameArrived();
}

std::unique_ptr<CxImageData> LiveStream::Slot::take()
{
    const std::scoped_lock lock(m_mutex);
    return std::move(m_newest);
}

void LiveStream::Slot::close()
{
    const std::scoped_lock lock(m_mutex);
    m_stream = nullptr;
}

quint64 LiveStream::Slot::overwritten() const
{
    const std::scoped_lock lock(m_mutex);
    return m_overwritten;
}

void LiveStream::Slot::allowNextAnnouncement()
{
    const std::scoped_lock lock(m_mutex);
    m_announced = false;
}

LiveStream::LiveStream(CameraManager& cameras, void* cameraHandle, Chain& chain)
    : m_cameras(cameras)
    , m_camera(cameraHandle)
    , m_device(deviceName(cameras, cameraHandle))
    , m_chain(chain)
    , m_slot(std::make_shared<Slot>(*this))
{
    m_chain.end().setOutput(
        [slot = m_slot](std::unique_ptr<CxImageData> frame) { slot->put(std::move(frame)); });
    connect(this, &LiveStream::frameArrived, this, &LiveStream::announce, Qt::QueuedConnection);
    connect(&cameras, &CameraManager::cameraClosing, this, &LiveStream::detach);
}

LiveStream::~LiveStream()
{
    m_slot->close();
    if (m_camera)
        m_cameras.stop(m_camera);
    m_chain.end().setOutput(nullptr);
}

bool LiveStream::showedDevice(void* cameraHandle) const
{
    return !m_camera && m_device == deviceName(m_cameras, cameraHandle);
}

bool LiveStream::start(QString& error) { return m_cameras.start(m_camera, m_chain.input(), error); }

void LiveStream::stop()
{
    if (!m_camera)
        return;
    m_cameras.stop(m_camera);
    m_chain.drain();
    Q_EMIT stopped();
}

bool LiveStream::isStreaming() const { return m_camera && m_cameras.isStreaming(m_camera); }

double LiveStream::frameRate() const
{
    CxValue value;
    CxCameraParameters* const parameters = m_cameras.cameraParameters(m_camera);
    const bool isKnown =
        parameters && parameters->getParamDirect(QStringLiteral("framerate"), value, nullptr);
    return isKnown ? static_cast<double>(value.toFloat()) : 0.0;
}

std::unique_ptr<CxImageData> LiveStream::takeNewest() { return m_slot->take(); }

quint64 LiveStream::overwrittenFrames() const { return m_slot->overwritten(); }

void LiveStream::announce()
{
    m_slot->allowNextAnnouncement();
    Q_EMIT frameReady();
}

void LiveStream::detach(void* closingCamera)
{
    // The manager stops the camera itself. Stopping a lost one takes seconds: not here.
    if (closingCamera != m_camera)
        return;
    m_camera = nullptr;
    Q_EMIT stopped();
}

} // namespace vistrel
