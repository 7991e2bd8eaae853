// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A list that is kept as the chain is, with tools and a form beside it.
#include "viewer/chains/ChainPanel.h"

#include "app/AppDelegate.h"
#include "app/ImageView.h"
#include "chains/ChainElement.h"
#include "viewer/chains/ElementForm.h"

#include <CxRTTI.h>

#include <QtCore/QSignalBlocker>
#include <QtGui/QAction>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace vistrel {

ChainPanel::ChainPanel(AppDelegate& delegate, QWidget* parent)
    : QWidget(parent)
    , m_delegate(delegate)
    , m_title(new QLabel(this))
    , m_tools(new QToolBar(this))
    , m_list(new QListWidget(this))
    , m_form(new ElementForm(this))
{
    layOut();
    fillTools();
    setFocusProxy(m_list);
    connect(m_list, &QListWidget::currentRowChanged, this, &ChainPanel::showSelected);
    connect(m_list, &QListWidget::itemChanged, this,
            [this](QListWidgetItem* item) { switchElement(m_list->row(item)); });
    connect(&m_delegate, &AppDelegate::activeViewChanged, this, &ChainPanel::followView);
    followView(m_delegate.activeViewId());
}

void ChainPanel::layOut()
{
    m_title->setTextFormat(Qt::PlainText); // it holds a view's title
    m_title->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(m_tools);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_form);
}

void ChainPanel::fillTools()
{
    auto* menu = new QMenu(this);
    fillMenuOfElements(*menu);
    auto* add = new QToolButton(m_tools);
    add->setText(tr("Add"));
    add->setMenu(menu);
    add->setPopupMode(QToolButton::InstantPopup);
    m_tools->addWidget(add);
    m_remove = addTool(tr("Remove"), QKeySequence(Qt::Key_Delete), &ChainPanel::removeSelected);
    m_up = addTool(tr("Up"), QKeySequence(Qt::CTRL | Qt::Key_Up), &ChainPanel::moveUp);
    m_down = addTool(tr("Down"), QKeySequence(Qt::CTRL | Qt::Key_Down), &ChainPanel::moveDown);
    auto* addByKey = new QAction(tr("Add element"), m_list);
    addByKey->setShortcut(QKeySequence(Qt::Key_Insert));
    addByKey->setShortcutContext(Qt::WidgetShortcut);
    m_list->addAction(addByKey);
    connect(addByKey, &QAction::triggered, add, &QToolButton::showMenu);
}

void ChainPanel::fillMenuOfElements(QMenu& menu)
{
    const QString interfaceName = QStringLiteral("CxChainable");
    for (const QString& name : CxRTTI::instance()->classesForInterface(interfaceName, true)) {
        QAction* const entry = menu.addAction(CxRTTI::customNameForClass(name));
        connect(entry, &QAction::triggered, this, [this, name] { addElement(name); });
    }
}

QAction* ChainPanel::addTool(const QString& text, const QKeySequence& keys, Work work)
{
    QAction* const action = m_tools->addAction(text);
    // In the list alone: the fields below it use such keys for their texts.
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    m_list->addAction(action);
    connect(action, &QAction::triggered, this, work);
    return action;
}

void ChainPanel::followView(int id)
{
    if (m_chain)
        m_chain->disconnect(this);
    ImageView* const view = m_delegate.imageView(id);
    m_chain = view ? &view->chain() : nullptr;
    m_viewTitle = view ? view->windowTitle() : QString();
    if (m_chain)
        connect(m_chain, &Chain::changed, this, &ChainPanel::showChain);
    m_elements.clear();
    showChain();
}

void ChainPanel::showChain()
{
    const QPointer<ChainElement> before = selected();
    const int rowBefore = m_list->currentRow();
    m_elements.clear();
    if (m_chain)
        for (ChainElement* element : m_chain->elements())
            m_elements.emplace_back(element);
    showRows();
    const auto place = std::find(m_elements.begin(), m_elements.end(), before);
    const bool isThere = before && place != m_elements.end();
    const int row = isThere ? static_cast<int>(place - m_elements.begin()) : rowBefore;
    m_list->setCurrentRow(std::clamp(row, 0, std::max(m_list->count() - 1, 0)));
    showTitle();
    showSelected();
}

void ChainPanel::showRows()
{
    // Rows are filled anew, not made anew: one of them may be what has just been clicked.
    const QSignalBlocker blocker(m_list);
    const int rows = static_cast<int>(m_elements.size());
    while (m_list->count() > rows)
        delete m_list->takeItem(rows);
    while (m_list->count() < rows)
        m_list->addItem(QString());
    for (int row = 0; row < rows; ++row) {
        const ChainElement& element = *m_elements[static_cast<std::size_t>(row)];
        m_list->item(row)->setText(element.displayName());
        m_list->item(row)->setCheckState(element.isEnabled() ? Qt::Checked : Qt::Unchecked);
    }
}

void ChainPanel::showTitle()
{
    m_tools->setEnabled(m_chain);
    if (!m_chain)
        m_title->setText(tr("No view is open."));
    else if (m_elements.empty())
        m_title->setText(tr("%1 shows its pictures as they are.").arg(m_viewTitle));
    else
        m_title->setText(tr("Pictures of %1 go through:").arg(m_viewTitle));
}

ChainElement* ChainPanel::selected() const
{
    const int row = m_list->currentRow();
    const bool isThere = row >= 0 && row < static_cast<int>(m_elements.size());
    return isThere ? m_elements[static_cast<std::size_t>(row)].data() : nullptr;
}

void ChainPanel::showSelected()
{
    const int row = m_list->currentRow();
    m_form->showElement(selected());
    m_remove->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row < m_list->count() - 1);
}

void ChainPanel::addElement(const QString& className)
{
    std::unique_ptr<QObject> object(CxRTTI::createInstanceOfClass(className));
    auto* const element = qobject_cast<ChainElement*>(object.get());
    if (!m_chain || !element)
        return;
    static_cast<void>(object.release());
    m_chain->insertBefore(std::unique_ptr<ChainElement>(element), nullptr);
    m_list->setCurrentRow(m_list->count() - 1);
}

void ChainPanel::removeSelected()
{
    if (m_chain)
        m_chain->remove(selected());
}

void ChainPanel::moveSelected(int by)
{
    const int place = m_list->currentRow() + by;
    if (m_chain && place >= 0)
        m_chain->move(selected(), static_cast<std::size_t>(place));
}

void ChainPanel::switchElement(int row)
{
    ChainElement* const element = m_elements[static_cast<std::size_t>(row)];
    const bool on = m_list->item(row)->checkState() == Qt::Checked;
    if (element && element->isEnabled() != on)
        element->setEnabled(on);
}

} // namespace vistrel
