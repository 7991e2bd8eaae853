// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What is common to all operations on the pixels of a buffer.
#include "core/PicBufView.h"

#include "core/Log.h"

#include <CxPicBufAPI.h>

#include <opencv2/core.hpp>

#include <cstdint>
#include <new>

namespace vistrel {

namespace {

quint32 elementBytes(const SxPicBufInfo& info)
{
    SxPicBufInfo onePixel = info;
    onePixel.channels = 1;
    return onePixel.bytesPerPixel();
}

} // namespace

bool hasPixels(const SxPicBuf& buffer)
{
    if (buffer.data == nullptr || buffer.width == 0 || buffer.height == 0 || buffer.channels == 0
        || buffer.channels > 0xFFFF) // more would wrap around in the record's own products
        return false;
    return quint64{buffer.width} * buffer.bytesPerPixel() <= buffer.stride;
}

bool isPacked(const SxPicBufInfo& info) { return info.dataType == ExImageDataType::Packed565; }

bool isFloatingPoint(const SxPicBufInfo& info)
{
    return info.dataType == ExImageDataType::Float || info.dataType == ExImageDataType::Double;
}

bool haveSameSize(const SxPicBufInfo& a, const SxPicBufInfo& b)
{
    return a.width == b.width && a.height == b.height;
}

bool haveSamePixels(const SxPicBufInfo& a, const SxPicBufInfo& b)
{
    return a.dataType == b.dataType && (isPacked(a) || a.channels == b.channels);
}

std::size_t valuesPerLine(const SxPicBufInfo& info)
{
    return std::size_t{info.width} * (isPacked(info) ? 1 : info.channels);
}

unsigned elementBits(const SxPicBufInfo& info) { return elementBytes(info) * 8; }

unsigned significantBits(const SxPicBufInfo& info)
{
    const unsigned bits = elementBits(info);
    return info.bpc == 0 || info.bpc > bits ? bits : info.bpc;
}

bool isAligned(const SxPicBuf& buffer)
{
    const auto address = reinterpret_cast<std::uintptr_t>(buffer.data);
    return (address | buffer.stride) % elementBytes(buffer) == 0;
}

AlignedPicture::AlignedPicture(const SxPicBuf& buffer)
    : m_buffer(buffer)
    , m_isCopy(!isAligned(buffer))
{
    if (!m_isCopy)
        return;
    SxPicBufInfo info = buffer;
    info.stride = 0;
    CxPicBufAPI::AllocPicBufFromHeap(m_copy, info, false, 0);
    if (m_copy.data == nullptr)
        throw std::bad_alloc();
    CxPicBufAPI::CopyPicBuf(m_copy, buffer, true);
}

AlignedPicture::~AlignedPicture() { CxPicBufAPI::FreePicBuf(m_copy, true); }

void AlignedPicture::store() const
{
    if (!m_isCopy)
        return;
    SxPicBuf target = m_buffer; // a record of its own over the same pixels
    CxPicBufAPI::CopyPicBuf(target, m_copy, false);
}

QString pixelErrorText()
{
    try {
        throw;
    } catch (const cv::Exception& error) {
        return QString::fromStdString(error.err);
    } catch (const std::bad_alloc&) {
        return QStringLiteral("out of memory");
    } catch (const std::exception& error) {
        return QString::fromLocal8Bit(error.what());
    }
}

void logPixelError(const char* name)
{
    logError(QStringLiteral("%1 failed: %2").arg(QLatin1String(name), pixelErrorText()));
}

} // namespace vistrel
