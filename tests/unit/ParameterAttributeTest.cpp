// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Names of dynamic attributes, taken apart.
#include "FuncCamera/ParameterAttribute.h"

#include <gtest/gtest.h>

namespace {

using Access = ParameterAttribute::Access;

struct Case {
    const char* name;
    Access access;
    const char* parameter;
    const char* key;
};

TEST(ParameterAttribute, IsPrefixParameterAndEnding)
{
    const Case cases[] = {
        {"get_gain_db", Access::Get, "gain_db", "gain_db"},
        {"is_gain_db", Access::Get, "gain_db", "gain_db"},
        {"set_gain_db", Access::Set, "gain_db", "gain_db"},
        {"enable_x", Access::Enable, "x", "x"},
        {"disable_x", Access::Disable, "x", "x"},
        {"get_x_maximum", Access::Get, "x", "x:max"},
        {"set_x_minimum", Access::Set, "x", "x:min"},
        {"disable_x_increment", Access::Disable, "x", "x:inc"},
        {"get_x_maximum_minimum", Access::Get, "x_maximum", "x_maximum:min"},
        {"get_x_Maximum", Access::Get, "x_Maximum", "x_Maximum"},
        {"get_x:max", Access::Get, "x:max", "x:max"},
        {"get__", Access::Get, "_", "_"},
        {"get_", Access::Get, "", ""},
    };
    for (const Case& c : cases) {
        const auto attribute = ParameterAttribute::parse(QString::fromUtf8(c.name));
        EXPECT_EQ(attribute.access, c.access) << c.name;
        EXPECT_EQ(attribute.parameter.toStdString(), c.parameter) << c.name;
        EXPECT_EQ(attribute.key.toStdString(), c.key) << c.name;
    }
}

TEST(ParameterAttribute, AnEndingWithoutAParameterIsTheParameter)
{
    EXPECT_EQ(ParameterAttribute::parse(QStringLiteral("get__maximum")).key.toStdString(),
              "_maximum");
    EXPECT_EQ(ParameterAttribute::parse(QStringLiteral("get_maximum")).key.toStdString(),
              "maximum");
}

TEST(ParameterAttribute, OtherNamesAreNone)
{
    for (const char* name : {"", "g", "get", "Get_x", "_get_x", "gets_x", "open_device"})
        EXPECT_EQ(ParameterAttribute::parse(QString::fromUtf8(name)).access, Access::None) << name;
}

} // namespace
