// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Loads the film module.
#include "core/FilmModule.h"

#include "core/FilmWriters.h"
#include "core/HostModule.h"

namespace {

vistrel::FilmWriters* loadFilmWriters(QString& error)
{
    const QString path = vistrel::hostModulePath(QStringLiteral("libvistrel_film.so"));
    const auto entry = reinterpret_cast<vistrel::FilmWritersEntry>(
        vistrel::hostModuleEntry(path, vistrel::filmWritersEntry, error));
    if (entry != nullptr)
        return entry();
    error = QStringLiteral("films cannot be written: %1").arg(error);
    return nullptr;
}

struct LoadedModule {
    QString error;
    vistrel::FilmWriters* writers = loadFilmWriters(error);
};

} // namespace

vistrel::FilmWriters* vistrel::filmWriters(QString& error)
{
    static const LoadedModule module;
    error = module.error;
    return module.writers;
}
