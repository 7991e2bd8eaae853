// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The way of pictures into a film file.
#include "chains/FilmRecorder.h"

#include "core/FileReplacement.h"
#include "core/FilmModule.h"
#include "core/FilmWriters.h"
#include "core/Log.h"

#include <CxImageData.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMutex>
#include <QtCore/QSet>

#include <sys/statvfs.h>

#include <cerrno>
#include <utility>

namespace vistrel {

namespace {

/// Pictures that may wait for the encoder: enough for it to be late now and then, and few enough
/// for their memory and for the wait at the end.
constexpr std::size_t waitingPictures = 16;

/// How long a still picture waits for its place. One that is being written makes room for the next
/// long before, unless the disk does not answer.
constexpr std::chrono::seconds stillPatience{5};

/// Room that is left on the disk for the end of the file, its index above all.
constexpr quint64 reservedBytes = quint64{1} << 20;

/// Whether the disk of a file has room for so many bytes; false with the reason in `error`.
bool hasRoomFor(quint64 bytes, const QString& path, QString& error)
{
    struct statvfs info = {};
    if (statvfs(QFile::encodeName(path).constData(), &info) != 0) {
        error = QStringLiteral("the file is out of reach: %1").arg(qt_error_string(errno));
        return false;
    }
    if (quint64{info.f_bavail} * info.f_frsize >= bytes)
        return true;
    error = QStringLiteral("the disk is full");
    return false;
}

bool isFilmName(const QString& path)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    return ending == QLatin1String("avi") || ending == QLatin1String("mp4");
}

} // namespace

/// A file that one recording writes, and no other. Until keep() is called it was only tried.
class FilmRecorder::Claim {
public:
    static std::unique_ptr<Claim> take(const QString& path, QString& error);
    ~Claim();
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;

    const QString& path() const { return m_path; }
    /// The file has something in it that is to stay.
    void keep() { m_isNew = false; }

private:
    explicit Claim(QString path)
        : m_path(std::move(path))
    {
    }
    bool open(QString& error);

    static inline QMutex s_mutex;
    static inline QSet<QString> s_taken;

    QString m_path;
    bool m_isTaken = false;
    bool m_isNew = false; ///< made by the trial
};

std::unique_ptr<FilmRecorder::Claim> FilmRecorder::Claim::take(const QString& path, QString& error)
{
    const QFileInfo file(path);
    if (!QDir().mkpath(file.absolutePath())) {
        error = QStringLiteral("its folder cannot be made");
        return nullptr;
    }
    const QMutexLocker lock(&s_mutex);
    std::unique_ptr<Claim> claim(new Claim(path));
    if (!claim->open(error))
        return nullptr;
    // Asked of a file that is there, so that links to it count as the same.
    claim->m_path = QFileInfo(path).canonicalFilePath();
    if (s_taken.contains(claim->m_path)) {
        error = QStringLiteral("it is being recorded already");
        return nullptr;
    }
    s_taken.insert(claim->m_path);
    claim->m_isTaken = true;
    return claim;
}

/// Looks whether the file can be written, and leaves one that is there as it is.
bool FilmRecorder::Claim::open(QString& error)
{
    if (isNoFile(m_path, error))
        return false;
    const bool isNew = !QFileInfo::exists(m_path);
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        error = file.errorString();
        return false;
    }
    m_isNew = isNew;
    return true;
}

FilmRecorder::Claim::~Claim()
{
    if (m_isNew)
        QFile::remove(m_path);
    if (!m_isTaken)
        return;
    const QMutexLocker lock(&s_mutex);
    s_taken.remove(m_path);
}

std::shared_ptr<FilmRecorder> FilmRecorder::start(const QString& path, double framesPerSecond,
                                                  QString& error)
{
    if (!isFilmName(path)) {
        error = QStringLiteral("films are .avi or .mp4 files");
        return nullptr;
    }
    auto claim = Claim::take(path, error);
    if (!claim || filmWriters(error) == nullptr)
        return nullptr;
    if (!hasRoomFor(reservedBytes, claim->path(), error))
        return nullptr;
    return std::shared_ptr<FilmRecorder>(new FilmRecorder(std::move(claim), framesPerSecond));
}

FilmRecorder::FilmRecorder(std::unique_ptr<Claim> claim, double framesPerSecond)
    : m_claim(std::move(claim))
    , m_framesPerSecond(framesPerSecond)
    , m_worker(waitingPictures, FrameWorker::WhenFull::RefuseNewest,
               [this](std::unique_ptr<CxImageData> image) { write(*image); })
{
    m_worker.start();
}

FilmRecorder::~FilmRecorder() { finish(); }

void FilmRecorder::take(CxImageData& image)
{
    if (!m_recording)
        return;
    std::unique_ptr<QObject> copy(m_worker.hasRoom() ? image.clone(0, 0) : nullptr);
    if (auto* const picture = qobject_cast<CxImageData*>(copy.get())) {
        static_cast<void>(copy.release()); // the picture itself goes on
        m_worker.put(std::unique_ptr<CxImageData>(picture));
    } else {
        ++m_dropped;
    }
}

void FilmRecorder::takeStill(CxImageData& image)
{
    if (m_recording)
        m_worker.waitForRoom(stillPatience);
    take(image);
}

void FilmRecorder::finish()
{
    m_recording = false;
    m_worker.drain();
    m_worker.stop();
    m_writer.reset();
    if (!m_claim)
        return;
    report();
    m_claim.reset();
}

void FilmRecorder::write(CxImageData& image)
{
    if (m_ended)
        return;
    QString error;
    if (writeTo(image, error))
        ++m_written;
    else
        endEarly(error);
}

bool FilmRecorder::writeTo(CxImageData& image, QString& error)
{
    const SxPicBuf& picture = *image.picBuf();
    constexpr quint64 bytesPerPixel = 3; // no encoder makes more of it
    const quint64 largest = quint64{picture.width} * picture.height * bytesPerPixel;
    if (!hasRoomFor(reservedBytes + largest, m_claim->path(), error))
        return false;
    if (!m_writer) {
        m_writer = filmWriters(error)->open(m_claim->path(), picture.width, picture.height,
                                            m_framesPerSecond, error);
        if (!m_writer)
            return false;
        m_claim->keep();
    }
    return m_writer->write(picture, error);
}

void FilmRecorder::endEarly(const QString& reason)
{
    m_ended = true;
    m_writer.reset();
    m_recording = false;
    logError(QStringLiteral("The recording of \"%1\" has ended after %2 pictures: %3")
                 .arg(m_claim->path())
                 .arg(m_written)
                 .arg(reason));
}

void FilmRecorder::report() const
{
    if (m_written == 0 && !m_ended)
        logError(QStringLiteral("No picture came to be recorded in \"%1\"").arg(m_claim->path()));
    const quint64 dropped = m_dropped + m_worker.dropped();
    if (dropped > 0)
        logError(QStringLiteral("\"%1\" lacks %2 of %3 pictures: they came faster than they could "
                                "be written")
                     .arg(m_claim->path())
                     .arg(dropped)
                     .arg(dropped + m_written));
}

} // namespace vistrel
