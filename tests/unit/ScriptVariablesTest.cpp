// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Names in `__main__`: lists, removal and images that cannot be bound.
#include "CxPythonScriptPlugin.h"
#include "FailingPython.h"
#include "PlainEnvironment.h"

#include <CxImageData.h>

#include <gtest/gtest.h>

namespace {

class ScriptVariables : public testing::Test {
protected:
    ScriptVariables()
    {
        plugin.init();
        EXPECT_EQ(run("pass"), QString());
    }

    QString run(const char* script)
    {
        return plugin.runScript(QString::fromUtf8(script), &environment, QString(), nullptr,
                                nullptr, nullptr);
    }

    PlainEnvironment environment;
    FailingPython failing;
    CollectedLog log;
    CxPythonScriptPlugin plugin;
};

TEST_F(ScriptVariables, AreListedInTheOrderOfBinding)
{
    CxImageData image;
    for (const char* name : {"b", "größe", "a", ""})
        plugin.addImageVariable(QString::fromUtf8(name), &image);
    const std::list<std::string> names = plugin.listLocalVariables();
    ASSERT_GE(names.size(), 4U);
    EXPECT_EQ((std::list<std::string>(std::prev(names.end(), 4), names.end())),
              (std::list<std::string>{"b", "größe", "a", ""}));
}

TEST_F(ScriptVariables, AreComparedExactlyTheEmptyNameIncluded)
{
    std::list<std::string> kept = plugin.listLocalVariables();
    CxImageData image;
    for (const char* name : {"", "a", "ab"})
        plugin.addImageVariable(QString::fromUtf8(name), &image);
    kept.insert(kept.end(), {"", "ab"});
    std::list<std::string> before = kept;
    before.push_back("A");
    plugin.deleteNewLocalVariables(before);
    EXPECT_EQ(plugin.listLocalVariables(), kept);
}

TEST_F(ScriptVariables, WithoutAMainModuleThereAreNoneAndNothingIsReported)
{
    const std::list<std::string> before = plugin.listLocalVariables();
    EXPECT_FALSE(before.empty());
    failing.mainModule = true;
    EXPECT_TRUE(plugin.listLocalVariables().empty());
    plugin.deleteNewLocalVariables({});
    plugin.dumpLocalVariables();
    CxImageData image;
    plugin.addImageVariable(QStringLiteral("picture"), &image);
    failing.mainModule = false;
    EXPECT_EQ(plugin.listLocalVariables(), before);
    EXPECT_EQ(run("pass"), QString());
}

TEST_F(ScriptVariables, AnImageThatCannotBeBoundBindsNothingAndReportsNothing)
{
    CxImageData image;
    failing.addedName = "picture";
    plugin.addImageVariable(QStringLiteral("picture"), &image);
    EXPECT_EQ(run("assert 'picture' not in globals()"), QString());
    EXPECT_FALSE(log.hasLineEndingWith(QString()));
}

TEST(ScriptVariablesOfAPlugin, AreNoneBeforeTheInterpreterStartsAndAfterAnotherPluginStoppedIt)
{
    PlainEnvironment environment;
    CxImageData image;
    CxPythonScriptPlugin plugin;
    plugin.init();
    const auto expectNone = [&] {
        EXPECT_TRUE(plugin.listLocalVariables().empty());
        plugin.deleteNewLocalVariables({});
        plugin.dumpLocalVariables();
        plugin.addImageVariable(QStringLiteral("picture"), &image);
    };
    expectNone();
    const auto run = [&environment](CxPythonScriptPlugin& runner) {
        return runner.runScript(QStringLiteral("assert 'picture' not in globals()"), &environment,
                                QString(), nullptr, nullptr, nullptr);
    };
    {
        CxPythonScriptPlugin starter;
        starter.init();
        EXPECT_EQ(run(starter), QString());
        EXPECT_EQ(run(plugin), QString());
    }
    expectNone();
    EXPECT_EQ(run(plugin), QString());
}

} // namespace
