// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Images that a script shares with the host or the store, and that go while the script holds them.
#include "PluginTest.h"

namespace {

class Borrowed : public PluginTest {
protected:
    Borrowed()
    {
        run("pass");
        plugin->addImageVariable(QStringLiteral("picture"), image.get());
    }
    ~Borrowed() override { run("vistrel.set_global_variable_img('x', vistrel.Image())"); }

    std::unique_ptr<CxImageData> image = makeImage(5, 4, 3, ExImageDataType::UInt8, 8);
};

constexpr char emptyText[] = "Vistrel image object is empty";

TEST_F(Borrowed, AHostImageThatGoesLeavesItsVariableEmpty)
{
    EXPECT_EQ(value("picture.width"), QStringLiteral("5"));
    image.reset();
    EXPECT_EQ(value("picture"), QString::fromUtf8(emptyText));
    for (const char* name : {"width", "bp", "__array_interface__", "exposure_time_us"}) {
        EXPECT_EQ(error((std::string("picture.") + name).c_str()),
                  QStringLiteral("Exception: ") + QString::fromUtf8(emptyText))
            << name;
    }
    EXPECT_EQ(error("bytes(picture)"),
              QStringLiteral("Exception: ") + QString::fromUtf8(emptyText));
    for (const char* call : {"picture.get_width()", "picture.new_copy()", "picture.to_rgb()",
                             "picture.get_pixel_value(0, 0)", "picture.measure_rect()",
                             "vistrel.new_view_with_image(picture)"})
        expectSilentNull(call);
}

TEST_F(Borrowed, AnImageThatGoesDuringAHostCallLeavesItsObjectEmpty)
{
    ON_CALL(environment, wait).WillByDefault([this](double) { image.reset(); });
    EXPECT_EQ(value("[picture.width, vistrel.wait(0.1), str(picture)][2]"),
              QString::fromUtf8(emptyText));
}

TEST_F(Borrowed, AnEmptiedObjectMayBeFilledAgain)
{
    image.reset();
    EXPECT_EQ(value("[picture.alloc(7, 1, 1, 8), picture.width][1]"), QStringLiteral("7"));
    EXPECT_EQ(value("picture.width"), QStringLiteral("7")) << "it owns that picture now";
}

TEST_F(Borrowed, AnObjectThatWasFilledAnewDoesNotMindItsOldImagesEnd)
{
    run("picture.alloc(7, 1, 1, 8)");
    image.reset();
    EXPECT_EQ(value("picture.width"), QStringLiteral("7"));
}

TEST_F(Borrowed, AnObjectThatWasInitialisedAnewIsEmptyAndLeavesTheHostsImage)
{
    EXPECT_EQ(value("[picture.__init__(), str(picture)][1]"), QString::fromUtf8(emptyText));
    EXPECT_EQ(image->picBuf()->width, 5U);
    image.reset();
    EXPECT_EQ(value("picture"), QString::fromUtf8(emptyText));
}

TEST_F(Borrowed, AnObjectThatIsGoneBeforeItsImageDoesNoHarm)
{
    plugin->addImageVariable(QStringLiteral("picture"), nullptr);
    run("del picture");
    image.reset();
    EXPECT_EQ(value("'alive'"), QStringLiteral("alive"));
}

TEST_F(Borrowed, AllObjectsOfASharedImageAreEmptyWhenAnotherIsStored)
{
    run("vistrel.set_global_variable_img('x', picture)");
    EXPECT_EQ(run("a = [vistrel.get_global_variable_img('x') for n in range(1000)]\n"
                  "del a[::3]\n"
                  "vistrel.set_global_variable_img('x', picture)\n"
                  "assert {str(i) for i in a} == {'Vistrel image object is empty'}\n"
                  "assert vistrel.get_global_variable_img('x').width == 5\n"),
              QString());
}

TEST_F(Borrowed, ASharedImageMayBeReplacedByAnotherThreadOfTheScript)
{
    run("vistrel.set_global_variable_img('x', picture)");
    EXPECT_EQ(run("import threading\n"
                  "a = vistrel.get_global_variable_img('x')\n"
                  "t = threading.Thread(target=vistrel.set_global_variable_img,"
                  " args=('x', picture))\n"
                  "t.start()\nt.join()\n"
                  "assert str(a) == 'Vistrel image object is empty'\n"),
              QString());
}

TEST_F(Borrowed, AnArgumentThatDeletesTheImageOfTheCallIsAnEmptyObject)
{
    for (const char* call :
         {"get_pixel_value(Gone(), 0)", "set_pixel_value(1, Gone(), 0)",
          "draw_pixel_line(1, Gone(), 0, 1, 1)", "extract_channel(Gone())", "convert_bpc(Gone())",
          "crop(Gone(), 0, 1, 1)", "resize(Gone(), 1)", "divide_by_value(Gone())",
          "measure_rect(Gone())", "measure_row_profiles_in_rect(Gone())"}) {
        expectSilentNull(("vistrel.set_global_variable_img('x', picture)\n"
                          "class Gone:\n"
                          "    def __index__(self):\n"
                          "        vistrel.set_global_variable_img('x', vistrel.Image())\n"
                          "        return 1\n"
                          "vistrel.get_global_variable_img('x')."
                          + std::string(call))
                             .c_str());
    }
}

TEST_F(Borrowed, AnArgumentThatRefillsTheObjectOfTheCallGoesWithTheNewPicture)
{
    EXPECT_EQ(run("class Refill:\n"
                  "    def __index__(self):\n"
                  "        i.alloc(2, 2, 1, 8)\n"
                  "        return 1\n"
                  "i = vistrel.Image()\n"
                  "i.alloc(2000, 2000, 1, 8)\n"
                  "i.set_pixel_value(77, Refill(), 1)\n"
                  "print(bytes(i)[-1] == 77 or i.get_pixel_value(1, 1), end='')\n"),
              QString());
    EXPECT_EQ(value("1"), QStringLiteral("1"));
}

TEST_F(Borrowed, ImagesThatOutliveTheInterpreterMayGo)
{
    destroyPlugin();
    image.reset();
    plugin = qobject_cast<CxScriptLangInterface*>(loader.instance());
    plugin->init();
    EXPECT_EQ(value("'alive'"), QStringLiteral("alive"));
}

TEST_F(Borrowed, ImagesThatOutliveThePluginMayGo)
{
    run("vistrel.set_global_variable_img('x', vistrel.Image())");
    destroyPlugin();
    loader.unload();
    image.reset();
    plugin = qobject_cast<CxScriptLangInterface*>(loader.instance());
    plugin->init();
}

TEST_F(Borrowed, ArrayViewsKeepTheObjectButNotThePixels)
{
    EXPECT_EQ(run("import numpy, sys\n"
                  "vistrel.set_global_variable_img('x', picture)\n"
                  "i = vistrel.get_global_variable_img('x')\n"
                  "before = sys.getrefcount(i)\n"
                  "a = numpy.asarray(i)\n"
                  "assert sys.getrefcount(i) > before\n"
                  "kept = numpy.asarray(i.new_copy())\n"
                  "del a\n"
                  "vistrel.set_global_variable_img('x', vistrel.Image())\n"
                  "assert kept.shape == (5, 4, 3) and not kept.any()\n"),
              QString());
}

} // namespace
