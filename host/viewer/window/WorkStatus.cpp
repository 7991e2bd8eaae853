// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A text and a bar that are painted at once: the work may keep the event loop.
#include "viewer/window/WorkStatus.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>

namespace vistrel {

namespace {

constexpr int barWidth = 80;

/// A watcher takes no object along.
WorkStatus* shown = nullptr;

} // namespace

WorkStatus::WorkStatus(QWidget* parent)
    : QWidget(parent)
    , m_text(new QLabel(this))
    , m_before(LongWork::watch([](const QString& what) { shown->showWork(what); }))
{
    shown = this;
    auto* bar = new QProgressBar(this);
    bar->setRange(0, 0);                                 // nobody knows how long
    bar->setFixedSize(barWidth, fontMetrics().height()); // no higher than the status bar's texts
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addWidget(bar);
    hide();
}

WorkStatus::~WorkStatus() { LongWork::watch(m_before); }

void WorkStatus::showWork(const QString& what)
{
    m_text->setText(what);
    setVisible(!what.isEmpty());
    if (!isVisible())
        return;
    updateGeometry();
    if (QLayout* around = parentWidget() ? parentWidget()->layout() : nullptr)
        around->activate();
    layout()->activate();
    repaint();
}

} // namespace vistrel
