// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Views and files: which operations of the host each function calls, with what.
#include "PluginTest.h"

#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

using testing::_;
using testing::InSequence;
using testing::Return;
using testing::StrictMock;

namespace {

class Views : public PluginTest {
protected:
    Views() { ON_CALL(delegate, activeViewId()).WillByDefault(Return(7)); }

    std::unique_ptr<CxImageData> picture = makeImage(4, 3, 1, ExImageDataType::UInt8, 8);
    testing::NiceMock<MockMdiView> view;
};

TEST_F(Views, OpenFileResolvesThePathAndReturnsTheIdOfTheNewView)
{
    run("pass");
    const InSequence order;
    EXPECT_CALL(environment, resolvePath(QStringLiteral("bild ä.png")))
        .WillOnce(Return(QStringLiteral("/data/bild ä.png")));
    EXPECT_CALL(delegate, openFile(QStringLiteral("/data/bild ä.png"), true))
        .WillOnce(Return(true));
    EXPECT_CALL(delegate, activeViewId()).WillOnce(Return(12));
    EXPECT_EQ(value("vistrel.open_file('bild ä.png')"), QStringLiteral("12"));
}

TEST_F(Views, OpenFileThatFailsGivesTheInterpretersOwnError)
{
    EXPECT_CALL(delegate, openFile(_, true)).WillOnce(Return(false));
    expectSilentNull("vistrel.open_file('missing.png')");
}

TEST_F(Views, SaveToFileWritesTheActiveViewsImageAndDeletesTheSaver)
{
    auto* saver = new StrictMock<MockSaver>;
    EXPECT_CALL(delegate, viewImage(7)).WillOnce(Return(picture.get()));
    EXPECT_CALL(formats, saverForFile(QStringLiteral("/tmp/out.png"))).WillOnce(Return(saver));
    EXPECT_CALL(*saver, save(picture.get(), 0)).WillOnce(Return(false));
    EXPECT_CALL(*saver, destroyed());
    EXPECT_EQ(value("vistrel.save_to_file('/tmp/out.png')"), QStringLiteral("None"))
        << "the saver's result is not looked at";
}

TEST_F(Views, SaveToFileResolvesThePath)
{
    EXPECT_CALL(environment, resolvePath(QStringLiteral("given.png")))
        .WillOnce(Return(QStringLiteral("/tmp/resolved.png")));
    EXPECT_CALL(delegate, viewImage(7)).WillOnce(Return(picture.get()));
    EXPECT_CALL(formats, saverForFile(QStringLiteral("/tmp/resolved.png")))
        .WillOnce(Return(new testing::NiceMock<MockSaver>));
    EXPECT_EQ(value("vistrel.save_to_file('given.png')"), QStringLiteral("None"));
}

TEST_F(Views, SaveToFileMakesTheFolderEvenWithoutAnImage)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a/b/c.png"));
    EXPECT_CALL(delegate, viewImage(7)).WillOnce(Return(nullptr));
    expectSilentNull(("vistrel.save_to_file('" + path.toStdString() + "')").c_str());
    EXPECT_TRUE(QFileInfo(folder.filePath(QStringLiteral("a/b"))).isDir());
}

TEST_F(Views, SaveToFileWithoutASaverGivesTheInterpretersOwnError)
{
    EXPECT_CALL(delegate, viewImage(7)).WillOnce(Return(picture.get()));
    EXPECT_CALL(formats, saverForFile(_)).WillOnce(Return(nullptr));
    expectSilentNull("vistrel.save_to_file('/tmp/picture.unknown')");
}

TEST_F(Views, DuplicateViewPassesItsIdOnUnresolved)
{
    EXPECT_CALL(delegate, duplicateView(-1)).WillOnce(Return(true));
    EXPECT_EQ(value("vistrel.duplicate_view()"), QStringLiteral("7"));
    EXPECT_CALL(delegate, duplicateView(3)).WillOnce(Return(false));
    EXPECT_EQ(value("vistrel.duplicate_view(3)"), QStringLiteral("-1"));
}

TEST_F(Views, ActivateViewPassesItsIdOnUnresolved)
{
    EXPECT_CALL(delegate, activateView(-1));
    EXPECT_EQ(value("vistrel.activate_view()"), QStringLiteral("None"));
    EXPECT_CALL(delegate, activateView(5));
    EXPECT_EQ(value("vistrel.activate_view(5)"), QStringLiteral("None"));
}

TEST_F(Views, GetActiveViewIdIsTheHosts)
{
    EXPECT_EQ(value("vistrel.get_active_view_id()"), QStringLiteral("7"));
}

TEST_F(Views, CloseViewResolvesEveryNegativeIdToTheActiveView)
{
    EXPECT_CALL(delegate, view(7)).Times(2).WillRepeatedly(Return(&view));
    EXPECT_CALL(view, requestClose()).Times(2);
    EXPECT_EQ(value("(vistrel.close_view(), vistrel.close_view(-20))"),
              QStringLiteral("(None, None)"));
}

TEST_F(Views, CloseViewOfAnUnknownViewDoesNothing)
{
    EXPECT_CALL(delegate, view(12345)).WillOnce(Return(nullptr));
    EXPECT_CALL(view, requestClose()).Times(0);
    EXPECT_EQ(value("vistrel.close_view(12345)"), QStringLiteral("None"));
}

TEST_F(Views, TileViewsAndFullScreenGoStraightToTheHost)
{
    EXPECT_CALL(delegate, tileViews());
    EXPECT_EQ(value("vistrel.tile_views()"), QStringLiteral("None"));
    const InSequence order;
    EXPECT_CALL(delegate, setFullScreen(true));
    EXPECT_CALL(delegate, setFullScreen(false));
    EXPECT_CALL(delegate, setFullScreen(true));
    EXPECT_EQ(value("[vistrel.switch_full_screen(x) for x in (True, [], 'yes')]"),
              QStringLiteral("[None, None, None]"))
        << "any object's truth value counts";
}

TEST_F(Views, GetViewImageIsACopyThatTheScriptMayChange)
{
    picture->picBuf()->data[0] = 42;
    EXPECT_CALL(delegate, viewImage(7)).WillRepeatedly(Return(picture.get()));
    EXPECT_EQ(value("vistrel.get_view_image()"),
              QStringLiteral("Vistrel image, width: 4, height: 3, channels: 1, "
                             "bit per channel (bpc): 8, type: unsigned int"));
    EXPECT_EQ(value("bytes(vistrel.get_view_image())[0]"), QStringLiteral("42"));
    const QString address = QString::number(reinterpret_cast<quintptr>(picture->picBuf()->data));
    EXPECT_NE(value("vistrel.get_view_image(-1).bp"), address);
}

TEST_F(Views, GetViewImageOfAnUnknownViewIsRefused)
{
    EXPECT_CALL(delegate, viewImage(12345)).WillOnce(Return(nullptr));
    EXPECT_EQ(error("vistrel.get_view_image(12345)"),
              QStringLiteral("Exception: no view or view contains no image"));
}

TEST_F(Views, SetViewImageHandsACopyToTheResolvedView)
{
    std::unique_ptr<CxImageData> shown;
    EXPECT_CALL(delegate, setViewImage(7, _)).WillOnce([&shown](int, CxImageData* image) {
        shown.reset(image);
    });
    EXPECT_EQ(value("[i := vistrel.Image(), i.alloc(6, 5, 3, 8), vistrel.set_view_image(i)][2]"),
              QStringLiteral("None"));
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->picBuf()->width, 6U);
    EXPECT_EQ(shown->picBuf()->channels, 3U);
}

TEST_F(Views, SetViewImageKeepsAnExplicitId)
{
    EXPECT_CALL(delegate, setViewImage(3, _)).WillOnce([](int, CxImageData* image) {
        delete image;
    });
    run("i = vistrel.Image()\ni.alloc(1, 1, 1, 8)\nvistrel.set_view_image(i, 3)");
}

TEST_F(Views, AnEmptyImageGivesTheInterpretersOwnErrorAndTouchesNoView)
{
    EXPECT_CALL(delegate, setViewImage(_, _)).Times(0);
    EXPECT_CALL(delegate, newViewWithImage(_, _)).Times(0);
    expectSilentNull("vistrel.set_view_image(vistrel.Image())");
    expectSilentNull("vistrel.new_view_with_image(vistrel.Image())");
}

TEST_F(Views, SomethingElseThanAnImageIsRefused)
{
    EXPECT_CALL(delegate, setViewImage(_, _)).Times(0);
    EXPECT_CALL(delegate, newViewWithImage(_, _)).Times(0);
    const QString refusal = QStringLiteral("Exception: the object passed is not a vistrel.Image");
    for (const char* stranger : {"5", "None", "'x'", "vistrel", "vistrel.Camera()", "vistrel.Image",
                                 "object()", "bytearray(100)"}) {
        const std::string argument = std::string("(") + stranger + ")";
        EXPECT_EQ(error(("vistrel.set_view_image" + argument).c_str()), refusal) << stranger;
        EXPECT_EQ(error(("vistrel.new_view_with_image" + argument).c_str()), refusal) << stranger;
    }
}

TEST_F(Views, NewViewHasTheGivenTitleOrTheStandardOne)
{
    const auto take = [](CxImageData* image, const QString&) {
        delete image;
        return true;
    };
    const InSequence order;
    EXPECT_CALL(delegate, newViewWithImage(_, QStringLiteral("Image from script"))).WillOnce(take);
    EXPECT_CALL(delegate, newViewWithImage(_, QStringLiteral("Image from script"))).WillOnce(take);
    EXPECT_CALL(delegate, newViewWithImage(_, QStringLiteral("Größe"))).WillOnce(take);
    run("i = vistrel.Image()\n"
        "i.alloc(2, 2, 1, 8)\n"
        "print(vistrel.new_view_with_image(i), vistrel.new_view_with_image(i, ''), "
        "vistrel.new_view_with_image(i, 'Größe'))");
    EXPECT_EQ(output, QStringLiteral("7 7 7\n"));
}

TEST_F(Views, ANewViewThatTheHostRefusesGivesMinusOneAndLeaksNothing)
{
    QPointer<CxImageData> offered;
    EXPECT_CALL(delegate, newViewWithImage(_, _)).WillOnce([&offered](CxImageData* image, auto&) {
        offered = image;
        return false;
    });
    run("i = vistrel.Image()\ni.alloc(2, 2, 1, 8)\nprint(vistrel.new_view_with_image(i), end='')");
    EXPECT_EQ(output, QStringLiteral("-1"));
    EXPECT_TRUE(offered.isNull());
}

TEST_F(Views, WaitForNextFramePassesTheTimeoutOnUnchanged)
{
    EXPECT_CALL(delegate, view(7)).WillRepeatedly(Return(&view));
    EXPECT_CALL(environment, waitForNextFrame(&view, -1.0)).WillOnce(Return(true));
    EXPECT_EQ(value("vistrel.wait_for_next_frame()"), QStringLiteral("True"));
    EXPECT_CALL(environment, waitForNextFrame(&view, 2.0)).WillOnce(Return(false));
    EXPECT_EQ(value("vistrel.wait_for_next_frame(2.0)"), QStringLiteral("False"));
}

TEST_F(Views, WaitForNextFrameTakesTheViewAsItsSecondArgument)
{
    EXPECT_CALL(delegate, view(3)).WillOnce(Return(&view));
    EXPECT_CALL(environment, waitForNextFrame(&view, 0.5)).WillOnce(Return(true));
    EXPECT_EQ(value("vistrel.wait_for_next_frame(0.5, 3)"), QStringLiteral("True"));
}

TEST_F(Views, WaitForNextFrameOfAnUnknownViewIsRefused)
{
    EXPECT_CALL(delegate, view(99)).WillOnce(Return(nullptr));
    EXPECT_EQ(error("vistrel.wait_for_next_frame(1.0, 99)"),
              QStringLiteral("Exception: vistrel.WaitForNextFrame: view not found"));
}

TEST_F(Views, WaitIsTheEnvironments)
{
    EXPECT_CALL(environment, wait(1.5));
    EXPECT_EQ(value("vistrel.wait(1.5)"), QStringLiteral("None"));
}

/// An image that cannot be copied.
class UncopyableImage : public CxImageData {
public:
    QObject* clone(int, int) override { return nullptr; }
};

/// An image whose copy is something else.
class MiscopiedImage : public CxImageData {
public:
    QObject* clone(int flags, int reserved) override
    {
        EXPECT_EQ(flags, 0);
        EXPECT_EQ(reserved, 0);
        return new QObject;
    }
};

TEST_F(Views, ACopyThatFailsIsRefusedAndTouchesNoView)
{
    run("pass");
    UncopyableImage uncopyable;
    MiscopiedImage miscopied;
    const QString refusal = QStringLiteral("Exception: cannot allocate new image, out of memory");
    EXPECT_CALL(delegate, setViewImage(_, _)).Times(0);
    EXPECT_CALL(delegate, newViewWithImage(_, _)).Times(0);
    EXPECT_CALL(delegate, viewImage(_)).WillOnce(Return(&uncopyable)).WillOnce(Return(&miscopied));
    EXPECT_EQ(error("vistrel.get_view_image()"), refusal);
    EXPECT_EQ(error("vistrel.get_view_image()"), refusal);
    plugin->addImageVariable(QStringLiteral("picture"), &uncopyable);
    EXPECT_EQ(error("vistrel.set_view_image(picture)"), refusal);
    EXPECT_EQ(error("vistrel.new_view_with_image(picture)"), refusal);
    EXPECT_EQ(error("picture.new_copy()"), refusal);
    run("del picture");
}

} // namespace
