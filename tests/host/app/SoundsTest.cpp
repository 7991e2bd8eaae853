// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Sounds are handed to a player on a thread of its own; what is not played is told.
#include "AppFixture.h"

#include "app/Sounds.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>

#include <fstream>
#include <semaphore>
#include <string>
#include <thread>

using namespace vistrel;
using namespace std::chrono_literals;

namespace {

QString tx(const char* text) { return QString::fromUtf8(text); }

/// Plays files without a sound: "long.wav" until the player's end, "broken.wav" not at all.
class SilentPlayer : public SoundPlayer {
public:
    explicit SilentPlayer(QStringList& played)
        : m_played(played)
    {
    }
    ~SilentPlayer() override { EXPECT_EQ(QThread::currentThread(), m_thread); }

    void play(const QString& path, Ended ended) override
    {
        EXPECT_EQ(QThread::currentThread(), m_thread);
        if (path.endsWith(tx("broken.wav")))
            return ended(tx("it is broken"));
        m_played << path;
        if (!path.endsWith(tx("long.wav")))
            ended({});
    }

private:
    QThread* const m_thread = QThread::currentThread();
    QStringList& m_played;
};

class SoundTest : public testing::Test {
protected:
    SoundTest()
    {
        for (const char* name : {"bell.wav", "long.wav", "broken.wav"}) {
            QFile file(path(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }

    QString path(const char* name) const { return folder.filePath(tx(name)); }

    Sounds::Maker maker()
    {
        return [this](QString&) {
            ++made;
            return std::make_unique<SilentPlayer>(played);
        };
    }

    const QTemporaryDir folder;
    QStringList played; // by the sounds' thread, until it is silent
    int made = 0;
};

bool isLoaded(const std::string& name)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(name) != std::string::npos)
            return true;
    }
    return false;
}

} // namespace

TEST_F(SoundTest, IsPlayedByOnePlayer)
{
    Sounds sounds(maker());
    sounds.play(path("bell.wav"));
    sounds.play(path("bell.wav"));
    EXPECT_TRUE(sounds.waitUntilSilent(30s));
    EXPECT_EQ(played.size(), 2);
    EXPECT_EQ(made, 1);
}

TEST_F(SoundTest, NeedsNoPlayerUntilThereIsAFile)
{
    const LogLines log;
    Sounds sounds(maker());
    sounds.play(path("none.wav"));
    sounds.play(folder.path());
    EXPECT_TRUE(sounds.waitUntilSilent(0s));
    EXPECT_EQ(made, 0);
    EXPECT_EQ(log.errors(), QStringList({tx("There is no sound file ") + path("none.wav"),
                                         tx("There is no sound file ") + folder.path()}));
}

TEST_F(SoundTest, MayBeAskedForOnAnyThread)
{
    Sounds sounds(maker());
    std::thread([&] { sounds.play(path("bell.wav")); }).join();
    EXPECT_TRUE(sounds.waitUntilSilent(30s));
    EXPECT_EQ(played, QStringList(path("bell.wav")));
}

TEST_F(SoundTest, ReturnsBeforeThePlayerIsThere)
{
    std::binary_semaphore mayBeMade(0);
    Sounds sounds([&](QString&) {
        mayBeMade.acquire();
        return std::make_unique<SilentPlayer>(played);
    });
    sounds.play(path("bell.wav"));
    EXPECT_FALSE(sounds.waitUntilSilent(0s));
    mayBeMade.release();
    EXPECT_TRUE(sounds.waitUntilSilent(30s));
}

TEST_F(SoundTest, ThatCannotBePlayedIsNamed)
{
    const LogLines log;
    Sounds sounds(maker());
    sounds.play(path("broken.wav"));
    EXPECT_TRUE(sounds.waitUntilSilent(30s));
    EXPECT_EQ(log.errors(), QStringList(tx("The sound ") + path("broken.wav")
                                        + tx(" was not played: it is broken")));
}

TEST_F(SoundTest, WithoutAPlayerSaysWhyEachTime)
{
    const LogLines log;
    int asked = 0;
    Sounds sounds([&asked](QString& error) {
        ++asked;
        error = tx("no module");
        return nullptr;
    });
    sounds.play(path("bell.wav"));
    sounds.play(path("bell.wav"));
    EXPECT_TRUE(sounds.waitUntilSilent(30s));
    EXPECT_EQ(asked, 1);
    ASSERT_EQ(log.errors().size(), 2);
    EXPECT_TRUE(log.errors().constLast().endsWith(tx("was not played: no module")));
}

TEST_F(SoundTest, IsNotPlayedBesidesTooManyOthers)
{
    const LogLines log;
    Sounds sounds(maker());
    for (int i = 0; i <= Sounds::most; ++i)
        sounds.play(path("long.wav"));
    EXPECT_EQ(log.errors(), QStringList(tx("The sound ") + path("long.wav")
                                        + tx(" was not played: too many play already")));
    EXPECT_FALSE(sounds.waitUntilSilent(1ms));
}

TEST_F(SoundTest, LibrariesComeWithTheFirstFile)
{
    // Where nothing listens, there is no audio device.
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(path("nobody")));
    const LogLines log;
    HostApplication host;
    host.delegate().playSound(path("none.wav"));
    EXPECT_FALSE(isLoaded("libvistrel_sounds"));
    EXPECT_FALSE(isLoaded("libQt6Multimedia"));
    host.delegate().playSound(path("bell.wav"));
    EXPECT_TRUE(host.delegate().sounds().waitUntilSilent(30s));
    EXPECT_TRUE(isLoaded("libvistrel_sounds"));
    EXPECT_TRUE(isLoaded("libQt6Multimedia"));
    EXPECT_EQ(log.errors().constLast(), tx("The sound ") + path("bell.wav")
                                            + tx(" was not played: there is no audio device"));
}
