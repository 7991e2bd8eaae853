// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Image and stream of a view, and how it paints them.
#include "app/ImageView.h"

#include "app/DisplayPicture.h"
#include "app/LiveStream.h"
#include "core/Log.h"

#include <CxImageData.h>

#include <QtGui/QCloseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QMdiSubWindow>

#include <utility>

namespace vistrel {

namespace {

constexpr QSize emptyViewSize(320, 240);
constexpr QSize largestSizeHint(800, 600);

/// Where a picture of that size goes: as large as possible, in the middle.
QRect fittedRect(const QSize& picture, const QRect& area)
{
    QRect target(QPoint(), picture.scaled(area.size(), Qt::KeepAspectRatio));
    target.moveCenter(area.center());
    return target;
}

} // namespace

ImageView::ImageView(int id, const QString& title)
    : m_id(id)
{
    setWindowTitle(title);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

ImageView::~ImageView() = default;

void ImageView::setImage(std::unique_ptr<CxImageData> image)
{
    m_shown.store(image.get(), std::memory_order_release);
    m_image = std::move(image);
    m_display = QImage();
    update();
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
    setImage(std::move(frame));
    ++m_frameCount;
    Q_EMIT frameTaken();
}

bool ImageView::startRecording(QString path)
{
    logError(tr("Recording is not available: %1 was not made").arg(path));
    return false;
}

void ImageView::stopRecording() {}

bool ImageView::isRecording() const { return false; }

CxChainable* ImageView::chainEnd() { return nullptr; }

QSize ImageView::sizeHint() const
{
    if (!m_image || !m_image->picBuf()->data)
        return emptyViewSize;
    const SxPicBuf& buffer = *m_image->picBuf();
    const QSize size(static_cast<int>(buffer.width), static_cast<int>(buffer.height));
    const bool fits = size.boundedTo(largestSizeHint) == size;
    return fits ? size : size.scaled(largestSizeHint, Qt::KeepAspectRatio);
}

void ImageView::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (std::exchange(m_closed, true))
        return;
    Q_EMIT closing();
    // The object itself waits for the event loop; what is large or busy goes now.
    m_stream.reset();
    setImage(nullptr);
}

void ImageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Dark));
    updateDisplay();
    if (m_display.isNull())
        return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, m_display.width() > width());
    painter.drawImage(fittedRect(m_display.size(), rect()), m_display);
}

void ImageView::requestClose()
{
    auto* window = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (window)
        window->close();
    else
        close();
}

void ImageView::updateDisplay()
{
    if (m_display.isNull() && m_image)
        m_display = displayPicture(*m_image->picBuf());
}

} // namespace vistrel
