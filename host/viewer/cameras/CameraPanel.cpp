// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Layout of the panel, and what its commands do to cameras.
#include "viewer/cameras/CameraPanel.h"

#include "app/HostApplication.h"
#include "app/ImageView.h"
#include "app/LiveStream.h"
#include "core/LongWork.h"
#include "viewer/cameras/CameraList.h"
#include "viewer/cameras/ParameterPanel.h"
#include "viewer/cameras/ParameterRow.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

#include <utility>

namespace vistrel {

CameraPanel::CameraPanel(HostApplication& host, QWidget* parent)
    : QWidget(parent)
    , m_host(host)
    , m_list(new CameraList(host.cameras(), this))
    , m_parameters(new ParameterPanel(host.cameras(), this))
    , m_message(new QLabel(this))
{
    makeCommands();
    layOut();
    connect(m_list, &CameraList::changed, this, &CameraPanel::follow);
    connect(m_list, &CameraList::itemDoubleClicked, this, &CameraPanel::start);
    connect(&host.delegate(), &AppDelegate::activeViewChanged, this, &CameraPanel::followView);
    connect(&host.cameras(), &CameraManager::cameraLost, this,
            [this](void*, const QString& camera) {
                warn(tr("The connection to camera %1 broke.").arg(camera));
            });
    follow();
}

CameraPanel::~CameraPanel() = default;

void CameraPanel::makeCommands()
{
    makeCommand(Find, tr("&Find cameras"), tr("Look for cameras"), &CameraPanel::find);
    makeCommand(Open, tr("&Open camera"), tr("Open the camera"), &CameraPanel::open);
    makeCommand(Start, tr("&Start camera"), tr("Show what the camera sees"), &CameraPanel::start);
    makeCommand(Stop, tr("S&top camera"), tr("Stop the camera"), &CameraPanel::stop);
    makeCommand(Close, tr("&Close camera"), tr("Close the camera"), &CameraPanel::close);
    makeCommand(DrawRegion, tr("&Draw region"),
                tr("Draw the part of the picture that the camera is to send"),
                &CameraPanel::drawRegion);
    makeCommand(WholeSensor, tr("&Whole sensor"), tr("Let the camera send the whole sensor"),
                &CameraPanel::setWholeSensor);
    makeCommand(SaveSettings, tr("S&ave settings..."), tr("Save the camera's settings to a file"),
                &CameraPanel::saveSettings);
    makeCommand(LoadSettings, tr("&Load settings..."), tr("Set the camera as a file says"),
                &CameraPanel::loadSettings);
    makeCommand(FilterParameters, tr("Find &parameter"), tr("Filter the camera's parameters"),
                &CameraPanel::filterParameters);
    // The buttons are in a panel that says what they are about.
    m_commands[Find]->setIconText(tr("Find"));
    m_commands[Open]->setIconText(tr("Open"));
    m_commands[Start]->setIconText(tr("Start"));
    m_commands[Stop]->setIconText(tr("Stop"));
    m_commands[Close]->setIconText(tr("Close"));
    m_commands[SaveSettings]->setIconText(tr("Save"));
    m_commands[LoadSettings]->setIconText(tr("Load"));
}

void CameraPanel::makeCommand(Command command, const QString& text, const QString& help, Work work)
{
    m_commands[command] = new QAction(text, this);
    m_commands[command]->setToolTip(help);
    connect(m_commands[command], &QAction::triggered, this, work);
}

QWidget* CameraPanel::toolBar(std::initializer_list<Command> commands)
{
    auto* bar = new QToolBar(this);
    for (const Command command : commands)
        bar->addAction(m_commands[command]);
    return bar;
}

QWidget* CameraPanel::stacked(std::initializer_list<QWidget*> parts)
{
    auto* stack = new QWidget(this);
    auto* layout = new QVBoxLayout(stack);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (QWidget* part : parts)
        layout->addWidget(part);
    return stack;
}

void CameraPanel::layOut()
{
    m_message->setWordWrap(true);
    m_message->setMargin(4);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_message->hide();
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(stacked({toolBar({Find, Open, Start, Stop, Close}), m_list, m_message}));
    splitter->addWidget(
        stacked({toolBar({DrawRegion, WholeSensor, SaveSettings, LoadSettings}), m_parameters}));
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
}

void CameraPanel::follow()
{
    void* const camera = m_list->currentCamera();
    const bool isLive = m_host.cameras().isStreaming(camera);
    m_commands[Find]->setEnabled(!m_work);
    m_commands[Open]->setEnabled(!m_work && !camera && !m_list->currentId().isEmpty());
    m_commands[Start]->setEnabled(camera && !isLive);
    m_commands[Stop]->setEnabled(isLive);
    m_commands[DrawRegion]->setEnabled(isLive);
    for (const Command command : {Close, WholeSensor, SaveSettings, LoadSettings, FilterParameters})
        m_commands[command]->setEnabled(camera);
    m_parameters->showCamera(camera);
}

void CameraPanel::followView(int id)
{
    const ImageView* view = m_host.delegate().imageView(id);
    if (view && view->stream() && view->stream()->camera())
        m_list->setCurrentCamera(view->stream()->camera());
}

// A panel behind another one counts as shown, too, but is not painted.
void CameraPanel::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (std::exchange(m_hasLooked, true))
        return;
    QTimer::singleShot(0, this, [this] {
        if (!m_work)
            look(false);
    });
}

void CameraPanel::find()
{
    say(tr("Looking for cameras ..."));
    look(true);
}

void CameraPanel::look(bool isAsked)
{
    m_hasLooked = true;
    m_work = std::make_unique<LongWork>(tr("Looking for cameras"));
    follow();
    m_host.cameras().discoverInBackground(
        [panel = QPointer(this), isAsked](std::vector<CameraListing> found) {
            if (panel)
                panel->showFound(std::move(found), isAsked);
        });
}

void CameraPanel::showFound(std::vector<CameraListing> found, bool isAsked)
{
    m_work.reset();
    if (isAsked)
        say(found.size() == 1 ? tr("One camera was found.")
                              : tr("%1 cameras were found.").arg(found.size()));
    m_list->showFound(std::move(found));
    follow();
}

void CameraPanel::open()
{
    m_work = std::make_unique<LongWork>(tr("Opening camera %1").arg(m_list->currentId()));
    say(tr("Opening the camera ..."));
    follow();
    m_host.cameras().openInBackground(m_list->currentId(),
                                      [panel = QPointer(this)](void* camera, const QString& error) {
                                          if (panel)
                                              panel->showOpened(camera, error);
                                      });
}

void CameraPanel::showOpened(void* camera, const QString& error)
{
    m_work.reset();
    say({});
    if (camera)
        m_list->setCurrentCamera(camera);
    else
        warn(error);
    follow();
    Q_EMIT wanted();
}

void CameraPanel::start()
{
    void* const camera = m_list->currentCamera();
    if (!camera)
        return m_commands[Open]->trigger();
    if (m_host.delegate().setCameraAcquisition(true, camera))
        say({});
    else
        warnAsLogged();
    m_list->follow();
}

void CameraPanel::stop()
{
    m_host.delegate().setCameraAcquisition(false, m_list->currentCamera());
    m_list->follow();
}

void CameraPanel::close()
{
    m_host.cameras().close(m_list->currentCamera());
    m_list->follow();
}

void CameraPanel::filterParameters()
{
    Q_EMIT wanted();
    m_parameters->filter().setFocus();
    m_parameters->filter().selectAll();
}

QString CameraPanel::message() const { return m_message->text(); }

void CameraPanel::say(const QString& text)
{
    m_message->setPalette(QPalette());
    m_message->setText(text);
    m_message->setVisible(!text.isEmpty());
}

void CameraPanel::warn(const QString& text)
{
    QPalette colours;
    colours.setColor(QPalette::WindowText, warningColour(palette()));
    say(text);
    m_message->setPalette(colours);
}

void CameraPanel::warnAsLogged()
{
    const QList<ErrorLog::Line> lines = m_host.errorLog().lines();
    warn(lines.isEmpty() ? tr("The camera refused.") : lines.constLast().text);
}

} // namespace vistrel
