// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host application as a plugin sees it: views, files, dialogs' parent, menus, camera actions.
#pragma once

#include <QtCore/QString>

class CxImageData;
class CxMdiView;
class QMenu;
class QWidget;
struct SxPicBuf;

/// The application singleton. Fetch it anew for every call, never keep it.
///
/// Operations that show or change the user interface must be called on its thread; those that say
/// "any thread" may be called from every thread. Views are named by non-negative ids; -1 stands
/// for the active view only where an operation says so.
class IxAppDelegate {
public:
    /// The application; null before it has been set up and after it has been torn down.
    static IxAppDelegate* instance();

    /// Parent for dialogs; may be null.
    virtual QWidget* mainWindow() = 0;
    /// One of the main window's menus; 3 is the one that receives script entries. May be null.
    /// The menu belongs to the host.
    virtual QMenu* menu(int which) = 0;
    /// Shows a passing message to the user.
    virtual void showNotification(const QString& text) = 0;
    /// Id of the active view, -1 when there is none. Any thread.
    virtual int activeViewId() = 0;
    /// Makes a view the active one; -1 and unknown ids change nothing.
    virtual void activateView(int id) = 0;
    /// Arranges all views side by side.
    virtual void tileViews() = 0;
    /// Switches the main window to full screen and back.
    virtual void setFullScreen(bool on) = 0;
    /// The view with that id, null when there is none. The view belongs to the host.
    virtual CxMdiView* view(int id) = 0;
    /// Opens a second view with a copy of the view's image and activates it; -1 is the active view.
    /// Returns false when there is no such view or it shows nothing.
    virtual bool duplicateView(int id) = 0;
    /// Opens a file in a new view and activates it. Returns false when it cannot be read.
    /// @param path       absolute.
    /// @param addRecent  whether the file joins the list of recent files.
    virtual bool openFile(const QString& path, bool addRecent) = 0;
    /// Opens a view on an image and activates it. On success the host owns the image, on failure
    /// the caller still does.
    virtual bool newViewWithImage(CxImageData* image, const QString& title) = 0;
    /// Shows another image in a view. The host takes the image over in every case; for an unknown
    /// view it deletes it.
    virtual void setViewImage(int id, CxImageData* image) = 0;
    /// The image that a view shows now, null when there is no such view or it shows none. It stays
    /// the host's and may be replaced as soon as events are handled: copy it at once. Any thread.
    virtual CxImageData* viewImage(int id) = 0;
    /// Plays a sound file; returns at once. Any thread.
    virtual void playSound(const QString& path) = 0;

    /// Starts or stops a camera's live stream. Starting opens a view for it, or activates the one
    /// it has. Returns false for an unknown or null handle and when the camera refuses.
    virtual bool setCameraAcquisition(bool start, void* cameraHandle) = 0;
    /// Closes a camera, gives it its default settings and opens it again, under a new handle.
    /// May return before the camera is back.
    virtual void restartCameraWithDefaults(void* cameraHandle) = 0;
    /// Lets the user take one image.
    /// @param parent      may be null.
    /// @param valueGiven  whether the caller gave *value a meaning.
    /// @param value       a number for the dialog; not null.
    /// @param extra       reserved, 0.
    /// Returns a buffer on the heap (record and pixels belong to the caller), null when the user
    /// cancelled.
    virtual SxPicBuf* captureImageDialog(QWidget* parent, void* cameraHandle, const QString& title,
                                         const QString& message, bool valueGiven, int* value,
                                         int extra) = 0;

protected:
    ~IxAppDelegate() = default;
};
