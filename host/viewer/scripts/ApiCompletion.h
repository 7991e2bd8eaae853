// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Gives the editor component the catalog's names and signatures.
#pragma once

#include <Qsci/qsciabstractapis.h>

namespace vistrel {

class ApiCatalog;

class ApiCompletion : public QsciAbstractAPIs {
    Q_OBJECT

public:
    /// The catalog must outlive the object, the lexer owns it.
    ApiCompletion(const ApiCatalog& catalog, QsciLexer* lexer)
        : QsciAbstractAPIs(lexer)
        , m_catalog(catalog)
    {
    }

    void updateAutoCompletionList(const QStringList& context, QStringList& list) override;
    QStringList callTips(const QStringList& context, int commas, QsciScintilla::CallTipsStyle style,
                         QList<int>& shifts) override;

private:
    const ApiCatalog& m_catalog;
};

} // namespace vistrel
