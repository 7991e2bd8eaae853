// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A line edit that goes red when nothing is found.
#include "viewer/scripts/FindBar.h"

#include "viewer/scripts/EditorTabs.h"
#include "viewer/scripts/ScriptEditor.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

namespace vistrel {

namespace {

constexpr QRgb notFound = 0xffc0392b;

} // namespace

FindBar::FindBar(EditorTabs& tabs, QWidget* parent)
    : QWidget(parent)
    , m_tabs(tabs)
    , m_text(new QLineEdit(this))
{
    auto* previous = new QToolButton(this);
    previous->setText(tr("Previous"));
    auto* next = new QToolButton(this);
    next->setText(tr("Next"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(new QLabel(tr("Find"), this));
    layout->addWidget(m_text, 1);
    layout->addWidget(previous);
    layout->addWidget(next);
    connect(m_text, &QLineEdit::returnPressed, this, &FindBar::findNext);
    connect(next, &QToolButton::clicked, this, &FindBar::findNext);
    connect(previous, &QToolButton::clicked, this, &FindBar::findPrevious);
    hide();
}

void FindBar::open()
{
    const QString selected = m_tabs.current()->selectedText();
    if (!selected.isEmpty() && !selected.contains(u'\n'))
        m_text->setText(selected);
    show();
    m_text->setFocus();
    m_text->selectAll();
}

void FindBar::find(bool forward)
{
    const bool found = m_tabs.current()->findNext(m_text->text(), forward);
    QPalette colours = palette();
    if (!found && !m_text->text().isEmpty())
        colours.setColor(QPalette::Text, QColor(notFound));
    m_text->setPalette(colours);
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape) {
        QWidget::keyPressEvent(event);
        return;
    }
    hide();
    m_tabs.current()->setFocus();
}

} // namespace vistrel
