// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog in which a user takes one picture with a camera.
#include "app/CaptureDialog.h"

#include "app/ImageFile.h"
#include "app/ImageView.h"
#include "app/LiveStream.h"
#include "app/PictureWidget.h"
#include "cameras/CameraManager.h"

#include <CxPicBufAPI.h>

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <chrono>
#include <utility>

namespace vistrel {

using namespace std::chrono_literals;

/// As large as the window lets it be, whatever the size of the frames.
class CaptureDialog::Preview : public PictureWidget {
public:
    Preview() { setFocusPolicy(Qt::NoFocus); } // the keys are the buttons'
    QSize sizeHint() const override { return {640, 480}; }
};

CaptureDialog::CaptureDialog(QWidget* parent, const QString& title, const QString& message)
    : QDialog(parent)
    , m_countdownText(new QLabel)
    , m_preview(new Preview)
    , m_capture(new QPushButton(tr("Capture")))
{
    setWindowTitle(title);
    auto* text = new QLabel(message);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    m_countdownText->hide();
    m_capture->setEnabled(false);
    m_capture->setDefault(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    buttons->addButton(m_capture, QDialogButtonBox::AcceptRole);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(m_preview, 1);
    layout->addWidget(m_countdownText);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(&m_second, &QTimer::timeout, this, &CaptureDialog::countDown);
    if (m_interrupts.descriptor() < 0)
        return;
    m_interrupted.setSocket(m_interrupts.descriptor());
    m_interrupted.setEnabled(true);
    connect(&m_interrupted, &QSocketNotifier::activated, this, &QDialog::reject);
}

CaptureDialog::~CaptureDialog()
{
    if (m_started)
        m_started->stop();
}

void CaptureDialog::setCountdown(int seconds) { m_secondsLeft = seconds; }

bool CaptureDialog::watch(CameraManager& cameras, void* cameraHandle, ImageView* view,
                          QString& error)
{
    connect(&cameras, &CameraManager::cameraClosing, this, [this, cameraHandle](void* closing) {
        if (closing == cameraHandle)
            reject();
    });
    // A picture looks the same whether its view streams or not: it goes through the view's chain.
    if (view) {
        connect(view, &ImageView::frameTaken, this,
                [this, view] { showFrame(copyOfImage(view->image())); });
        m_started = view->isStreaming() ? nullptr : view->stream();
        return !m_started || m_started->start(error);
    }
    m_stream = std::make_unique<LiveStream>(cameras, cameraHandle, m_chain);
    connect(m_stream.get(), &LiveStream::frameReady, this,
            [this] { showFrame(m_stream->takeNewest()); });
    return m_stream->start(error);
}

SxPicBuf* CaptureDialog::takePicture() const
{
    if (!m_shown)
        return nullptr;
    const SxPicBuf& shown = *m_shown->picBuf();
    auto picture = std::make_unique<SxPicBuf>();
    CxPicBufAPI::AllocPicBufFromHeap(*picture, shown, false, 0);
    const bool copied = picture->data && CxPicBufAPI::CopyPicBuf(*picture, shown, true);
    return copied ? picture.release() : nullptr;
}

void CaptureDialog::showFrame(std::unique_ptr<CxImageData> frame)
{
    // What is shown when the dialog ends is what is taken.
    if (!frame || result() == Accepted)
        return;
    const bool isFirst = !m_shown;
    m_shown.swap(frame);
    m_preview->setPicture(m_shown->picBuf());
    m_capture->setEnabled(true);
    if (!isFirst || !m_secondsLeft)
        return;
    m_second.start(1s);
    showSecondsLeft();
}

void CaptureDialog::countDown()
{
    --*m_secondsLeft;
    showSecondsLeft();
}

void CaptureDialog::showSecondsLeft()
{
    m_countdownText->setText(tr("The picture is taken in %n s.", nullptr, *m_secondsLeft));
    m_countdownText->show();
    if (*m_secondsLeft > 0)
        return;
    m_second.stop();
    accept();
}

} // namespace vistrel
