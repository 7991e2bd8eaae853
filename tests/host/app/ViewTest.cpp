// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Views by their ids: opening, activating, replacing, copying, closing.
#include "AppFixture.h"

#include "app/MainWindow.h"

#include <QtCore/QPointer>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMdiSubWindow>
#include <QtWidgets/QMenu>

#include <atomic>
#include <thread>

using namespace vistrel;

using View = HostTest;

TEST_F(View, ThereIsNoneInAFreshApplication)
{
    EXPECT_EQ(app.activeViewId(), -1);
    EXPECT_EQ(app.view(0), nullptr);
    EXPECT_EQ(app.viewImage(0), nullptr);
}

TEST_F(View, ANewOneIsActiveAndShowsItsImage)
{
    auto* image = makeImage(8, 4, 7).release();
    ASSERT_TRUE(app.newViewWithImage(image, QStringLiteral("Größe")));
    const int id = app.activeViewId();
    EXPECT_GE(id, 0);
    EXPECT_EQ(app.viewImage(id), image);
    EXPECT_EQ(app.imageView(id)->windowTitle(), QStringLiteral("Größe"));
    EXPECT_EQ(static_cast<CxMdiView*>(app.imageView(id)), app.view(id));
}

TEST_F(View, NoneIsMadeForNoImage)
{
    EXPECT_FALSE(app.newViewWithImage(nullptr, QStringLiteral("nothing")));
    EXPECT_EQ(app.activeViewId(), -1);
}

TEST_F(View, MinusOneNamesNoView)
{
    openView();
    EXPECT_EQ(app.view(-1), nullptr);
    EXPECT_EQ(app.viewImage(-1), nullptr);
}

TEST_F(View, IdsAreNeverUsedAgain)
{
    const int first = openView();
    app.view(first)->closeMdiView();
    const int second = openView();
    EXPECT_GT(second, first);
    EXPECT_EQ(app.view(first), nullptr);
}

TEST_F(View, IsActivatedById)
{
    const int first = openView();
    openView();
    app.activateView(first);
    EXPECT_EQ(app.activeViewId(), first);
}

TEST_F(View, ActivatingAnUnknownOneChangesNothing)
{
    const int only = openView();
    for (const int id : {-1, only + 1, 12345})
        app.activateView(id);
    EXPECT_EQ(app.activeViewId(), only);
}

TEST_F(View, ThatWasActiveBeforeFollowsAClosedOne)
{
    const int first = openView();
    const int second = openView();
    const int third = openView();
    app.activateView(first);
    app.view(first)->closeMdiView();
    EXPECT_EQ(app.activeViewId(), third);
    app.view(third)->closeMdiView();
    EXPECT_EQ(app.activeViewId(), second);
    app.view(second)->closeMdiView();
    EXPECT_EQ(app.activeViewId(), -1);
}

TEST_F(View, StaysActiveWhenAnotherIsClosed)
{
    const int first = openView();
    const int second = openView();
    app.view(first)->closeMdiView();
    EXPECT_EQ(app.activeViewId(), second);
}

TEST_F(View, ActivationOnAVisibleWindowAgreesWithTheIds)
{
    app.mainWindow()->show();
    const int first = openView();
    const int second = openView();
    const int third = openView();
    app.activateView(second);
    QCoreApplication::processEvents();
    EXPECT_EQ(app.activeViewId(), second);
    app.view(second)->closeMdiView();
    EXPECT_TRUE(handleEventsUntil([this] {
        return static_cast<MainWindow*>(app.mainWindow())->area()->subWindowList().size() == 2;
    }));
    EXPECT_EQ(app.activeViewId(), third);
    EXPECT_NE(app.view(first), nullptr);
}

TEST_F(View, FollowsTheUsersClick)
{
    app.mainWindow()->show();
    const int first = openView();
    openView();
    auto* area = static_cast<MainWindow*>(app.mainWindow())->area();
    area->setActiveSubWindow(area->subWindowList(QMdiArea::CreationOrder).constFirst());
    EXPECT_EQ(app.activeViewId(), first);
}

TEST_F(View, IsGoneAtOnceAndItsObjectSoonAfterClosing)
{
    const int id = openView();
    const QPointer<ImageView> view(app.imageView(id));
    const QPointer<CxImageData> image(app.viewImage(id));
    app.view(id)->closeMdiView();
    EXPECT_EQ(app.view(id), nullptr);
    EXPECT_EQ(app.viewImage(id), nullptr);
    EXPECT_TRUE(image.isNull());
    ASSERT_FALSE(view.isNull());
    EXPECT_TRUE(view->isClosed());
    EXPECT_TRUE(handleEventsUntil([&view] { return view.isNull(); }));
}

TEST_F(View, MayBeClosedTwice)
{
    const int other = openView();
    CxMdiView* view = app.view(openView());
    view->closeMdiView();
    view->closeMdiView();
    EXPECT_EQ(app.activeViewId(), other);
}

TEST_F(View, TakesAnotherImageAndFreesTheOldOne)
{
    const int id = openView(1);
    const QPointer<CxImageData> old(app.viewImage(id));
    app.setViewImage(id, makeImage(8, 4, 2).release());
    EXPECT_TRUE(old.isNull());
    EXPECT_EQ(firstByte(app.viewImage(id)), 2);
}

TEST_F(View, ThatIsUnknownFreesTheImageAllTheSame)
{
    for (const int id : {-1, 12345}) {
        const QPointer<CxImageData> image(makeImage(8, 4, 1).release());
        app.setViewImage(id, image);
        EXPECT_TRUE(image.isNull());
    }
}

TEST_F(View, CanShowNothing)
{
    const int id = openView();
    app.setViewImage(id, nullptr);
    EXPECT_EQ(app.viewImage(id), nullptr);
    EXPECT_FALSE(app.duplicateView(id));
    EXPECT_EQ(app.activeViewId(), id);
}

TEST_F(View, IsDuplicatedWithAnImageOfItsOwn)
{
    const int first = openView(5);
    openView(6);
    ASSERT_TRUE(app.duplicateView(first));
    const int copy = app.activeViewId();
    EXPECT_NE(copy, first);
    ASSERT_NE(app.viewImage(copy), app.viewImage(first));
    EXPECT_EQ(firstByte(app.viewImage(copy)), 5);
}

TEST_F(View, ThatIsActiveIsDuplicatedByMinusOne)
{
    openView(5);
    openView(6);
    ASSERT_TRUE(app.duplicateView(-1));
    EXPECT_EQ(firstByte(app.viewImage(app.activeViewId())), 6);
}

TEST_F(View, ThatIsUnknownIsNotDuplicated)
{
    EXPECT_FALSE(app.duplicateView(-1));
    const int only = openView();
    EXPECT_FALSE(app.duplicateView(12345));
    EXPECT_FALSE(app.duplicateView(-2));
    EXPECT_EQ(app.activeViewId(), only);
}

TEST_F(View, ImagesCanBeLookedUpOnOtherThreadsWhileTheyAreReplaced)
{
    const int id = openView();
    std::atomic<bool> done = false;
    std::atomic<int> missing = 0;
    std::thread reader([&] {
        while (!done)
            missing += app.viewImage(id) == nullptr || app.activeViewId() < 0;
    });
    for (int i = 0; i < 2000; ++i) {
        app.setViewImage(id, makeImage(8, 4, i % 200).release());
        if (i % 100 == 0) {
            const int other = openView();
            app.view(other)->closeMdiView();
        }
    }
    done = true;
    reader.join();
    EXPECT_EQ(missing, 0);
}

class OpenedFile : public HostTest {
protected:
    QString savedPicture(const QString& name)
    {
        QImage picture(6, 3, QImage::Format_Grayscale8);
        picture.fill(Qt::white);
        EXPECT_TRUE(picture.save(m_folder.filePath(name), "PNG"));
        return m_folder.filePath(name);
    }

    QTemporaryDir m_folder;
};

TEST_F(OpenedFile, IsShownInAViewOfItsName)
{
    QStringList used;
    QObject::connect(&app, &AppDelegate::fileUsed, [&](const QString& path) { used << path; });
    ASSERT_TRUE(app.openFile(savedPicture(QStringLiteral("Bild ä.png")), false));
    const ImageView* view = app.imageView(app.activeViewId());
    EXPECT_EQ(view->windowTitle(), QStringLiteral("Bild ä.png"));
    EXPECT_EQ(view->image()->picBuf()->width, 6U);
    EXPECT_EQ(firstByte(view->image()), 255);
    EXPECT_TRUE(used.isEmpty());
}

TEST_F(OpenedFile, IsToldToWhoeverKeepsTheRecentOnes)
{
    const QString path = savedPicture(QStringLiteral("a.png"));
    QStringList used;
    QObject::connect(&app, &AppDelegate::fileUsed, [&](const QString& name) { used << name; });
    ASSERT_TRUE(app.openFile(path, true));
    EXPECT_FALSE(app.openFile(m_folder.filePath(QStringLiteral("none.png")), true));
    EXPECT_EQ(used, QStringList(path));
}

TEST_F(OpenedFile, ThatCannotBeReadOpensNoView)
{
    const LogLines log;
    EXPECT_FALSE(app.openFile(m_folder.filePath(QStringLiteral("none.png")), true));
    EXPECT_FALSE(app.openFile(m_folder.path(), true));
    EXPECT_EQ(app.activeViewId(), -1);
}

using Window = HostTest;

TEST_F(Window, HasAMenuForScriptsAtThree)
{
    ASSERT_NE(app.menu(3), nullptr);
    EXPECT_EQ(app.menu(3)->title(), QStringLiteral("&Scripts"));
    EXPECT_EQ(app.menu(4), nullptr);
    EXPECT_EQ(app.menu(-1), nullptr);
}

TEST_F(Window, FillsTheScreenWithoutBeingShown)
{
    app.setFullScreen(true);
    EXPECT_TRUE(app.mainWindow()->isFullScreen());
    EXPECT_FALSE(app.mainWindow()->isVisible());
    app.setFullScreen(false);
    EXPECT_FALSE(app.mainWindow()->isFullScreen());
}

TEST_F(Window, TilesItsViewsSideBySide)
{
    app.mainWindow()->show();
    openView();
    openView();
    app.tileViews();
    QCoreApplication::processEvents();
    const auto windows = static_cast<MainWindow*>(app.mainWindow())->area()->subWindowList();
    ASSERT_EQ(windows.size(), 2);
    EXPECT_FALSE(windows[0]->geometry().intersects(windows[1]->geometry()));
}

TEST_F(View, IsToldWhenItOpensAndCloses)
{
    QStringList told;
    QObject::connect(&app, &AppDelegate::viewOpened, [&](const ImageView* view) {
        EXPECT_EQ(app.imageView(view->id()), view);
        told << QStringLiteral("opened %1").arg(view->id());
    });
    QObject::connect(&app, &AppDelegate::viewClosed, [&](const ImageView* view) {
        EXPECT_EQ(app.imageView(view->id()), nullptr);
        told << QStringLiteral("closed %1").arg(view->id());
    });
    QObject::connect(&app, &AppDelegate::activeViewChanged,
                     [&](int id) { told << QStringLiteral("active %1").arg(id); });
    openView();
    openView();
    app.activateView(0);
    app.view(0)->closeMdiView();
    app.view(1)->closeMdiView();
    EXPECT_EQ(told, QStringList({"opened 0", "active 0", "opened 1", "active 1", "active 0",
                                 "closed 0", "active 1", "closed 1", "active -1"}));
}
