// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Help texts into method tables, without an interpreter.
#include "CxPythonScriptPlugin.h"

#include "PlainEnvironment.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// Answers every question with one text and remembers the questions.
class Helper : public PlainEnvironment {
public:
    const char* functionHelp(const char* module, const char* function) override
    {
        questions += std::string("f:") + module + "." + function + " ";
        return "function text";
    }
    const char* methodHelp(const char* type, const char* method) override
    {
        questions += std::string("m:") + type + "." + method + " ";
        return "method text";
    }

    std::string questions;
};

class FunctionHelp : public testing::Test {
protected:
    ~FunctionHelp() override { g_pScriptPlugin = nullptr; }

    PyMethodDef functions[3] = {
        {"a", nullptr, 0, nullptr}, {"b", nullptr, 0, nullptr}, {nullptr, nullptr, 0, nullptr}};
    PyMethodDef methods[2] = {{"m", nullptr, 0, nullptr}, {nullptr, nullptr, 0, nullptr}};
    PyMethodDef empty[1] = {{nullptr, nullptr, 0, nullptr}};
    Helper helper;
};

TEST_F(FunctionHelp, NothingChangesBeforeTheFirstRun)
{
    CxPythonScriptPlugin::addHelpToPythonFunctions("vistrel", functions, "t", methods);
    EXPECT_EQ(functions[0].ml_doc, nullptr);
    EXPECT_EQ(methods[0].ml_doc, nullptr);
}

TEST_F(FunctionHelp, FillsBothTablesInOrder)
{
    g_pScriptPlugin = &helper;
    CxPythonScriptPlugin::addHelpToPythonFunctions("vistrel", functions, "t", methods);
    EXPECT_EQ(helper.questions, "f:vistrel.a f:vistrel.b m:t.m ");
    EXPECT_STREQ(functions[1].ml_doc, "function text");
    EXPECT_STREQ(methods[0].ml_doc, "method text");
    EXPECT_EQ(functions[2].ml_doc, nullptr);
}

TEST_F(FunctionHelp, ANullNameOrANullTableSkipsThatTableOnly)
{
    g_pScriptPlugin = &helper;
    CxPythonScriptPlugin::addHelpToPythonFunctions(nullptr, functions, "t", methods);
    EXPECT_EQ(helper.questions, "m:t.m ");
    CxPythonScriptPlugin::addHelpToPythonFunctions("vistrel", functions, nullptr, methods);
    EXPECT_EQ(helper.questions, "m:t.m f:vistrel.a f:vistrel.b ");
    CxPythonScriptPlugin::addHelpToPythonFunctions("vistrel", nullptr, "t", nullptr);
    EXPECT_EQ(helper.questions, "m:t.m f:vistrel.a f:vistrel.b ");
}

TEST_F(FunctionHelp, AnEmptyTableIsLeftAsItIs)
{
    g_pScriptPlugin = &helper;
    CxPythonScriptPlugin::addHelpToPythonFunctions("vistrel", empty, "t", empty);
    EXPECT_EQ(helper.questions, "");
    EXPECT_EQ(empty[0].ml_name, nullptr);
}

} // namespace
