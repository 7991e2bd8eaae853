// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A text view that is fed by a timer.
#include "viewer/scripts/OutputPane.h"

#include <QtCore/QTimer>
#include <QtGui/QFontDatabase>
#include <QtGui/QTextCursor>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

namespace vistrel {

namespace {

constexpr int showEveryMs = 50;
// A full view takes some 16 us for each line that comes and pushes another one out.
constexpr int linesAtOnce = 1000;

} // namespace

OutputPane::OutputPane(QWidget* parent)
    : QWidget(parent)
    , m_view(new QPlainTextEdit(this))
    , m_note(new QLabel(this))
    , m_timer(new QTimer(this))
{
    m_view->setReadOnly(true);
    m_view->setUndoRedoEnabled(false);
    m_view->setMaximumBlockCount(keptLines);
    m_view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_note->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_note);
    layout->addWidget(m_view);
    connect(m_timer, &QTimer::timeout, this, &OutputPane::flush);
    m_timer->start(showEveryMs);
}

void OutputPane::flush()
{
    const OutputBuffer::Piece piece = m_buffer.take(linesAtOnce);
    if (piece.text.isEmpty() && piece.cutLines == 0)
        return;
    // Whoever has scrolled back to read is not dragged to the end.
    QScrollBar* const bar = m_view->verticalScrollBar();
    const bool followsEnd = bar->value() == bar->maximum();
    QTextCursor end(m_view->document());
    end.movePosition(QTextCursor::End);
    end.insertText(piece.text);
    if (followsEnd)
        bar->setValue(bar->maximum());
    m_shownLineEnds += piece.text.count(u'\n');
    m_cutLines += piece.cutLines;
    noteCutLines();
}

void OutputPane::noteCutLines()
{
    // The view itself drops what is more than it keeps; its last line may be an empty one.
    const qint64 dropped = m_shownLineEnds + 1 - m_view->blockCount();
    m_cutLines += dropped;
    m_shownLineEnds -= dropped;
    m_note->setVisible(m_cutLines > 0);
    m_note->setText(tr("The last %L1 lines are shown; %L2 lines before them were cut.")
                        .arg(keptLines)
                        .arg(m_cutLines));
}

void OutputPane::clear()
{
    m_buffer.takeAll();
    m_view->clear();
    m_shownLineEnds = 0;
    m_cutLines = 0;
    m_note->hide();
}

QString OutputPane::text() const { return m_view->toPlainText(); }

} // namespace vistrel
