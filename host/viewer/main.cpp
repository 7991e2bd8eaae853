// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// vistrel-viewer: the desktop application in which scripts live.
#include "viewer/window/Theme.h"
#include "viewer/window/Viewer.h"

#include <QtCore/QCommandLineParser>
#include <QtWidgets/QApplication>

#include <clocale>
#include <cstdio>

namespace {

using namespace vistrel;

enum ExitStatus : int { WrongUsage = 2 };

struct Options {
    QStringList files;
    QStringList cameras;
    QString plugin;
};

Options readOptions()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate(
        "main", "Views pictures and cameras, and runs Python scripts on them."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption camera(
        QStringLiteral("camera"),
        QCoreApplication::translate("main", "Open a camera; 'sim' is the simulated one."),
        QStringLiteral("ID"));
    const QCommandLineOption plugin(QStringLiteral("plugin"),
                                    QCoreApplication::translate("main", "Another script plugin."),
                                    QStringLiteral("FILE"));
    parser.addOptions({camera, plugin});
    parser.addPositionalArgument(
        QStringLiteral("files"),
        QCoreApplication::translate("main", "Pictures and scripts to open."),
        QStringLiteral("[FILES...]"));
    parser.process(*QCoreApplication::instance());
    return {parser.positionalArguments(), parser.values(camera), parser.value(plugin)};
}

int fail(const QString& reason)
{
    std::fprintf(stderr, "vistrel-viewer: %s\n", qPrintable(reason));
    return WrongUsage;
}

bool openCameras(Viewer& viewer, const QStringList& ids, QString& error)
{
    for (const QString& id : ids) {
        void* const camera = viewer.host().cameras().open(id, error);
        if (!camera)
            return false;
        viewer.host().delegate().setCameraAcquisition(true, camera);
    }
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setOrganizationName(QStringLiteral("vistrel"));
    QCoreApplication::setApplicationName(QStringLiteral("vistrel-viewer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VISTREL_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("vistrel-viewer"));
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // scripts and settings files read and write points, not commas
    const Options options = readOptions();
    setDarkTheme(isDarkThemeChosen());
    Viewer viewer;
    QString error;
    if (!viewer.loadPlugin(options.plugin, error) || !openCameras(viewer, options.cameras, error))
        return fail(error);
    viewer.show();
    for (const QString& file : options.files)
        viewer.openFile(file);
    return QApplication::exec();
}
