// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Asking the user for an image.
#include "CameraFixture.h"

#include <CxPicBufAPI.h>

#include <QtCore/QEventLoop>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include <csignal>

using testing::_;
using testing::InSequence;
using testing::IsNull;
using testing::Pointee;
using testing::Return;

namespace {

const QString usualTitle = QStringLiteral("Capture Image");
const QString usualMessage = QStringLiteral("Get the image right and press Capture button.");

/// What the host's dialog hands out.
SxPicBuf* newPicture()
{
    auto* buffer = new SxPicBuf;
    CxPicBufAPI::AllocPicBufFromHeap(*buffer, 4, 3, 1, ExImageDataType::UInt8, 0, 0, 8,
                                     ExDataStorageFormat::Interleaved, ExColorFilterArray::None,
                                     false, true, 0);
    return buffer;
}

class CameraCapture : public CameraTest {
protected:
    void expectDialog(const QString& title, const QString& message, bool given, int number)
    {
        EXPECT_CALL(delegate, captureImageDialog(IsNull(), &camera, title, message, given,
                                                 Pointee(number), 0))
            .WillOnce(Return(nullptr));
    }
};

TEST_F(CameraCapture, UsesTheUsualTextsForNoneAndForEmptyOnes)
{
    run("pass");
    for (const char* arguments : {"", "''", "'', ''", "'', '', -1", "'', '', -5"}) {
        const int number = std::string(arguments).find("-5") != std::string::npos ? -5 : -1;
        expectDialog(usualTitle, usualMessage, false, number);
        EXPECT_EQ(boundValue("cam.ask_user_capture_image(" + std::string(arguments) + ")"),
                  QStringLiteral("-1"))
            << arguments;
    }
}

TEST_F(CameraCapture, HandsTheTextsAndTheNumberOn)
{
    expectDialog(QStringLiteral("T"), QStringLiteral("M"), true, 0);
    boundValue("cam.ask_user_capture_image('T', 'M', 0)");
    expectDialog(QStringLiteral("größe"), QStringLiteral("ü"), true, 2147483647);
    boundValue("cam.ask_user_capture_image('größe', 'ü', 2**31 - 1)");
    expectDialog(QStringLiteral("T"), usualMessage, false, -1);
    boundValue("cam.ask_user_capture_image('T')");
}

TEST_F(CameraCapture, ShowsThePictureInANewViewOfTheSameTitle)
{
    QPointer<CxImageData> shown;
    run("pass");
    const InSequence order;
    EXPECT_CALL(delegate, captureImageDialog(_, &camera, QStringLiteral("T"), _, _, _, _))
        .WillOnce([](auto&&...) { return newPicture(); });
    EXPECT_CALL(delegate, newViewWithImage(_, QStringLiteral("T")))
        .WillOnce([&shown](CxImageData* image, const QString&) {
            shown = image;
            return true;
        });
    EXPECT_CALL(delegate, activeViewId()).WillOnce(Return(7));
    EXPECT_EQ(boundValue("cam.ask_user_capture_image('T')"), QStringLiteral("7"));
    ASSERT_FALSE(shown.isNull()) << "the host owns it";
    EXPECT_EQ(shown->picBuf()->width, 4U);
    EXPECT_NE(shown->picBuf()->data, nullptr);
    delete shown;
}

TEST_F(CameraCapture, ReturnsMinusOneAndNoViewWhenTheUserCancels)
{
    EXPECT_CALL(delegate, newViewWithImage(_, _)).Times(0);
    EXPECT_EQ(boundValue("cam.ask_user_capture_image()"), QStringLiteral("-1"));
}

TEST_F(CameraCapture, DestroysTheImageWhenTheHostShowsNone)
{
    QPointer<CxImageData> refused;
    run("pass");
    ON_CALL(delegate, captureImageDialog).WillByDefault([](auto&&...) { return newPicture(); });
    EXPECT_CALL(delegate, activeViewId()).Times(0);
    EXPECT_CALL(delegate, newViewWithImage(_, usualTitle))
        .WillOnce([&refused](CxImageData* image, const QString&) {
            refused = image;
            return false;
        });
    EXPECT_EQ(boundValue("cam.ask_user_capture_image()"), QStringLiteral("-1"));
    EXPECT_TRUE(refused.isNull());
}

TEST_F(CameraCapture, TakesARecordWithoutPixelsToo)
{
    run("pass");
    ON_CALL(delegate, captureImageDialog).WillByDefault([](auto&&...) { return new SxPicBuf; });
    EXPECT_CALL(delegate, newViewWithImage(_, _)).WillOnce(Return(false));
    EXPECT_EQ(boundValue("cam.ask_user_capture_image()"), QStringLiteral("-1"));
}

TEST_F(CameraCapture, AnUnboundObjectHandsItsNullHandleToTheHost)
{
    EXPECT_CALL(delegate, captureImageDialog(_, IsNull(), _, _, _, _, _)).WillOnce(Return(nullptr));
    EXPECT_EQ(value("vistrel.Camera().ask_user_capture_image()"), QStringLiteral("-1"));
}

TEST_F(CameraCapture, WrongArgumentsAreRefusedByTheParser)
{
    EXPECT_CALL(delegate, captureImageDialog(_, _, _, _, _, _, _)).Times(0);
    for (const char* arguments :
         {"1", "'T', 1", "'T', 'M', 'x'", "'T', 'M', 1, 2", "'T', None", "title='T'"}) {
        EXPECT_TRUE(boundError("cam.ask_user_capture_image(" + std::string(arguments) + ")")
                        .startsWith(QLatin1String("TypeError")))
            << arguments;
    }
    EXPECT_TRUE(
        boundError("cam.ask_user_capture_image('a\\0')").startsWith(QLatin1String("ValueError")));
    EXPECT_TRUE(boundError("cam.ask_user_capture_image('T', 'M', 2**31)")
                    .startsWith(QLatin1String("OverflowError")));
}

TEST_F(CameraCapture, AnInterruptThatCameBeforeKeepsTheDialogAway)
{
    run("pass");
    // A look-up is the last thing before the call that reaches the host.
    ON_CALL(environment, isApiParamName).WillByDefault([](const QString&) {
        std::raise(SIGINT);
        return true;
    });
    EXPECT_CALL(delegate, captureImageDialog(_, _, _, _, _, _, _)).Times(0);
    EXPECT_EQ(boundError("cam.ask_user_capture_image('T', 'M', (cam.get_x, 1)[1])"),
              QStringLiteral("KeyboardInterrupt"));
}

TEST_F(CameraCapture, ARunStartedWhileTheDialogIsOpenIsRefused)
{
    QString refusal;
    run("pass");
    ON_CALL(delegate, captureImageDialog).WillByDefault([&](auto&&...) -> SxPicBuf* {
        QEventLoop dialog;
        QTimer::singleShot(0, &dialog, [&] {
            refusal = plugin->runScript(QStringLiteral("cam.close_device()"), &environment, {},
                                        nullptr, nullptr, nullptr);
            dialog.quit();
        });
        dialog.exec();
        return nullptr;
    });
    EXPECT_EQ(boundValue("(cam.ask_user_capture_image(), str(cam))"),
              QStringLiteral("(-1, 'camera(CAM-A1, sn: 12345678)')"));
    EXPECT_EQ(refusal,
              QStringLiteral("a script cannot be started from within the run of another one"));
}

} // namespace
