// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Time and text in two columns, the newest line last and in sight.
#include "viewer/window/ErrorLogPanel.h"

#include "app/ErrorLog.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>

namespace vistrel {

ErrorLogPanel::ErrorLogPanel(ErrorLog& log, QWidget* parent)
    : QTreeWidget(parent)
    , m_log(log)
{
    setHeaderLabels({tr("Time"), tr("Message")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* clear = new QAction(tr("Clear"), this);
    addAction(clear);
    connect(clear, &QAction::triggered, this, [this] { m_log.clear(); });
    connect(&m_log, &ErrorLog::changed, this, &ErrorLogPanel::showLines);
    showLines();
}

void ErrorLogPanel::showLines()
{
    // Whoever has scrolled back to read is not dragged to the end.
    const int place = verticalScrollBar()->value();
    const bool followsEnd = place == verticalScrollBar()->maximum();
    clear();
    QList<QTreeWidgetItem*> rows;
    for (const ErrorLog::Line& line : m_log.lines()) {
        auto* row = new QTreeWidgetItem;
        row->setText(0, line.time.toString(QStringLiteral("HH:mm:ss")));
        row->setText(1, line.text);
        row->setToolTip(1, line.text);
        rows.append(row);
    }
    addTopLevelItems(rows);
    resizeColumnToContents(0);
    scrollToBottom();
    if (!followsEnd)
        verticalScrollBar()->setValue(place);
}

} // namespace vistrel
