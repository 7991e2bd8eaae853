// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The image object and files: which reader and writer are asked, what a failure leaves behind.
#include "PluginTest.h"

#include <QtCore/QFileInfo>
#include <QtCore/QPointer>
#include <QtCore/QTemporaryDir>

using testing::_;
using testing::InSequence;
using testing::Return;
using testing::StrictMock;

namespace {

class ImageFiles : public PluginTest {
protected:
    /// A reader that is handed out for the next file.
    MockLoader& expectLoader()
    {
        auto* loaderMock = new StrictMock<MockLoader>;
        EXPECT_CALL(formats, loaderForFile(_)).WillOnce(Return(loaderMock));
        EXPECT_CALL(*loaderMock, destroyed());
        return *loaderMock;
    }

    QString load()
    {
        EXPECT_EQ(run("i = vistrel.Image()\ni.alloc(9, 9, 1, 8)\nr = i.from_file('x.png')\n"
                      "print(r, i, end='')"),
                  QString());
        return output;
    }

    static constexpr char emptyAfterwards[] = "None Vistrel image object is empty";
};

TEST_F(ImageFiles, LoadingResolvesThePathAndCopiesWhatWasRead)
{
    run("pass");
    auto picture = makeImage(6, 5, 1, ExImageDataType::UInt8, 8);
    auto* reader = new StrictMock<MockLoader>;
    const InSequence order;
    EXPECT_CALL(environment, resolvePath(QStringLiteral("ä.png")))
        .WillOnce(Return(QStringLiteral("/data/ä.png")));
    EXPECT_CALL(formats, loaderForFile(QStringLiteral("/data/ä.png"))).WillOnce(Return(reader));
    EXPECT_CALL(*reader, load()).WillOnce(Return(true));
    EXPECT_CALL(*reader, loadedObject()).WillOnce(Return(picture.get()));
    EXPECT_CALL(*reader, destroyed());
    EXPECT_EQ(run("i = vistrel.Image()\nprint(i.from_file('ä.png'), i.width, i.bp)"), QString());
    EXPECT_TRUE(output.startsWith(QLatin1String("None 6 ")));
    EXPECT_FALSE(
        output.contains(QString::number(reinterpret_cast<quintptr>(picture->picBuf()->data))));
}

TEST_F(ImageFiles, WithoutAReaderTheObjectKeepsItsImage)
{
    EXPECT_CALL(formats, loaderForFile(_)).WillOnce(Return(nullptr));
    EXPECT_EQ(run("i = vistrel.Image()\ni.alloc(9, 8, 1, 8)\n"
                  "try: i.from_file('x.unknown')\n"
                  "except Exception as e: print(type(e).__name__, e, i.width, end='')"),
              QString());
    EXPECT_EQ(output, QStringLiteral("Exception cannot open file 9"));
}

TEST_F(ImageFiles, AReaderThatFailsLeavesTheObjectEmptyWithoutAnError)
{
    EXPECT_CALL(expectLoader(), load()).WillOnce(Return(false));
    EXPECT_EQ(load(), QLatin1String(emptyAfterwards));
}

TEST_F(ImageFiles, AReaderThatReadsSomethingElseLeavesTheObjectEmpty)
{
    QObject stranger;
    MockLoader& reader = expectLoader();
    EXPECT_CALL(reader, load()).WillOnce(Return(true));
    EXPECT_CALL(reader, loadedObject()).WillOnce(Return(&stranger));
    EXPECT_EQ(load(), QLatin1String(emptyAfterwards));
}

TEST_F(ImageFiles, AReaderThatReadsNothingLeavesTheObjectEmpty)
{
    MockLoader& reader = expectLoader();
    EXPECT_CALL(reader, load()).WillOnce(Return(true));
    EXPECT_CALL(reader, loadedObject()).WillOnce(Return(nullptr));
    EXPECT_EQ(load(), QLatin1String(emptyAfterwards));
}

TEST_F(ImageFiles, AReadImageThatCannotBeCopiedLeavesTheObjectEmpty)
{
    class Uncopyable : public CxImageData {
    public:
        QObject* clone(int flags, int reserved) override
        {
            EXPECT_EQ(flags, 0);
            EXPECT_EQ(reserved, 0);
            return new QObject;
        }
    } uncopyable;
    MockLoader& reader = expectLoader();
    EXPECT_CALL(reader, load()).WillOnce(Return(true));
    EXPECT_CALL(reader, loadedObject()).WillOnce(Return(&uncopyable));
    EXPECT_EQ(load(), QLatin1String(emptyAfterwards));
}

TEST_F(ImageFiles, SavingResolvesThePath)
{
    const QTemporaryDir folder;
    const QString resolved = folder.filePath(QStringLiteral("resolved.png"));
    auto* saver = new testing::NiceMock<MockSaver>;
    EXPECT_CALL(environment, resolvePath(QStringLiteral("given.png"))).WillOnce(Return(resolved));
    EXPECT_CALL(formats, saverForFile(resolved)).WillOnce(Return(saver));
    EXPECT_EQ(run("i = vistrel.Image()\ni.alloc(1, 1, 1, 8)\ni.save_to_file('given.png')"),
              QString());
}

TEST_F(ImageFiles, AnEmptyObjectCanBeFilledAgain)
{
    EXPECT_CALL(expectLoader(), load()).WillOnce(Return(false));
    EXPECT_EQ(run("i = vistrel.Image()\ni.from_file('x.png')\ni.alloc(2, 2, 1, 8)\n"
                  "assert i.width == 2\ni.__init__()\ndel i"),
              QString());
}

TEST_F(ImageFiles, SavingMakesTheFolderAndIgnoresTheWritersResult)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("out/sub/a.png"));
    auto* saver = new StrictMock<MockSaver>;
    EXPECT_CALL(formats, saverForFile(path)).WillOnce([&](const QString&) {
        EXPECT_TRUE(QFileInfo(folder.filePath(QStringLiteral("out/sub"))).isDir());
        return saver;
    });
    EXPECT_CALL(*saver, save(_, 0)).WillOnce([](CxImageData* image, int) {
        EXPECT_EQ(image->picBuf()->width, 3U);
        return false;
    });
    EXPECT_CALL(*saver, destroyed());
    EXPECT_EQ(run(("i = vistrel.Image()\ni.alloc(3, 2, 1, 8)\nprint(i.save_to_file('"
                   + path.toStdString() + "'), end='')")
                      .c_str()),
              QString());
    EXPECT_EQ(output, QStringLiteral("None"));
}

TEST_F(ImageFiles, SavingAnEmptyObjectOrWithoutAWriterGivesTheInterpretersOwnError)
{
    EXPECT_CALL(formats, saverForFile(_)).WillOnce(Return(nullptr));
    expectSilentNull("vistrel.Image().save_to_file('/tmp/x.png')");
    // The empty object is found before the arguments are looked at.
    expectSilentNull("vistrel.Image().save_to_file(5)");
    expectSilentNull("i = vistrel.Image()\ni.alloc(1, 1, 1, 8)\ni.save_to_file('/tmp/x.odd')");
}

} // namespace
