// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the script panel makes of texts: parts of scripts, tracebacks, floods of output, names.
#include "viewer/scripts/ApiCatalog.h"
#include "viewer/scripts/OutputBuffer.h"
#include "viewer/scripts/SelectedScript.h"
#include "viewer/scripts/TracebackLines.h"

#include <gmock/gmock.h>

#include <thread>

namespace vistrel {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST(SelectedScript, KeepsTheNumbersOfItsLines)
{
    EXPECT_EQ(selectedScript(QStringLiteral("a = 1\nb = 2\nc = 3\n"), 1, 1),
              QStringLiteral("\nb = 2\n"));
}

TEST(SelectedScript, LosesTheIndentationThatAllLinesShare)
{
    const QString text = QStringLiteral("if x:\n    for y in z:\n\n        print(y)\n");
    EXPECT_EQ(selectedScript(text, 1, 3), QStringLiteral("\nfor y in z:\n\n    print(y)\n"));
}

TEST(SelectedScript, OfMixedTabsAndBlanksLosesOnlyWhatIsTheSame)
{
    EXPECT_EQ(selectedScript(QStringLiteral("\ta\n    b"), 0, 1), QStringLiteral("\ta\n    b\n"));
}

TEST(TracebackLines, NameFileAndLine)
{
    EXPECT_EQ(sourcePlaceOf(QStringLiteral("  File \"<string>\", line 12, in <module>")),
              (SourcePlace{QStringLiteral("<string>"), 12}));
    EXPECT_EQ(sourcePlaceOf(QStringLiteral("  File \"/a/b c.py\", line 3, in f")),
              (SourcePlace{QStringLiteral("/a/b c.py"), 3}));
    EXPECT_EQ(sourcePlaceOf(QStringLiteral("ZeroDivisionError: division by zero")), std::nullopt);
}

TEST(TracebackLines, TheErrorIsAtTheLastPlaceInTheScript)
{
    const QString errors = QStringLiteral("Traceback (most recent call last):\n"
                                          "  File \"<string>\", line 5, in <module>\n"
                                          "  File \"<string>\", line 2, in f\n"
                                          "  File \"/usr/lib/python3/json.py\", line 99, in loads\n"
                                          "ValueError: x\n");
    EXPECT_EQ(errorPlaceOf(errors), (SourcePlace{QStringLiteral("<string>"), 2}));
    EXPECT_EQ(errorPlaceOf(QStringLiteral("a warning\n")), std::nullopt);
}

TEST(OutputBuffer, GivesEverythingOut)
{
    OutputBuffer buffer(3);
    buffer.append(QStringLiteral("a"));
    buffer.append(QStringLiteral("\nb\n"));
    const OutputBuffer::Piece piece = buffer.takeAll();
    EXPECT_EQ(piece.text, QStringLiteral("a\nb\n"));
    EXPECT_EQ(piece.cutLines, 0);
    EXPECT_EQ(buffer.takeAll().text, QString());
}

TEST(OutputBuffer, KeepsTheLastLinesOfAFloodAndCountsTheOthers)
{
    OutputBuffer buffer(3);
    for (int line = 0; line < 100; ++line)
        buffer.append(QString::number(line) + u'\n');
    const OutputBuffer::Piece piece = buffer.takeAll();
    EXPECT_EQ(piece.text, QStringLiteral("97\n98\n99\n"));
    EXPECT_EQ(piece.cutLines, 97);
}

TEST(OutputBuffer, GivesAFloodOutInPieces)
{
    OutputBuffer buffer(10);
    buffer.append(QStringLiteral("1\n2\n3\n4"));
    EXPECT_EQ(buffer.take(2).text, QStringLiteral("1\n2\n"));
    EXPECT_EQ(buffer.take(2).text, QStringLiteral("3\n4"));
    EXPECT_EQ(buffer.take(2).text, QString());
    for (int line = 0; line < 100; ++line)
        buffer.append(QString::number(line) + u'\n');
    const OutputBuffer::Piece piece = buffer.take(2);
    EXPECT_EQ(piece.text, QStringLiteral("90\n91\n"));
    EXPECT_EQ(piece.cutLines, 90);
    EXPECT_EQ(buffer.takeAll().text.count(u'\n'), 8);
}

TEST(OutputBuffer, CutsALineWithoutAnEnd)
{
    OutputBuffer buffer(1);
    for (int piece = 0; piece < 100; ++piece)
        buffer.append(QString(1000, u'x'));
    EXPECT_LE(buffer.takeAll().text.size(), 8000);
}

TEST(OutputBuffer, LosesNothingThatSeveralThreadsWrite)
{
    OutputBuffer buffer(10'000);
    const auto write = [&buffer] {
        for (int line = 0; line < 1000; ++line)
            buffer.append(QStringLiteral("line\n"));
    };
    std::thread one(write);
    std::thread other(write);
    qsizetype characters = 0;
    for (int turn = 0; turn < 100; ++turn)
        characters += buffer.takeAll().text.size();
    one.join();
    other.join();
    characters += buffer.takeAll().text.size();
    EXPECT_EQ(characters, 2 * 1000 * 5);
}

TEST(ApiCatalog, OffersFunctionsAndTypesOfTheModule)
{
    const ApiCatalog catalog;
    const QStringList names = catalog.completions({QStringLiteral("vistrel"), QString()});
    EXPECT_THAT(names, Contains(QStringLiteral("open_file")));
    EXPECT_THAT(names, Contains(QStringLiteral("Image")));
    EXPECT_THAT(names, Not(Contains(QStringLiteral("get_width"))));
    EXPECT_THAT(catalog.completions({QStringLiteral("vistrel"), QStringLiteral("open_f")}),
                ElementsAre(QStringLiteral("open_file")));
}

TEST(ApiCatalog, OffersMethodsAndAttributesBehindAVariable)
{
    const ApiCatalog catalog;
    const QStringList names = catalog.completions({QStringLiteral("picture"), QString()});
    EXPECT_THAT(names, Contains(QStringLiteral("get_width")));
    EXPECT_THAT(names, Contains(QStringLiteral("width")));
    EXPECT_THAT(names, Contains(QStringLiteral("open_device")));
}

TEST(ApiCatalog, OffersTheMembersOfATypeThatIsNamed)
{
    const QStringList names = ApiCatalog().completions(
        {QStringLiteral("vistrel"), QStringLiteral("Image"), QStringLiteral("get_")});
    EXPECT_THAT(names, Contains(QStringLiteral("get_width")));
    EXPECT_THAT(names, Not(Contains(QStringLiteral("get_param"))));
}

TEST(ApiCatalog, ExplainsAFunctionBySignatureAndFirstSentence)
{
    const ApiCatalog catalog;
    EXPECT_THAT(catalog.callTips(QStringLiteral("open_file")),
                ElementsAre(QStringLiteral("vistrel.open_file(path)\nOpen an image file in a new "
                                           "view and make it the active view.")));
    EXPECT_THAT(catalog.callTips(QStringLiteral("width")), IsEmpty());
    EXPECT_THAT(catalog.callTips(QStringLiteral("no_such_function")), IsEmpty());
}

} // namespace vistrel
