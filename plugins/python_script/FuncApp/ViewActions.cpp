// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the module's functions for views and files do with the host.
#include "FuncApp/ViewActions.h"

#include "FuncImage/ImageCopies.h"
#include "FuncImage/ImageFiles.h"
#include "HostServices.h"

#include <CxImageData.h>
#include <CxMdiView.h>
#include <IxAppDelegate.h>
#include <IxScriptEnvironment.h>

using host_services::application;

namespace view_actions {

namespace {

constexpr char noViewImage[] = "no view or view contains no image";
// The function's name is spelt as the message always was; scripts compare it.
constexpr char noViewToWaitFor[] = "vistrel.WaitForNextFrame: view not found";

int resolvedViewId(int viewId) { return viewId < 0 ? application().activeViewId() : viewId; }

/// Null when there is no such view.
CxMdiView* resolvedView(int viewId) { return application().view(resolvedViewId(viewId)); }

} // namespace

Outcome<int> openFile(const QString& path)
{
    if (!application().openFile(path, true))
        return silentRefusal;
    return application().activeViewId();
}

Outcome<bool> saveActiveView(const QString& path)
{
    image_files::makeFolderOf(path);
    CxImageData* image = application().viewImage(application().activeViewId());
    if (image == nullptr || !image_files::save(*image, path))
        return silentRefusal;
    return true;
}

int duplicateView(int viewId)
{
    return application().duplicateView(viewId) ? application().activeViewId() : -1;
}

void closeView(int viewId)
{
    CxMdiView* view = resolvedView(viewId);
    if (view != nullptr)
        view->closeMdiView();
}

Outcome<std::unique_ptr<CxImageData>> takeViewImage(int viewId)
{
    CxImageData* image = application().viewImage(resolvedViewId(viewId));
    if (image == nullptr)
        return Refusal{noViewImage};
    return image_copies::cloneOf(*image);
}

Outcome<bool> putViewImage(CxImageData& image, int viewId)
{
    const int id = resolvedViewId(viewId);
    auto copy = image_copies::cloneOf(image);
    if (!copy)
        return copy.refusal();
    application().setViewImage(id, copy.value().release());
    return true;
}

Outcome<int> newViewWithImage(CxImageData& image, const QString& title)
{
    auto copy = image_copies::cloneOf(image);
    if (!copy)
        return copy.refusal();
    const QString shownTitle = title.isEmpty() ? QStringLiteral("Image from script") : title;
    if (!application().newViewWithImage(copy.value().get(), shownTitle))
        return -1;
    static_cast<void>(copy.value().release()); // the view owns it now
    return application().activeViewId();
}

Outcome<bool> waitForNextFrame(double timeout, int viewId)
{
    CxMdiView* view = resolvedView(viewId);
    if (view == nullptr)
        return Refusal{noViewToWaitFor};
    return host_services::environment().waitForNextFrame(view, timeout);
}

bool startRecording(const QString& path, int viewId)
{
    CxMdiView* view = resolvedView(viewId);
    return view != nullptr && view->startRecording(path);
}

void stopRecording(int viewId)
{
    CxMdiView* view = resolvedView(viewId);
    if (view != nullptr)
        view->stopRecording();
}

} // namespace view_actions
