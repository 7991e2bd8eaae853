// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The image: owner of one picture buffer and of the record of how it was taken.
#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <cstring>
#include <new>
#include <optional>

struct CxImageData::Private {
    Private() = default;
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;
    ~Private() { CxPicBufAPI::FreePicBuf(buffer, true); }

    SxPicBuf buffer;
    std::optional<SxAcquisitionInfo> acquisition;
};

namespace {

/// Fills `target` with the pixels and the frame's metadata of `source`; false without memory.
bool copyBuffer(CxImageData& target, const SxPicBuf& source)
{
    SxPicBuf buffer;
    if (source.data != nullptr) {
        CxPicBufAPI::AllocPicBufFromHeap(buffer, source, false, 0);
        if (buffer.data == nullptr)
            return false;
        if (!CxPicBufAPI::CopyPicBuf(buffer, source, true))
            std::memset(buffer.data, 0, buffer.allocatedBytes);
    } else {
        buffer = source;
    }
    target.setPicBuf(buffer);
    return true;
}

} // namespace

CxImageData::CxImageData()
    : d(std::make_unique<Private>())
{
}

CxImageData::~CxImageData() = default;

void CxImageData::setPicBuf(const SxPicBuf& buffer)
{
    SxPicBuf previous = d->buffer;
    d->buffer = buffer;
    // The same memory again, perhaps with another geometry, is still in use.
    if (previous.allocation != buffer.allocation)
        CxPicBufAPI::FreePicBuf(previous, true);
}

SxPicBuf* CxImageData::picBuf() { return &d->buffer; }

const SxAcquisitionInfo* CxImageData::acquisitionInfo() const
{
    return d->acquisition ? &*d->acquisition : nullptr;
}

void CxImageData::setAcquisitionInfo(const SxAcquisitionInfo* info)
{
    if (info != nullptr)
        d->acquisition = *info;
    else
        d->acquisition.reset();
}

QObject* CxImageData::clone(int /*flags*/, int /*reserved*/) { return copy(nullptr); }

QObject* CxImageData::copy(QObject* parent)
try {
    auto duplicate = std::make_unique<CxImageData>();
    if (!copyBuffer(*duplicate, *picBuf()))
        return nullptr;
    duplicate->setAcquisitionInfo(acquisitionInfo());
    duplicate->setParent(parent);
    return duplicate.release();
} catch (const std::bad_alloc&) {
    return nullptr;
}
