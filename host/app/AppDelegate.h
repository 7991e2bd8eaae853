// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The application as plugins see it: main window, views, files and live cameras.
#pragma once

#include "app/Sounds.h"
#include "app/ViewList.h"

#include <IxAppDelegate.h>

#include <QtCore/QObject>

#include <functional>
#include <memory>

class QMdiSubWindow;

namespace vistrel {

class CameraManager;
class ImageView;
class LiveStream;
class MainWindow;

/// Makes the main window when it is first needed: a program without a screen may do without one.
class AppDelegate : public QObject, public IxAppDelegate {
    Q_OBJECT

public:
    /// The manager must outlive the delegate.
    explicit AppDelegate(CameraManager& cameras);
    /// Closes all views and stops their streams.
    ~AppDelegate() override;

    QWidget* mainWindow() override;
    QMenu* menu(int which) override;
    void showNotification(const QString& text) override;
    int activeViewId() override;
    void activateView(int id) override;
    void tileViews() override;
    void setFullScreen(bool on) override;
    CxMdiView* view(int id) override;
    bool duplicateView(int id) override;
    bool openFile(const QString& path, bool addRecent) override;
    bool newViewWithImage(CxImageData* image, const QString& title) override;
    void setViewImage(int id, CxImageData* image) override;
    CxImageData* viewImage(int id) override;
    void playSound(const QString& path) override;
    bool setCameraAcquisition(bool start, void* cameraHandle) override;
    void restartCameraWithDefaults(void* cameraHandle) override;
    SxPicBuf* captureImageDialog(QWidget* parent, void* cameraHandle, const QString& title,
                                 const QString& message, bool valueGiven, int* value,
                                 int extra) override;

    /// The view with that id, null when there is none.
    ImageView* imageView(int id) const { return m_views.find(id); }
    /// The view that shows an opened camera, null when none does.
    ImageView* liveView(void* cameraHandle) const;
    Sounds& sounds() { return m_sounds; }

Q_SIGNALS:
    void viewOpened(ImageView* view);
    /// The view is about to go; nobody finds it by its id any more.
    void viewClosed(ImageView* view);
    /// -1 stands for none.
    void activeViewChanged(int id);
    /// A picture's file was opened that is to join the recent ones.
    void fileUsed(const QString& path);
    /// A script has told the user something.
    void notified(const QString& text);

private:
    MainWindow& window();
    std::unique_ptr<ImageView> newView(const QString& title);
    void showView(std::unique_ptr<ImageView> view);
    void openView(const QString& title, std::unique_ptr<CxImageData> image);
    void dropView(ImageView* view);
    void setActive(ImageView* view);
    void tellActiveView();
    void followArea(QMdiSubWindow* activated);
    ImageView* formerView(void* cameraHandle) const;
    ImageView* viewWhoseStream(const std::function<bool(const LiveStream&)>& isWanted) const;
    bool startLiveView(void* cameraHandle);
    bool openLiveView(void* cameraHandle, QString& error);

    CameraManager& m_cameras;
    ViewList m_views;
    int m_toldActiveView = -1; // what activeViewChanged() said last
    Sounds m_sounds;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace vistrel
