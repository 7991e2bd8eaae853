// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Shared variables: what is kept from run to run, under which name, and who owns the images.
#include "PluginTest.h"

#include <QtCore/QPointer>

using testing::_;

namespace {

class Variables : public PluginTest {
protected:
    ~Variables() override
    {
        // What is left in the store when the plugin goes is deleted by nobody.
        for (const char* name : {"x", "y", ""})
            run(("vistrel.set_global_variable_img('" + std::string(name) + "', vistrel.Image())")
                    .c_str());
    }

    /// Makes an image of that width and stores it.
    void store(const char* name, int width)
    {
        EXPECT_EQ(run(("i = vistrel.Image()\ni.alloc(" + std::to_string(width)
                       + ", 2, 1, 8)\nvistrel.set_global_variable_img('" + name + "', i)")
                          .c_str()),
                  QString());
    }

    QString widthOf(const char* name)
    {
        return value(
            ("vistrel.get_global_variable_img('" + std::string(name) + "').width").c_str());
    }
};

/// An image of the host that copies itself into a given object.
class CopyingImage : public CxImageData {
public:
    QObject* copy(QObject* parent) override
    {
        EXPECT_EQ(parent, nullptr);
        ++copies;
        return made;
    }

    QObject* made = nullptr;
    int copies = 0;
};

TEST_F(Variables, NamesThatWereNeverSetReadAsMinusOneEmptyAndNone)
{
    EXPECT_EQ(value("(vistrel.get_global_variable_int('never_set'), "
                    "vistrel.get_global_variable_string('never_set'), "
                    "vistrel.get_global_variable_img('never_set'))"),
              QStringLiteral("(-1, '', None)"));
}

TEST_F(Variables, IntegersAndTextsLastFromRunToRunAndAreOverwritten)
{
    EXPECT_EQ(value("(vistrel.set_global_variable_int('zähler', -2**31), "
                    "vistrel.set_global_variable_string('zähler', 'größe 画像 🎥'))"),
              QStringLiteral("(None, None)"));
    EXPECT_EQ(value("(vistrel.get_global_variable_int('zähler'), "
                    "vistrel.get_global_variable_string('zähler'))"),
              QStringLiteral("(-2147483648, 'größe 画像 🎥')"));
    run("vistrel.set_global_variable_int('zähler', 7)\n"
        "vistrel.set_global_variable_string('zähler', '')");
    EXPECT_EQ(value("(vistrel.get_global_variable_int('zähler'), "
                    "vistrel.get_global_variable_string('zähler'))"),
              QStringLiteral("(7, '')"));
}

TEST_F(Variables, TheStoreSurvivesTheInterpreter)
{
    run("vistrel.set_global_variable_int('x', 5)");
    store("x", 4);
    destroyPlugin();
    plugin = qobject_cast<CxScriptLangInterface*>(loader.instance());
    plugin->init();
    EXPECT_EQ(value("vistrel.get_global_variable_int('x')"), QStringLiteral("5"));
    EXPECT_EQ(widthOf("x"), QStringLiteral("4"));
}

TEST_F(Variables, OneNameMayHoldAnIntegerATextAndAnImageAtOnce)
{
    store("x", 3);
    run("vistrel.set_global_variable_int('x', 1)\nvistrel.set_global_variable_string('x', 'one')");
    EXPECT_EQ(value("(vistrel.get_global_variable_int('x'), "
                    "vistrel.get_global_variable_string('x'), "
                    "vistrel.get_global_variable_img('x').width)"),
              QStringLiteral("(1, 'one', 3)"));
}

TEST_F(Variables, UnderAnEmptyNameImagesAreStoredAndNothingElse)
{
    run("vistrel.set_global_variable_int('', 5)\nvistrel.set_global_variable_string('', 'text')");
    EXPECT_EQ(value("(vistrel.get_global_variable_int(''), "
                    "vistrel.get_global_variable_string(''))"),
              QStringLiteral("(-1, '')"));
    store("", 6);
    EXPECT_EQ(widthOf(""), QStringLiteral("6"));
}

TEST_F(Variables, NamesAreCaseSensitive)
{
    run("vistrel.set_global_variable_int('A', 1)\nvistrel.set_global_variable_string('A', 's')");
    store("x", 3);
    EXPECT_EQ(value("(vistrel.get_global_variable_int('a'), "
                    "vistrel.get_global_variable_string('a'), "
                    "vistrel.get_global_variable_img('X'))"),
              QStringLiteral("(-1, '', None)"));
}

TEST_F(Variables, AWrongArgumentLeavesTheStoreUntouched)
{
    store("x", 3);
    EXPECT_TRUE(error("vistrel.set_global_variable_img('x')").startsWith(QLatin1String("Type")));
    EXPECT_TRUE(error("vistrel.set_global_variable_int('x', '1')")
                    .startsWith(QLatin1String("TypeError: ")));
    EXPECT_TRUE(error("vistrel.set_global_variable_int('x', 2**31)")
                    .startsWith(QLatin1String("OverflowError: ")));
    EXPECT_EQ(error("vistrel.set_global_variable_img('x', 'no image')"),
              QStringLiteral("Exception: the object passed is not a vistrel.Image"));
    EXPECT_EQ(error("vistrel.set_global_variable_img('x', None)"),
              QStringLiteral("Exception: the object passed is not a vistrel.Image"));
    EXPECT_EQ(widthOf("x"), QStringLiteral("3"));
    EXPECT_EQ(value("vistrel.get_global_variable_int('x')"), QStringLiteral("-1"));
}

TEST_F(Variables, StoringAnImageTakesACopy)
{
    EXPECT_EQ(value("[i := vistrel.Image(), i.alloc(4, 3, 1, 8), i.set_pixel_value(42, 0, 0), "
                    "vistrel.set_global_variable_img('x', i), i.set_pixel_value(7, 0, 0), "
                    "bytes(vistrel.get_global_variable_img('x'))[0], "
                    "vistrel.get_global_variable_img('x').bp != i.bp][-2:]"),
              QStringLiteral("[42, True]"));
}

TEST_F(Variables, ReadingAnImageSharesTheStoredOne)
{
    store("x", 4);
    EXPECT_EQ(value("[a := vistrel.get_global_variable_img('x'), "
                    "b := vistrel.get_global_variable_img('x'), a is b, a.bp == b.bp][2:]"),
              QStringLiteral("[False, True]"));
    run("vistrel.get_global_variable_img('x').set_pixel_value(99, 1, 0)");
    EXPECT_EQ(value("bytes(vistrel.get_global_variable_img('x'))[1]"), QStringLiteral("99"))
        << "every later reader sees the change";
}

TEST_F(Variables, AReadersEndLeavesTheStoredImage)
{
    store("x", 4);
    run("for n in range(3): vistrel.get_global_variable_img('x')");
    EXPECT_EQ(widthOf("x"), QStringLiteral("4"));
}

TEST_F(Variables, StoringTheStoredImageBackChangesNothing)
{
    store("x", 4);
    EXPECT_EQ(value("[a := vistrel.get_global_variable_img('x'), before := a.bp, "
                    "vistrel.set_global_variable_img('x', a), a.bp == before, "
                    "vistrel.get_global_variable_img('x').bp == before][3:]"),
              QStringLiteral("[True, True]"));
}

TEST_F(Variables, StoringTheStoredImageUnderAnotherNameCopiesIt)
{
    store("x", 4);
    run("vistrel.set_global_variable_img('y', vistrel.get_global_variable_img('x'))");
    EXPECT_EQ(value("vistrel.get_global_variable_img('x').bp "
                    "!= vistrel.get_global_variable_img('y').bp"),
              QStringLiteral("True"));
}

TEST_F(Variables, AnotherImageDeletesTheStoredOneAndKeepsACopy)
{
    run("pass");
    CopyingImage first;
    CopyingImage second;
    const QPointer<QObject> old = first.made =
        makeImage(4, 2, 1, ExImageDataType::UInt8, 8).release();
    second.made = makeImage(5, 2, 1, ExImageDataType::UInt8, 8).release();
    plugin->addImageVariable(QStringLiteral("first"), &first);
    plugin->addImageVariable(QStringLiteral("second"), &second);
    run("vistrel.set_global_variable_img('x', first)");
    ASSERT_FALSE(old.isNull());
    EXPECT_EQ(value("[a := vistrel.get_global_variable_img('x'), "
                    "vistrel.set_global_variable_img('x', second), str(a), "
                    "vistrel.get_global_variable_img('x').width][2:]"),
              QStringLiteral("['Vistrel image object is empty', 5]"));
    EXPECT_TRUE(old.isNull()) << "deleted";
    EXPECT_EQ(second.copies, 1) << "the copy is kept, not the image";
}

TEST_F(Variables, AnEmptyImageDeletesTheStoredOne)
{
    store("x", 4);
    EXPECT_EQ(value("[a := vistrel.get_global_variable_img('x'), "
                    "vistrel.set_global_variable_img('x', vistrel.Image()), str(a), "
                    "vistrel.get_global_variable_img('x')][2:]"),
              QStringLiteral("['Vistrel image object is empty', None]"));
    store("x", 6);
    EXPECT_EQ(widthOf("x"), QStringLiteral("6"));
}

TEST_F(Variables, AnEmptyImageUnderANewNameStoresNothing)
{
    EXPECT_EQ(value("[vistrel.set_global_variable_img('new', vistrel.Image()), "
                    "vistrel.get_global_variable_img('new')]"),
              QStringLiteral("[None, None]"));
}

TEST_F(Variables, TheCopyIsMadeByTheImagesCopyAndOwnedByTheStore)
{
    run("pass");
    CopyingImage image;
    QPointer<QObject> made = image.made = makeImage(8, 2, 1, ExImageDataType::UInt8, 8).release();
    plugin->addImageVariable(QStringLiteral("picture"), &image);
    run("vistrel.set_global_variable_img('x', picture)");
    EXPECT_EQ(image.copies, 1);
    EXPECT_EQ(widthOf("x"), QStringLiteral("8"));
    run("vistrel.set_global_variable_img('x', vistrel.Image())");
    EXPECT_TRUE(made.isNull()) << "deleted";
}

TEST_F(Variables, AnImageThatTheHostCannotCopyLeavesTheNameWithoutAnImage)
{
    store("x", 4);
    CopyingImage image;
    plugin->addImageVariable(QStringLiteral("picture"), &image);
    EXPECT_EQ(value("[vistrel.set_global_variable_img('x', picture), "
                    "vistrel.get_global_variable_img('x')]"),
              QStringLiteral("[None, None]"));
    const QPointer<QObject> noImage = image.made = new QObject;
    EXPECT_EQ(value("[vistrel.set_global_variable_img('x', picture), "
                    "vistrel.get_global_variable_img('x')]"),
              QStringLiteral("[None, None]"));
    EXPECT_TRUE(noImage.isNull()) << "what is no image is not kept";
}

TEST_F(Variables, ScriptThreadsMayUseThemAllAtOnce)
{
    EXPECT_EQ(run("import threading\n"
                  "def work(n):\n"
                  "    i = vistrel.Image()\n"
                  "    i.alloc(n, 2, 1, 8)\n"
                  "    for _ in range(200):\n"
                  "        vistrel.set_global_variable_int('x', n)\n"
                  "        vistrel.set_global_variable_img('x', i)\n"
                  "        image = vistrel.get_global_variable_img('x')\n"
                  "        str(image)\n"
                  "threads = [threading.Thread(target=work, args=(n,)) for n in range(1, 5)]\n"
                  "for thread in threads: thread.start()\n"
                  "for thread in threads: thread.join()\n"
                  "assert vistrel.get_global_variable_img('x').width in range(1, 5)\n"),
              QString());
}

} // namespace
