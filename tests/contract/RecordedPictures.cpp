// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A host's operations on pictures that write down how they are called.
#include "RecordedPictures.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <tuple>

namespace {

RecordedPictures* g_pictures = nullptr;

std::string textOf(bool value) { return value ? "true" : "false"; }
std::string textOf(const SxPicBuf& buffer)
{
    const auto entry = g_pictures->names.find(buffer.data);
    return entry != g_pictures->names.end() ? entry->second : "unknown";
}
std::string textOf(const QRect& rect)
{
    return testing::PrintToString(std::tuple(rect.left(), rect.top(), rect.right(), rect.bottom()));
}
template<class Number>
requires std::is_integral_v<Number> std::string textOf(Number value)
{
    return std::to_string(value);
}
template<class Enum>
requires std::is_enum_v<Enum> std::string textOf(Enum value)
{
    return std::to_string(static_cast<int>(value));
}

/// Writes a call down. The host itself frees pictures when a test is over: those are not written.
template<class... Arguments>
void write(const char* operation, const Arguments&... arguments)
{
    if (g_pictures == nullptr)
        return;
    std::string call = operation;
    ((call += ' ' + textOf(arguments)), ...);
    g_pictures->calls.push_back(call);
}

/// The same for an operation on pixels; returns what it reports.
template<class... Arguments>
bool done(const char* operation, const Arguments&... arguments)
{
    write(operation, arguments...);
    return g_pictures->succeeds;
}

void allocate(SxPicBuf& buffer, const SxPicBufInfo& info)
{
    static_cast<SxPicBufInfo&>(buffer) = info;
    if (g_pictures->allocationsLeft-- <= 0)
        return;
    if (buffer.stride == 0)
        buffer.stride = info.width * info.bytesPerPixel();
    buffer.data = static_cast<quint8*>(std::calloc(buffer.height, buffer.stride));
    buffer.allocation = buffer.data;
    static int number = 0;
    g_pictures->names[buffer.data] = "new" + std::to_string(++number);
}

} // namespace

RecordedPictures::RecordedPictures() { g_pictures = this; }

RecordedPictures::~RecordedPictures() { g_pictures = nullptr; }

void CxPicBufAPI::AllocPicBufFromHeap(SxPicBuf& buffer, unsigned width, unsigned height,
                                      unsigned channels, ExImageDataType dataType,
                                      unsigned blackLevel, unsigned stride, unsigned bpc,
                                      ExDataStorageFormat storageFormat,
                                      ExColorFilterArray colorFilterArray, bool isRgb, bool zeroed,
                                      unsigned long alignment)
{
    write("Alloc", width, height, channels, dataType, blackLevel, stride, bpc, storageFormat,
          colorFilterArray, isRgb, zeroed, alignment);
    SxPicBufInfo info;
    info.width = width;
    info.height = height;
    info.channels = channels;
    info.bpc = bpc;
    info.dataType = dataType;
    info.storageFormat = storageFormat;
    info.isRgb = isRgb;
    allocate(buffer, info);
}

void CxPicBufAPI::AllocPicBufFromHeap(SxPicBuf& buffer, const SxPicBufInfo& info, bool zeroed,
                                      unsigned long alignment)
{
    write("AllocFor", info.width, info.height, info.stride, info.channels, info.bpc,
          info.blackLevel, info.dataType, info.storageFormat, info.colorFilterArray, info.isRgb,
          zeroed, alignment);
    allocate(buffer, SxPicBufInfo(info)); // which may be the buffer's own
}

void CxPicBufAPI::FreePicBuf(SxPicBuf& buffer, bool resetInfo)
{
    if (buffer.data == nullptr)
        return; // an image without pixels goes
    write("Free", buffer, resetInfo);
    std::free(buffer.allocation);
    buffer = SxPicBuf();
}

bool CxPicBufAPI::CopyPicBuf(SxPicBuf& target, const SxPicBuf& source, bool copyMetadata)
{
    return done("CopyPicBuf", target, source, copyMetadata);
}

bool CxPicBufAPI::SwapRedAndBlue(SxPicBuf& buffer) { return done("SwapRedAndBlue", buffer); }

bool CxPicBufAPI::ConvertPicToRGB(const SxPicBuf& source, SxPicBuf& target)
{
    return done("ConvertPicToRGB", source, target);
}

bool CxPicBufAPI::ExtractChannel(const SxPicBuf& source, SxPicBuf& target, unsigned channel)
{
    return done("ExtractChannel", source, target, channel);
}

bool CxPicBufAPI::ConvertPicToDifBpc(const SxPicBuf& source, SxPicBuf& target, bool scale)
{
    return done("ConvertPicToDifBpc", source, target, scale);
}

bool CxPicBufAPI::CopyRect(SxPicBuf& target, int targetX, int targetY, const SxPicBuf& source,
                           int x, int y, int w, int h)
{
    return done("CopyRect", target, targetX, targetY, source, x, y, w, h);
}

bool CxPicBufAPI::Resize(const SxPicBuf& source, SxPicBuf& target)
{
    return done("Resize", source, target);
}

bool CxPicBufAPI::ResizeRect(const SxPicBuf& source, int x, int y, int w, int h, SxPicBuf& target,
                             int targetX, int targetY, int targetW, int targetH)
{
    return done("ResizeRect", source, x, y, w, h, target, targetX, targetY, targetW, targetH);
}

bool CxPicBufAPI::Add(SxPicBuf& target, const SxPicBuf& other)
{
    return done("Add", target, other);
}

bool CxPicBufAPI::Subtract(SxPicBuf& target, const SxPicBuf& other)
{
    return done("Subtract", target, other);
}

bool CxPicBufAPI::DivideByValue(SxPicBuf& target, int divisor)
{
    return done("DivideByValue", target, divisor);
}

bool CxPicBufAPI::CheckPicValidData(const SxPicBuf& buffer)
{
    write("CheckPicValidData", buffer);
    return g_pictures->areValuesValid;
}

unsigned CxPicBufAPI::DetectColorBitDepth(SxPicBuf& buffer, unsigned maxBpc, bool update)
{
    write("DetectColorBitDepth", buffer, maxBpc, update);
    buffer.bpc = g_pictures->bitDepth;
    return g_pictures->bitDepth;
}

bool CxPicBufAPI::DetectNegativePixelValue(const SxPicBuf& buffer)
{
    write("DetectNegativePixelValue", buffer);
    return g_pictures->hasNegativeValues;
}

quint64 CxPicBufAPI::DetectMaxAbsValue(const SxPicBuf& buffer)
{
    write("DetectMaxAbsValue", buffer);
    return g_pictures->largestAbsolute;
}

bool CxPicBufMeas::measureHistogram(CxHistoData& result, const CxImageData* image,
                                    const QRect& rect, CxHistoData::ExHistoDataFlags flags)
{
    result = g_pictures->histogram;
    return done("measureHistogram", *const_cast<CxImageData*>(image)->picBuf(), rect,
                int{flags.toInt()});
}

bool CxPicBufMeas::measureRowsColumnsProfileStats(bool rows, CxProfileData& result,
                                                  const CxImageData* image, const QRect& rect)
{
    result = g_pictures->profiles;
    return done("measureProfiles", rows, *const_cast<CxImageData*>(image)->picBuf(), rect);
}
