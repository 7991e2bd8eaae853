// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The component hands over a dotted expression as a list of words.
#include "viewer/scripts/ApiCompletion.h"

#include "viewer/scripts/ApiCatalog.h"

namespace vistrel {

void ApiCompletion::updateAutoCompletionList(const QStringList& context, QStringList& list)
{
    list.append(m_catalog.completions(context));
}

QStringList ApiCompletion::callTips(const QStringList& context, int commas,
                                    QsciScintilla::CallTipsStyle style, QList<int>& shifts)
{
    Q_UNUSED(commas)
    Q_UNUSED(style)
    Q_UNUSED(shifts)
    // The last word is what is being typed behind the bracket; the function stands before it.
    for (auto word = context.crbegin(); word != context.crend(); ++word)
        if (!word->isEmpty())
            return m_catalog.callTips(*word);
    return {};
}

} // namespace vistrel
