// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the parts into the window, opens files, and closes only when nothing is lost.
#include "viewer/window/Viewer.h"

#include "app/ImageView.h"
#include "app/MainWindow.h"
#include "core/Log.h"
#include "viewer/cameras/CameraPanel.h"
#include "viewer/cameras/FilmCommands.h"
#include "viewer/cameras/LiveStatus.h"
#include "viewer/chains/ChainPanel.h"
#include "viewer/pictures/BrightnessPanel.h"
#include "viewer/pictures/FullScreen.h"
#include "viewer/pictures/PictureStatus.h"
#include "viewer/scripts/EditorTabs.h"
#include "viewer/window/AboutText.h"
#include "viewer/window/Commands.h"
#include "viewer/window/ErrorLogPanel.h"
#include "viewer/window/ProgramIcon.h"
#include "viewer/window/WorkStatus.h"

#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtCore/QUrl>
#include <QtGui/QCloseEvent>
#include <QtGui/QDropEvent>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>

#include <csignal>

namespace vistrel {

namespace {

// Until the user has chosen others.
constexpr int panelWidth = 340;
constexpr int scriptPanelWidth = 460;
constexpr int errorLogHeight = 110;

bool isScript(const QString& path)
{
    return path.endsWith(QLatin1String(".py"), Qt::CaseInsensitive);
}

MainWindow& windowOf(HostApplication& host)
{
    return *qobject_cast<MainWindow*>(host.delegate().mainWindow());
}

} // namespace

Viewer::Viewer()
    : m_window(windowOf(m_host))
    , m_runs(m_engine, m_host.environment())
    , m_scripts(*new ScriptPanel(m_runs, m_host.environment()))
    , m_cameras(new CameraPanel(m_host))
    , m_errorLog(new ErrorLogPanel(m_host.errorLog()))
    , m_brightness(new BrightnessPanel(m_host.delegate()))
    , m_scriptDock(addDock(tr("Scripts"), &m_scripts, Qt::RightDockWidgetArea))
    , m_cameraDock(addDock(tr("Cameras"), m_cameras, Qt::LeftDockWidgetArea))
    , m_errorLogDock(addDock(tr("Error log"), m_errorLog, Qt::BottomDockWidgetArea))
    , m_chainDock(addDock(tr("Chain"), new ChainPanel(m_host.delegate()), Qt::LeftDockWidgetArea))
    , m_brightnessDock(addDock(tr("Brightness"), m_brightness, Qt::LeftDockWidgetArea))
    , m_films(std::make_unique<FilmCommands>(m_host))
    , m_runStatus(new QLabel)
    , m_fullScreen(std::make_unique<FullScreen>(m_window, m_host.delegate()))
{
    // A Stop from the companion may come when the script has just ended.
    m_engine.interrupts().setBetweenRuns(SIG_IGN);
    setUpStatusBar();
    setUpDropping();
    m_commands = std::make_unique<Commands>(*this);
    connect(m_cameras, &CameraPanel::wanted, m_cameraDock, [this] {
        m_cameraDock->show();
        m_cameraDock->raise(); // another panel may lie on it
    });
    connect(&m_recentFiles, &RecentFiles::chosen, this, &Viewer::openFile);
    connect(&m_scripts.tabs(), &EditorTabs::fileUsed, &m_recentFiles, &RecentFiles::add);
    connect(&m_host.delegate(), &AppDelegate::fileUsed, &m_recentFiles, &RecentFiles::add);
    m_window.setWindowTitle(tr("Vistrel"));
    m_window.setWindowIcon(programIcon());
    m_window.installEventFilter(this);
}

Viewer::~Viewer()
{
    m_window.removeEventFilter(this);
    // The panel holds on to the runs, which go before the window does.
    delete m_scriptDock;
    delete m_cameraDock;
    delete m_errorLogDock;
    delete m_brightnessDock;
}

QDockWidget* Viewer::addDock(const QString& title, QWidget* content, Qt::DockWidgetArea area)
{
    auto* dock = new QDockWidget(title, &m_window);
    dock->setObjectName(title);
    dock->setWidget(content);
    m_window.addDockWidget(area, dock);
    return dock;
}

void Viewer::shareOutRoom()
{
    m_window.tabifyDockWidget(m_cameraDock, m_chainDock); // room for many parameters
    m_window.resizeDocks({m_chainDock, m_scriptDock}, {panelWidth, scriptPanelWidth},
                         Qt::Horizontal);
    m_window.resizeDocks({m_errorLogDock}, {errorLogHeight}, Qt::Vertical);
}

void Viewer::setUpStatusBar()
{
    m_window.statusBar()->addWidget(m_runStatus, 1);
    m_window.statusBar()->addPermanentWidget(new WorkStatus);
    m_window.statusBar()->addPermanentWidget(new LiveStatus(m_host));
    const RunWatch& watch = m_scripts.watch();
    connect(&watch, &RunWatch::changed, m_runStatus,
            [this, &watch] { m_runStatus->setText(watch.statusText()); });
    m_pictureStatus = std::make_unique<PictureStatus>(m_host.delegate(), *m_window.statusBar());
}

void Viewer::setUpDropping() { m_window.setAcceptDrops(true); }

bool Viewer::loadPlugin(const QString& file, QString& error) { return m_engine.load(file, error); }

void Viewer::show()
{
    shareOutRoom();
    restoreSettings();
    m_window.show();
    if (m_host.cameras().openedCameraCount() > 0)
        m_cameraDock->raise();
}

bool Viewer::openFile(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    return isScript(absolute) ? m_scripts.tabs().open(absolute)
                              : m_host.delegate().openFile(absolute, true);
}

void Viewer::openWithDialog()
{
    const QString filter = tr("Scripts and pictures (*.py *.png *.tif *.tiff *.jpg *.jpeg *.bmp "
                              "*.pnm *.pgm *.ppm);;All files (*)");
    for (const QString& path :
         QFileDialog::getOpenFileNames(&m_window, tr("Open"), QString(), filter))
        openFile(path);
}

void Viewer::showAbout()
{
    QMessageBox::about(&m_window, tr("About Vistrel"), aboutText(m_engine.languageVersion()));
}

bool Viewer::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Close:
        if (!mayClose()) {
            event->ignore();
            return true;
        }
        m_fullScreen->set(false); // that is no layout to come back to
        saveSettings();
        break;
    case QEvent::PaletteChange:
        // The area took its ground from the colours with which the program began.
        m_window.area()->setBackground(m_window.palette().brush(QPalette::Dark));
        break;
    case QEvent::DragEnter:
        if (static_cast<QDropEvent*>(event)->mimeData()->hasUrls())
            static_cast<QDropEvent*>(event)->acceptProposedAction();
        return true;
    case QEvent::Drop:
        openDropped(*static_cast<QDropEvent*>(event)->mimeData());
        return true;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

void Viewer::openDropped(const QMimeData& data)
{
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            openFile(url.toLocalFile());
}

bool Viewer::mayClose()
{
    if (m_runs.isRunning()) {
        m_scripts.watch().stop();
        m_host.delegate().showNotification(
            tr("A script is still running; it has been asked to stop. Close again when it has."));
        return false;
    }
    return m_scripts.tabs().mayCloseAll();
}

void Viewer::saveSettings() const
{
    QSettings settings;
    settings.setValue(QStringLiteral("geometry"), m_window.saveGeometry());
    settings.setValue(QStringLiteral("layout"), m_window.saveState());
    settings.setValue(QStringLiteral("scriptLayout"), m_scripts.saveLayout());
    settings.setValue(QStringLiteral("openScripts"), m_scripts.tabs().openFiles());
}

void Viewer::restoreSettings()
{
    const QSettings settings;
    m_window.restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray());
    m_window.restoreState(settings.value(QStringLiteral("layout")).toByteArray());
    m_scripts.restoreLayout(settings.value(QStringLiteral("scriptLayout")).toByteArray());
    for (const QString& path : settings.value(QStringLiteral("openScripts")).toStringList())
        if (QFileInfo::exists(path))
            m_scripts.tabs().open(path);
}

} // namespace vistrel
