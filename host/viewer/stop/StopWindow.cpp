// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Shown by silence, hidden by a sign of life.
#include "viewer/stop/StopWindow.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace vistrel {

namespace {

constexpr int clockMs = 500;

} // namespace

StopWindow::StopWindow()
    : m_text(new QLabel(this))
    , m_time(new QLabel(this))
    , m_button(new QPushButton(tr("&Stop script"), this))
{
    setWindowTitle(tr("Script is running"));
    setWindowFlags(Qt::Window | Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint
                   | Qt::WindowTitleHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* row = new QHBoxLayout;
    row->addWidget(m_time, 1);
    row->addWidget(m_button);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addLayout(row);

    m_silence.setSingleShot(true);
    m_silence.setInterval(patienceMs);
    m_clock.setInterval(clockMs);
    connect(&m_silence, &QTimer::timeout, this, &StopWindow::showWaiting);
    connect(&m_clock, &QTimer::timeout, this, &StopWindow::showTime);
    connect(m_button, &QPushButton::clicked, this, [this] {
        noteRequest();
        Q_EMIT stopRequested();
    });
}

void StopWindow::take(const QByteArray& line)
{
    if (line.startsWith("run "))
        begin(QString::fromUtf8(line.mid(4)));
    else if (line == "end")
        end();
    else if (line == "stop")
        noteRequest();
    else if (line == "alive" && m_running) {
        hide();
        m_silence.start();
    }
}

void StopWindow::begin(const QString& name)
{
    m_running = true;
    m_sinceStart.start();
    m_text->setText(tr("%1 is computing; the viewer waits for it.").arg(name.toHtmlEscaped()));
    m_button->setText(tr("&Stop script"));
    m_silence.start();
}

void StopWindow::end()
{
    m_running = false;
    m_silence.stop();
    m_clock.stop();
    hide();
}

void StopWindow::showWaiting()
{
    showTime();
    m_clock.start();
    show();
    raise();
}

void StopWindow::noteRequest()
{
    // The script may take its time, or refuse: the button stays, for asking again.
    m_text->setText(tr("Stop requested; the script has not ended yet."));
    m_button->setText(tr("&Stop again"));
}

void StopWindow::showTime()
{
    m_time->setText(tr("%n second(s)", nullptr, static_cast<int>(m_sinceStart.elapsed() / 1000)));
}

} // namespace vistrel
