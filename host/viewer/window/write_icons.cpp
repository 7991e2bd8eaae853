// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the program's icon into the folders in which desktops look for icons: write_icons FOLDER
#include "viewer/window/ProgramIcon.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

#include <cstdio>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2)
        return 2;
    const QDir folder(arguments.at(1));
    for (const int side : vistrel::iconSides) {
        const QString place = QStringLiteral("hicolor/%1x%1/apps").arg(side);
        const QString path = folder.filePath(place + QStringLiteral("/vistrel-viewer.png"));
        if (!folder.mkpath(place) || !vistrel::iconPicture(side).save(path)) {
            std::fprintf(stderr, "%s was not written\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
