// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Scripts that run other scripts: one namespace, errors that stay inside, and how deep they may go.
#include "PluginTest.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <stdexcept>

using testing::Return;

namespace {

class NestedScripts : public PluginTest {
protected:
    NestedScripts()
    {
        ON_CALL(environment, resolvePath).WillByDefault([this](const QString& path) {
            return folder.filePath(path);
        });
    }

    /// Puts a script into the folder.
    void write(const char* name, const QByteArray& text)
    {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir folder;
};

TEST_F(NestedScripts, APathIsResolvedByTheEnvironment)
{
    write("real.py", "print('here', end='')");
    EXPECT_CALL(environment, resolvePath(QStringLiteral("größe.py")))
        .WillOnce(Return(folder.filePath(QStringLiteral("real.py"))));
    EXPECT_EQ(run("vistrel.run_script('größe.py')"), QString());
    EXPECT_EQ(output, QStringLiteral("here"));
}

TEST_F(NestedScripts, AFileThatCannotBeOpenedIsAnError)
{
    EXPECT_EQ(error("vistrel.run_script('missing.py')"),
              QStringLiteral("Exception: given script file can't be opened."));
    EXPECT_EQ(error("vistrel.run_script('.')"),
              QStringLiteral("Exception: given script file can't be opened."));
}

TEST_F(NestedScripts, NamesAreSharedBothWays)
{
    write("inner.py", "seen = given\ngiven = 'changed'\nx = 1\nassert __name__ == '__main__'\n");
    EXPECT_EQ(run("given = 'outer'\n"
                  "assert vistrel.run_script('inner.py') is None\n"
                  "print(seen, given, x, end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("outer changed 1"));
    EXPECT_EQ(value("'x' in globals()"), QStringLiteral("False"))
        << "the names go with the outermost run";
}

TEST_F(NestedScripts, CalledFromAFunctionTheyStillSeeTheMainNamespace)
{
    write("inner.py", "made = 'local_name' in globals()");
    EXPECT_EQ(run("def f():\n"
                  "    local_name = 1\n"
                  "    vistrel.run_script('inner.py')\n"
                  "f()\n"
                  "print(made, end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("False"));
}

TEST_F(NestedScripts, ASyntaxErrorIsPrintedAndTheCallerGoesOn)
{
    write("inner.py", "if True print(1)");
    const QString errors = run("print(vistrel.run_script('inner.py'), end='')");
    EXPECT_EQ(output, QStringLiteral("None"));
    EXPECT_TRUE(errors.contains(QLatin1String("SyntaxError"))) << qPrintable(errors);
    EXPECT_TRUE(errors.contains(QLatin1String("File \"<string>\", line 1")));
}

TEST_F(NestedScripts, AnErrorIsPrintedWithItsLineAndTheCallerGoesOn)
{
    write("inner.py", "print('before', end=' ')\nraise ValueError('wrong')\nprint('never')\n");
    EXPECT_EQ(run("print(vistrel.run_script('inner.py'), end='')"),
              QStringLiteral("Traceback (most recent call last):\n"
                             "  File \"<string>\", line 2, in <module>\n"
                             "ValueError: wrong\n"));
    EXPECT_EQ(output, QStringLiteral("before None"));
}

TEST_F(NestedScripts, SysExitEndsTheInnerScriptAlone)
{
    write("inner.py", "import sys\nsys.exit('done early')\nprint('never')\n");
    EXPECT_EQ(run("vistrel.run_script('inner.py')\nprint('outer', end='')"),
              QStringLiteral("done early\n"));
    EXPECT_EQ(output, QStringLiteral("outer"));
}

TEST_F(NestedScripts, FilesOfAllHabitsAreRead)
{
    write("crlf.py", "a = 1\r\nb = '''x\r\ny'''\r\n");
    write("bom.py", "\xEF\xBB\xBF"
                    "c = 'µ'");
    write("latin.py", "# -*- coding: latin-1 -*-\nd = '\xB5'\n");
    write("empty.py", "");
    write("nul.py", QByteArray("e = 1\n\0f = 2", 12));
    EXPECT_EQ(run("for name in ('crlf', 'bom', 'latin', 'empty', 'nul'):\n"
                  "    vistrel.run_script(name + '.py')\n"
                  "print(a, repr(b), c, d, e, 'f' in globals(), end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("1 'x\\ny' µ µ 1 False"));
}

TEST_F(NestedScripts, TheyRunOnThreadsOfAScriptToo)
{
    write("inner.py", "import threading\nthread = threading.current_thread() is not "
                      "threading.main_thread()\n");
    EXPECT_EQ(run("import threading\n"
                  "t = threading.Thread(target=vistrel.run_script, args=('inner.py',))\n"
                  "t.start()\nt.join()\n"
                  "print(thread, end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("True"));
}

TEST_F(NestedScripts, TheyNestAHundredDeep)
{
    write("deeper.py", "level += 1\nif level < 100: vistrel.run_script('deeper.py')\n");
    EXPECT_EQ(run("level = 0\nvistrel.run_script('deeper.py')\nprint(level, end='')"), QString());
    EXPECT_EQ(output, QStringLiteral("100"));
}

TEST_F(NestedScripts, AScriptThatRunsItselfEndsWithARecursionErrorInItsText)
{
    write("self.py", "vistrel.run_script('self.py')\n");
    const QString errors = run("vistrel.run_script('self.py')\nprint('outer', end='')");
    EXPECT_EQ(errors, QStringLiteral("Traceback (most recent call last):\n"
                                     "  File \"<string>\", line 1, in <module>\n"
                                     "RecursionError: maximum recursion depth exceeded while "
                                     "running a script\n"));
    EXPECT_EQ(output, QStringLiteral("outer"));
}

TEST_F(NestedScripts, AScriptThatRunsItselfTwiceGetsTheErrorEachTime)
{
    write("self.py", "runs += 1\n"
                     "if runs < 2000:\n"
                     "    try: vistrel.run_script('self.py')\n"
                     "    except RecursionError: caught += 1\n"
                     "    try: vistrel.run_script('self.py')\n"
                     "    except RecursionError: caught += 1\n");
    EXPECT_EQ(run("runs = caught = 0\nvistrel.run_script('self.py')\nprint(caught > 50, end='')"),
              QString());
    EXPECT_EQ(output, QStringLiteral("True"));
}

TEST_F(NestedScripts, AScriptThatRunsItselfFromDeepFunctionsEndsWithARecursionError)
{
    write("self.py", "def down(n):\n"
                     "    if n: down(n - 1)\n"
                     "    else: vistrel.run_script('self.py')\n"
                     "down(97)\n");
    const QString errors = run("vistrel.run_script('self.py')\nprint('outer', end='')");
    EXPECT_TRUE(errors.contains(QLatin1String("RecursionError: maximum recursion depth exceeded")))
        << qPrintable(errors);
    EXPECT_EQ(output, QStringLiteral("outer"));
}

TEST_F(NestedScripts, AHigherRecursionLimitDoesNotBreakTheStack)
{
    write("self.py", "vistrel.run_script('self.py')\n");
    const QString errors = run("import sys\n"
                               "sys.setrecursionlimit(1_000_000)\n"
                               "vistrel.run_script('self.py')\n"
                               "print('outer', end='')\n");
    EXPECT_TRUE(errors.contains(QLatin1String("RecursionError"))) << qPrintable(errors);
    EXPECT_EQ(output, QStringLiteral("outer"));
}

TEST_F(NestedScripts, AtTheEndOfTheStackEachScriptThatStartsHasRoomToBeCompiled)
{
    write("nested.py", "x = " + QByteArray(90, '[') + QByteArray(90, ']'));
    write("self.py", "vistrel.run_script('self.py')\nvistrel.run_script('nested.py')\n");
    const QString errors = run("import sys\n"
                               "sys.setrecursionlimit(1_000_000)\n"
                               "vistrel.run_script('self.py')\n"
                               "print('outer', end='')\n");
    EXPECT_TRUE(errors.contains(QLatin1String("RecursionError"))) << qPrintable(errors.left(1000));
    EXPECT_EQ(output, QStringLiteral("outer"));
}

TEST_F(NestedScripts, ASmallStackOfAThreadIsNotBrokenEither)
{
    write("self.py", "depth += 1\nvistrel.run_script('self.py')\n");
    const QString errors =
        run("import threading\n"
            "threading.stack_size(256 * 1024)\n"
            "depth = 0\n"
            "t = threading.Thread(target=vistrel.run_script, args=('self.py',))\n"
            "t.start()\nt.join()\n"
            "print(depth > 10, end='')\n");
    EXPECT_TRUE(errors.contains(QLatin1String("RecursionError"))) << qPrintable(errors);
    EXPECT_EQ(output, QStringLiteral("True"));
}

TEST_F(NestedScripts, OutputThatCannotBeWrittenEndsTheScriptsAroundToo)
{
    write("inner.py", "print('x')\nreached.append('inner')\n");
    static int calls;
    calls = 0;
    const QString errors =
        plugin->runScript(QStringLiteral("reached = []\n"
                                         "import emb\nemb.reached = reached\n"
                                         "vistrel.run_script('inner.py')\n"
                                         "reached.append('outer')\n"),
                          &environment, QString(), nullptr, nullptr, [](const QString&, bool) {
                              ++calls;
                              throw std::runtime_error("full");
                          });
    EXPECT_EQ(errors, QStringLiteral("Python rasied exception"));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(value("__import__('emb').reached"), QStringLiteral("[]"));
}

TEST_F(NestedScripts, AScriptThatDropsTheMainNamespaceDoesNoHarm)
{
    write("inner.py", "import sys\nsys.modules.pop('__main__')\nglobals().clear()\n");
    write("next.py", "y = 2\n");
    EXPECT_EQ(run("import vistrel as v\n"
                  "def f(call=v.run_script, show=print):\n"
                  "    call('inner.py')\n"
                  "    show('went on', end='')\n"
                  "f()\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("went on"));
    const QString errors = run("import vistrel\nvistrel.run_script('next.py')\nprint(y, end='')\n");
    // Before 3.10 a namespace without __builtins__ stays without them.
    EXPECT_TRUE((output == QLatin1String("2") && errors.isEmpty())
                || errors.contains(QLatin1String("__import__ not found")))
        << qPrintable(errors);
}

} // namespace
