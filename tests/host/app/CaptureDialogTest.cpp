// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Taking a picture by dialog, with the simulated camera.
#include "AppFixture.h"

#include "app/CaptureDialog.h"
#include "app/DialogAnswers.h"
#include "app/DialogParts.h"
#include "app/ImageView.h"
#include "app/LiveStream.h"
#include "chains/Threshold.h"

#include <CxCameraParameters.h>

#include <QtCore/QTimer>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtXml/QDomDocument>

#include <unistd.h>

#include <csignal>
#include <limits>
#include <memory>
#include <thread>

using namespace vistrel;

namespace {

/// Gives back what a dialog returned.
struct PictureDeleter {
    void operator()(SxPicBuf* picture) const
    {
        CxPicBufAPI::FreePicBuf(*picture, true);
        delete picture;
    }
};
using Picture = std::unique_ptr<SxPicBuf, PictureDeleter>;

volatile std::sig_atomic_t interrupts = 0;

extern "C" void countInterrupt(int) { interrupts = interrupts + 1; }

class CaptureDialogTest : public HostTest {
protected:
    void SetUp() override
    {
        QString error;
        camera = host.cameras().open(QString::fromLatin1(CameraManager::simulatedId), error);
        ASSERT_NE(camera, nullptr) << qPrintable(error);
    }
    Picture ask(void* handle, int value = -1)
    {
        return Picture(app.captureImageDialog(nullptr, handle, QStringLiteral("Flat field"),
                                              QStringLiteral("Cover the <b>lens</b>."), value >= 0,
                                              &value, 0));
    }
    Picture ask(int value = -1) { return ask(camera, value); }

    /// Calls a function with the dialog that is up, when it is.
    template<typename Function>
    void whenUp(Function function)
    {
        QTimer::singleShot(0, &app, [this, function] {
            if (QWidget* dialog = QApplication::activeModalWidget())
                function(*dialog);
            else
                whenUp(function);
        });
    }
    /// The same when the camera's first picture can be seen in it.
    template<typename Function>
    void whenSeen(Function function)
    {
        whenUp([this, function](QWidget& dialog) {
            if (captureButton(dialog)->isEnabled())
                function(dialog);
            else
                whenSeen(function);
        });
    }
    static QAbstractButton* captureButton(const QWidget& dialog)
    {
        return buttonCalled(QStringLiteral("Capture"), dialog);
    }

    void* camera = nullptr;
};

} // namespace

TEST_F(CaptureDialogTest, GivesThePictureThatTheUserCaptures)
{
    const DialogAnswers answers({QStringLiteral("Capture")});
    const Picture picture = ask();
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width, 512U);
    EXPECT_EQ(picture->height, 512U);
    EXPECT_NE(picture->data, nullptr);
    EXPECT_GT(picture->timestampUs, 0);
}

TEST_F(CaptureDialogTest, GivesNoneWhenTheUserCancels)
{
    const DialogAnswers answers({QStringLiteral("Cancel")});
    EXPECT_EQ(ask(), nullptr);
    EXPECT_FALSE(host.cameras().isStreaming(camera));
}

TEST_F(CaptureDialogTest, GivesNoneWhereNobodyAnswers)
{
    const LogLines log;
    const DialogAnswers answers({});
    EXPECT_EQ(ask(), nullptr);
    EXPECT_EQ(log.errors().size(), 1);
}

TEST_F(CaptureDialogTest, ShowsTitleAndMessageAsTheyAre)
{
    QString title;
    QStringList texts;
    whenUp([&](QWidget& dialog) {
        title = dialog.windowTitle();
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (label->textFormat() == Qt::PlainText)
                texts.append(label->text());
        }
        static_cast<QDialog&>(dialog).reject();
    });
    EXPECT_EQ(ask(), nullptr);
    EXPECT_EQ(title, u"Flat field");
    EXPECT_TRUE(texts.contains(QStringLiteral("Cover the <b>lens</b>.")));
}

TEST_F(CaptureDialogTest, ShowsWhatTheCameraSees)
{
    QImage shown;
    whenSeen([&](QWidget& dialog) {
        shown = dialog.grab().toImage();
        static_cast<QDialog&>(dialog).accept();
    });
    const Picture picture = ask();
    ASSERT_NE(picture, nullptr);
    EXPECT_GE(shown.width(), 400);
    // The simulated camera sends all greys; a dialog without a preview has few colours.
    QList<QRgb> colours;
    for (int x = 0; x < shown.width(); ++x) {
        const QRgb colour = shown.pixel(x, shown.height() / 2);
        if (!colours.contains(colour))
            colours.append(colour);
    }
    EXPECT_GT(colours.size(), 50);
}

TEST_F(CaptureDialogTest, StartsTheCameraForItselfAndStopsIt)
{
    bool streamed = false;
    whenUp([&](QWidget& dialog) {
        streamed = host.cameras().isStreaming(camera);
        static_cast<QDialog&>(dialog).reject();
    });
    ask();
    EXPECT_TRUE(streamed);
    EXPECT_FALSE(host.cameras().isStreaming(camera));
}

TEST_F(CaptureDialogTest, LeavesTheViewThatStreamsAlone)
{
    ASSERT_TRUE(app.setCameraAcquisition(true, camera));
    const int id = app.activeViewId();
    ASSERT_TRUE(environment.waitForNextFrame(app.view(id), 30.0));
    {
        const DialogAnswers answers({QStringLiteral("Capture")});
        EXPECT_NE(ask(), nullptr);
    }
    EXPECT_TRUE(host.cameras().isStreaming(camera));
    EXPECT_TRUE(environment.waitForNextFrame(app.view(id), 30.0));
}

TEST_F(CaptureDialogTest, GivesThePictureThroughTheViewsChainWhetherTheViewStreamsOrNot)
{
    ASSERT_TRUE(app.setCameraAcquisition(true, camera));
    auto& view = dynamic_cast<ImageView&>(*app.view(app.activeViewId()));
    app.setCameraAcquisition(false, camera); // no frame passes before the element is there
    QDomDocument document;
    QDomElement conf = document.createElement(QStringLiteral("conf"));
    conf.setAttribute(QStringLiteral("level"), 100);
    auto element = std::make_unique<Threshold>();
    element->configure(conf);
    view.chain().insertBefore(std::move(element), view.chainEnd());
    for (const bool streams : {true, false}) {
        app.setCameraAcquisition(streams, camera);
        const Picture picture = ask(0);
        ASSERT_NE(picture, nullptr);
        EXPECT_EQ(host.cameras().isStreaming(camera), streams);
        for (quint32 x = 0; x < picture->width; ++x)
            EXPECT_TRUE(picture->data[x] == 0 || picture->data[x] == 255) << int{picture->data[x]};
    }
}

TEST_F(CaptureDialogTest, TakesThePictureByItselfWhenTheCountdownIsOver)
{
    EXPECT_NE(ask(0), nullptr);
    QStringList texts;
    whenSeen([&](const QWidget& dialog) {
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            texts.append(label->text());
    });
    EXPECT_NE(ask(1), nullptr);
    EXPECT_TRUE(texts.contains(QStringLiteral("The picture is taken in 1 s.")))
        << qPrintable(texts.join(u'|'));
}

TEST_F(CaptureDialogTest, LetsTheUserBeFasterThanTheCountdown)
{
    for (const int seconds : {3600, std::numeric_limits<int>::max()}) {
        const DialogAnswers answers({QStringLiteral("Capture")});
        EXPECT_NE(ask(seconds), nullptr) << seconds;
    }
}

TEST_F(CaptureDialogTest, EndsWhenTheCameraIsClosed)
{
    whenUp([&](QWidget&) { host.cameras().close(camera); });
    EXPECT_EQ(ask(), nullptr);
    EXPECT_EQ(host.cameras().openedCameraCount(), 0U);
}

TEST_F(CaptureDialogTest, EndsWhenTheCameraIsRestarted)
{
    whenUp([&](QWidget&) { app.restartCameraWithDefaults(camera); });
    EXPECT_EQ(ask(), nullptr);
    EXPECT_TRUE(handleEventsUntil([&] { return host.cameras().openedCameraCount() == 1; }));
}

TEST_F(CaptureDialogTest, EndsWithoutAPictureWhenTheUserInterruptsTheProgram)
{
    std::signal(SIGINT, &countInterrupt); // stands for the interpreter's
    whenUp([](QWidget&) { kill(getpid(), SIGINT); });
    EXPECT_EQ(ask(), nullptr);
    EXPECT_EQ(interrupts, 1);
    EXPECT_FALSE(host.cameras().isStreaming(camera));
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), &countInterrupt);
}

TEST_F(CaptureDialogTest, TakesNoPictureBeforeItHasSeenOne)
{
    const CaptureDialog dialog(nullptr, QString(), QString());
    EXPECT_EQ(Picture(dialog.takePicture()), nullptr);
}

TEST_F(CaptureDialogTest, SurvivesTheViewThatItWatches)
{
    ASSERT_TRUE(app.setCameraAcquisition(true, camera));
    const int id = app.activeViewId();
    ASSERT_TRUE(environment.waitForNextFrame(app.view(id), 30.0));
    whenUp([&](QWidget& dialog) {
        app.view(id)->closeMdiView();
        QTimer::singleShot(200, &dialog, [&dialog] { static_cast<QDialog&>(dialog).reject(); });
    });
    EXPECT_EQ(ask(), nullptr);
    EXPECT_EQ(app.view(id), nullptr);
}

TEST_F(CaptureDialogTest, IsNotShownForAnUnknownCamera)
{
    const LogLines log;
    int stranger = 0;
    EXPECT_EQ(ask(nullptr), nullptr);
    EXPECT_EQ(ask(&stranger), nullptr);
    EXPECT_EQ(log.errors().size(), 2);
}

TEST_F(CaptureDialogTest, IsNotShownOnAnotherThread)
{
    const LogLines log;
    std::thread([this] { EXPECT_EQ(ask(0), nullptr); }).join();
    ASSERT_EQ(log.errors().size(), 1);
    EXPECT_TRUE(log.errors().constFirst().endsWith(QStringLiteral("on the main thread only")));
}

TEST_F(CaptureDialogTest, GivesThePictureInItsOwnSize)
{
    host.cameras().cameraParameters(camera)->setROIRectParams(0, 0, 2048, 64, true);
    const Picture picture = ask(0);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width, 2048U);
    EXPECT_EQ(picture->height, 64U);
}
