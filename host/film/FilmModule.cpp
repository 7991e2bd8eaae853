// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The film module: films by OpenCV's writer.
#include "core/FilmWriters.h"
#include "film/FilmFrame.h"

#include <QtCore/QFile>

#include <opencv2/videoio.hpp>

#include <cmath>

namespace vistrel {

namespace {

/// Both are quick to encode. Motion JPEG keeps every picture by itself, so that films can be cut
/// and measured picture by picture; MPEG-4 makes small files that players know.
int codecFor(const QString& path)
{
    return path.endsWith(QLatin1String(".avi"), Qt::CaseInsensitive)
               ? cv::VideoWriter::fourcc('M', 'J', 'P', 'G')
               : cv::VideoWriter::fourcc('m', 'p', '4', 'v');
}

/// MPEG-4 counts time in parts of a second of which there are at most 65535.
double admittedRate(double framesPerSecond)
{
    constexpr double mostWithFractions = 600.0;
    constexpr double least = 0.01;
    const double parts = framesPerSecond < mostWithFractions ? 100.0 : 1.0;
    return std::max(std::round(framesPerSecond * parts) / parts, least);
}

QString reasonOf(const std::exception& exception)
{
    const auto* const ofOpenCv = dynamic_cast<const cv::Exception*>(&exception);
    return QString::fromStdString(ofOpenCv != nullptr ? ofOpenCv->err : exception.what());
}

class OpenCvFilm final : public FilmWriter {
public:
    OpenCvFilm(unsigned width, unsigned height)
        : m_frame(width, height)
    {
    }

    bool open(const QString& path, double framesPerSecond)
    {
        return m_writer.open(QFile::encodeName(path).toStdString(), cv::CAP_FFMPEG, codecFor(path),
                             admittedRate(framesPerSecond), m_frame.size());
    }

    bool write(const SxPicBuf& picture, QString& error) override
    try {
        if (!m_frame.draw(picture)) {
            error = QStringLiteral("a picture cannot be shown");
            return false;
        }
        m_writer.write(m_frame.pixels());
        return true;
    } catch (const std::exception& exception) {
        error = reasonOf(exception);
        return false;
    }

private:
    FilmFrame m_frame;
    cv::VideoWriter m_writer; // ends the file when it goes
};

class OpenCvFilms final : public FilmWriters {
public:
    std::unique_ptr<FilmWriter> open(const QString& path, unsigned width, unsigned height,
                                     double framesPerSecond, QString& error) override
    try {
        auto film = std::make_unique<OpenCvFilm>(width, height);
        if (film->open(path, framesPerSecond))
            return film;
        error = QStringLiteral("the encoder refuses pictures of %1 x %2 pixels, or the file")
                    .arg(width)
                    .arg(height);
        return nullptr;
    } catch (const std::exception& exception) {
        error = reasonOf(exception);
        return nullptr;
    }
};

} // namespace

} // namespace vistrel

extern "C" Q_DECL_EXPORT vistrel::FilmWriters* vistrel_filmWriters()
{
    static vistrel::OpenCvFilms films;
    return &films;
}
