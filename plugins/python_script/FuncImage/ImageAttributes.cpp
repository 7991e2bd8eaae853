// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Image`: attributes of a picture, and its array interface.
#include "FuncImage/AttributeIndex.h"
#include "FuncImage/ImageDescription.h"
#include "FuncImage/ImageMessages.h"
#include "FuncImage/ImageMethods.h"
#include "FuncImage/ImageType.h"
#include "PyErrors.h"

#include <CxImageData.h>
#include <KvCore.h>

#include <variant>

using python::PyRef;

namespace {

using OfBuffer = PyObject* (*)(const SxPicBuf&);
using OfRecord = PyObject* (*)(const SxAcquisitionInfo&);
using OfObject = PyObject* (*)(PyObject*);

/// A name with what it reads: the buffer, the acquisition record, or the object itself.
struct Attribute {
    const char* name;
    std::variant<OfBuffer, OfRecord, OfObject> read;
};

constexpr quint64 microsecondsPerSecond = 1'000'000;
/// Size of the header that older hosts put before the pixels; scripts still find that number.
constexpr long headerSize = 312;

PyObject* newInt(long value) { return PyLong_FromLong(value); }

/// Of the interpreter's makers of integers the one for signed 64 bits is the fastest.
PyObject* newUnsigned(quint32 value) { return PyLong_FromLongLong(value); }

PyObject* newUnsigned(quint64 value) { return PyLong_FromUnsignedLongLong(value); }

PyObject* newFloat(double value) { return PyFloat_FromDouble(value); }

int intOf(quint32 value) { return static_cast<int>(value); }

PyObject* linePadding(const SxPicBuf& b)
{
    return PyLong_FromLongLong(qint64{b.stride} - qint64{b.bytesPerPixel()} * b.width);
}

/// Version 3 of the array interface, for the image's own memory. The first index is x and the
/// second y: scripts have always addressed pixels so.
PyObject* arrayInterface(const SxPicBuf& b)
{
    const unsigned long long address = reinterpret_cast<quintptr>(b.data);
    const PyRef data = PyRef::take(Py_BuildValue("(Ki)", address, 0));
    if (!data)
        return nullptr;
    const char* typestr = image_description::typestrOf(b);
    const int pixelStep = intOf(b.bytesPerPixel());
    if (b.channels == 1 || b.dataType == ExImageDataType::Packed565) {
        return Py_BuildValue("{s:(ii),s:s,s:O,s:(ii),s:i}", "shape", intOf(b.width),
                             intOf(b.height), "typestr", typestr, "data", data.get(), "strides",
                             pixelStep, intOf(b.stride), "version", 3);
    }
    const int channelStep = b.channels != 0 ? intOf(b.bytesPerPixel() / b.channels) : 0;
    return Py_BuildValue("{s:(iii),s:s,s:O,s:(iii),s:i}", "shape", intOf(b.width), intOf(b.height),
                         intOf(b.channels), "typestr", typestr, "data", data.get(), "strides",
                         pixelStep, intOf(b.stride), channelStep, "version", 3);
}

/// A bound `__bytes__` under another name.
PyObject* boundToBytes(PyObject* self)
{
    return PyCFunction_NewEx(&px_image_meths[0], self, nullptr);
}

using Buf = const SxPicBuf&;
using Rec = const SxAcquisitionInfo&;

const Attribute attributes[] = {
    {"width", OfBuffer{[](Buf b) { return newUnsigned(b.width); }}},
    {"height", OfBuffer{[](Buf b) { return newUnsigned(b.height); }}},
    {"bpc", OfBuffer{[](Buf b) { return newUnsigned(b.bpc); }}},
    {"channels", OfBuffer{[](Buf b) { return newUnsigned(b.channels); }}},
    {"frame_number", OfBuffer{[](Buf b) { return newInt(b.frameNumber); }}},
    {"nframe", OfBuffer{[](Buf b) { return newInt(b.frameNumber); }}},
    {"acq_nframe", OfBuffer{[](Buf b) { return newInt(b.acqFrameNumber); }}},
    {"time_stamp", OfBuffer{[](Buf b) { return PyLong_FromLongLong(b.timestampUs); }}},
    {"tsSec", OfBuffer{[](Buf b) {
         return newUnsigned(static_cast<quint64>(b.timestampUs) / microsecondsPerSecond);
     }}},
    {"tsUSec", OfBuffer{[](Buf b) {
         return newUnsigned(static_cast<quint64>(b.timestampUs) % microsecondsPerSecond);
     }}},
    {"rgb", OfBuffer{[](Buf b) { return python::newBool(b.isRgb); }}},
    {"size", OfBuffer{[](Buf) { return newInt(headerSize); }}},
    {"bp", OfBuffer{[](Buf b) { return newUnsigned(reinterpret_cast<quintptr>(b.data)); }}},
    {"bp_size", OfBuffer{[](Buf b) { return newUnsigned(b.dataSize()); }}},
    {"frm", OfBuffer{[](Buf b) { return newInt(kvCore_GetKvImgFormatForPicBufInfo(b)); }}},
    {"black_level", OfBuffer{[](Buf b) { return newUnsigned(b.blackLevel); }}},
    {"padding_x", OfBuffer{linePadding}},
    {"AbsoluteOffsetX", OfBuffer{[](Buf) { return newInt(0); }}},
    {"AbsoluteOffsetY", OfBuffer{[](Buf) { return newInt(0); }}},
    {"transport_frm", OfRecord{[](Rec r) { return newUnsigned(r.transportFormat); }}},
    {"exposure_time_us", OfRecord{[](Rec r) { return newInt(r.exposureTimeUs); }}},
    {"gain_db", OfRecord{[](Rec r) { return newFloat(double{r.gainDb}); }}},
    {"data_saturation",
     OfBuffer{[](Buf b) { return newFloat(image_description::saturationOf(b)); }}},
    {"wb_red", OfRecord{[](Rec r) { return newFloat(double{r.whiteBalanceRed}); }}},
    {"wb_green", OfRecord{[](Rec r) { return newFloat(double{r.whiteBalanceGreen}); }}},
    {"wb_blue", OfRecord{[](Rec r) { return newFloat(double{r.whiteBalanceBlue}); }}},
    {"color_filter_array", OfRecord{[](Rec r) {
         return newInt(kvCore_GetKvCfaFromColorFilterArray(r.colorFilterArray));
     }}},
    {"tof_phases_count", OfRecord{[](Rec r) { return newInt(r.tofPhasesCount); }}},
    {"tof_multiple_phases_in_buffer", OfRecord{[](Rec) { return newInt(0); }}},
    {"tof_phase_id", OfRecord{[](Rec r) { return newInt(r.tofPhaseId); }}},
    {"data_sign_mode",
     OfBuffer{[](Buf b) { return newInt(kvCore_GetKvDataSmFromDataType(b.dataType)); }}},
    {"__array_interface__", OfBuffer{arrayInterface}},
    {"tobytes", OfObject{boundToBytes}},
};

/// Made anew for each interpreter, because names belong to the one that is running, and never
/// deleted: when the next one starts the names of the last are gone already.
AttributeIndex* g_index = nullptr;

PyObject* emptyObject() { return python::raise(Refusal{image_messages::emptyObject}); }

PyObject* readAttribute(PyObject* self, const Attribute& attribute)
{
    if (const OfBuffer* ofBuffer = std::get_if<OfBuffer>(&attribute.read)) {
        const SxPicBuf* buffer = fx_pyimg_buffer(self);
        return buffer != nullptr ? (*ofBuffer)(*buffer) : emptyObject();
    }
    if (const OfRecord* ofRecord = std::get_if<OfRecord>(&attribute.read)) {
        const CxImageData* image = fx_pyimg_getImageObjectData(self);
        const SxAcquisitionInfo* record = image != nullptr ? image->acquisitionInfo() : nullptr;
        return record != nullptr ? (*ofRecord)(*record) : emptyObject();
    }
    return std::get<OfObject>(attribute.read)(self);
}

} // namespace

bool fx_pyimg_prepareAttributes()
{
    AttributeIndex& index = *(g_index = new AttributeIndex);
    int number = 0;
    for (const Attribute& attribute : attributes) {
        if (!index.add(attribute.name, number++))
            return false;
    }
    // Methods go the ordinary way; knowing their names spares them the look-up by text.
    for (const PyMethodDef* method = px_image_meths; method->ml_name != nullptr; ++method) {
        if (!index.add(method->ml_name, AttributeIndex::none))
            return false;
    }
    return true;
}

PyObject* fx_pyimg_GetAttrO(PyObject* self, PyObject* name)
{
    const int number = g_index->find(name);
    if (number == AttributeIndex::none)
        return PyObject_GenericGetAttr(self, name);
    if (number == AttributeIndex::failed)
        return nullptr;
    return readAttribute(self, attributes[number]);
}
