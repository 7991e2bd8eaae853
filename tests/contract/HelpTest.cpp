// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Help texts: fetched from the host into the tables when the module is made.
#include "PluginTest.h"

using testing::_;
using testing::Return;
using testing::StrEq;

namespace {

class Help : public PluginTest {};

TEST_F(Help, FunctionsShowTheHostsText)
{
    ON_CALL(environment, functionHelp(StrEq("vistrel"), StrEq("tile_views")))
        .WillByDefault(Return("Arranges all views."));
    EXPECT_EQ(value("vistrel.tile_views.__doc__"), QStringLiteral("Arranges all views."));
}

TEST_F(Help, MethodsShowTheHostsTextUnderTheTypesOwnNames)
{
    ON_CALL(environment, methodHelp(StrEq("cameraObj"), StrEq("close_device")))
        .WillByDefault(Return("Lets go of the camera."));
    ON_CALL(environment, methodHelp(StrEq("imgObj"), StrEq("alloc")))
        .WillByDefault(Return("Makes a picture."));
    EXPECT_EQ(value("vistrel.Camera.close_device.__doc__"),
              QStringLiteral("Lets go of the camera."));
    EXPECT_EQ(value("vistrel.Image.alloc.__doc__"), QStringLiteral("Makes a picture."));
}

TEST_F(Help, ATextWithASignatureLineIsUnderstoodByInspect)
{
    ON_CALL(environment, functionHelp(_, StrEq("wait")))
        .WillByDefault(Return("wait($module, seconds, /)\n--\n\nWaits."));
    EXPECT_EQ(value("__import__('inspect').signature(vistrel.wait)"),
              QStringLiteral("(seconds, /)"));
    EXPECT_EQ(value("vistrel.wait.__doc__"), QStringLiteral("Waits."));
}

TEST_F(Help, NoTextIsNoDocumentation)
{
    EXPECT_EQ(value("(vistrel.wait.__doc__, vistrel.Image.alloc.__doc__)"),
              QStringLiteral("(None, None)"));
}

TEST_F(Help, EveryFunctionIsAskedForOnceInTheOrderOfTheTable)
{
    QStringList asked;
    ON_CALL(environment, functionHelp)
        .WillByDefault([&asked](const char* module, const char* name) {
            EXPECT_STREQ(module, "vistrel");
            asked.append(QString::fromUtf8(name));
            return nullptr;
        });
    run("pass");
    EXPECT_EQ(value("','.join(n for n in vars(vistrel) if callable(getattr(vistrel, n)) "
                    "and not isinstance(getattr(vistrel, n), type) and not n.startswith('__'))"),
              asked.join(QLatin1Char(',')));
    EXPECT_EQ(asked.first(), QStringLiteral("get_number_devices"));
}

TEST_F(Help, MethodsAreAskedForCameraThenGraphThenImage)
{
    QStringList types;
    ON_CALL(environment, methodHelp).WillByDefault([&types](const char* type, const char*) {
        types.append(QString::fromUtf8(type));
        return nullptr;
    });
    run("pass");
    types.removeDuplicates();
    EXPECT_EQ(types, (QStringList{QStringLiteral("cameraObj"), QStringLiteral("graphObj"),
                                  QStringLiteral("imgObj")}));
}

TEST_F(Help, TextsAreFetchedOncePerInterpreter)
{
    run("pass");
    EXPECT_CALL(environment, functionHelp(_, _)).Times(0);
    EXPECT_CALL(environment, methodHelp(_, _)).Times(0);
    run("import importlib, vistrel");
}

} // namespace
