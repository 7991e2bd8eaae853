// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The stream of one opened camera: takes its frames and hands them to a sink as images.
#include "cameras/CameraStream.h"

#include "cameras/CameraConnection.h"
#include "cameras/CameraNodes.h"
#include "core/Log.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <utility>

namespace vistrel {

namespace {

// Enough for the sink to be late by some frames; each takes the memory of a frame.
constexpr int bufferCount = 8;
constexpr guint64 nanosecondsPerMicrosecond = 1000;

SxAcquisitionInfo acquisitionInfo(const RawFrame& frame, const SxPicBuf& picture)
{
    SxAcquisitionInfo info;
    info.transportFormat = frame.pixelFormat;
    info.colorFilterArray = picture.colorFilterArray;
    return info;
}

/// Within the record's range; 0 for what is no number.
qint32 wholeMicroseconds(double exposure)
{
    constexpr double most = std::numeric_limits<qint32>::max();
    return std::isnan(exposure) ? 0 : static_cast<qint32>(std::clamp(exposure, 0.0, most));
}

/// Many cameras tell their gain in steps of the converter only, which are no decibels.
bool tellsDecibels(ArvCamera* camera)
{
    for (const char* name : {"Gain", "GainAbs"}) {
        ArvGcNode* node = arv_device_get_feature(arv_camera_get_device(camera), name);
        if (!node || !ARV_IS_GC_FEATURE_NODE(node))
            continue;
        const QString unit = CameraNodes::unit(node);
        return unit.isEmpty() || unit.compare(u"dB", Qt::CaseInsensitive) == 0;
    }
    return false;
}

const char* refusalText(ConvertResult result)
{
    switch (result) {
    case ConvertResult::UnsupportedFormat:
        return "its pixel format is not supported";
    case ConvertResult::TooShort:
        return "it is shorter than its size asks for";
    case ConvertResult::NoMemory:
        return "there is no memory for it";
    case ConvertResult::Done:
        break;
    }
    return "";
}

} // namespace

CameraStream::CameraStream(ArvCamera* camera, CameraConnection& connection, QString id)
    : m_camera(camera)
    , m_connection(connection)
    , m_id(std::move(id))
{
}

CameraStream::~CameraStream() { stop(); }

bool CameraStream::start(FrameSink sink, QString& error)
{
    m_sink = std::move(sink);
    m_taken = 0;
    m_dropped = 0;
    m_earlierUnderruns = 0;
    m_refusalLogged = false;
    if (open(error))
        return true;
    m_sink = nullptr;
    return false;
}

void CameraStream::stop()
{
    endDelivery();
    m_sink = nullptr;
    closeStream();
}

void CameraStream::letGo()
{
    m_stream.reset(); // waits for Aravis' thread
}

void CameraStream::pause()
{
    endDelivery();
    closeStream();
}

bool CameraStream::resume(QString& error)
{
    if (open(error))
        return true;
    m_sink = nullptr;
    return false;
}

StreamStatistics CameraStream::statistics() const { return {m_taken, m_dropped + underruns()}; }

void CameraStream::refreshRecordedSettings()
{
    if (running()) // whoever starts it reads them anyway
        readRecordedSettings();
}

void CameraStream::readRecordedSettings()
{
    ArvFailure failure;
    if (m_connection.alive() && arv_camera_is_exposure_time_available(m_camera, failure.receive()))
        m_exposureUs = arv_camera_get_exposure_time(m_camera, failure.receive());
    m_connection.judge(failure);
    if (m_connection.alive() && tellsDecibels(m_camera)
        && arv_camera_is_gain_available(m_camera, failure.receive()))
        m_gainDb = arv_camera_get_gain(m_camera, failure.receive());
    m_connection.judge(failure);
}

bool CameraStream::open(QString& error)
{
    ArvFailure failure;
    readRecordedSettings();
    if (m_connection.alive() && createStream(failure)) {
        m_lastFrameId = 0;
        m_ending = false;
        m_thread = std::thread(&CameraStream::deliverFrames, this);
        startAcquisition(failure);
    }
    m_connection.judge(failure);
    if (!failure && m_connection.alive())
        return true;
    const QString reason = failure ? failure.message() : QStringLiteral("the connection broke");
    error = QStringLiteral("camera %1 does not start: %2").arg(m_id, reason);
    pause();
    return false;
}

bool CameraStream::createStream(ArvFailure& failure)
{
    const guint frameBytes = arv_camera_get_payload(m_camera, failure.receive());
    if (failure)
        return false;
    m_stream = ObjectRef<ArvStream>::take(
        arv_camera_create_stream(m_camera, &onStreamEvent, this, failure.receive()));
    for (int i = 0; m_stream && i < bufferCount; ++i)
        arv_stream_push_buffer(m_stream.get(), arv_buffer_new_allocate(frameBytes));
    return !failure;
}

void CameraStream::startAcquisition(ArvFailure& failure)
{
    if (arv_camera_is_feature_available(m_camera, "AcquisitionMode", nullptr))
        arv_camera_set_acquisition_mode(m_camera, ARV_ACQUISITION_MODE_CONTINUOUS,
                                        failure.receive());
    if (!failure)
        arv_camera_start_acquisition(m_camera, failure.receive());
}

void CameraStream::endDelivery()
{
    if (!m_thread.joinable())
        return;
    m_ending = true;
    m_finished.release();
    m_thread.join();
}

void CameraStream::closeStream()
{
    ArvFailure failure;
    if (m_stream && m_connection.alive())
        arv_camera_stop_acquisition(m_camera, failure.receive());
    m_connection.judge(failure);
    if (!m_stream || !m_connection.alive())
        return;
    m_earlierUnderruns = underruns();
    letGo();
    while (m_finished.try_acquire()) {
    }
}

// Frames for which the receiver had no buffer. Real devices number these too, so that they show as
// a gap; the simulated one does not.
quint64 CameraStream::underruns() const
{
    guint64 count = 0;
    if (m_stream && !arv_camera_is_gv_device(m_camera) && !arv_camera_is_uv_device(m_camera))
        arv_stream_get_statistics(m_stream.get(), nullptr, nullptr, &count);
    return m_earlierUnderruns + count;
}

// On Aravis' thread, which must get on with receiving.
void CameraStream::onStreamEvent(void* self, ArvStreamCallbackType type, ArvBuffer*)
{
    if (type == ARV_STREAM_CALLBACK_TYPE_BUFFER_DONE)
        static_cast<CameraStream*>(self)->m_finished.release();
}

void CameraStream::deliverFrames()
{
    for (;;) {
        m_finished.acquire();
        if (m_ending)
            return;
        if (ArvBuffer* buffer = arv_stream_try_pop_buffer(m_stream.get())) {
            deliver(buffer);
            arv_stream_push_buffer(m_stream.get(), buffer);
        }
    }
}

void CameraStream::deliver(ArvBuffer* buffer)
{
    countMissing(arv_buffer_get_frame_id(buffer));
    if (auto frame = tryToMakeImage(buffer)) {
        ++m_taken;
        m_sink(std::move(frame));
    } else {
        ++m_dropped;
    }
}

// The numbers of GigE Vision start again after 65535, which hides a loss just there.
void CameraStream::countMissing(quint64 frameId)
{
    const quint64 last = std::exchange(m_lastFrameId, frameId);
    if (last > 0 && frameId > last)
        m_dropped += frameId - last - 1;
}

// Nothing may be thrown on the stream's thread: it would end the process.
std::unique_ptr<CxImageData> CameraStream::tryToMakeImage(ArvBuffer* buffer) noexcept
{
    try {
        return image(buffer);
    } catch (const std::bad_alloc&) {
        try {
            logRefusal(ConvertResult::NoMemory, arv_buffer_get_image_pixel_format(buffer));
        } catch (const std::bad_alloc&) { // the count alone tells of it
        }
    }
    return nullptr;
}

std::unique_ptr<CxImageData> CameraStream::image(ArvBuffer* buffer)
{
    if (arv_buffer_get_status(buffer) != ARV_BUFFER_STATUS_SUCCESS)
        return nullptr;
    auto data = std::make_unique<CxImageData>(); // before there are pixels that nobody would free
    const RawFrame frame = rawFrame(buffer);
    SxPicBuf picture;
    if (const auto result = convertFrame(frame, picture); result != ConvertResult::Done) {
        logRefusal(result, frame.pixelFormat);
        return nullptr;
    }
    picture.frameNumber = static_cast<qint32>(m_taken.load());
    picture.acqFrameNumber = static_cast<qint32>(arv_buffer_get_frame_id(buffer));
    picture.timestampUs =
        static_cast<qint64>(arv_buffer_get_timestamp(buffer) / nanosecondsPerMicrosecond);
    SxAcquisitionInfo info = acquisitionInfo(frame, picture);
    info.exposureTimeUs = wholeMicroseconds(m_exposureUs);
    info.gainDb = static_cast<float>(m_gainDb.load());
    data->setPicBuf(picture);
    data->setAcquisitionInfo(&info);
    return data;
}

// One line a stream: at full frame rate the log would drown.
void CameraStream::logRefusal(ConvertResult result, ArvPixelFormat format)
{
    if (std::exchange(m_refusalLogged, true))
        return;
    logError(QStringLiteral("camera %1: frames are dropped: a frame of pixel format 0x%2 cannot be "
                            "used: %3")
                 .arg(m_id, QString::number(format, 16), QLatin1String(refusalText(result))));
}

} // namespace vistrel
