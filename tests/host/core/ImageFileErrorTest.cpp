// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Image files that cannot be read or written: what is refused, what is said, what stays on disk.
#include "FileFixture.h"
#include "FileSizeLimit.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

using namespace vistrel::test;
using enum ExImageDataType;

class ImageFileError : public FileFixture {
protected:
    void write(const char* name, const QByteArray& bytes)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QByteArray content(const char* name)
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    bool canBeRead(const char* name)
    {
        return std::unique_ptr<IxImageLoader>(m_formats.loaderForFile(path(name))) != nullptr;
    }

    bool canBeWritten(const char* name)
    {
        return std::unique_ptr<IxImageSaver>(m_formats.saverForFile(path(name))) != nullptr;
    }

    /// Saving is refused with one log line that names the file and holds this text.
    void expectRefused(const char* name, const Layout& layout, const char* reason,
                       const QByteArray& firstBytes = {})
    {
        SCOPED_TRACE(name);
        LogLines::lines().clear();
        const auto image = newImage(layout);
        std::memcpy(image->picBuf()->data, firstBytes.constData(),
                    static_cast<std::size_t>(firstBytes.size()));
        EXPECT_FALSE(save(name, *image));
        expectOneLine(name, reason);
        EXPECT_FALSE(QFileInfo::exists(path(name)));
    }

    void expectOneLine(const char* name, const char* reason)
    {
        ASSERT_EQ(LogLines::lines().size(), 1) << qPrintable(LogLines::joined());
        EXPECT_TRUE(LogLines::lines().first().contains(path(name)))
            << qPrintable(LogLines::joined());
        EXPECT_TRUE(LogLines::lines().first().contains(QLatin1String(reason)))
            << qPrintable(LogLines::joined());
    }
};

TEST_F(ImageFileError, NoReaderForMissingFilesFoldersAndUnknownEndings)
{
    write("a.xyz", "text");
    write("png", "text");
    QDir().mkpath(path("folder.png"));
    for (const char* name : {"missing.png", "a.xyz", "png", "folder.png", ""})
        EXPECT_FALSE(canBeRead(name)) << name;
    write("a.PnG", "text");
    EXPECT_TRUE(canBeRead("a.PnG"));
}

TEST_F(ImageFileError, NoWriterForUnknownEndings)
{
    for (const char* name : {"a.xyz", "png", "a.png.txt", "a."})
        EXPECT_FALSE(canBeWritten(name)) << name;
    for (const char* name : {"a.png", "a.TIF", "a.tiff", "a.jpg", "a.Jpeg", "a.bmp", "a.pgm",
                             "a.ppm", "a.pnm", "a.pbm", "a.b.png"})
        EXPECT_TRUE(canBeWritten(name)) << name;
}

TEST_F(ImageFileError, GarbageAndEmptyFilesAreRefusedWithALineNamingThem)
{
    write("a.png", QByteArray(5000, 'x'));
    EXPECT_EQ(load("a.png"), nullptr);
    expectOneLine("a.png", "no image of a known format");
    LogLines::lines().clear();
    write("b.png", {});
    EXPECT_EQ(load("b.png"), nullptr);
    expectOneLine("b.png", "empty");
}

TEST_F(ImageFileError, AFileThatWentAwayIsRefused)
{
    write("a.png", "text");
    const std::unique_ptr<IxImageLoader> loader(m_formats.loaderForFile(path("a.png")));
    QFile::remove(path("a.png"));
    EXPECT_FALSE(loader->load());
    EXPECT_EQ(loader->loadedObject(), nullptr);
    expectOneLine("a.png", "No such file");
}

TEST_F(ImageFileError, CutOffFilesOfEveryFormatAreRefused)
{
    for (const char* name : {"a.png", "a.tif", "a.jpg", "a.bmp", "a.pgm", "a.ppm", "a.pnm"}) {
        const bool colour = std::strcmp(name, "a.ppm") == 0;
        const auto image = newImage({.width = 120, .height = 90, .channels = colour ? 3U : 1U});
        fill<quint8>(*image->picBuf(), {1, 20, 33, 140, 255, 6, 77});
        ASSERT_TRUE(save(name, *image));
        ASSERT_NE(load(name), nullptr) << name;
        const QByteArray whole = content(name);
        for (const auto kept : {whole.size() - 20, whole.size() * 3 / 4, whole.size() / 2,
                                whole.size() / 10, qsizetype{3}}) {
            write(name, whole.first(kept));
            LogLines::lines().clear();
            EXPECT_EQ(load(name), nullptr) << name << " cut to " << kept;
            expectOneLine(name, "cut off");
        }
    }
}

TEST_F(ImageFileError, TheEndOfAnEmbeddedPreviewIsNotTheEndOfTheJpeg)
{
    ASSERT_TRUE(save("a.jpg", *newImage({.width = 120, .height = 90})));
    QByteArray whole = content("a.jpg");
    whole.insert(2, QByteArray::fromHex("ffe10008ffda0000ffd9"));
    write("a.jpg", whole + "text behind the end");
    EXPECT_NE(load("a.jpg"), nullptr);
    LogLines::lines().clear();
    write("a.jpg", whole.chopped(2));
    EXPECT_EQ(load("a.jpg"), nullptr);
    expectOneLine("a.jpg", "cut off");
}

TEST_F(ImageFileError, WithoutMemoryForItsPixelsAFileIsRefused)
{
    ASSERT_TRUE(save("a.png", *newImage({.width = 10, .height = 10})));
    const NoPictureMemory none;
    EXPECT_EQ(load("a.png"), nullptr);
    expectOneLine("a.png", "memory");
}

TEST_F(ImageFileError, ALaterFailureLeavesTheLoaderEmpty)
{
    ASSERT_TRUE(save("a.png", *newImage({.width = 10, .height = 10})));
    const std::unique_ptr<IxImageLoader> loader(m_formats.loaderForFile(path("a.png")));
    EXPECT_EQ(loader->loadedObject(), nullptr);
    ASSERT_TRUE(loader->load());
    EXPECT_NE(loader->loadedObject(), nullptr);
    QFile::remove(path("a.png"));
    EXPECT_FALSE(loader->load());
    EXPECT_EQ(loader->loadedObject(), nullptr);
}

TEST_F(ImageFileError, AnImageWithoutPixelsIsNotSaved)
{
    CxImageData empty;
    EXPECT_FALSE(save("a.png", empty));
    expectOneLine("a.png", "no pixels");
}

TEST_F(ImageFileError, NoImageIsNotSaved)
{
    const std::unique_ptr<IxImageSaver> saver(m_formats.saverForFile(path("none.png")));
    ASSERT_NE(saver, nullptr);
    EXPECT_FALSE(saver->save(nullptr, 0));
    EXPECT_FALSE(QFileInfo::exists(path("none.png")));
    EXPECT_TRUE(LogLines::joined().contains(QLatin1String("there is no picture")));
}

TEST_F(ImageFileError, AFolderThatDoesNotExistIsNamedWithTheReason)
{
    expectRefused("missing/a.png", {.width = 4, .height = 4}, "No such file or directory");
}

TEST_F(ImageFileError, WhatIsNoFileIsNotReplacedByOne)
{
    QDir().mkpath(path("folder.png"));
    ASSERT_EQ(mkfifo(qPrintable(path("pipe.png")), 0600), 0);
    ASSERT_TRUE(QFile::link(path("pipe.png"), path("link.png")));
    for (const char* name : {"folder.png", "pipe.png", "link.png"}) {
        LogLines::lines().clear();
        EXPECT_FALSE(save(name, *newImage({.width = 4, .height = 4})));
        expectOneLine(name, "no file");
        EXPECT_FALSE(QFileInfo(path(name)).isFile());
    }
}

TEST_F(ImageFileError, AFileBehindALinkIsReplacedAndTheLinkStays)
{
    write("real.png", "old");
    ASSERT_TRUE(QFile::link(path("real.png"), path("link.png")));
    EXPECT_TRUE(save("link.png", *newImage({.width = 4, .height = 4})));
    EXPECT_TRUE(QFileInfo(path("link.png")).isSymLink());
    EXPECT_NE(load("real.png"), nullptr);
}

TEST_F(ImageFileError, AFullDiskLeavesTheOldFileWhole)
{
    const auto image = newImage({.width = 200, .height = 200});
    ASSERT_TRUE(save("a.bmp", *image));
    const QByteArray before = content("a.bmp");
    fill<quint8>(*image->picBuf(), {255});
    {
        const FileSizeLimit full(1000);
        EXPECT_FALSE(save("a.bmp", *image));
    }
    expectOneLine("a.bmp", "File too large");
    EXPECT_EQ(content("a.bmp"), before);
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1)
        << "a temporary file is left";
}

TEST_F(ImageFileError, ARefusedPictureLeavesTheOldFileWhole)
{
    ASSERT_TRUE(save("a.png", *newImage({.width = 5, .height = 5})));
    const QByteArray before = content("a.png");
    EXPECT_FALSE(save("a.png", *newImage({.width = 5, .height = 5, .type = Float, .bpc = 32})));
    EXPECT_EQ(content("a.png"), before);
}

TEST_F(ImageFileError, FloatsAreRefusedByFormatsOfIntegersWithTheOneThatTakesThem)
{
    for (const char* name : {"a.png", "a.jpg", "a.bmp", "a.pgm"})
        expectRefused(name, {.width = 2, .type = Float, .bpc = 32},
                      "1 channel(s) of 32-bit float values without loss; formats that can: TIFF");
    expectRefused("a.ppm", {.channels = 3, .type = Double, .bpc = 64},
                  "64-bit float values without loss; formats that can: none");
}

TEST_F(ImageFileError, WhatWouldBeLostIsRefused)
{
    const QByteArray minusOne = QByteArray::fromHex("ffff");
    expectRefused("a.png", {.type = Int16, .bpc = 16}, "formats that can: TIFF", minusOne);
    expectRefused("a.jpg", {.type = Int16, .bpc = 16}, "formats that can: TIFF", minusOne);
    expectRefused("a.png", {.type = UInt32, .bpc = 32}, "formats that can: TIFF",
                  QByteArray::fromHex("00000100"));
    expectRefused("a.tif", {.type = UInt64, .bpc = 64}, "formats that can: none",
                  QByteArray::fromHex("0100000000002000"));
    expectRefused("a.tif", {.channels = 3, .type = Double, .bpc = 64}, "formats that can: none",
                  QByteArray::fromHex("9a9999999999b93f")); // 0.1
    expectRefused("a.pgm", {.channels = 3}, "formats that can: PNG, TIFF, BMP, PPM, PNM");
    expectRefused("a.pbm", {.width = 2}, "formats that can: PNG, TIFF, BMP, PGM, PNM",
                  QByteArray::fromHex("0102"));
}

TEST_F(ImageFileError, AlphaThatMattersIsRefusedWhereThereIsNoPlaceForIt)
{
    for (const char* name : {"a.jpg", "a.bmp", "a.ppm", "a.pnm"})
        expectRefused(name, {.channels = 4, .isRgb = true}, "formats that can: PNG, TIFF");
}

TEST_F(ImageFileError, NumbersOfChannelsThatNoFormatHasAreRefused)
{
    for (const unsigned channels : {2U, 5U})
        expectRefused("a.tif", {.channels = channels}, "formats that can: none");
    expectRefused("a.png", {.type = None}, "unknown values");
}

TEST_F(ImageFileError, APictureTooLargeForJpegIsRefused)
{
    expectRefused("a.jpg", {.width = 65536}, "no more than 65500 pixels a side");
}

} // namespace
