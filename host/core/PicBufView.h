// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The pixels of a picture buffer as typed lines, whatever its element type and alignment.
#pragma once

#include <SxPicBuf.h>

#include <QtCore/QString>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace vistrel {

/// Whether the record describes pixel memory that can be walked: a size, a stride that holds a
/// line.
bool hasPixels(const SxPicBuf& buffer);

bool isPacked(const SxPicBufInfo& info);
bool isFloatingPoint(const SxPicBufInfo& info);

bool haveSameSize(const SxPicBufInfo& a, const SxPicBufInfo& b);
/// Whether a pixel of the one can be copied as bytes into the other.
bool haveSamePixels(const SxPicBufInfo& a, const SxPicBufInfo& b);

/// Elements of a line: a packed picture has one a pixel.
std::size_t valuesPerLine(const SxPicBufInfo& info);
/// Bits of an element.
unsigned elementBits(const SxPicBufInfo& info);
/// The significant bits; those of the element when the record names none or more than it holds.
unsigned significantBits(const SxPicBufInfo& info);

/// Whether every element lies where its type may be read.
bool isAligned(const SxPicBuf& buffer);

/// A picture whose lines are aligned for their element type: the buffer itself as a rule, or a copy
/// when its stride puts lines on odd addresses. Throws std::bad_alloc when there is no memory for
/// it.
class AlignedPicture {
public:
    explicit AlignedPicture(const SxPicBuf& buffer);
    ~AlignedPicture();
    AlignedPicture(const AlignedPicture&) = delete;
    AlignedPicture& operator=(const AlignedPicture&) = delete;

    const SxPicBuf& buffer() const { return m_isCopy ? m_copy : m_buffer; }
    /// Brings the pixels of a copy back into the buffer.
    void store() const;

private:
    const SxPicBuf& m_buffer;
    SxPicBuf m_copy;
    bool m_isCopy = false;
};

template<class Element>
Element* lineOf(const SxPicBuf& buffer, std::size_t y)
{
    return reinterpret_cast<Element*>(buffer.data + y * buffer.stride);
}

/// Gives every line as (first element, number of elements).
template<class Element, class Function>
void forEachLine(const SxPicBuf& buffer, Function function)
{
    const std::size_t values = valuesPerLine(buffer);
    for (std::size_t y = 0; y < buffer.height; ++y)
        function(lineOf<Element>(buffer, y), values);
}

/// Calls function(Element{}) with the C++ type of the elements; a packed word is a quint16.
template<class Function>
auto visitElementType(ExImageDataType type, Function function)
{
    switch (type) {
    case ExImageDataType::Int8:
        return function(qint8{});
    case ExImageDataType::Int16:
        return function(qint16{});
    case ExImageDataType::UInt16:
    case ExImageDataType::Packed565:
        return function(quint16{});
    case ExImageDataType::Int32:
        return function(qint32{});
    case ExImageDataType::UInt32:
        return function(quint32{});
    case ExImageDataType::Int64:
        return function(qint64{});
    case ExImageDataType::UInt64:
        return function(quint64{});
    case ExImageDataType::Float:
        return function(float{});
    case ExImageDataType::Double:
        return function(double{});
    default: // bytes, and pictures that name no type
        return function(quint8{});
    }
}

/// The largest number of so many bits.
constexpr quint64 fullScale(unsigned bits)
{
    return bits >= 64 ? std::numeric_limits<quint64>::max() : (quint64{1} << bits) - 1;
}

/// What the exception that is being handled says, for people: one out of OpenCV or the heap.
QString pixelErrorText();
/// Logs it.
void logPixelError(const char* name);

/// Runs an operation that returns whether it succeeded; an exception out of OpenCV or the heap is
/// logged under the operation's name and makes it fail.
template<class Operation>
bool guarded(const char* name, Operation operation)
{
    try {
        return operation();
    } catch (...) {
        logPixelError(name);
        return false;
    }
}

} // namespace vistrel
