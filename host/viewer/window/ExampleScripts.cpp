// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Looks beside the program, in a build tree and installed.
#include "viewer/window/ExampleScripts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

#include <array>

namespace vistrel {

QStringList exampleScripts()
{
    constexpr std::array places = {"../share/vistrel/examples", "../../examples"};
    for (const char* place : places) {
        const QDir folder(QCoreApplication::applicationDirPath() + u'/'
                          + QString::fromLatin1(place));
        QStringList files;
        for (const QString& name : folder.entryList({QStringLiteral("*.py")}, QDir::Files))
            files.append(QDir::cleanPath(folder.absoluteFilePath(name)));
        if (!files.isEmpty())
            return files;
    }
    return {};
}

} // namespace vistrel
