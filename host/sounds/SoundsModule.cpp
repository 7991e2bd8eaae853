// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The sounds module: files by Qt Multimedia.
#include "app/SoundPlayer.h"

#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtMultimedia/QAudioDevice>
#include <QtMultimedia/QAudioOutput>
#include <QtMultimedia/QMediaDevices>
#include <QtMultimedia/QMediaPlayer>

#include <utility>

namespace vistrel {

namespace {

/// One file that is being played; it deletes itself when that is over.
class Playback : public QObject {
public:
    Playback(const QString& path, SoundPlayer::Ended ended)
        : m_ended(std::move(ended))
    {
        m_player.setAudioOutput(&m_output);
        connect(&m_player, &QMediaPlayer::errorOccurred, this,
                [this](QMediaPlayer::Error, const QString& reason) { finish(reason); });
        connect(&m_player, &QMediaPlayer::mediaStatusChanged, this,
                [this](QMediaPlayer::MediaStatus status) { follow(status); });
        m_player.setSource(QUrl::fromLocalFile(path));
        m_player.play();
    }

    ~Playback() override { m_ended = nullptr; }

private:
    void follow(QMediaPlayer::MediaStatus status)
    {
        if (status == QMediaPlayer::EndOfMedia)
            finish({});
        else if (status == QMediaPlayer::InvalidMedia)
            finish(tr("it is no sound file of a known kind"));
        else if (status == QMediaPlayer::LoadedMedia && !m_player.hasAudio())
            finish(tr("it holds no sound"));
    }

    void finish(const QString& reason)
    {
        if (const SoundPlayer::Ended ended = std::exchange(m_ended, nullptr)) {
            ended(reason);
            deleteLater();
        }
    }

    SoundPlayer::Ended m_ended; // empty once it has been told
    QAudioOutput m_output;      // outlives the player
    QMediaPlayer m_player;
};

class MediaSoundPlayer : public SoundPlayer {
public:
    void play(const QString& path, Ended ended) override
    {
        // A player without a device is not a silent one: it brings the process down.
        if (QMediaDevices::defaultAudioOutput().isNull())
            ended(QObject::tr("there is no audio device"));
        else
            (new Playback(path, std::move(ended)))->setParent(&m_playbacks);
    }

private:
    QObject m_playbacks;
};

} // namespace

} // namespace vistrel

extern "C" Q_DECL_EXPORT vistrel::SoundPlayer* vistrel_makeSoundPlayer()
{
    return new vistrel::MediaSoundPlayer;
}
