// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Films: what is in them, when there is none, and how they end.
#include "ChainFixtures.h"
#include "chains/FilmRecorder.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <opencv2/videoio.hpp>

#include <sched.h>
#include <sys/mount.h>

#include <atomic>

using namespace vistrel;
using namespace vistrel::test;

namespace {

/// Counts who has come to it, and holds them up until it is opened.
class Gate {
public:
    void pass()
    {
        ++m_arrived;
        m_arrived.notify_all();
        m_isOpen.wait(false);
    }
    void waitForSomebody() { m_arrived.wait(0); }
    void open()
    {
        m_isOpen = true;
        m_isOpen.notify_all();
    }

private:
    std::atomic<int> m_arrived = 0;
    std::atomic<bool> m_isOpen = false;
};

/// A picture that is not looked at before a gate is open.
class GatedImage : public CxImageData {
public:
    explicit GatedImage(Gate& gate)
        : m_gate(gate)
    {
        setPicBuf(newBuffer({.width = 64, .height = 64}));
    }
    SxPicBuf* picBuf() override
    {
        m_gate.pass();
        return CxImageData::picBuf();
    }
    QObject* clone(int, int) override { return new GatedImage(m_gate); }

private:
    Gate& m_gate;
};

/// What a player makes of a film.
std::vector<cv::Mat> picturesIn(const QString& path, double* framesPerSecond = nullptr)
{
    cv::VideoCapture player(QFile::encodeName(path).toStdString());
    if (framesPerSecond != nullptr)
        *framesPerSecond = player.get(cv::CAP_PROP_FPS);
    std::vector<cv::Mat> pictures;
    for (cv::Mat picture; player.read(picture); picture = cv::Mat())
        pictures.push_back(picture);
    return pictures;
}

int meanOf(const cv::Mat& picture, int channel) { return cvRound(cv::mean(picture)[channel]); }

class Recording : public testing::Test {
protected:
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    std::shared_ptr<FilmRecorder> start(const QString& file, double framesPerSecond = 25.0)
    {
        auto recorder = FilmRecorder::start(file, framesPerSecond, error);
        EXPECT_NE(recorder, nullptr) << qPrintable(error);
        return recorder;
    }
    std::shared_ptr<FilmRecorder> start(const char* name) { return start(path(name)); }

    void record(const char* name, CxImageData& image, int times)
    {
        const auto recorder = start(name);
        for (int i = 0; i < times; ++i)
            recorder->take(image); // fewer than may wait
        recorder->finish();
    }

    const LogLines log;
    QTemporaryDir folder;
    QString error;
};

} // namespace

TEST_F(Recording, MakesFilmsThatCanBePlayed)
{
    for (const char* const name : {"a.avi", "a.mp4", "B.AVI"}) {
        auto image = newImage({.width = 64, .height = 48});
        fill<quint8>(*image->picBuf(), {100});
        record(name, *image, 6);
        const auto pictures = picturesIn(path(name));
        ASSERT_EQ(pictures.size(), 6U) << name;
        EXPECT_EQ(pictures[0].cols, 64);
        EXPECT_EQ(pictures[0].rows, 48);
        EXPECT_NEAR(meanOf(pictures[5], 1), 100, 3) << name;
    }
    EXPECT_EQ(LogLines::joined(), QString());
}

TEST_F(Recording, KeepsTheFrameRate)
{
    for (const double rate : {25.0, 12.5, 16.666666, 240.5}) {
        for (const char* const name : {"a.avi", "a.mp4"}) {
            auto image = newImage({.width = 32, .height = 32});
            const auto recorder = start(path(name), rate);
            recorder->take(*image);
            recorder->take(*image);
            recorder->finish();
            double played = 0.0;
            EXPECT_EQ(picturesIn(path(name), &played).size(), 2U);
            EXPECT_NEAR(played, rate, rate * 0.001) << name;
        }
    }
}

TEST_F(Recording, ScalesMoreThanEightBits)
{
    auto image = newImage({.width = 32, .height = 32, .type = ExImageDataType::UInt16, .bpc = 12});
    fill<quint16>(*image->picBuf(), {2048});
    record("a.avi", *image, 1);
    EXPECT_NEAR(meanOf(picturesIn(path("a.avi")).at(0), 0), 128, 3);
}

TEST_F(Recording, ShowsTheColoursOfColourAndRawPictures)
{
    auto colour = newImage({.width = 32, .height = 32, .channels = 3, .isRgb = true});
    fill<quint8>(*colour->picBuf(), {200, 100, 50});
    record("colour.avi", *colour, 1);
    auto raw = newImage({.width = 32, .height = 32});
    raw->picBuf()->colorFilterArray = ExColorFilterArray::RGGB;
    for (std::size_t y = 0; y < 32; y += 2)
        for (std::size_t x = 0; x < 32; x += 2)
            setValueAt<quint8>(*raw->picBuf(), y, x, 200); // red alone
    record("raw.avi", *raw, 1);
    const cv::Mat picture = picturesIn(path("colour.avi")).at(0);
    EXPECT_NEAR(meanOf(picture, 2), 200, 5);
    EXPECT_NEAR(meanOf(picture, 1), 100, 5);
    EXPECT_NEAR(meanOf(picture, 0), 50, 5);
    const cv::Mat demosaiced = picturesIn(path("raw.avi")).at(0);
    EXPECT_GT(meanOf(demosaiced, 2), 150);
    EXPECT_LT(meanOf(demosaiced, 0), 50);
}

TEST_F(Recording, TakesOddAndVerySmallSizes)
{
    for (const unsigned side : {1U, 3U, 15U, 17U, 33U}) {
        for (const char* const name : {"a.avi", "a.mp4"}) {
            auto image = newImage({.width = side, .height = side + 1});
            record(name, *image, 2);
            const auto pictures = picturesIn(path(name));
            ASSERT_EQ(pictures.size(), 2U) << side;
            EXPECT_GE(pictures[0].cols, static_cast<int>(side));
        }
    }
}

TEST_F(Recording, FitsPicturesOfAnotherSizeIntoTheFilm)
{
    const auto recorder = start("a.avi");
    auto first = newImage({.width = 64, .height = 32});
    auto second = newImage({.width = 32, .height = 64});
    fill<quint8>(*second->picBuf(), {200});
    recorder->take(*first);
    recorder->take(*second);
    recorder->finish();
    const auto pictures = picturesIn(path("a.avi"));
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_EQ(pictures[1].cols, 64);
    EXPECT_NEAR(meanOf(pictures[1].colRange(26, 38), 0), 200, 6);
    EXPECT_NEAR(meanOf(pictures[1].colRange(0, 20), 0), 0, 6);
}

TEST_F(Recording, RefusesAnUnknownEnding)
{
    for (const char* const name : {"film.mkv", "film", "avi", ".avi.png"}) {
        EXPECT_EQ(FilmRecorder::start(path(name), 25.0, error), nullptr);
        EXPECT_EQ(error, QStringLiteral("films are .avi or .mp4 files"));
        EXPECT_FALSE(QFile::exists(path(name)));
    }
}

TEST_F(Recording, MakesMissingFolders)
{
    const auto recorder = start("new/folder/a.avi");
    auto image = newImage({.width = 16, .height = 16});
    recorder->take(*image);
    recorder->finish();
    EXPECT_EQ(picturesIn(path("new/folder/a.avi")).size(), 1U);
}

TEST_F(Recording, RefusesAPlaceThatCannotBeWritten)
{
    QFile file(path("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(FilmRecorder::start(path("file/a.avi"), 25.0, error), nullptr);
    ASSERT_TRUE(QDir().mkpath(path("a.avi")));
    EXPECT_EQ(FilmRecorder::start(path("a.avi"), 25.0, error), nullptr);
    EXPECT_EQ(FilmRecorder::start(QStringLiteral("/proc/a.avi"), 25.0, error), nullptr);
}

TEST_F(Recording, RefusesAFileThatIsBeingRecorded)
{
    const auto first = start("a.avi");
    EXPECT_EQ(
        FilmRecorder::start(path("../") + QDir(folder.path()).dirName() + QStringLiteral("/a.avi"),
                            25.0, error),
        nullptr);
    EXPECT_EQ(error, QStringLiteral("it is being recorded already"));
}

TEST_F(Recording, RefusesALinkToAFileThatIsBeingRecorded)
{
    for (const char* const name : {"link.avi", "nextLink.avi"})
        ASSERT_TRUE(QFile::link(path("a.avi"), path(name)));
    auto image = newImage({.width = 16, .height = 16});
    record("a.avi", *image, 1);
    const auto first = start("a.avi");
    EXPECT_EQ(FilmRecorder::start(path("link.avi"), 25.0, error), nullptr);
    EXPECT_EQ(error, QStringLiteral("it is being recorded already"));
    first->finish();
    EXPECT_EQ(picturesIn(path("a.avi")).size(), 1U);
    const auto linked = start("link.avi");
    for (const char* const name : {"a.avi", "nextLink.avi"})
        EXPECT_EQ(FilmRecorder::start(path(name), 25.0, error), nullptr) << name;
}

TEST_F(Recording, RefusesLinksToAFileThatIsNotThereYetAsOneFile)
{
    for (const char* const name : {"link.avi", "nextLink.avi"})
        ASSERT_TRUE(QFile::link(path("a.avi"), path(name)));
    const auto first = start("link.avi");
    EXPECT_EQ(FilmRecorder::start(path("nextLink.avi"), 25.0, error), nullptr);
    EXPECT_EQ(error, QStringLiteral("it is being recorded already"));
    first->finish();
    EXPECT_FALSE(QFile::exists(path("a.avi")));
    EXPECT_TRUE(QFileInfo(path("link.avi")).isSymLink());
}

TEST_F(Recording, LeavesNoFileWhenNoPictureCame)
{
    start("a.avi")->finish();
    EXPECT_FALSE(QFile::exists(path("a.avi")));
    EXPECT_TRUE(LogLines::joined().contains(QStringLiteral("No picture came")));
}

TEST_F(Recording, LeavesAnOlderFilmWhenNoPictureCame)
{
    auto image = newImage({.width = 16, .height = 16});
    record("a.avi", *image, 3);
    start("a.avi")->finish();
    EXPECT_EQ(picturesIn(path("a.avi")).size(), 3U);
    record("a.avi", *image, 1); // replaces it
    EXPECT_EQ(picturesIn(path("a.avi")).size(), 1U);
}

TEST_F(Recording, CountsAndLogsPicturesThatCameTooFast)
{
    const auto recorder = start("a.avi");
    Gate gate;
    GatedImage image(gate);
    recorder->take(image);
    gate.waitForSomebody(); // one is under way, and the others wait
    for (int i = 0; i < 59; ++i)
        recorder->take(image);
    gate.open();
    recorder->finish();
    EXPECT_EQ(picturesIn(path("a.avi")).size(), 17U);
    EXPECT_TRUE(LogLines::joined().contains(QStringLiteral("lacks 43 of 60 pictures")))
        << qPrintable(LogLines::joined());
}

TEST_F(Recording, WaitsForRoomForStillPictures)
{
    const auto recorder = start("a.avi");
    auto image = newImage({.width = 1024, .height = 1024});
    constexpr int offered = 60;
    for (int i = 0; i < offered; ++i)
        recorder->takeStill(*image);
    recorder->finish();
    EXPECT_EQ(picturesIn(path("a.avi")).size(), std::size_t{offered});
    EXPECT_EQ(LogLines::joined(), QString());
}

TEST_F(Recording, DoesNotHoldStillPicturesUpWhenItHasEnded)
{
    const auto recorder = start("a.mp4");
    auto refused = newImage({.width = 70000, .height = 16}); // by the encoder
    for (int i = 0; i < 60; ++i)
        recorder->takeStill(*refused);
    recorder->finish();
    recorder->takeStill(*refused);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_TRUE(LogLines::joined().contains(QStringLiteral("has ended after 0 pictures")));
}

TEST_F(Recording, IsCompleteWhenTheRecorderGoes)
{
    {
        const auto recorder = start("a.mp4");
        auto image = newImage({.width = 64, .height = 64});
        for (int i = 0; i < 5; ++i)
            recorder->take(*image);
        EXPECT_TRUE(recorder->isRecording());
    }
    EXPECT_EQ(picturesIn(path("a.mp4")).size(), 5U);
}

TEST_F(Recording, CanBeFinishedTwiceAndTakesNothingAfterwards)
{
    const auto recorder = start("a.avi");
    auto image = newImage({.width = 16, .height = 16});
    recorder->take(*image);
    recorder->finish();
    recorder->finish();
    recorder->take(*image);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_EQ(picturesIn(path("a.avi")).size(), 1U);
}

TEST_F(Recording, EndsWhenTheEncoderRefusesThePicture)
{
    const auto recorder = start("a.mp4");
    auto image = newImage({.width = 70000, .height = 16});
    recorder->take(*image);
    recorder->finish();
    EXPECT_FALSE(QFile::exists(path("a.mp4")));
    EXPECT_TRUE(LogLines::joined().contains(QStringLiteral("has ended after 0 pictures")));
}

TEST_F(Recording, SaysThatTheFileIsGoneWhenItsFolderWasDeleted)
{
    const auto recorder = start("folder/a.avi");
    auto image = newImage({.width = 16, .height = 16});
    ASSERT_TRUE(QDir(path("folder")).removeRecursively());
    recorder->take(*image);
    recorder->finish();
    EXPECT_TRUE(LogLines::joined().contains(QStringLiteral(
        "has ended after 0 pictures: the file is out of reach: No such file or directory")))
        << qPrintable(LogLines::joined());
}

TEST_F(Recording, EndsAFilmThatCanBePlayedWhenTheDiskIsFull)
{
    const QByteArray disk = QFile::encodeName(folder.path());
    const bool isMounted = unshare(CLONE_NEWNS) == 0
                           && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
                           && mount("none", disk.constData(), "tmpfs", 0, "size=4m") == 0;
    if (!isMounted)
        GTEST_SKIP() << "only root may mount the small disk that this fills";
    auto image = newImage({.width = 512, .height = 512});
    fillRandomly(*image->picBuf(), 1);
    {
        const auto recorder = start("a.avi");
        for (int i = 0; i < 500 && recorder->isRecording(); ++i)
            recorder->takeStill(*image);
        EXPECT_FALSE(recorder->isRecording());
    }
    const auto played = picturesIn(path("a.avi")).size();
    EXPECT_GE(played, 2U);
    EXPECT_TRUE(LogLines::joined().contains(
        QStringLiteral("has ended after %1 pictures: the disk is full").arg(played)))
        << qPrintable(LogLines::joined());
    QFile filler(path("filler"));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly));
    filler.write(QByteArray(4 << 20, 'x'));
    filler.close();
    EXPECT_EQ(FilmRecorder::start(path("b.avi"), 25.0, error), nullptr);
    EXPECT_EQ(error, QStringLiteral("the disk is full"));
    EXPECT_FALSE(QFile::exists(path("b.avi")));
    umount(disk.constData());
}
