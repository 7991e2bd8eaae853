// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Recording of the active view, and the mark of every view that is recorded.
#include "viewer/cameras/FilmCommands.h"

#include "app/HostApplication.h"
#include "app/ImageView.h"

#include <QtCore/QFileInfo>
#include <QtGui/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

#include <chrono>

namespace vistrel {

namespace {

using namespace std::chrono_literals;

constexpr auto followEvery = 250ms;
constexpr QPoint markPlace(8, 8);

/// Hours only when there are any.
QString timeText(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    const QString text = QStringLiteral("%1:%2")
                             .arg(seconds / 60 % 60, 2, 10, QChar(u'0'))
                             .arg(seconds % 60, 2, 10, QChar(u'0'));
    return seconds < 3600 ? text : QStringLiteral("%1:%2").arg(seconds / 3600).arg(text);
}

} // namespace

// Readable on every picture, so its colours are not the window's.
RecordingMark::RecordingMark(ImageView& view)
    : QLabel(&view)
    , m_view(view)
{
    setObjectName(QStringLiteral("recordingMark"));
    setStyleSheet(QStringLiteral("background: rgba(0, 0, 0, 160); color: white; padding: 2px 6px; "
                                 "border-radius: 4px"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    move(markPlace);
    hide();
    connect(&m_timer, &QTimer::timeout, this, &RecordingMark::follow);
    m_timer.start(followEvery);
}

void RecordingMark::follow()
{
    const bool isRecording = m_view.isRecording();
    if (isRecording && !m_time.isValid())
        m_time.start();
    if (!isRecording)
        m_time.invalidate();
    else
        setText(QStringLiteral("<span style='color: #ff4136'>\u25cf</span> %1")
                    .arg(timeText(m_time.elapsed())));
    adjustSize();
    setVisible(isRecording);
}

FilmCommands::FilmCommands(HostApplication& host)
    : m_host(host)
    , m_record(new QAction(tr("&Record film..."), this))
    , m_end(new QAction(tr("&End recording"), this))
{
    m_record->setToolTip(tr("Record what the active view shows"));
    connect(m_record, &QAction::triggered, this, &FilmCommands::record);
    connect(m_end, &QAction::triggered, this, &FilmCommands::end);
    connect(&host.delegate(), &AppDelegate::viewOpened, this,
            [](ImageView* view) { new RecordingMark(*view); });
    connect(&host.delegate(), &AppDelegate::activeViewChanged, this, &FilmCommands::follow);
    connect(&m_timer, &QTimer::timeout, this, &FilmCommands::follow);
    m_timer.start(followEvery);
    follow();
}

ImageView* FilmCommands::activeView() const
{
    return m_host.delegate().imageView(m_host.delegate().activeViewId());
}

void FilmCommands::follow()
{
    const ImageView* view = activeView();
    m_record->setEnabled(view && !view->isRecording());
    m_end->setEnabled(view && view->isRecording());
    auto* mark = view ? view->findChild<RecordingMark*>() : nullptr;
    if (mark)
        mark->follow();
}

// The view may be closed while its user looks for a file.
void FilmCommands::record()
{
    QWidget* const window = m_host.delegate().mainWindow();
    const int id = m_host.delegate().activeViewId();
    QFileDialog dialog(window, tr("Record film"), QString(), tr("Films (*.avi *.mp4)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("mp4"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    ImageView* const view = m_host.delegate().imageView(id);
    if (view && !view->startRecording(dialog.selectedFiles().constFirst()))
        QMessageBox::warning(window, tr("Record film"), m_host.errorLog().lines().constLast().text);
    follow();
}

void FilmCommands::end()
{
    if (ImageView* const view = activeView())
        view->stopRecording();
    follow();
}

} // namespace vistrel
