// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Image, stream and film of a view.
#include "app/ImageView.h"

#include "app/ImageFile.h"
#include "app/LiveStream.h"
#include "chains/FilmRecorder.h"
#include "core/Log.h"

#include <CxImageData.h>

#include <QtGui/QCloseEvent>
#include <QtWidgets/QMdiSubWindow>

#include <utility>

namespace vistrel {

namespace {

constexpr QSize smallestSizeHint(320, 240);
constexpr QSize largestSizeHint(800, 600);
constexpr double usualFrameRate = 25.0;

} // namespace

ImageView::ImageView(int id, const QString& title)
    : m_id(id)
{
    setWindowTitle(title);
    connect(&m_chain, &Chain::started, this, &ImageView::processAgain);
}

ImageView::~ImageView() { endWork(); }

void ImageView::setImage(std::unique_ptr<CxImageData> image)
{
    m_isStill = image != nullptr;
    processStill(std::move(image));
}

void ImageView::processStill(std::unique_ptr<CxImageData> source)
{
    const bool isProcessed = source && m_chain.hasEnabledElements();
    std::unique_ptr<CxImageData> result = isProcessed ? copyOfImage(source.get()) : nullptr;
    if (result)
        m_chain.processAlone(*result);
    else
        result.swap(source);
    show(std::move(result));
    m_source = std::move(source);
    if (m_image)
        m_chain.end().observe(*m_image);
}

void ImageView::processAgain()
{
    if (m_isStill)
        processStill(std::move(m_source ? m_source : m_image));
}

void ImageView::show(std::unique_ptr<CxImageData> image)
{
    m_shown.store(image.get(), std::memory_order_release);
    m_image.swap(image); // what was shown goes when the widget does not look at it any more
    setPicture(m_image ? m_image->picBuf() : nullptr);
}

void ImageView::setStream(std::unique_ptr<LiveStream> stream)
{
    m_stream = std::move(stream);
    connect(m_stream.get(), &LiveStream::frameReady, this, &ImageView::takeFrame);
    connect(m_stream.get(), &LiveStream::stopped, this, [this] {
        takeFrame();
        Q_EMIT streamStopped();
    });
}

bool ImageView::isStreaming() const { return m_stream && m_stream->isStreaming(); }

void ImageView::takeFrame()
{
    std::unique_ptr<CxImageData> frame = m_stream ? m_stream->takeNewest() : nullptr;
    if (!frame)
        return;
    m_isStill = false;
    m_source.reset();
    show(std::move(frame));
    ++m_frameCount;
    Q_EMIT frameTaken();
}

bool ImageView::startRecording(QString path)
{
    if (isRecording()) {
        logError(tr("\"%1\" is not recorded: the view is being recorded already").arg(path));
        return false;
    }
    stopRecording();
    const double cameraRate = m_stream ? m_stream->frameRate() : 0.0;
    QString error;
    m_recorder = FilmRecorder::start(path, cameraRate > 0.0 ? cameraRate : usualFrameRate, error);
    if (!m_recorder) {
        logError(tr("\"%1\" is not recorded: %2").arg(path, error));
        return false;
    }
    m_chain.end().setObserver([recorder = m_recorder](CxImageData& image, ChainEnd::Origin origin) {
        if (origin == ChainEnd::Origin::Still)
            recorder->takeStill(image);
        else
            recorder->take(image);
    });
    if (m_isStill && m_image)
        m_recorder->takeStill(*m_image);
    return true;
}

void ImageView::stopRecording()
{
    m_chain.end().setObserver(nullptr);
    if (m_recorder)
        m_recorder->finish();
    m_recorder.reset();
}

bool ImageView::isRecording() const { return m_recorder && m_recorder->isRecording(); }

QSize ImageView::sizeHint() const
{
    const QSize size = pictureSize();
    const bool fits = size.boundedTo(largestSizeHint) == size;
    const QSize shown = fits ? size : size.scaled(largestSizeHint, Qt::KeepAspectRatio);
    return shown.expandedTo(smallestSizeHint);
}

void ImageView::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (std::exchange(m_closed, true))
        return;
    Q_EMIT closing();
    // The object itself waits for the event loop; what is large or busy goes now.
    endWork();
    setImage(nullptr);
}

void ImageView::endWork()
{
    // Named in full: the destructor ends the work, too.
    m_stream.reset();
    if (ImageView::isRecording())
        m_chain.drain(); // the last frames belong to the film
    m_chain.stop();
    ImageView::stopRecording();
}

void ImageView::requestClose()
{
    auto* window = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (window)
        window->close();
    else
        close();
}

} // namespace vistrel
