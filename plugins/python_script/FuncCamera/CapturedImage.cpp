// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Lets the user take an image with a camera.
#include "FuncCamera/CapturedImage.h"

#include "FuncImage/ImageCopies.h"
#include "HostServices.h"

#include <CxImageData.h>
#include <IxAppDelegate.h>

#include <memory>

using host_services::application;

namespace captured_image {

namespace {

QString textOr(const QString& text, const QString& usual) { return text.isEmpty() ? usual : text; }

} // namespace

int showInView(void* cameraHandle, const QString& title, const QString& message, int value)
{
    const QString shownTitle = textOr(title, QStringLiteral("Capture Image"));
    const QString shownMessage =
        textOr(message, QStringLiteral("Get the image right and press Capture button."));
    const std::unique_ptr<SxPicBuf> buffer(application().captureImageDialog(
        nullptr, cameraHandle, shownTitle, shownMessage, value >= 0, &value, 0));
    if (!buffer)
        return -1;
    std::unique_ptr<CxImageData> image = image_copies::imageAround(*buffer);
    if (!application().newViewWithImage(image.get(), shownTitle))
        return -1;
    static_cast<void>(image.release()); // the view owns it now
    return application().activeViewId();
}

} // namespace captured_image
