// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What comes from the active view's camera, in a line.
#include "viewer/cameras/LiveStatus.h"

#include "app/HostApplication.h"
#include "app/ImageView.h"
#include "app/LiveStream.h"

#include <CxImageData.h>

#include <utility>

namespace vistrel {

namespace {

using namespace std::chrono_literals;

constexpr auto followEvery = 250ms;
constexpr auto measuredTime = 2s;

} // namespace

void FrameRateMeter::note(quint64 frames, Clock::time_point time)
{
    if (!m_notes.empty() && frames < m_notes.back().frames)
        m_notes.clear();
    m_notes.push_back({frames, time});
    while (time - m_notes.front().time > measuredTime)
        m_notes.pop_front();
}

double FrameRateMeter::rate() const
{
    if (m_notes.size() < 2)
        return 0.0;
    const std::chrono::duration<double> time = m_notes.back().time - m_notes.front().time;
    const auto frames = static_cast<double>(m_notes.back().frames - m_notes.front().frames);
    return time.count() > 0.0 ? frames / time.count() : 0.0;
}

LiveStatus::LiveStatus(HostApplication& host, QWidget* parent)
    : QLabel(parent)
    , m_host(host)
{
    setToolTip(tr("Frames a second from the camera; frames lost on the way or by a slow chain; "
                  "frames that the screen was too slow for; number of the frame that is shown"));
    connect(&host.delegate(), &AppDelegate::activeViewChanged, this, &LiveStatus::follow);
    connect(&m_timer, &QTimer::timeout, this, &LiveStatus::follow);
    m_timer.start(followEvery);
}

void LiveStatus::follow()
{
    ImageView* const view = m_host.delegate().imageView(m_host.delegate().activeViewId());
    const bool isLive = view && view->isStreaming();
    void* const camera = isLive ? view->stream()->camera() : nullptr;
    if (std::exchange(m_camera, camera) != camera)
        m_meter.clear();
    setText(isLive ? textFor(*view) : QString());
}

QString LiveStatus::textFor(ImageView& view)
{
    const StreamStatistics numbers = m_host.cameras().statistics(m_camera);
    m_meter.note(numbers.framesTaken, FrameRateMeter::Clock::now());
    const quint64 dropped = numbers.framesDropped + view.chain().droppedFrames();
    const qint32 frame = view.image() ? view.image()->picBuf()->frameNumber : 0;
    return tr("%1 frames/s, %2 dropped, %3 not shown, frame %4")
        .arg(m_meter.rate(), 0, 'f', 1)
        .arg(dropped)
        .arg(view.stream()->overwrittenFrames())
        .arg(frame);
}

} // namespace vistrel
