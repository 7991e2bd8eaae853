// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One line for each command: menu, text, keys, what it does.
#include "viewer/window/Commands.h"

#include "app/ImageView.h"
#include "app/MainWindow.h"
#include "app/Mnemonics.h"
#include "viewer/cameras/CameraPanel.h"
#include "viewer/cameras/FilmCommands.h"
#include "viewer/pictures/BrightnessPanel.h"
#include "viewer/pictures/FullScreen.h"
#include "viewer/pictures/SavePicture.h"
#include "viewer/scripts/EditorTabs.h"
#include "viewer/scripts/FindBar.h"
#include "viewer/scripts/ScriptEditor.h"
#include "viewer/window/ErrorLogPanel.h"
#include "viewer/window/ExampleScripts.h"
#include "viewer/window/Theme.h"
#include "viewer/window/Viewer.h"

#include <QtCore/QFileInfo>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QToolBar>

namespace vistrel {

namespace {

/// A table half as high as it is long, which small screens have room for.
QString twoColumns(const QStringList& cells)
{
    const qsizetype rows = (cells.size() + 1) / 2;
    QString table;
    for (qsizetype row = 0; row < rows; ++row)
        table += QStringLiteral("<tr>%1<td width=\"30\"></td>%2</tr>")
                     .arg(cells[row], cells.value(row + rows));
    return QStringLiteral("<table>%1</table>").arg(table);
}

} // namespace

Commands::Commands(Viewer& viewer)
    : m_viewer(viewer)
{
    addFileMenu();
    addViewMenu();
    addCameraMenu();
    addScriptCommands();
    addHelpMenu();
    followRuns();
}

QMenu& Commands::addMenu(const QString& title)
{
    MainWindow& window = m_viewer.window();
    auto* menu = new QMenu(title, &window);
    window.menuBar()->insertMenu(window.menu(MainWindow::ScriptsMenu)->menuAction(), menu);
    return *menu;
}

QAction* Commands::add(QMenu& menu, const QString& text, const QKeySequence& keys, Work work)
{
    QAction* action = menu.addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, std::move(work));
    m_viewer.window().addAction(action); // for its key while the menu bar is hidden
    return action;
}

void Commands::addForView(QMenu& menu, const QString& text, const QKeySequence& keys, ViewWork work)
{
    add(menu, text, keys, [this, work = std::move(work)] {
        AppDelegate& delegate = m_viewer.host().delegate();
        if (ImageView* view = delegate.imageView(delegate.activeViewId()))
            work(*view);
    });
}

void Commands::take(QMenu& menu, QAction* action, const QKeySequence& keys)
{
    action->setShortcut(keys);
    menu.addAction(action);
    m_viewer.window().addAction(action);
}

void Commands::addFileMenu()
{
    QMenu& menu = addMenu(tr("&File"));
    EditorTabs& tabs = m_viewer.scripts().tabs();
    add(menu, tr("&New script"), QKeySequence::New, [&tabs] { tabs.newScript(); });
    add(menu, tr("&Open..."), QKeySequence::Open, [this] { m_viewer.openWithDialog(); });
    m_viewer.recentFiles().fill(*menu.addMenu(tr("Open &recent")));
    menu.addSeparator();
    add(menu, tr("&Save script"), QKeySequence::Save, [&tabs] { tabs.save(); });
    add(menu, tr("Save script &as..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
        [&tabs] { tabs.saveAs(); });
    add(menu, tr("&Close script"), QKeySequence(Qt::CTRL | Qt::Key_W),
        [&tabs] { tabs.close(tabs.currentIndex()); });
    menu.addSeparator();
    add(menu, tr("Save &picture as..."), QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_S),
        [this] { savePictureAs(m_viewer.window(), m_viewer.host().delegate()); });
    menu.addSeparator();
    add(menu, tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q),
        [this] { m_viewer.window().close(); });
}

void Commands::addViewMenu()
{
    QMenu& menu = addMenu(tr("&View"));
    addZoomCommands(menu);
    addBrightnessCommands(menu);
    addArrangingCommands(menu);
    addFullScreen(menu);
    QAction* dark = menu.addAction(tr("Dar&k colours"));
    dark->setCheckable(true);
    dark->setChecked(isDarkThemeChosen());
    dark->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D));
    connect(dark, &QAction::toggled, this, &chooseDarkTheme);
    menu.addSeparator();
    addPanelSwitches(menu);
}

void Commands::addZoomCommands(QMenu& menu)
{
    constexpr double step = 1.25;
    addForView(menu, tr("Zoom &in"), QKeySequence::ZoomIn,
               [](ImageView& view) { view.zoomBy(step); });
    addForView(menu, tr("Zoom &out"), QKeySequence::ZoomOut,
               [](ImageView& view) { view.zoomBy(1.0 / step); });
    addForView(menu, tr("&Fit"), QKeySequence(Qt::CTRL | Qt::Key_0),
               [](ImageView& view) { view.fit(); });
    addForView(menu, tr("&100 %"), QKeySequence(Qt::CTRL | Qt::Key_1),
               [](ImageView& view) { view.setZoom(1.0); });
    menu.addSeparator();
}

void Commands::addBrightnessCommands(QMenu& menu)
{
    using Mode = Brightness::Mode;
    BrightnessPanel& panel = m_viewer.brightness();
    addForView(menu, tr("&Best brightness"), QKeySequence(Qt::CTRL | Qt::Key_B),
               [](ImageView& view) {
                   view.setBrightness({Mode::Percentiles, {}});
               });
    addForView(menu, tr("Full-&scale brightness"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B),
               [](ImageView& view) {
                   view.setBrightness({Mode::FullScale, {}});
               });
    add(menu, tr("Count &region"), QKeySequence(Qt::CTRL | Qt::Key_R),
        [&panel] { panel.askForRegion(); });
    add(menu, tr("Count &whole picture"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R),
        [&panel] { panel.clearRegion(); });
    menu.addSeparator();
}

void Commands::addArrangingCommands(QMenu& menu)
{
    AppDelegate& delegate = m_viewer.host().delegate();
    QMdiArea* const area = m_viewer.window().area();
    add(menu, tr("&Duplicate"), QKeySequence(Qt::CTRL | Qt::Key_D),
        [&delegate] { delegate.duplicateView(-1); });
    add(menu, tr("&Tile"), QKeySequence(Qt::CTRL | Qt::Key_T),
        [&delegate] { delegate.tileViews(); });
    add(menu, tr("&Cascade"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T),
        [area] { area->cascadeSubWindows(); });
    addForView(menu, tr("C&lose view"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_W),
               [](ImageView& view) { view.closeMdiView(); });
}

void Commands::addFullScreen(QMenu& menu)
{
    FullScreen& fullScreen = m_viewer.fullScreen();
    QAction* action = menu.addAction(tr("F&ull screen"));
    action->setCheckable(true);
    action->setShortcut(QKeySequence(Qt::Key_F11));
    m_viewer.window().addAction(action);
    connect(action, &QAction::toggled, &fullScreen, &FullScreen::set);
    connect(&fullScreen, &FullScreen::changed, action, &QAction::setChecked);
}

void Commands::addPanelSwitches(QMenu& menu)
{
    int number = 1;
    for (QDockWidget* dock : m_viewer.window().findChildren<QDockWidget*>()) {
        QAction* action = dock->toggleViewAction();
        action->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_0 + number++)));
        menu.addAction(action);
        // Who opens a panel by its key wants to work in it with keys.
        connect(action, &QAction::triggered, dock, [dock](bool shown) {
            if (shown)
                dock->widget()->setFocus();
        });
    }
}

void Commands::addCameraMenu()
{
    QMenu& menu = addMenu(tr("&Cameras"));
    const CameraPanel& panel = m_viewer.cameras();
    take(menu, panel.command(CameraPanel::Find), QKeySequence(Qt::CTRL | Qt::Key_F6));
    take(menu, panel.command(CameraPanel::Open), QKeySequence(Qt::ALT | Qt::Key_F6));
    take(menu, panel.command(CameraPanel::Start), QKeySequence(Qt::Key_F6));
    take(menu, panel.command(CameraPanel::Stop), QKeySequence(Qt::SHIFT | Qt::Key_F6));
    take(menu, panel.command(CameraPanel::Close), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F6));
    menu.addSeparator();
    take(menu, panel.command(CameraPanel::FilterParameters), QKeySequence(Qt::Key_F7));
    take(menu, panel.command(CameraPanel::DrawRegion), QKeySequence(Qt::Key_F8));
    take(menu, panel.command(CameraPanel::WholeSensor), QKeySequence(Qt::SHIFT | Qt::Key_F8));
    take(menu, panel.command(CameraPanel::SaveSettings),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F7));
    take(menu, panel.command(CameraPanel::LoadSettings), QKeySequence(Qt::CTRL | Qt::Key_F7));
    menu.addSeparator();
    const FilmCommands& films = m_viewer.films();
    take(menu, films.recordAction(), QKeySequence(Qt::Key_F12));
    take(menu, films.endAction(), QKeySequence(Qt::SHIFT | Qt::Key_F12));
}

void Commands::addScriptCommands()
{
    QMenu& menu = *m_viewer.window().menu(MainWindow::ScriptsMenu);
    ScriptPanel& scripts = m_viewer.scripts();
    m_run = add(menu, tr("&Run"), QKeySequence(Qt::Key_F5), [&scripts] { scripts.runCurrent(); });
    m_runSelection = add(menu, tr("Run se&lection"), QKeySequence(Qt::Key_F9),
                         [&scripts] { scripts.runSelection(); });
    m_stop = add(menu, tr("&Stop"), QKeySequence(Qt::SHIFT | Qt::Key_F5),
                 [&scripts] { scripts.watch().stop(); });
    menu.addSeparator();
    add(menu, tr("&Find..."), QKeySequence::Find, [&scripts] { scripts.findBar().open(); });
    add(menu, tr("Find &next"), QKeySequence::FindNext,
        [&scripts] { scripts.findBar().findNext(); });
    add(menu, tr("Find &previous"), QKeySequence::FindPrevious,
        [&scripts] { scripts.findBar().findPrevious(); });
    add(menu, tr("&Comment or uncomment"), QKeySequence(Qt::CTRL | Qt::Key_Slash),
        [&scripts] { scripts.tabs().current()->toggleComment(); });
    addExamples(*menu.addMenu(tr("&Examples")));
    menu.addSeparator(); // entries that scripts make follow
    QToolBar* bar = m_viewer.window().addToolBar(tr("Scripts"));
    bar->setObjectName(QStringLiteral("scriptTools"));
    bar->addActions({m_run, m_runSelection, m_stop});
}

void Commands::addExamples(QMenu& menu)
{
    for (const QString& path : exampleScripts()) {
        QAction* action = menu.addAction(QFileInfo(path).completeBaseName().replace(u'_', u' '));
        connect(action, &QAction::triggered, this, [this, path] { m_viewer.openFile(path); });
    }
    if (menu.isEmpty())
        menu.setEnabled(false);
}

void Commands::addHelpMenu()
{
    auto* menu = m_viewer.window().menuBar()->addMenu(tr("&Help"));
    add(*menu, tr("&Keyboard shortcuts"), QKeySequence(Qt::CTRL | Qt::Key_F1),
        [this] { showShortcuts(); });
    add(*menu, tr("&About"), QKeySequence(Qt::SHIFT | Qt::Key_F1),
        [this] { m_viewer.showAbout(); });
}

void Commands::showShortcuts()
{
    QStringList cells;
    for (const QAction* action : m_viewer.window().findChildren<QAction*>())
        if (!action->shortcut().isEmpty())
            cells +=
                QStringLiteral("<td>%1</td><td>&nbsp;&nbsp;%2</td>")
                    .arg(withoutMnemonics(action->text()).toHtmlEscaped(),
                         action->shortcut().toString(QKeySequence::NativeText).toHtmlEscaped());
    QMessageBox::information(&m_viewer.window(), tr("Keyboard shortcuts"), twoColumns(cells));
}

void Commands::followRuns()
{
    const RunWatch& watch = m_viewer.scripts().watch();
    const auto show = [this, &watch] {
        const bool idle = watch.state() == RunWatch::State::Idle;
        m_run->setEnabled(idle);
        m_runSelection->setEnabled(idle);
        m_stop->setEnabled(!idle);
    };
    connect(&watch, &RunWatch::changed, this, show);
    show();
}

} // namespace vistrel
