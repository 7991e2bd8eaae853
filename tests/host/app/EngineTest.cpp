// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finding and loading the script plugin.
#include "AppFixture.h"

#include "app/ScriptEngine.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLibraryInfo>
#include <QtCore/QTemporaryDir>

using namespace vistrel;

namespace {

/// Why a file cannot be loaded; empty when it can.
QString refusal(const QString& file)
{
    ScriptEngine engine;
    QString error;
    return engine.load(file, error) ? QString() : error;
}

QString written;

void collect(const QString& text, bool) { written += text; }

} // namespace

TEST(Engine, NamesAPluginFileThatIsNotThere)
{
    EXPECT_EQ(refusal(QStringLiteral("/nowhere/plugin.so")),
              QStringLiteral("there is no script plugin /nowhere/plugin.so"));
    EXPECT_EQ(refusal(QStringLiteral("/")), QStringLiteral("there is no script plugin /"));
}

TEST(Engine, RefusesAFileThatIsNoLibrary)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("text.so")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("this is no library");
    file.close();
    EXPECT_TRUE(
        refusal(file.fileName())
            .startsWith(file.fileName() + QStringLiteral(" cannot be loaded as a plugin: ")));
}

TEST(Engine, RefusesALibraryThatIsNoPlugin)
{
    const QString library = QCoreApplication::applicationDirPath()
                            + QStringLiteral("/../lib/vistrel/libvistrel_host.so");
    ASSERT_TRUE(QFileInfo::exists(library));
    EXPECT_TRUE(refusal(library).contains(QStringLiteral("cannot be loaded as a plugin: ")));
}

TEST(Engine, RefusesAPluginForSomethingElse)
{
    const QString other =
        QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms/libqminimal.so");
    ASSERT_TRUE(QFileInfo::exists(other));
    EXPECT_TRUE(refusal(other).endsWith(QStringLiteral("is a plugin, but not one for scripts")));
}

TEST(Engine, FindsThePluginOfTheBuildTree)
{
    EXPECT_EQ(QFileInfo(ScriptEngine::defaultPluginFile()).fileName(),
              QStringLiteral("libvistrel_python_script.so"));
    EXPECT_EQ(refusal(QString()), QString());
}

TEST(Engine, TellsTheLanguageWithoutRunningIt)
{
    ScriptEngine engine;
    QString error;
    ASSERT_TRUE(engine.load(QString(), error)) << qPrintable(error);
    EXPECT_TRUE(engine.languageVersion().startsWith(QStringLiteral("Python 3.")));
}

TEST(Engine, RunsScriptsAndSharesImages)
{
    HostApplication host;
    const auto image = makeImage(4, 2, 9);
    ScriptEngine engine;
    QString error;
    ASSERT_TRUE(engine.load(QString(), error)) << qPrintable(error);
    EXPECT_EQ(engine.run(QString(), host.environment(), QString(), collect), QString());
    engine.addImage(QStringLiteral("picture"), *image);
    EXPECT_EQ(engine.run(QStringLiteral("print(bytes(picture)[0], GAIN_DB)"), host.environment(),
                         QString(), collect),
              QString());
    EXPECT_EQ(written, QStringLiteral("9 gain_db\n"));
    EXPECT_TRUE(engine.run(QStringLiteral("1/0"), host.environment(), QString(), collect)
                    .contains(QStringLiteral("ZeroDivisionError")));
}
