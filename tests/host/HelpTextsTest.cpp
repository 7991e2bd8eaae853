// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in table of help texts against the stub it is made from, read here line by line.
#include "help/HelpTexts.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::NotNull;
using testing::StartsWith;

struct Definition {
    std::string className; // empty: a module function
    std::string name;
};

std::vector<Definition> definitionsOfStub()
{
    QFile stub(QStringLiteral(VISTREL_STUB));
    if (!stub.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression line(
        QStringLiteral("^(?:class (?<class>\\w+)|(?<indent> *)def (?<name>\\w+))\\b"));
    std::vector<Definition> found;
    QString currentClass;
    for (const QString& text : QString::fromUtf8(stub.readAll()).split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = line.match(text);
        if (!match.captured(u"class").isEmpty())
            currentClass = match.captured(u"class");
        // What only type checkers read has no help.
        const QString name = match.captured(u"name");
        if (name.isEmpty() || name.startsWith(QLatin1String("__")))
            continue;
        const bool isMethod = !match.captured(u"indent").isEmpty();
        found.push_back(
            {isMethod ? currentClass.toStdString() : std::string(), name.toStdString()});
    }
    return found;
}

const char* helpOf(const Definition& definition)
{
    static const std::map<std::string, const char*> hostNames{
        {"Camera", "cameraObj"}, {"Image", "imgObj"}, {"Graph", "graphObj"}};
    if (definition.className.empty())
        return vistrel::functionHelp("vistrel", definition.name.c_str());
    return vistrel::methodHelp(hostNames.at(definition.className), definition.name.c_str());
}

TEST(HelpTexts, EveryFunctionAndMethodOfTheStubHasOne)
{
    const std::vector<Definition> definitions = definitionsOfStub();
    EXPECT_THAT(definitions, Not(IsEmpty()));
    for (const Definition& definition : definitions)
        EXPECT_THAT(helpOf(definition), NotNull())
            << definition.className << "." << definition.name;
}

TEST(HelpTexts, EachBeginsWithASignatureThatPythonUnderstands)
{
    for (const Definition& definition : definitionsOfStub()) {
        const std::string text = helpOf(definition);
        const std::string bound = definition.className.empty() ? "($module, " : "($self, ";
        const std::string signature = text.substr(0, text.find('\n'));
        EXPECT_THAT(text, StartsWith(definition.name + bound));
        EXPECT_THAT(signature, EndsWith("/)"));
        EXPECT_THAT(text, StartsWith(signature + "\n--\n\n"));
    }
}

TEST(HelpTexts, OfAFunctionNamesTypesDefaultsAndErrors)
{
    const std::string text = vistrel::functionHelp("vistrel", "wait_for_next_frame");
    EXPECT_THAT(text, StartsWith("wait_for_next_frame($module, timeout=-1.0, view_id=-1, /)\n"));
    EXPECT_THAT(text, HasSubstr("    timeout (float): "));
    EXPECT_THAT(text, HasSubstr("Returns:\n    bool: "));
    EXPECT_THAT(text, HasSubstr("\"vistrel.WaitForNextFrame: view not found\""));
}

TEST(HelpTexts, OfAFunctionAndOfAMethodWithTheSameNameDiffer)
{
    EXPECT_STRNE(vistrel::functionHelp("vistrel", "save_to_file"),
                 vistrel::methodHelp("imgObj", "save_to_file"));
}

TEST(HelpTexts, OfAnUnknownNameIsNull)
{
    EXPECT_EQ(vistrel::functionHelp("vistrel", "no_such_function"), nullptr);
    EXPECT_EQ(vistrel::functionHelp("emb", "open_file"), nullptr);
    EXPECT_EQ(vistrel::methodHelp("imgObj", "no_such_method"), nullptr);
    EXPECT_EQ(vistrel::methodHelp("Image", "alloc"), nullptr);
}

TEST(HelpTexts, OfTheOtherKindIsNull)
{
    EXPECT_EQ(vistrel::functionHelp("imgObj", "alloc"), nullptr);
    EXPECT_EQ(vistrel::methodHelp("vistrel", "open_file"), nullptr);
}

TEST(HelpTexts, OfNoNameIsNull)
{
    EXPECT_EQ(vistrel::functionHelp(nullptr, "open_file"), nullptr);
    EXPECT_EQ(vistrel::functionHelp("vistrel", nullptr), nullptr);
    EXPECT_EQ(vistrel::methodHelp(nullptr, "alloc"), nullptr);
    EXPECT_EQ(vistrel::methodHelp("imgObj", nullptr), nullptr);
}

} // namespace
