// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Counts sounds and hands them to the thread that plays them.
#include "app/Sounds.h"

#include "core/HostModule.h"
#include "core/Log.h"

#include <QtCore/QFileInfo>

#include <utility>

namespace vistrel {

namespace {

QString tr(const char* text) { return QObject::tr(text); }

std::unique_ptr<SoundPlayer> loadPlayer(QString& error)
{
    const auto entry = reinterpret_cast<SoundPlayerEntry>(hostModuleEntry(
        hostModulePath(QStringLiteral("libvistrel_sounds.so")), soundPlayerEntry, error));
    return std::unique_ptr<SoundPlayer>(entry ? entry() : nullptr);
}

} // namespace

Sounds::Sounds()
    : Sounds(loadPlayer)
{
    // Of Qt Multimedia's two back ends the default one brings the process down when some of its
    // many parts are not installed. Set here, while there are no threads yet that read it.
    if (!qEnvironmentVariableIsSet("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", "ffmpeg");
}

Sounds::Sounds(Maker maker)
    : m_maker(std::move(maker))
{
    m_thread.setObjectName(QStringLiteral("sounds"));
    m_context.moveToThread(&m_thread);
}

Sounds::~Sounds()
{
    if (!m_thread.isRunning())
        return;
    QMetaObject::invokeMethod(&m_context, [this] {
        m_player.reset();
        m_thread.quit();
    });
    m_thread.wait();
}

void Sounds::play(const QString& path)
{
    if (!QFileInfo(path).isFile())
        logError(tr("There is no sound file %1").arg(path));
    else if (enter())
        QMetaObject::invokeMethod(&m_context, [this, path] { begin(path); });
    else
        logError(tr("The sound %1 was not played: too many play already").arg(path));
}

bool Sounds::waitUntilSilent(std::chrono::milliseconds longest)
{
    std::unique_lock lock(m_mutex);
    return m_ended.wait_for(lock, longest, [this] { return m_underWay == 0; });
}

bool Sounds::enter()
{
    const std::scoped_lock lock(m_mutex);
    if (m_underWay == most)
        return false;
    ++m_underWay;
    if (!m_thread.isRunning())
        m_thread.start();
    return true;
}

void Sounds::begin(const QString& path)
{
    if (!m_player && m_noPlayer.isEmpty())
        m_player = m_maker(m_noPlayer);
    if (m_player)
        m_player->play(path, [this, path](const QString& reason) { end(path, reason); });
    else
        end(path, m_noPlayer);
}

void Sounds::end(const QString& path, const QString& reason)
{
    if (!reason.isEmpty())
        logError(tr("The sound %1 was not played: %2").arg(path, reason));
    const std::scoped_lock lock(m_mutex);
    --m_underWay;
    m_ended.notify_all();
}

} // namespace vistrel
