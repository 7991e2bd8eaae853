// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What each file format holds, and how a picture is made to fit.
#include "codecs/FormatRules.h"
#include "codecs/PicturePixels.h"

#include <QtCore/QStringList>

#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>

namespace vistrel {

namespace {

/// A set of OpenCV's depths.
using Depths = unsigned;

constexpr Depths oneOf(int depth) { return 1U << depth; }

constexpr Depths bytesOnly = oneOf(CV_8U);
constexpr Depths bytesAndWords = oneOf(CV_8U) | oneOf(CV_16U);
constexpr Depths allDepths =
    bytesAndWords | oneOf(CV_8S) | oneOf(CV_16S) | oneOf(CV_32S) | oneOf(CV_32F) | oneOf(CV_64F);
/// The encoder of TIFF reorders colours with an operation that has no other types.
constexpr Depths tiffColour = bytesAndWords | oneOf(CV_32F);

struct FormatRules {
    const char* name;
    const char* ending;
    ImageFileFormat format;
    Depths mono;
    Depths colour;
    Depths colourAlpha;
    int largestSide;
    bool scalesToBytes; ///< more significant bits than 8 are scaled down
    bool lossless;
};

constexpr FormatRules formatRules[] = {
    {"PNG", ".png", ImageFileFormat::Png, bytesAndWords, bytesAndWords, bytesAndWords, INT_MAX,
     false, true},
    {"TIFF", ".tiff", ImageFileFormat::Tiff, allDepths, tiffColour, tiffColour, INT_MAX, false,
     true},
    {"BMP", ".bmp", ImageFileFormat::Bmp, bytesOnly, bytesOnly, 0, INT_MAX, true, true},
    {"PGM", ".pgm", ImageFileFormat::Pgm, bytesAndWords, 0, 0, INT_MAX, false, true},
    {"PPM", ".ppm", ImageFileFormat::Ppm, 0, bytesAndWords, 0, INT_MAX, false, true},
    {"PNM", ".pnm", ImageFileFormat::Pnm, bytesAndWords, bytesAndWords, 0, INT_MAX, false, true},
    {"JPEG", ".jpg", ImageFileFormat::Jpeg, bytesOnly, bytesOnly, 0, 65500, true, false},
    {"PBM", ".pbm", ImageFileFormat::Pbm, bytesAndWords, 0, 0, INT_MAX, false, false},
};

constexpr int jpegQuality = 95;
constexpr int tiffUncompressed = 1; // TIFF 6.0, tag 259

const FormatRules& rulesOf(ImageFileFormat format)
{
    return *std::ranges::find(formatRules, format, &FormatRules::format);
}

Depths depthsFor(const FormatRules& rules, int channels)
{
    switch (channels) {
    case 1:
        return rules.mono;
    case 3:
        return rules.colour;
    case 4:
        return rules.colourAlpha;
    default:
        return 0;
    }
}

bool holds(Depths depths, int depth) { return (depths & oneOf(depth)) != 0; }

/// The depths that hold every value of the type.
Depths depthsHolding(ExImageDataType dataType)
{
    constexpr Depths doubles = oneOf(CV_64F);
    constexpr Depths floats = oneOf(CV_32F) | doubles;
    switch (dataType) {
    case ExImageDataType::UInt8:
    case ExImageDataType::Packed565:
        return allDepths & ~oneOf(CV_8S);
    case ExImageDataType::Int8:
        return oneOf(CV_8S) | oneOf(CV_16S) | oneOf(CV_32S) | floats;
    case ExImageDataType::UInt16:
        return oneOf(CV_16U) | oneOf(CV_32S) | floats;
    case ExImageDataType::Int16:
        return oneOf(CV_16S) | oneOf(CV_32S) | floats;
    case ExImageDataType::Int32:
        return oneOf(CV_32S) | doubles;
    case ExImageDataType::UInt32:
    case ExImageDataType::Double:
        return doubles;
    case ExImageDataType::Float:
        return floats;
    default:
        return 0;
    }
}

/// The error of a format that cannot hold a picture: names those that hold every such picture.
QString refusal(const FormatRules& refusing, const SxPicBufInfo& info)
{
    const bool packed = info.dataType == ExImageDataType::Packed565;
    const int channels = packed ? 3 : static_cast<int>(info.channels);
    QStringList names;
    for (const FormatRules& rules : formatRules) {
        if (rules.lossless && rules.format != refusing.format
            && (depthsFor(rules, channels) & depthsHolding(info.dataType)) != 0)
            names << QLatin1String(rules.name);
    }
    return QStringLiteral("%1 cannot hold %2 without loss; formats that can: %3")
        .arg(QLatin1String(refusing.name), describePixels(info),
             names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", ")));
}

double fullScale(unsigned bpc) { return std::ldexp(1.0, static_cast<int>(bpc)) - 1.0; }

/// Whether the fourth channel says nothing: every pixel is fully opaque.
bool isOpaque(const PictureValues& values)
{
    cv::Mat alpha;
    cv::extractChannel(values.pixels, alpha, 3);
    double least = 0.0;
    double greatest = 0.0;
    cv::minMaxIdx(alpha, &least, &greatest);
    const auto elementBits = static_cast<unsigned>(values.valueBytes * 8);
    return least == greatest && (least == fullScale(values.bpc) || least == fullScale(elementBits));
}

/// Drops an alpha channel that says nothing, and makes grey colour of mono, where the format has
/// no such pixels.
bool fitChannels(const FormatRules& rules, PictureValues& values)
{
    const int channels = values.pixels.channels();
    if (depthsFor(rules, channels) != 0)
        return true;
    if (rules.colour == 0 || values.isFloat)
        return false;
    if (channels == 1) {
        cv::merge(std::vector<cv::Mat>(3, values.pixels), values.pixels);
        return true;
    }
    if (channels == 4 && isOpaque(values)) {
        cv::Mat colour(values.pixels.size(), CV_MAKETYPE(values.pixels.depth(), 3));
        cv::mixChannels(values.pixels, colour, {0, 0, 1, 1, 2, 2});
        values.pixels = colour;
        return true;
    }
    return false;
}

bool isFloatDepth(int depth) { return depth == CV_32F || depth == CV_64F; }

/// Depths in the order in which a picture prefers them: its own width and above, then below.
std::array<int, 7> preferredDepths(std::size_t valueBytes)
{
    std::array depths{CV_8U, CV_8S, CV_16U, CV_16S, CV_32S, CV_32F, CV_64F};
    const auto rank = [valueBytes](int depth) {
        const std::size_t bytes = CV_ELEM_SIZE1(depth);
        return bytes >= valueBytes ? bytes : 100 - bytes;
    };
    std::ranges::stable_sort(depths, {}, rank);
    return depths;
}

/// Converts the values if every one of them stays what it is; "not a number" may stay one.
bool convertExactly(const cv::Mat& values, int depth, cv::Mat& converted)
{
    cv::Mat before;
    cv::Mat after;
    values.convertTo(converted, depth);
    values.reshape(1).convertTo(before, CV_64F);
    converted.reshape(1).convertTo(after, CV_64F);
    cv::Mat isNumber;
    cv::compare(before, before, isNumber, cv::CMP_EQ);
    cv::Mat differs;
    cv::compare(before, after, differs, cv::CMP_NE);
    return cv::countNonZero(differs & isNumber) == 0;
}

bool convertToAnyOf(Depths held, PictureValues& values)
{
    for (const int depth : preferredDepths(values.valueBytes)) {
        cv::Mat converted;
        if (!holds(held, depth) || (values.isFloat && !isFloatDepth(depth)))
            continue;
        if (convertExactly(values.pixels, depth, converted)) {
            values.pixels = converted;
            return true;
        }
    }
    return false;
}

bool fitValues(const FormatRules& rules, PictureValues& values)
{
    const Depths held = depthsFor(rules, values.pixels.channels());
    if (rules.scalesToBytes && values.isUnsigned) {
        if (values.bpc != 8 || values.pixels.depth() != CV_8U)
            values.pixels.convertTo(values.pixels, CV_8U, 255.0 / fullScale(values.bpc));
        return true;
    }
    const bool ownType =
        static_cast<std::size_t>(CV_ELEM_SIZE1(values.pixels.depth())) == values.valueBytes
        && (values.isFloat || !isFloatDepth(values.pixels.depth()));
    return (ownType && holds(held, values.pixels.depth())) || convertToAnyOf(held, values);
}

/// Black and white for PBM: nothing is lost when there are two values, one of them 0.
bool fitBitmap(PictureValues& values)
{
    double greatest = 0.0;
    cv::minMaxIdx(values.pixels, nullptr, &greatest);
    if (cv::countNonZero((values.pixels != 0) & (values.pixels != greatest)) != 0)
        return false;
    values.pixels = values.pixels != 0;
    return true;
}

void putBlueFirst(PictureValues& values)
{
    if (!values.isRgb || values.pixels.channels() < 3)
        return;
    cv::Mat reordered;
    cv::cvtColor(values.pixels, reordered,
                 values.pixels.channels() == 3 ? cv::COLOR_RGB2BGR : cv::COLOR_RGBA2BGRA);
    values.pixels = reordered;
}

} // namespace

bool fitToFormat(const SxPicBuf& picture, ImageFileFormat format, cv::Mat& fitted, QString& error)
{
    const FormatRules& rules = rulesOf(format);
    PictureValues values = valuesOf(picture);
    if (values.pixels.empty() || !fitChannels(rules, values) || !fitValues(rules, values)
        || (format == ImageFileFormat::Pbm && !fitBitmap(values))) {
        error = refusal(rules, picture);
        return false;
    }
    if (std::max(values.pixels.cols, values.pixels.rows) > rules.largestSide) {
        error = QStringLiteral("%1 takes no more than %2 pixels a side")
                    .arg(QLatin1String(rules.name))
                    .arg(rules.largestSide);
        return false;
    }
    putBlueFirst(values);
    fitted = values.pixels;
    return true;
}

std::string encoderName(ImageFileFormat format) { return rulesOf(format).ending; }

std::vector<int> encoderSettings(ImageFileFormat format, const cv::Mat& fitted)
{
    if (format == ImageFileFormat::Jpeg)
        return {cv::IMWRITE_JPEG_QUALITY, jpegQuality};
    // The encoder's own choice for colours in floating point is a lossy one.
    if (format == ImageFileFormat::Tiff && isFloatDepth(fitted.depth()))
        return {cv::IMWRITE_TIFF_COMPRESSION, tiffUncompressed};
    return {};
}

} // namespace vistrel
