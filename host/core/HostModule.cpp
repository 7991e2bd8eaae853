// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finds and loads modules.
#include "core/HostModule.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLibrary>

#include <dlfcn.h>

namespace {

/// The folder of the library that this code is part of. The address is one of data: a function's
/// may be that of a stub in the program.
QString ownFolder()
{
    static const char marker = 0;
    Dl_info info{};
    if (dladdr(&marker, &info) == 0)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath();
}

} // namespace

QString vistrel::hostModulePath(const QString& fileName) { return ownFolder() + u'/' + fileName; }

QFunctionPointer vistrel::hostModuleEntry(const QString& path, const char* function, QString& error)
{
    QLibrary library(path);
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const QFunctionPointer entry = library.resolve(function);
    if (entry == nullptr)
        error = library.errorString();
    return entry;
}
