// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A text that is cut at its beginning when it becomes twice as long as it need be.
#include "viewer/scripts/OutputBuffer.h"

#include <utility>

namespace vistrel {

namespace {

// A line without an end must not grow without an end either.
constexpr qsizetype charactersPerLine = 4000;

} // namespace

void OutputBuffer::append(const QString& text)
{
    const std::scoped_lock lock(m_mutex);
    m_text += text;
    m_lineEnds += text.count(u'\n');
    // Cut only now and then: moving the kept lines costs as much as they are long.
    if (m_lineEnds > 2 * m_lines || m_text.size() > 2 * m_lines * charactersPerLine)
        cut();
}

OutputBuffer::Piece OutputBuffer::take(qint64 most)
{
    const std::scoped_lock lock(m_mutex);
    if (m_lineEnds > m_lines || m_text.size() > m_lines * charactersPerLine)
        cut();
    const QString text = takeLines(most);
    return {text, std::exchange(m_cutLines, 0)};
}

QString OutputBuffer::takeLines(qint64 most)
{
    if (m_lineEnds <= most) {
        m_lineEnds = 0;
        return std::exchange(m_text, QString());
    }
    qsizetype end = 0;
    for (qint64 line = 0; line < most; ++line)
        end = m_text.indexOf(u'\n', end) + 1;
    m_lineEnds -= most;
    QString text = m_text.left(end);
    m_text.remove(0, end);
    return text;
}

void OutputBuffer::cut()
{
    qsizetype start = 0;
    for (; m_lineEnds > m_lines; --m_lineEnds, ++m_cutLines)
        start = m_text.indexOf(u'\n', start) + 1;
    m_text.remove(0, start);
    const qsizetype excess = m_text.size() - m_lines * charactersPerLine;
    if (excess <= 0)
        return;
    const qint64 lost = QStringView(m_text).left(excess).count(u'\n');
    m_lineEnds -= lost;
    m_cutLines += lost;
    m_text.remove(0, excess);
}

} // namespace vistrel
