// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finds and loads the codecs module.
#include "core/CodecModule.h"
#include "core/ImageCodecs.h"

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

struct LoadedModule {
    QString error;
    vistrel::ImageCodecs* codecs = vistrel::loadImageCodecs(
        ownFolder() + QStringLiteral("/vistrel/libvistrel_codecs.so"), error);
};

} // namespace

vistrel::ImageCodecs* vistrel::loadImageCodecs(const QString& path, QString& error)
{
    QLibrary library(path);
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const auto entry = reinterpret_cast<ImageCodecsEntry>(library.resolve(imageCodecsEntry));
    if (entry == nullptr) {
        error = QStringLiteral("the codecs cannot be loaded: %1").arg(library.errorString());
        return nullptr;
    }
    return entry();
}

vistrel::ImageCodecs* vistrel::imageCodecs(QString& error)
{
    static const LoadedModule module;
    error = module.error;
    return module.codecs;
}
