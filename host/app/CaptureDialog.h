// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog in which a user takes one picture with a camera.
#pragma once

#include "app/InterruptWatch.h"
#include "chains/Chain.h"

#include <CxImageData.h>

#include <QtCore/QPointer>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

#include <memory>
#include <optional>

class QLabel;
class QPushButton;

namespace vistrel {

class CameraManager;
class ImageView;
class LiveStream;

/// Shows what the camera sees now, with a button to take that picture and one to give up. It ends
/// by itself, without a picture, when the camera is closed and when the user interrupts the
/// program.
class CaptureDialog : public QDialog {
    Q_OBJECT

public:
    /// @param message  for the user; plain text.
    CaptureDialog(QWidget* parent, const QString& title, const QString& message);
    ~CaptureDialog() override;

    /// Takes the picture by itself that many seconds after the first one was seen; 0 takes the
    /// first. The user may still be faster.
    void setCountdown(int seconds);
    /// Shows an opened camera's frames: those that its view shows, through the view's chain, or
    /// when it has no view those of a stream of the dialog's own. A stream that it has started
    /// ends with it. False with the reason in `error`.
    /// @param view  of that camera; may be null.
    bool watch(CameraManager& cameras, void* cameraHandle, ImageView* view, QString& error);

    /// The picture that was taken, on the heap, both record and pixels the caller's; null when
    /// there is none, or no memory for it. For a dialog that was accepted.
    SxPicBuf* takePicture() const;

private:
    class Preview;

    void showFrame(std::unique_ptr<CxImageData> frame);
    void countDown();
    void showSecondsLeft();

    const InterruptWatch m_interrupts;
    QSocketNotifier m_interrupted{QSocketNotifier::Read};
    QLabel* m_countdownText;
    Preview* m_preview;
    QPushButton* m_capture;
    Chain m_chain;                        ///< of the dialog's own stream; without elements
    std::unique_ptr<LiveStream> m_stream; ///< the dialog's own; null when there is a view
    QPointer<LiveStream> m_started;       ///< the view's when the dialog has started it
    std::unique_ptr<CxImageData> m_shown;
    std::optional<int> m_secondsLeft;
    QTimer m_second;
};

} // namespace vistrel
