// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Operations of the application: its window, its views and their images.
#include "app/AppDelegate.h"

#include "app/ImageFile.h"
#include "app/ImageView.h"
#include "app/MainWindow.h"
#include "core/Log.h"

#include <CxImageData.h>

#include <QtCore/QFileInfo>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMdiSubWindow>

#include <utility>

namespace vistrel {

AppDelegate::AppDelegate(CameraManager& cameras)
    : m_cameras(cameras)
{
}

AppDelegate::~AppDelegate() { m_views.clear(); }

MainWindow& AppDelegate::window()
{
    if (!m_window) {
        m_window = std::make_unique<MainWindow>();
        connect(m_window->area(), &QMdiArea::subWindowActivated, this, &AppDelegate::followArea);
    }
    return *m_window;
}

QWidget* AppDelegate::mainWindow() { return &window(); }

QMenu* AppDelegate::menu(int which) { return window().menu(which); }

void AppDelegate::showNotification(const QString& text)
{
    if (m_window && m_window->isVisible())
        m_window->notify(text);
    else
        logInfo(text);
    Q_EMIT notified(text);
}

int AppDelegate::activeViewId() { return m_views.activeId(); }

void AppDelegate::activateView(int id)
{
    ImageView* view = m_views.find(id);
    if (!view)
        return;
    setActive(view);
    window().area()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(view->parentWidget()));
}

void AppDelegate::tileViews() { window().area()->tileSubWindows(); }

void AppDelegate::setFullScreen(bool on)
{
    // Not showFullScreen(): a window that is not on the screen stays hidden.
    window().setWindowState(window().windowState().setFlag(Qt::WindowFullScreen, on));
}

CxMdiView* AppDelegate::view(int id) { return m_views.find(id); }

bool AppDelegate::duplicateView(int id)
{
    const ImageView* source = id == -1 ? m_views.active() : m_views.find(id);
    std::unique_ptr<CxImageData> copy = source ? copyOfImage(source->image()) : nullptr;
    if (!copy)
        return false;
    openView(tr("Copy of %1").arg(source->windowTitle()), std::move(copy));
    m_views.active()->setBrightness(source->brightness());
    return true;
}

bool AppDelegate::openFile(const QString& path, bool addRecent)
{
    std::unique_ptr<CxImageData> image = readImageFile(path);
    if (!image)
        return false;
    openView(QFileInfo(path).fileName(), std::move(image));
    if (addRecent)
        Q_EMIT fileUsed(path);
    return true;
}

bool AppDelegate::newViewWithImage(CxImageData* image, const QString& title)
{
    if (!image)
        return false;
    openView(title, std::unique_ptr<CxImageData>(image));
    return true;
}

void AppDelegate::setViewImage(int id, CxImageData* image)
{
    std::unique_ptr<CxImageData> owned(image);
    ImageView* view = m_views.find(id);
    if (view)
        view->setImage(std::move(owned));
}

CxImageData* AppDelegate::viewImage(int id) { return m_views.imageOf(id); }

void AppDelegate::playSound(const QString& path) { m_sounds.play(path); }

std::unique_ptr<ImageView> AppDelegate::newView(const QString& title)
{
    return std::make_unique<ImageView>(m_views.takeId(), title);
}

void AppDelegate::showView(std::unique_ptr<ImageView> newView)
{
    ImageView* const view = newView.release(); // the area's from now on
    connect(view, &ImageView::closing, this, [this, view] { dropView(view); });
    QMdiSubWindow* subWindow = window().area()->addSubWindow(view);
    subWindow->setAttribute(Qt::WA_DeleteOnClose);
    m_views.add(view);
    subWindow->show();
    Q_EMIT viewOpened(view);
    activateView(view->id());
}

void AppDelegate::openView(const QString& title, std::unique_ptr<CxImageData> image)
{
    auto view = newView(title);
    view->setImage(std::move(image));
    showView(std::move(view));
}

void AppDelegate::dropView(ImageView* view)
{
    m_views.remove(view);
    Q_EMIT viewClosed(view);
    activateView(m_views.activeId());
    tellActiveView();
}

void AppDelegate::setActive(ImageView* view)
{
    m_views.setActive(view);
    tellActiveView();
}

void AppDelegate::tellActiveView()
{
    const int id = m_views.activeId();
    if (std::exchange(m_toldActiveView, id) != id)
        Q_EMIT activeViewChanged(id);
}

void AppDelegate::followArea(QMdiSubWindow* activated)
{
    // The area reports that none is active also when the whole window is left: that is ignored.
    if (activated)
        setActive(qobject_cast<ImageView*>(activated->widget()));
}

} // namespace vistrel
