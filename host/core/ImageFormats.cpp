// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Image files: the content is made or read in memory, files are replaced as a whole or not at all.
#include "core/ImageFormats.h"
#include "core/CodecModule.h"
#include "core/FileReplacement.h"
#include "core/ImageCodecs.h"
#include "core/Log.h"

#include <CxImageData.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>

#include <memory>
#include <new>
#include <optional>

namespace vistrel {

namespace {

std::optional<ImageFileFormat> formatOf(const QString& path)
{
    static const QHash<QString, ImageFileFormat> formats{
        {QStringLiteral("png"), ImageFileFormat::Png},
        {QStringLiteral("tif"), ImageFileFormat::Tiff},
        {QStringLiteral("tiff"), ImageFileFormat::Tiff},
        {QStringLiteral("jpg"), ImageFileFormat::Jpeg},
        {QStringLiteral("jpeg"), ImageFileFormat::Jpeg},
        {QStringLiteral("bmp"), ImageFileFormat::Bmp},
        {QStringLiteral("pbm"), ImageFileFormat::Pbm},
        {QStringLiteral("pgm"), ImageFileFormat::Pgm},
        {QStringLiteral("ppm"), ImageFileFormat::Ppm},
        {QStringLiteral("pnm"), ImageFileFormat::Pnm},
    };
    const auto found = formats.find(QFileInfo(path).suffix().toLower());
    return found != formats.end() ? std::optional(*found) : std::nullopt;
}

QString outOfMemory() { return QStringLiteral("out of memory"); }

bool readFile(const QString& path, QByteArray& bytes, QString& error)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        error = file.errorString();
        return false;
    }
    return true;
}

class FileLoader : public IxImageLoader {
public:
    explicit FileLoader(const QString& path)
        : m_path(path)
    {
    }

    bool load() override
    {
        m_image.reset();
        QString error;
        if (!read(error))
            logError(QStringLiteral("Cannot read \"%1\": %2").arg(m_path, error));
        return m_image != nullptr;
    }

    QObject* loadedObject() override { return m_image.get(); }

private:
    bool read(QString& error)
    try {
        QByteArray bytes;
        if (!readFile(m_path, bytes, error))
            return false;
        ImageCodecs* const codecs = imageCodecs(error);
        auto image = std::make_unique<CxImageData>();
        SxPicBuf picture;
        if (codecs == nullptr || !codecs->decode(bytes, picture, error))
            return false;
        image->setPicBuf(picture);
        m_image = std::move(image);
        return true;
    } catch (const std::bad_alloc&) {
        error = outOfMemory();
        return false;
    }

    QString m_path;
    std::unique_ptr<CxImageData> m_image;
};

class FileSaver : public IxImageSaver {
public:
    FileSaver(const QString& path, ImageFileFormat format)
        : m_path(path)
        , m_format(format)
    {
    }

    bool save(CxImageData* image, int /*options*/) override
    {
        QString error = QStringLiteral("there is no picture");
        const SxPicBuf* const picture = image ? image->picBuf() : nullptr;
        const bool saved = picture && write(*picture, error);
        if (!saved)
            logError(QStringLiteral("Cannot save \"%1\": %2").arg(m_path, error));
        return saved;
    }

private:
    bool write(const SxPicBuf& picture, QString& error)
    try {
        QByteArray bytes;
        ImageCodecs* const codecs = imageCodecs(error);
        return codecs != nullptr && codecs->encode(picture, m_format, bytes, error)
               && replaceFile(m_path, bytes, error);
    } catch (const std::bad_alloc&) {
        error = outOfMemory();
        return false;
    }

    QString m_path;
    ImageFileFormat m_format;
};

} // namespace

IxImageLoader* ImageFormatManager::loaderForFile(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists() || file.isDir() || !formatOf(path))
        return nullptr;
    return new FileLoader(path);
}

IxImageSaver* ImageFormatManager::saverForFile(const QString& path)
{
    const auto format = formatOf(path);
    return format ? new FileSaver(path, *format) : nullptr;
}

} // namespace vistrel
