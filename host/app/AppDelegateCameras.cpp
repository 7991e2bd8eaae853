// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Operations of the application: live cameras in views.
#include "app/AppDelegate.h"

#include "app/CaptureDialog.h"
#include "app/ImageView.h"
#include "app/LiveStream.h"
#include "cameras/CameraManager.h"
#include "core/Log.h"

#include <CxCameraParameters.h>
#include <CxImageData.h>

#include <QtCore/QThread>

#include <algorithm>

namespace vistrel {

namespace {

/// A script may have threads of its own, and no view, dialog or timer may be made on them.
bool isRefusedOnThisThread(const AppDelegate& application)
{
    const bool isRefused = QThread::currentThread() != application.thread();
    if (isRefused)
        logError(AppDelegate::tr("Cameras are started, stopped, restarted and asked for a picture "
                                 "on the main thread only"));
    return isRefused;
}

} // namespace

bool AppDelegate::setCameraAcquisition(bool start, void* cameraHandle)
{
    if (isRefusedOnThisThread(*this) || !m_cameras.cameraParameters(cameraHandle))
        return false;
    if (start)
        return startLiveView(cameraHandle);
    const ImageView* view = liveView(cameraHandle);
    if (view)
        view->stream()->stop();
    return true;
}

ImageView* AppDelegate::liveView(void* cameraHandle) const
{
    return viewWhoseStream([cameraHandle](const LiveStream& stream) {
        return cameraHandle && stream.camera() == cameraHandle;
    });
}

// A camera that was closed and opened again goes on where it was seen before.
ImageView* AppDelegate::formerView(void* cameraHandle) const
{
    return viewWhoseStream(
        [cameraHandle](const LiveStream& stream) { return stream.showedDevice(cameraHandle); });
}

ImageView*
AppDelegate::viewWhoseStream(const std::function<bool(const LiveStream&)>& isWanted) const
{
    const auto& views = m_views.all();
    const auto position = std::find_if(views.begin(), views.end(), [&](const ImageView* view) {
        return view->stream() && isWanted(*view->stream());
    });
    return position == views.end() ? nullptr : *position;
}

bool AppDelegate::startLiveView(void* cameraHandle)
{
    QString error;
    const ImageView* view = liveView(cameraHandle);
    if (!view && (view = formerView(cameraHandle)))
        view->stream()->follow(cameraHandle);
    const bool started = view ? view->stream()->start(error) : openLiveView(cameraHandle, error);
    if (!started) {
        logError(error);
        return false;
    }
    if (view)
        activateView(view->id());
    return true;
}

bool AppDelegate::openLiveView(void* cameraHandle, QString& error)
{
    const SxCameraInfo& info = m_cameras.cameraParameters(cameraHandle)->cameraInfo();
    auto view = newView(tr("%1 (%2)").arg(info.deviceName, info.serialNumber));
    view->setStream(std::make_unique<LiveStream>(m_cameras, cameraHandle, view->chain()));
    if (!view->stream()->start(error))
        return false;
    showView(std::move(view));
    return true;
}

void AppDelegate::restartCameraWithDefaults(void* cameraHandle)
{
    if (!isRefusedOnThisThread(*this))
        m_cameras.restartWithDefaults(cameraHandle);
}

// The number is a countdown in seconds.
SxPicBuf* AppDelegate::captureImageDialog(QWidget* parent, void* cameraHandle, const QString& title,
                                          const QString& message, bool valueGiven, int* value, int)
{
    if (isRefusedOnThisThread(*this))
        return nullptr;
    CaptureDialog dialog(parent ? parent : mainWindow(), title, message);
    if (valueGiven)
        dialog.setCountdown(*value);
    QString error = tr("No picture can be taken: the camera is not open");
    if (!m_cameras.cameraParameters(cameraHandle)
        || !dialog.watch(m_cameras, cameraHandle, liveView(cameraHandle), error)) {
        logError(error);
        return nullptr;
    }
    return dialog.exec() == QDialog::Accepted ? dialog.takePicture() : nullptr;
}

} // namespace vistrel
