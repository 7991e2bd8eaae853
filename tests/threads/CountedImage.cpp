// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's image as far as the tests under threads need it.
#include "CountedImage.h"

#include <CxImageData.h>

#include <atomic>

namespace {

std::atomic<int> alive = 0;

} // namespace

int countedImages() { return alive; }

SxPicBuf::SxPicBuf() = default;

struct CxImageData::Private {
    SxPicBuf buffer;
};

CxImageData::CxImageData()
    : d(std::make_unique<Private>())
{
    ++alive;
}

CxImageData::~CxImageData() { --alive; }

SxPicBuf* CxImageData::picBuf() { return &d->buffer; }

const SxAcquisitionInfo* CxImageData::acquisitionInfo() const { return nullptr; }

void CxImageData::setAcquisitionInfo(const SxAcquisitionInfo*) {}

QObject* CxImageData::clone(int, int) { return copy(nullptr); }

QObject* CxImageData::copy(QObject*)
{
    auto* const made = new CxImageData;
    *made->picBuf() = *picBuf();
    return made;
}
