// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Picture buffers as OpenCV sees them.
#include "codecs/PicturePixels.h"

#include "core/PicBufMat.h"
#include "core/PicBufView.h"

#include <CxPicBufAPI.h>

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vistrel {

namespace {

struct ElementType {
    ExImageDataType dataType;
    int depth; ///< OpenCV's, -1 where it has none
    std::size_t bytes;
    bool isUnsigned;
    bool isFloat;
    const char* name;
};

constexpr ElementType elementTypes[] = {
    {ExImageDataType::UInt8, CV_8U, 1, true, false, "unsigned 8-bit"},
    {ExImageDataType::Int8, CV_8S, 1, false, false, "signed 8-bit"},
    {ExImageDataType::UInt16, CV_16U, 2, true, false, "unsigned 16-bit"},
    {ExImageDataType::Int16, CV_16S, 2, false, false, "signed 16-bit"},
    {ExImageDataType::UInt32, -1, 4, true, false, "unsigned 32-bit"},
    {ExImageDataType::Int32, CV_32S, 4, false, false, "signed 32-bit"},
    {ExImageDataType::UInt64, -1, 8, true, false, "unsigned 64-bit"},
    {ExImageDataType::Int64, -1, 8, false, false, "signed 64-bit"},
    {ExImageDataType::Float, CV_32F, 4, false, true, "32-bit float"},
    {ExImageDataType::Double, CV_64F, 8, false, true, "64-bit float"},
};

const ElementType* elementType(ExImageDataType dataType)
{
    const auto* const found = std::ranges::find(elementTypes, dataType, &ElementType::dataType);
    return found != std::end(elementTypes) ? found : nullptr;
}

const ElementType* elementTypeOfDepth(int depth)
{
    const auto* const found = std::ranges::find(elementTypes, depth, &ElementType::depth);
    return found != std::end(elementTypes) ? found : nullptr;
}

/// Integers that OpenCV has no type for, as doubles; nothing when one of them needs more digits
/// than a double has.
template<typename Integer>
cv::Mat exactDoubles(const SxPicBuf& picture)
{
    cv::Mat doubles(static_cast<int>(picture.height), static_cast<int>(picture.width),
                    CV_64FC(static_cast<int>(picture.channels)));
    const std::size_t lineValues = std::size_t{picture.width} * picture.channels;
    bool exact = true;
    for (int y = 0; y < doubles.rows; ++y) {
        const quint8* source = picture.data + static_cast<std::size_t>(y) * picture.stride;
        double* const line = doubles.ptr<double>(y);
        for (std::size_t i = 0; i < lineValues; ++i, source += sizeof(Integer)) {
            Integer value{};
            std::memcpy(&value, source, sizeof value);
            line[i] = static_cast<double>(value);
            exact = exact && std::abs(line[i]) < 0x1p53;
        }
    }
    return exact ? doubles : cv::Mat{};
}

/// Packed words as three bytes a pixel, blue first; full scale stays full scale.
cv::Mat unpacked565(const SxPicBuf& picture)
{
    cv::Mat bgr;
    cv::cvtColor(matOver(picture, CV_8U, 2), bgr, cv::COLOR_BGR5652BGR);
    cv::Mat fullScale(1, 256, CV_8UC3);
    for (int value = 0; value < 256; ++value) {
        const auto fiveBits = static_cast<quint8>(value | value >> 5);
        const auto sixBits = static_cast<quint8>(value | value >> 6);
        fullScale.at<cv::Vec3b>(value) = {fiveBits, sixBits, fiveBits};
    }
    cv::LUT(bgr, fullScale, bgr);
    return bgr;
}

cv::Mat pixelsOf(const SxPicBuf& picture, const ElementType& element)
{
    if (element.depth >= 0)
        return matOver(picture, element.depth, static_cast<int>(picture.channels));
    switch (picture.dataType) {
    case ExImageDataType::UInt32:
        return exactDoubles<quint32>(picture);
    case ExImageDataType::UInt64:
        return exactDoubles<quint64>(picture);
    default:
        return exactDoubles<qint64>(picture);
    }
}

SxPicBufInfo infoFor(const cv::Mat& pixels, const ElementType& element)
{
    SxPicBufInfo info;
    info.width = static_cast<quint32>(pixels.cols);
    info.height = static_cast<quint32>(pixels.rows);
    info.channels = static_cast<quint32>(pixels.channels());
    info.bpc = static_cast<quint32>(element.bytes * 8);
    info.dataType = element.dataType;
    info.storageFormat = ExDataStorageFormat::Interleaved;
    return info;
}

} // namespace

QString describePixels(const SxPicBufInfo& info)
{
    if (info.dataType == ExImageDataType::Packed565)
        return QStringLiteral("packed 5-6-5 pixels");
    const ElementType* const element = elementType(info.dataType);
    return QStringLiteral("%1 channel(s) of %2 values")
        .arg(info.channels)
        .arg(QLatin1String(element != nullptr ? element->name : "unknown"));
}

PictureValues valuesOf(const SxPicBuf& picture)
{
    PictureValues values;
    if (!hasPixels(picture) || !fitsMat(picture) || picture.channels > CV_CN_MAX)
        return values;
    if (picture.dataType == ExImageDataType::Packed565) {
        values = {.pixels = unpacked565(picture), .bpc = 8, .valueBytes = 1, .isUnsigned = true};
    } else if (const ElementType* const element = elementType(picture.dataType)) {
        const auto elementBits = static_cast<unsigned>(element->bytes * 8);
        values = {.pixels = pixelsOf(picture, *element),
                  .bpc = picture.bpc == 0 ? elementBits : std::min(picture.bpc, elementBits),
                  .valueBytes = element->bytes,
                  .isFloat = element->isFloat,
                  .isUnsigned = element->isUnsigned,
                  .isRgb = picture.isRgb};
    }
    return values;
}

bool storePixels(const cv::Mat& pixels, SxPicBuf& picture)
{
    const ElementType* const element = elementTypeOfDepth(pixels.depth());
    if (element == nullptr)
        return false;
    CxPicBufAPI::AllocPicBufFromHeap(picture, infoFor(pixels, *element), false, 0);
    if (picture.data == nullptr)
        return false;
    cv::Mat target = matOver(picture, pixels.depth(), pixels.channels());
    pixels.copyTo(target);
    CxPicBufAPI::SwapRedAndBlue(picture); // marks it as red first; leaves other pictures alone
    if (element->isFloat)
        picture.saturation = 1.0F;
    return true;
}

} // namespace vistrel
