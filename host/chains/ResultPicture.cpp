// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Memory for the picture that an element makes.
#include "chains/ResultPicture.h"

#include "core/PicBufView.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <new>
#include <utility>

namespace vistrel {

namespace {

/// Whether a picture of that layout fits into the block that a buffer holds already.
bool holds(const SxPicBuf& buffer, const SxPicBufInfo& info)
{
    return buffer.data != nullptr && buffer.data == buffer.allocation && info.stride > 0
           && quint64{info.stride} * info.height == buffer.allocatedBytes;
}

} // namespace

ResultPicture::~ResultPicture() { CxPicBufAPI::FreePicBuf(m_buffer, true); }

SxPicBuf& ResultPicture::shaped(SxPicBufInfo info)
{
    if (info.stride % (elementBits(info) / 8) != 0) // lines would lie on odd addresses
        info.stride = 0;
    if (holds(m_buffer, info)) {
        static_cast<SxPicBufInfo&>(m_buffer) = info;
        return m_buffer;
    }
    CxPicBufAPI::FreePicBuf(m_buffer, true);
    CxPicBufAPI::AllocPicBufFromHeap(m_buffer, info, false, 0);
    if (m_buffer.data == nullptr)
        throw std::bad_alloc();
    return m_buffer;
}

void ResultPicture::exchange(CxImageData& image)
{
    SxPicBuf& frame = *image.picBuf();
    m_buffer.acqFrameNumber = frame.acqFrameNumber;
    m_buffer.timestampUs = frame.timestampUs;
    m_buffer.frameNumber = frame.frameNumber;
    m_buffer.saturation = frame.saturation;
    std::swap(frame, m_buffer);
}

} // namespace vistrel
