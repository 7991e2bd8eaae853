// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One run: start of the interpreter, hook, output, result, names, failures.
#include "PluginTest.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QTemporaryDir>

#include <dlfcn.h>

#include <csignal>
#include <stdexcept>

using testing::_;
using testing::InSequence;
using testing::ReturnRef;

namespace {

class Run : public PluginTest {
protected:
    /// A run with everything in the caller's hand.
    QString runWith(const char* script, CxScriptLangInterface::StartHook hook, void* userData,
                    CxScriptLangInterface::OutputCallback callback, const QString& home = QString())
    {
        return plugin->runScript(QString::fromUtf8(script), &environment, home, hook, userData,
                                 callback);
    }
};

/// The folder that holds python3.X: that of the library file, or the one above it.
QString folderOfStandardLibrary()
{
    void* const library = dlopen(VISTREL_PYTHON_LIBRARY, RTLD_LAZY);
    Dl_info info{};
    dladdr(dlsym(library, "Py_Initialize"), &info);
    QDir folder = QFileInfo(QFileInfo(QString::fromUtf8(info.dli_fname)).canonicalFilePath()).dir();
    if (folder.entryList({QStringLiteral("python3.*")}, QDir::Dirs).isEmpty())
        folder.cdUp();
    return folder.path();
}

TEST_F(Run, AnEmptyScriptReturnsNothing)
{
    EXPECT_EQ(run(""), QString());
    EXPECT_EQ(output, QString());
}

TEST_F(Run, FirstRunDefinesConstantsAndImportsModules)
{
    stringConstants = {{QStringLiteral("GAIN_DB"), QStringLiteral("gain_db")}};
    integerConstants = {{QStringLiteral("TRIGGER_OFF"), 0}, {QStringLiteral("TRIGGER_ON"), -7}};
    EXPECT_EQ(run("import sys\n"
                  "print(GAIN_DB, TRIGGER_OFF, TRIGGER_ON)\n"
                  "print('emb' in sys.modules, 'vistrel' in sys.modules, vistrel.__name__)"),
              QString());
    EXPECT_EQ(output, QStringLiteral("gain_db 0 -7\nTrue True vistrel\n"));
}

TEST_F(Run, ConstantsAreReadOnceAndInTheOrderOfTheirLists)
{
    {
        const InSequence order;
        EXPECT_CALL(environment, apiParamDefs()).WillOnce(ReturnRef(stringConstants));
        EXPECT_CALL(environment, apiParamEnumVals()).WillOnce(ReturnRef(integerConstants));
        EXPECT_CALL(environment, functionHelp(_, _)).Times(testing::AtLeast(1));
    }
    stringConstants = {{QStringLiteral("B"), QStringLiteral("b")},
                       {QStringLiteral("A"), QStringLiteral("a")}};
    EXPECT_EQ(value("[name for name in globals() if name in ('A', 'B')]"),
              QStringLiteral("['B', 'A']"));
    stringConstants.append({QStringLiteral("LATE"), QStringLiteral("late")});
    EXPECT_EQ(value("(A, B, 'LATE' in globals())"), QStringLiteral("('a', 'b', False)"));
}

TEST_F(Run, NamesOfARunAreGoneInTheNext)
{
    EXPECT_EQ(run("x = 1"), QString());
    const QString errors = run("print(x)");
    EXPECT_TRUE(errors.startsWith(QLatin1String("Traceback (most recent call last):")));
    EXPECT_TRUE(errors.contains(QLatin1String("NameError: name 'x' is not defined")));
}

TEST_F(Run, VariablesFunctionsAndImportsAreRemovedAndTheRestRemains)
{
    run("a = 1\ndef f(): pass\nimport math");
    EXPECT_EQ(value("[n in globals() for n in ('a', 'f', 'math', '__builtins__', '__name__', "
                    "'vistrel')]"),
              QStringLiteral("[False, False, False, True, True, True]"));
}

TEST_F(Run, ANameThatARunDeletesStaysDeleted)
{
    run("del vistrel");
    EXPECT_EQ(value("'vistrel' in globals()"), QStringLiteral("False"));
}

TEST_F(Run, ANameWithANulInItIsRemovedAndNoOther)
{
    EXPECT_EQ(run("globals()['vistrel\\0x'] = 1"), QString());
    EXPECT_EQ(value("[name for name in globals() if name.startswith('vistrel')]"),
              QStringLiteral("['vistrel']"));
}

TEST_F(Run, KeysThatAreNoTextsAreLeftAlone)
{
    EXPECT_EQ(run("globals()[5] = 1\nglobals()['\\udc80'] = 2\nx = 3"), QString());
    EXPECT_EQ(value("(globals().get(5), 'x' in globals())"), QStringLiteral("(1, False)"));
}

TEST_F(Run, ANameThatIsGoneWithAnotherOnesRemovalIsSkipped)
{
    EXPECT_EQ(run("class Taking:\n"
                  "    def __del__(self, names=globals()): del names['b']\n"
                  "a = Taking()\n"
                  "b = 1\n"
                  "c = 2\n"),
              QString());
    EXPECT_EQ(value("[name for name in globals() if name in ('Taking', 'a', 'b', 'c')]"),
              QStringLiteral("[]"));
}

TEST_F(Run, ANameWhoseRemovalDropsTheNamespaceDoesNoHarm)
{
    EXPECT_EQ(run("import functools, sys, weakref\n"
                  "x = set()\n"
                  "r = weakref.ref(x, functools.partial(sys.modules.pop, '__main__'))\n"
                  "z = 1\n"),
              QString());
    run("pass");
}

TEST_F(Run, ARunFromWithinARunIsRefused)
{
    static CxScriptLangInterface* inner;
    static IxScriptEnvironment* innerEnvironment;
    static QString result;
    inner = plugin;
    innerEnvironment = &environment;
    EXPECT_EQ(runWith("print('x', end='')", nullptr, nullptr,
                      [](const QString& text, bool) {
                          if (!text.isEmpty()) {
                              result = inner->runScript(QStringLiteral("y = 1"), innerEnvironment,
                                                        QString(), nullptr, nullptr, nullptr);
                          }
                      }),
              QString());
    EXPECT_EQ(result,
              QStringLiteral("a script cannot be started from within the run of another one"));
    EXPECT_EQ(value("2"), QStringLiteral("2"));
}

TEST_F(Run, AReboundConstantOrOtherEarlierNameKeepsItsNewValue)
{
    stringConstants = {{QStringLiteral("MODE"), QStringLiteral("mode")}};
    run("MODE = 'changed'\n__name__ = 'renamed'");
    EXPECT_EQ(value("(MODE, __name__)"), QStringLiteral("('changed', 'renamed')"));
}

TEST_F(Run, ImportedModulesKeepTheirState)
{
    run("import json\njson.kept = 5");
    EXPECT_EQ(value("__import__('json').kept"), QStringLiteral("5"));
}

TEST_F(Run, AnErrorReturnsTheTracebackAndKeepsEarlierOutput)
{
    const QString errors = run("print('before')\nraise ValueError('wrong')\nprint('after')");
    EXPECT_EQ(pieces, (QStringList{QStringLiteral("before"), QStringLiteral("\n")}));
    EXPECT_EQ(errors, QStringLiteral("Traceback (most recent call last):\n"
                                     "  File \"<string>\", line 2, in <module>\n"
                                     "ValueError: wrong\n"));
}

TEST_F(Run, ASyntaxErrorIsReturned)
{
    EXPECT_TRUE(run("if True print(1)").contains(QLatin1String("SyntaxError")));
}

TEST_F(Run, StandardErrorIsReturnedWithoutAnError)
{
    EXPECT_EQ(run("import sys\nsys.stderr.write('careful')"), QStringLiteral("careful"));
}

TEST_F(Run, NonAsciiTextsPassUnchanged)
{
    EXPECT_EQ(run("import sys\nprint('größe ≥ 5 µm 画像 🎥')\nsys.stderr.write('naïve')"),
              QStringLiteral("naïve"));
    EXPECT_EQ(output, QStringLiteral("größe ≥ 5 µm 画像 🎥\n"));
}

TEST_F(Run, TheStartHookGetsNullAndTheUserDataOncePerRun)
{
    struct Calls {
        int count = 0;
        void* first = nullptr;
    } calls;
    const auto hook = [](void* reserved, void* userData) {
        auto* seen = static_cast<Calls*>(userData);
        ++seen->count;
        seen->first = reserved;
    };
    calls.first = &calls;
    EXPECT_EQ(runWith("", hook, &calls, nullptr), QString());
    EXPECT_EQ(calls.count, 1);
    EXPECT_EQ(calls.first, nullptr);
    EXPECT_EQ(runWith("", hook, &calls, nullptr), QString());
    EXPECT_EQ(calls.count, 2);
}

TEST_F(Run, WithoutAStartHookUserDataIsNeverDereferenced)
{
    EXPECT_EQ(runWith("", nullptr, reinterpret_cast<void*>(quintptr{1}), nullptr), QString());
}

TEST_F(Run, ANullCallbackLeavesStandardOutputAlone)
{
    testing::internal::CaptureStdout();
    const QString errors =
        runWith("import sys\nprint('direct', sys.stdout is sys.__stdout__, flush=True)", nullptr,
                nullptr, nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "direct True\n");
    EXPECT_EQ(errors, QString());
}

TEST_F(Run, ANullCallbackStillCollectsStandardError)
{
    EXPECT_EQ(runWith("import sys\nsys.stderr.write('only this')", nullptr, nullptr, nullptr),
              QStringLiteral("only this"));
}

TEST_F(Run, TheCallbacksFlagIsAlwaysFalse)
{
    static bool flag;
    flag = true;
    runWith("print(1, end='')", nullptr, nullptr, [](const QString&, bool value) { flag = value; });
    EXPECT_FALSE(flag);
}

TEST_F(Run, AThrowingCallbackEndsTheRunAndLeavesTheInterpreterSound)
{
    static int calls;
    calls = 0;
    const QString errors = runWith("reached = []\n"
                                   "import emb\nemb.reached = reached\n"
                                   "try:\n"
                                   "    print('x')\n"
                                   "    reached.append('after print')\n"
                                   "except Exception:\n"
                                   "    reached.append('caught')\n",
                                   nullptr, nullptr, [](const QString&, bool) {
                                       ++calls;
                                       throw std::runtime_error("full");
                                   });
    EXPECT_EQ(errors, QStringLiteral("Python rasied exception"));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(value("__import__('emb').reached"), QStringLiteral("[]"));
    EXPECT_EQ(value("'reached' in globals()"), QStringLiteral("False"));
    EXPECT_EQ(value("__import__('sys').stderr is __import__('sys').__stderr__"),
              QStringLiteral("False"))
        << "the next run is captured again";
}

TEST_F(Run, AFailedRunIsLogged)
{
    runWith("print('x')", nullptr, nullptr,
            [](const QString&, bool) { throw std::runtime_error("full"); });
    ASSERT_FALSE(log.isEmpty());
    EXPECT_TRUE(log.last().endsWith(
        QLatin1String(": CxPythonScriptPlugin::runScript(): Python rasied exception")))
        << qPrintable(log.last());
    EXPECT_TRUE(log.last().contains(QLatin1String(" ScriptRunner.cpp L")));
}

TEST_F(Run, WhatAFailedRunHadToSayIsLoggedToo)
{
    runWith("import sys\nsys.stderr.write('half way')\nprint('x')", nullptr, nullptr,
            [](const QString&, bool) { throw std::runtime_error("full"); });
    EXPECT_TRUE(log.last().endsWith(QLatin1String("half way")));
}

TEST_F(Run, AThrowingStartHookEndsTheRunBeforeTheScript)
{
    const QString errors = runWith(
        "print('never')", [](void*, void*) { throw std::runtime_error("no"); }, nullptr,
        [](const QString& text, bool) { output += text; });
    EXPECT_EQ(errors, QStringLiteral("Python rasied exception"));
    EXPECT_EQ(output, QString());
    EXPECT_EQ(value("3"), QStringLiteral("3")) << "the lock was released";
}

TEST_F(Run, TheStartHookIsCalledBeforeStandardErrorIsCaptured)
{
    run("pass");
    static bool wasCaptured;
    wasCaptured = true;
    runWith(
        "pass",
        [](void*, void*) {
            using GetObject = void*(const char*);
            auto* const getObject =
                reinterpret_cast<GetObject*>(dlsym(RTLD_DEFAULT, "PySys_GetObject"));
            wasCaptured = getObject("stderr") != getObject("__stderr__");
        },
        nullptr, nullptr);
    EXPECT_FALSE(wasCaptured);
}

TEST_F(Run, WhatARemovedNameWritesToStandardErrorIsPartOfTheResult)
{
    EXPECT_EQ(run("import sys\n"
                  "class AtEnd:\n"
                  "    def __del__(self, stream=sys.stderr): stream.write('gone')\n"
                  "guard = AtEnd()"),
              QStringLiteral("gone"));
}

TEST_F(Run, TheEnvironmentStaysTheLastRunsUntilTheInterpreterStops)
{
    run("import atexit\natexit.register(lambda vistrel=vistrel: vistrel.wait(0.75))");
    EXPECT_CALL(environment, wait(0.75));
    destroyPlugin();
}

TEST_F(Run, SysExitEndsTheScriptAndSaysNothingForZeroAndNone)
{
    EXPECT_EQ(run("import sys\nprint('a')\nsys.exit()\nprint('b')"), QString());
    EXPECT_EQ(output, QStringLiteral("a\n"));
    EXPECT_EQ(run("import sys\nsys.exit(0)"), QString());
    EXPECT_EQ(run("raise SystemExit"), QString());
    EXPECT_EQ(run("exit()"), QString());
}

TEST_F(Run, SysExitNamesANumberAndPrintsAText)
{
    EXPECT_EQ(run("import sys\nsys.exit(3)"), QStringLiteral("script ended with exit status 3\n"));
    EXPECT_EQ(run("raise SystemExit('no camera')"), QStringLiteral("no camera\n"));
    EXPECT_EQ(run("raise SystemExit((1, 2))"), QStringLiteral("(1, 2)\n"));
}

TEST_F(Run, SysExitDuringAnImportEndsTheScriptOnly)
{
    EXPECT_EQ(run("import sys, types\n"
                  "class Finder:\n"
                  "    @staticmethod\n"
                  "    def find_spec(name, path=None, target=None):\n"
                  "        if name == 'leaving': sys.exit('left')\n"
                  "sys.meta_path.insert(0, Finder)\n"
                  "import leaving\n"),
              QStringLiteral("left\n"));
}

TEST_F(Run, AnExceptHookThatExitsEndsNothing)
{
    EXPECT_EQ(run("import sys\nsys.excepthook = lambda *a: sys.exit('from hook')\n1 / 0"),
              QStringLiteral("from hook\n"));
    EXPECT_EQ(value("__import__('sys').excepthook is __import__('sys').__excepthook__"),
              QStringLiteral("False"))
        << "a script's hook stays in place";
}

TEST_F(Run, AnExceptHookThatAlsoReplacesPythonsOwnEndsNothing)
{
    EXPECT_EQ(run("import sys\n"
                  "sys.excepthook = sys.__excepthook__ = lambda *a: sys.exit(7)\n"
                  "1 / 0"),
              QStringLiteral("script ended with exit status 7\n"));
    EXPECT_EQ(value("1"), QStringLiteral("1"));
}

TEST_F(Run, ASystemExitWithAnOddCodeStillSaysSomething)
{
    EXPECT_EQ(run("raise SystemExit(True)"),
              QStringLiteral("script ended with exit status True\n"));
    EXPECT_EQ(run("raise SystemExit(2**80)"),
              QStringLiteral("script ended with exit status 1208925819614629174706176\n"));
    EXPECT_EQ(run("class Odd(int):\n"
                  "    def __bool__(self): raise ValueError\n"
                  "raise SystemExit(Odd(3))"),
              QStringLiteral("script ended with exit status 3\n"));
    EXPECT_EQ(run("raise SystemExit('gone \\udc80')"), QStringLiteral("gone \\udc80\n"));
    EXPECT_EQ(run("class Codeless(SystemExit):\n"
                  "    @property\n"
                  "    def code(self): raise ValueError\n"
                  "raise Codeless('left')"),
              QStringLiteral("left\n"));
}

TEST_F(Run, AnExceptHookThatFailsIsReportedWithBothErrors)
{
    const QString errors = run("import sys\n"
                               "def hook(*a): raise KeyError('inner')\n"
                               "sys.excepthook = hook\n"
                               "1 / 0");
    EXPECT_TRUE(errors.contains(QLatin1String("Error in sys.excepthook")));
    EXPECT_TRUE(errors.contains(QLatin1String("KeyError: 'inner'")));
    EXPECT_TRUE(errors.contains(QLatin1String("ZeroDivisionError")));
}

TEST_F(Run, AHomeWithoutStandardLibraryIsAClearErrorAndALaterRunWorks)
{
    const QString errors =
        runWith("print(1)", nullptr, nullptr, nullptr, QStringLiteral("/no/such/home"));
    EXPECT_TRUE(errors.startsWith(
        QLatin1String("Python home \"/no/such/home\" holds no standard library (lib/python3.")))
        << qPrintable(errors);
    EXPECT_TRUE(log.last().endsWith(errors));
    EXPECT_EQ(value("'started'"), QStringLiteral("started"));
}

TEST_F(Run, AHomeWithAnEmptyLibraryIsRefusedToo)
{
    const QTemporaryDir home;
    const QString version =
        plugin->languageVersion().section(QLatin1Char(' '), 1).section(QLatin1Char('.'), 0, 1);
    QDir(home.path()).mkpath(QStringLiteral("lib/python%1/encodings").arg(version));
    QFile zip(home.filePath(
        QStringLiteral("lib/python%1.zip").arg(QString(version).remove(QLatin1Char('.')))));
    ASSERT_TRUE(zip.open(QIODevice::WriteOnly));
    EXPECT_TRUE(runWith("pass", nullptr, nullptr, nullptr, home.path())
                    .startsWith(QLatin1String("Python home \"")));
}

TEST_F(Run, AWrongHomeInTheProcessEnvironmentIsAClearErrorToo)
{
    qputenv("PYTHONHOME", "/no/such/home");
    EXPECT_TRUE(run("print(1)").startsWith(QLatin1String("Python home \"/no/such/home\"")));
    qunsetenv("PYTHONHOME");
    EXPECT_EQ(value("1"), QStringLiteral("1"));
}

TEST_F(Run, AGoodHomeTakesEffect)
{
    const QTemporaryDir home;
    ASSERT_TRUE(QFile::link(folderOfStandardLibrary(), home.filePath(QStringLiteral("lib"))));
    EXPECT_EQ(
        runWith("import sys\nsys.stderr.write(sys.prefix)", nullptr, nullptr, nullptr, home.path()),
        home.path());
}

TEST_F(Run, TheProgramNameIsTheHostsExecutable)
{
    // Python derives its executable from the program name on every version.
    EXPECT_EQ(value("__import__('sys').executable"), QCoreApplication::applicationFilePath());
}

TEST_F(Run, BinaryModulesWorkWithAHostThatLoadsWithDefaultHints)
{
    EXPECT_EQ(loader.loadHints() & QLibrary::ExportExternalSymbolsHint, 0);
    EXPECT_EQ(value("[__import__(name).__name__ for name in ('numpy', 'asyncio', 'ctypes', "
                    "'decimal', 'ssl', 'sqlite3')]"),
              QStringLiteral("['numpy', 'asyncio', 'ctypes', 'decimal', 'ssl', 'sqlite3']"));
}

TEST_F(Run, PythonsPathsAreUtf8InEveryLocale)
{
    qputenv("LC_ALL", "C");
    EXPECT_EQ(value("__import__('sys').getfilesystemencoding()"), QStringLiteral("utf-8"));
}

TEST_F(Run, AStaleInterruptDoesNotEndTheNextScript)
{
    run("pass");
    raise(SIGINT); // Python's handler is installed and marks it for later
    EXPECT_EQ(value("'alive'"), QStringLiteral("alive"));
}

TEST_F(Run, AnInterruptDuringTheScriptRaisesKeyboardInterrupt)
{
    EXPECT_EQ(error("import os, signal, time\n"
                    "os.kill(os.getpid(), signal.SIGINT)\n"
                    "time.sleep(30)"),
              QStringLiteral("KeyboardInterrupt"));
}

TEST_F(Run, TheEnvironmentIsTheOneOfTheCurrentRun)
{
    run("pass");
    testing::NiceMock<MockEnvironment> second;
    ON_CALL(second, isGuiThread()).WillByDefault(testing::Return(true));
    EXPECT_CALL(second, wait(0.25));
    EXPECT_CALL(environment, wait(_)).Times(0);
    plugin->runScript(QStringLiteral("vistrel.wait(0.25)"), &second, QString(), nullptr, nullptr,
                      nullptr);
}

TEST_F(Run, ImageVariablesBoundBeforeARunStayAndThoseOfTheHookGo)
{
    run("pass");
    auto image = makeImage(5, 4, 1, ExImageDataType::UInt8, 8);
    plugin->addImageVariable(QStringLiteral("picture"), image.get());
    EXPECT_EQ(value("picture.width"), QStringLiteral("5"));
    EXPECT_EQ(value("picture.height"), QStringLiteral("4"));
    struct Context {
        CxScriptLangInterface* plugin;
        CxImageData* image;
    } context{plugin, image.get()};
    const auto bindLate = [](void*, void* data) {
        auto* c = static_cast<Context*>(data);
        c->plugin->addImageVariable(QStringLiteral("late"), c->image);
    };
    EXPECT_EQ(runWith("assert late.width == 5", bindLate, &context, nullptr), QString());
    EXPECT_EQ(value("'late' in globals()"), QStringLiteral("False"));
}

TEST_F(Run, AnImageVariableBeforeTheFirstRunOrWithoutAnImageBindsNothing)
{
    auto image = makeImage(5, 4, 1, ExImageDataType::UInt8, 8);
    plugin->addImageVariable(QStringLiteral("early"), image.get());
    run("pass");
    plugin->addImageVariable(QStringLiteral("nothing"), nullptr);
    EXPECT_EQ(value("('early' in globals(), 'nothing' in globals())"),
              QStringLiteral("(False, False)"));
    EXPECT_TRUE(log.isEmpty()) << qPrintable(log.join(QLatin1Char('|')));
}

TEST_F(Run, RebindingAnImageVariableDoesNotFreeTheHostsImage)
{
    run("pass");
    auto first = makeImage(5, 4, 1, ExImageDataType::UInt8, 8);
    auto second = makeImage(6, 4, 1, ExImageDataType::UInt8, 8);
    const QPointer<CxImageData> guard = first.get();
    plugin->addImageVariable(QStringLiteral("picture"), first.get());
    plugin->addImageVariable(QStringLiteral("picture"), second.get());
    EXPECT_EQ(value("picture.width"), QStringLiteral("6"));
    ASSERT_FALSE(guard.isNull());
    EXPECT_EQ(first->picBuf()->width, 5U);
}

} // namespace
