// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the marks of mnemonics away.
#include "app/Mnemonics.h"

QString vistrel::withoutMnemonics(const QString& text)
{
    QString shown;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && ++i == text.size())
            break;
        shown += text[i];
    }
    return shown;
}
