// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The codecs module: image files by OpenCV.
#include "codecs/FormatRules.h"
#include "codecs/PicturePixels.h"
#include "core/ImageCodecs.h"

#include <opencv2/imgcodecs.hpp>

#include <climits>

namespace vistrel {

namespace {

/// Whether a JPEG file lacks its end: the decoder fills the rest with grey and says nothing. A mark
/// of the end counts only behind the last scan, because an embedded preview has one of its own.
bool isCutOffJpeg(const QByteArray& bytes)
{
    if (!bytes.startsWith("\xFF\xD8\xFF"))
        return false;
    return bytes.lastIndexOf("\xFF\xD9") < bytes.lastIndexOf("\xFF\xDA");
}

cv::Mat decoded(const QByteArray& bytes)
{
    if (isCutOffJpeg(bytes))
        return {};
    const cv::Mat content(1, static_cast<int>(bytes.size()), CV_8U,
                          const_cast<char*>(bytes.constData())); // only read from
    return cv::imdecode(content, cv::IMREAD_UNCHANGED);
}

QString reasonOf(const std::exception& exception)
{
    const auto* const ofOpenCv = dynamic_cast<const cv::Exception*>(&exception);
    return QString::fromStdString(ofOpenCv != nullptr ? ofOpenCv->err : exception.what());
}

class OpenCvCodecs final : public ImageCodecs {
public:
    bool decode(const QByteArray& bytes, SxPicBuf& picture, QString& error) override
    try {
        if (bytes.isEmpty() || bytes.size() > INT_MAX) {
            error = bytes.isEmpty() ? QStringLiteral("the file is empty")
                                    : QStringLiteral("the file is larger than 2 GiB");
            return false;
        }
        const cv::Mat pixels = decoded(bytes);
        if (pixels.empty()) {
            error = QStringLiteral("it is damaged, cut off or no image of a known format");
            return false;
        }
        if (!storePixels(pixels, picture)) {
            error = QStringLiteral("no memory for its pixels");
            return false;
        }
        return true;
    } catch (const std::exception& exception) {
        error = reasonOf(exception);
        return false;
    }

    bool encode(const SxPicBuf& picture, ImageFileFormat format, QByteArray& bytes,
                QString& error) override
    try {
        if (picture.data == nullptr) {
            error = QStringLiteral("the image has no pixels");
            return false;
        }
        cv::Mat fitted;
        if (!fitToFormat(picture, format, fitted, error))
            return false;
        std::vector<uchar> content;
        if (!cv::imencode(encoderName(format), fitted, content, encoderSettings(format, fitted))) {
            error = QStringLiteral("the encoder refuses a picture of %1 x %2 pixels")
                        .arg(picture.width)
                        .arg(picture.height);
            return false;
        }
        bytes = QByteArray(reinterpret_cast<const char*>(content.data()),
                           static_cast<qsizetype>(content.size()));
        return true;
    } catch (const std::exception& exception) {
        error = reasonOf(exception);
        return false;
    }
};

} // namespace

} // namespace vistrel

extern "C" Q_DECL_EXPORT vistrel::ImageCodecs* vistrel_imageCodecs()
{
    static vistrel::OpenCvCodecs codecs;
    return &codecs;
}
