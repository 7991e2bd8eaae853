// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Loads the codecs module once.
#include "core/CodecModule.h"
#include "core/HostModule.h"
#include "core/ImageCodecs.h"

namespace {

struct LoadedModule {
    QString error;
    vistrel::ImageCodecs* codecs = vistrel::loadImageCodecs(
        vistrel::hostModulePath(QStringLiteral("libvistrel_codecs.so")), error);
};

} // namespace

vistrel::ImageCodecs* vistrel::loadImageCodecs(const QString& path, QString& error)
{
    const auto entry =
        reinterpret_cast<ImageCodecsEntry>(hostModuleEntry(path, imageCodecsEntry, error));
    if (entry == nullptr) {
        error = QStringLiteral("the codecs cannot be loaded: %1").arg(error);
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
