// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures made from nested lists.
#include "FuncImage/ListImport.h"

#include "FuncImage/ArrayImport.h"
#include "FuncImage/ImageMessages.h"
#include "Logging.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <algorithm>
#include <cstring>

namespace list_import {

namespace {

constexpr char emptyList[] = "list passed is empty";
constexpr char emptyRows[] = "array rows are empty";
constexpr char emptyChannels[] = "array channels are empty";
constexpr char unsupportedType[] = "unsupported data type";

// Null is none of them: a list may lack an item.
bool isInteger(PyObject* object) { return object != nullptr && PyLong_Check(object); }
bool isFloat(PyObject* object) { return object != nullptr && PyFloat_Check(object); }
bool isList(PyObject* object) { return object != nullptr && PyList_Check(object); }

/// Borrowed; null when the list has no such item.
PyObject* itemOf(PyObject* list, Py_ssize_t index)
{
    return index < PyList_Size(list) ? PyList_GetItem(list, index) : nullptr;
}

/// What the first items say about the whole.
struct Shape {
    Py_ssize_t height = 0;
    Py_ssize_t width = 1;
    Py_ssize_t channels = 1;
    int depth = 1;
    PyObject* leaf = nullptr; ///< the innermost first item, borrowed; null when missing
};

/// Looks at the first item of each depth. Returns why the list makes no picture, or null.
const char* findShape(PyObject* list, Shape& shape)
{
    shape.height = PyList_Size(list);
    if (shape.height == 0)
        return emptyList;
    shape.leaf = itemOf(list, 0);
    if (!isList(shape.leaf))
        return nullptr;
    shape.depth = 2;
    shape.width = PyList_Size(shape.leaf);
    if (shape.width == 0)
        return emptyRows;
    shape.leaf = itemOf(shape.leaf, 0);
    if (!isList(shape.leaf))
        return nullptr;
    shape.depth = 3;
    shape.channels = PyList_Size(shape.leaf);
    if (shape.channels == 0)
        return emptyChannels;
    shape.leaf = itemOf(shape.leaf, 0);
    return nullptr;
}

/// Writes values of one type into pixels.
class LeafWriter {
public:
    explicit LeafWriter(bool writesFloats)
        : m_writesFloats(writesFloats)
    {
    }

    std::ptrdiff_t size() const { return m_writesFloats ? 4 : 2; }

    /// False, and nothing written, for what is no value of the type.
    bool write(PyObject* item, quint8* target) const
    {
        return m_writesFloats ? writeFloat(item, target) : writeInteger(item, target);
    }

private:
    static bool writeInteger(PyObject* item, quint8* target)
    {
        if (!isInteger(item))
            return false;
        // Cut to the lowest 16 bits, whatever its size.
        const auto value = static_cast<quint16>(PyLong_AsUnsignedLongLongMask(item));
        std::memcpy(target, &value, sizeof(value));
        return true;
    }

    static bool writeFloat(PyObject* item, quint8* target)
    {
        if (!isFloat(item))
            return false;
        const auto value = static_cast<float>(PyFloat_AsDouble(item));
        std::memcpy(target, &value, sizeof(value));
        return true;
    }

    bool m_writesFloats;
};

/// A line of values: what is no value is left out, and the rest of the line moves up.
void fillValues(PyObject* line, const Shape& shape, const LeafWriter& writer, quint8* target)
{
    const Py_ssize_t count = std::min(PyList_Size(line), shape.width);
    for (Py_ssize_t x = 0; x < count; ++x) {
        if (writer.write(PyList_GetItem(line, x), target))
            target += writer.size();
    }
}

/// A line of pixels: what is no list is left out, and the rest of the line moves up; what is no
/// value within a pixel leaves its channel as it is.
void fillPixels(PyObject* line, const Shape& shape, const LeafWriter& writer, quint8* target)
{
    const Py_ssize_t count = std::min(PyList_Size(line), shape.width);
    for (Py_ssize_t x = 0; x < count; ++x) {
        PyObject* pixel = PyList_GetItem(line, x);
        if (!isList(pixel))
            continue;
        const Py_ssize_t channels = std::min(PyList_Size(pixel), shape.channels);
        for (Py_ssize_t c = 0; c < channels; ++c)
            writer.write(PyList_GetItem(pixel, c), target + c * writer.size());
        target += shape.channels * writer.size();
    }
}

void fill(PyObject* list, const Shape& shape, const LeafWriter& writer, const SxPicBuf& buffer)
{
    for (Py_ssize_t y = 0; y < shape.height; ++y) {
        PyObject* line = PyList_GetItem(list, y);
        quint8* target = buffer.data + y * static_cast<Py_ssize_t>(buffer.stride);
        if (shape.depth == 1)
            writer.write(line, target);
        else if (isList(line) && shape.depth == 2)
            fillValues(line, shape, writer, target);
        else if (isList(line))
            fillPixels(line, shape, writer, target);
    }
}

SxPicBufInfo infoOf(const Shape& shape, bool hasFloats)
{
    SxPicBufInfo info;
    info.width = static_cast<quint32>(shape.width);
    info.height = static_cast<quint32>(shape.height);
    info.channels = static_cast<quint32>(shape.channels);
    info.bpc = hasFloats ? 32 : 16;
    info.dataType = hasFloats ? ExImageDataType::Float : ExImageDataType::UInt16;
    info.storageFormat = ExDataStorageFormat::Interleaved;
    info.isRgb = array_import::isRgbByLayout(info);
    return info;
}

void logFailedAllocation(const SxPicBufInfo& info)
{
    logCritical(
        QStringLiteral("fx_pyimages_CreateFromList = cannot allocate image with dimensions: "
                       "w%1 h%2 c%3 bpc%4")
            .arg(info.width)
            .arg(info.height)
            .arg(info.channels)
            .arg(info.bpc));
}

} // namespace

image_copies::NewImage imported(PyObject* list)
{
    Shape shape;
    if (const char* error = findShape(list, shape))
        return Refusal{error};
    const bool hasFloats = isFloat(shape.leaf);
    if (!hasFloats && !isInteger(shape.leaf))
        return Refusal{unsupportedType};
    const SxPicBufInfo info = infoOf(shape, hasFloats);
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, info, true, 0);
    if (buffer.data == nullptr) {
        logFailedAllocation(info);
        return Refusal{image_messages::cannotAllocate};
    }
    fill(list, shape, LeafWriter(hasFloats), buffer);
    return array_import::narrowedImage(buffer);
}

} // namespace list_import
