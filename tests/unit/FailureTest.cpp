// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the plugin does when the interpreter itself fails it.
#include "CxPythonScriptPlugin.h"
#include "FailingPython.h"
#include "OutputCapture.h"
#include "PlainEnvironment.h"
#include "PythonTest.h"

#include <gtest/gtest.h>

namespace {

class Failure : public testing::Test {
protected:
    Failure() { plugin->init(); }

    QString run(const char* script)
    {
        return plugin->runScript(QString::fromUtf8(script), &environment, QString(), nullptr,
                                 nullptr, nullptr);
    }

    PlainEnvironment environment;
    FailingPython failing;
    CollectedLog log;
    std::unique_ptr<CxPythonScriptPlugin> plugin = std::make_unique<CxPythonScriptPlugin>();
};

TEST_F(Failure, OfFinalisingIsLoggedAndDestructionGoesOn)
{
    EXPECT_EQ(run("pass"), QString());
    failing.finalizeThrows = true;
    plugin.reset();
    EXPECT_TRUE(log.hasLineEndingWith(
        QStringLiteral("CxPythonScriptPlugin::runScript(): Python crashed in Finalize")));
}

TEST_F(Failure, OfTheModuleTableIsWrittenToStandardErrorAndStartUpGoesOn)
{
    failing.moduleName = "vistrel";
    testing::internal::CaptureStderr();
    const QString errors = run("import vistrel");
    EXPECT_NE(testing::internal::GetCapturedStderr().find(
                  "Error: could not extend in-built modules table\n"),
              std::string::npos);
    EXPECT_TRUE(errors.contains(QLatin1String("ModuleNotFoundError: No module named 'vistrel'")));
}

TEST_F(Failure, OfMakingTheModuleIsTheErrorOfItsImportAndRunsGoOn)
{
    failing.madeModule = "vistrel";
    testing::internal::CaptureStderr();
    const QString errors = run("import vistrel");
    testing::internal::GetCapturedStderr(); // the start-up's own import
    EXPECT_TRUE(errors.endsWith(QLatin1String("MemoryError: no module on demand\n")))
        << qPrintable(errors);
    failing.madeModule = nullptr;
    EXPECT_EQ(run("import vistrel\nassert hasattr(vistrel, 'Camera')"), QString());
}

TEST_F(Failure, OfMakingTheCaptureModuleLeavesTheCapture)
{
    failing.madeModule = "emb";
    testing::internal::CaptureStderr();
    const QString errors = run("import sys\nsys.stderr.write('captured')");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("no module on demand"),
              std::string::npos);
    EXPECT_EQ(errors, QStringLiteral("captured"));
}

TEST_F(Failure, OfTheCaptureTypeIsLoggedAndRunsGoUncaptured)
{
    failing.typeName = "emb.stdout_object";
    testing::internal::CaptureStderr();
    const QString errors = run("import sys\nsys.stderr.write('not captured')");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("not captured"), std::string::npos);
    EXPECT_EQ(errors, QString());
    EXPECT_TRUE(
        log.hasLineEndingWith(QStringLiteral("PyInit_emb(): Failed to register emb.StdOutType")));
}

TEST_F(Failure, OfTheCameraTypeIsLoggedAndTheModuleGoesWithoutIt)
{
    failing.typeName = "vistrel.Camera";
    EXPECT_EQ(run("import vistrel\n"
                  "assert not hasattr(vistrel, 'Camera') and hasattr(vistrel, 'Image')"),
              QString());
    EXPECT_TRUE(log.hasLineEndingWith(
        QStringLiteral("fx_pycams_TypeReady(): Failed to register vistrel.CameraType")));
}

TEST_F(Failure, OfTheImageTypeIsLoggedAndTheModuleGoesWithoutIt)
{
    failing.typeName = "vistrel.Image";
    EXPECT_EQ(run("import vistrel\n"
                  "assert hasattr(vistrel, 'Camera') and not hasattr(vistrel, 'Image')"),
              QString());
    EXPECT_TRUE(log.hasLineEndingWith(
        QStringLiteral("fx_pyimages_TypeReady(): Failed to register vistrel.ImageType with "
                       "limited API")));
    plugin->addImageVariable(QStringLiteral("picture"), reinterpret_cast<CxImageData*>(&log));
    EXPECT_EQ(run("assert 'picture' not in globals()"), QString()) << "nothing is bound, or said";
}

TEST_F(Failure, OfTheGraphTypeIsLoggedAndTheModuleGoesWithoutIt)
{
    failing.typeName = "vistrel.Graph";
    EXPECT_EQ(run("import vistrel\n"
                  "assert hasattr(vistrel, 'Image') and not hasattr(vistrel, 'Graph')"),
              QString());
    EXPECT_TRUE(log.hasLineEndingWith(
        QStringLiteral("fx_pygraphs_TypeReady(): Failed to register vistrel.GraphType")));
}

TEST_F(Failure, OfAddingATypeDoesNotStopTheModule)
{
    failing.addedName = "Image";
    EXPECT_EQ(run("import vistrel\nassert not hasattr(vistrel, 'Image')"), QString());
}

TEST_F(Failure, OfAddingTheCaptureTypeLeavesTheCapture)
{
    failing.addedName = "stdout_object";
    EXPECT_EQ(run("import sys\nsys.stderr.write('captured')"), QStringLiteral("captured"));
}

TEST_F(Failure, DumpOfVariablesLogsNameAndValueAndSkipsWhatHasNoText)
{
    EXPECT_EQ(run("import builtins\n"
                  "class Silent:\n"
                  "    def __str__(self): raise ValueError\n"
                  "builtins.Silent = Silent"),
              QString());
    EXPECT_EQ(run("__name__ = 'größe'\n__doc__ = Silent()"), QString());
    plugin->dumpLocalVariables();
    EXPECT_TRUE(log.hasLineEndingWith(QStringLiteral(": __name__: größe")));
    EXPECT_FALSE(log.hasLineEndingWith(QStringLiteral("__doc__: ")));
}

class Capture : public PythonTest {};

TEST_F(Capture, AResetWithoutASetLeavesTheStreamAsItIs)
{
    run("import sys\nbefore = sys.stdout");
    emb::reset_stdout();
    emb::reset_stderr();
    EXPECT_EQ(value("sys.stdout is before"), "True");
}

TEST_F(Capture, ASetBeforeTheModuleExistsDoesNothing)
{
    run("import sys\nbefore = sys.stdout");
    emb::set_stdout([](const std::string&) {});
    EXPECT_EQ(value("sys.stdout is before"), "True");
}

TEST_F(Capture, ASecondSetKeepsTheStreamAndChangesTheSink)
{
    const python::PyRef module = python::PyRef::take(emb::PyInit_emb());
    run("import sys\nbefore = sys.stdout");
    static std::string first;
    static std::string second;
    emb::set_stdout([](const std::string& text) { first += text; });
    run("capture = sys.stdout\nsys.stdout.write('a')");
    emb::set_stdout([](const std::string& text) { second += text; });
    run("assert sys.stdout is capture\nsys.stdout.write('b')");
    emb::reset_stdout();
    EXPECT_EQ(value("sys.stdout is before"), "True");
    EXPECT_EQ(first + "|" + second, "a|b");
}

} // namespace
