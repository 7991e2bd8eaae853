// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The module emb: what a script's writes do.
#include "PluginTest.h"

namespace {

class Output : public PluginTest {};

TEST_F(Output, PrintReachesTheCallbackAsTextAndLineEnd)
{
    run("print('a')");
    EXPECT_EQ(pieces, (QStringList{QStringLiteral("a"), QStringLiteral("\n")}));
}

TEST_F(Output, PrintOfTwoTextsGivesFourPieces)
{
    run("print('a', 'b')");
    EXPECT_EQ(pieces, (QStringList{QStringLiteral("a"), QStringLiteral(" "), QStringLiteral("b"),
                                   QStringLiteral("\n")}));
}

TEST_F(Output, WriteReturnsTheNumberOfUtf8Bytes)
{
    run("import sys\nresult = sys.stdout.write('ä')\nprint(result, end='')");
    EXPECT_EQ(output, QStringLiteral("ä2"));
}

TEST_F(Output, FlushReturnsNoneWithAnyArguments)
{
    EXPECT_EQ(value("(__import__('sys').stdout.flush(), __import__('sys').stdout.flush(1, 'x'))"),
              QStringLiteral("(None, None)"));
}

TEST_F(Output, AnInstanceOfAScriptSwallowsEverything)
{
    EXPECT_EQ(value("(__import__('emb').stdout_object().write(5, None), "
                    "__import__('emb').stdout_object().write('text'))"),
              QStringLiteral("(0, 0)"));
}

TEST_F(Output, WritingSomethingElseThanATextIsATypeError)
{
    EXPECT_TRUE(error("import sys\nsys.stdout.write(5)").startsWith(QLatin1String("TypeError: ")));
    EXPECT_TRUE(error("import sys\nsys.stdout.write()").startsWith(QLatin1String("TypeError: ")));
}

TEST_F(Output, TheTypeIsCalledAfterItsModule)
{
    EXPECT_EQ(value("type(__import__('sys').stdout)"),
              QStringLiteral("<class 'emb.stdout_object'>"));
    EXPECT_EQ(value("[name for name in vars(__import__('emb').stdout_object) "
                    "if not name.startswith('__')]"),
              QStringLiteral("['write', 'flush']"));
}

TEST_F(Output, MethodsDocumentThemselves)
{
    EXPECT_EQ(value("__import__('emb').stdout_object.write.__doc__"),
              QStringLiteral("sys.stdout.write"));
    EXPECT_EQ(value("__import__('emb').stdout_object.flush.__doc__"),
              QStringLiteral("sys.stdout.flush"));
}

TEST_F(Output, AStreamThatAScriptKeptIsSilentInTheNextRun)
{
    run("import sys, emb\nemb.kept = sys.stdout");
    EXPECT_EQ(value("__import__('emb').kept.write('lost')"), QStringLiteral("0"));
}

TEST_F(Output, StreamsAreBackAfterTheRun)
{
    run("import sys, emb\nemb.during = sys.stdout");
    // The finaliser of a name that the clean-up removes runs with the old stream in place.
    EXPECT_EQ(run("import sys, emb\n"
                  "class AtEnd:\n"
                  "    def __del__(self, sys=sys, emb=emb):\n"
                  "        emb.restored = sys.stdout is sys.__stdout__\n"
                  "guard = AtEnd()\n"),
              QString());
    EXPECT_EQ(value("__import__('emb').restored"), QStringLiteral("True"));
}

TEST_F(Output, AScriptThatDropsTheOriginalStreamDoesNoHarm)
{
    EXPECT_EQ(run("import sys\nsys.__stdout__ = None\nsys.__stderr__ = None\nprint('x')"),
              QString());
    EXPECT_EQ(value("'still here'"), QStringLiteral("still here"));
}

TEST_F(Output, AScriptThatReplacesTheStreamsIsCapturedAgainInTheNextRun)
{
    EXPECT_EQ(run("import sys, io\nsys.stdout = io.StringIO()\nprint('hidden')\nsys.stderr = None"),
              QString());
    EXPECT_EQ(output, QString());
    EXPECT_EQ(value("'seen'"), QStringLiteral("seen"));
}

TEST_F(Output, ARunWithoutCallbackThenOneWithIsCaptured)
{
    plugin->runScript(QStringLiteral("pass"), &environment, QString(), nullptr, nullptr, nullptr);
    EXPECT_EQ(value("'now'"), QStringLiteral("now"));
}

TEST_F(Output, AnErrorWithAStreamThatRaisesEndsTheScriptOnly)
{
    EXPECT_EQ(run("import sys\n"
                  "class Broken:\n"
                  "    def write(self, text): raise SystemExit(9)\n"
                  "sys.stderr = Broken()\n"
                  "1 / 0"),
              QString());
    EXPECT_EQ(value("1"), QStringLiteral("1"));
}

} // namespace
