// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The type `vistrel.Image`: method table, slots, creation.
#include "FuncImage/ImageType.h"

#include "CallGuard.h"
#include "CxPythonScriptPlugin.h"
#include "FuncImage/BorrowedImages.h"
#include "FuncImage/ImageMessages.h"
#include "FuncImage/ImageMethods.h"
#include "Logging.h"
#include "PyErrors.h"

#include <CxImageData.h>

#include <atomic>
#include <cstring>

using python::guarded;
using python::PyRef;
using python::slotOf;

PyObject* TxPyImageType = nullptr;

PyMethodDef px_image_meths[] = {
    {"__bytes__", guarded<fx_pyimg_ToBytes>, METH_NOARGS, nullptr},
    {"alloc", guarded<fx_pyimg_CreateNew>, METH_VARARGS, nullptr},
    {"from_file", guarded<fx_pyimg_CreateFromFile>, METH_VARARGS, nullptr},
    {"from_array", guarded<fx_pyimg_CreateFromArray>, METH_O, nullptr},
    {"get_width", guarded<fx_pyimg_GetWidth>, METH_NOARGS, nullptr},
    {"get_height", guarded<fx_pyimg_GetHeight>, METH_NOARGS, nullptr},
    {"get_channels", guarded<fx_pyimg_GetChannels>, METH_NOARGS, nullptr},
    {"get_bpc", guarded<fx_pyimg_GetBpc>, METH_NOARGS, nullptr},
    {"get_frame_number", guarded<fx_pyimg_GetFrameNumber>, METH_NOARGS, nullptr},
    {"get_time_stamp", guarded<fx_pyimg_GetTimeStamp>, METH_NOARGS, nullptr},
    {"get_image_data_raw", guarded<fx_pyimg_GetImageDataRaw>, METH_NOARGS, nullptr},
    {"get_image_data_numpy", guarded<fx_pyimg_GetImageDataNumpy>, METH_VARARGS, nullptr},
    {"get_bytes_per_pixel", guarded<fx_pyimg_GetBytesPerPixel>, METH_NOARGS, nullptr},
    {"get_pixel_value", guarded<fx_pyimg_GetPixelValue>, METH_VARARGS, nullptr},
    {"set_pixel_value", guarded<fx_pyimg_SetPixelValue>, METH_VARARGS, nullptr},
    {"draw_pixel_line", guarded<fx_pyimg_DrawPixelLine>, METH_VARARGS, nullptr},
    {"draw_pixel_rect", guarded<fx_pyimg_DrawPixelRect>, METH_VARARGS, nullptr},
    {"save_to_file", guarded<fx_pyimg_SaveToFile>, METH_VARARGS, nullptr},
    {"to_rgb", guarded<fx_pyimg_ToRgb>, METH_NOARGS, nullptr},
    {"extract_channel", guarded<fx_pyimg_ExtractChannel>, METH_VARARGS, nullptr},
    {"convert_bpc", guarded<fx_pyimg_ConvertBpc>, METH_VARARGS, nullptr},
    {"new_copy", guarded<fx_pyimg_NewCopy>, METH_NOARGS, nullptr},
    {"crop", guarded<fx_pyimg_Crop>, METH_VARARGS, nullptr},
    {"resize", guarded<fx_pyimg_Resize>, METH_VARARGS, nullptr},
    {"copy_to", guarded<fx_pyimg_CopyTo>, METH_O, nullptr},
    {"copy_rect_to", guarded<fx_pyimg_CopyRectTo>, METH_VARARGS, nullptr},
    {"resize_to", guarded<fx_pyimg_ResizeTo>, METH_O, nullptr},
    // Spelt so: it is the name that scripts call.
    {"tesize_rect_to", guarded<fx_pyimg_ResizeRectTo>, METH_VARARGS, nullptr},
    {"add", guarded<fx_pyimg_Add>, METH_O, nullptr},
    {"subtract", guarded<fx_pyimg_Subtract>, METH_O, nullptr},
    {"divide_by_value", guarded<fx_pyimg_DivideByValue>, METH_VARARGS, nullptr},
    {"measure_rect", guarded<fx_pyimg_MeasureRect>, METH_VARARGS, nullptr},
    {"measure_row_profiles_in_rect", guarded<fx_pyimg_MeasureRowProfilesInRect>, METH_VARARGS,
     nullptr},
    {"measure_column_profiles_in_rect", guarded<fx_pyimg_MeasureColumnProfilesInRect>, METH_VARARGS,
     nullptr},
    {nullptr, nullptr, 0, nullptr},
};

namespace {

SxPyImage& record(PyObject* self) { return *reinterpret_cast<SxPyImage*>(self); }

/// Makes the object empty. A borrowed image is forgotten, one of its own is not deleted.
void clear(SxPyImage& image)
{
    if (image.imageData != nullptr && !image.owned)
        borrowed_images::forget(image.imageData);
    image.imageData = nullptr;
    image.owned = false;
}

/// Ignores its arguments. An image that the object had before is left alone, not deleted: views
/// made through the array interface may still read its pixels.
int fx_pyimg_Init(PyObject* self, PyObject*, PyObject*)
{
    clear(record(self));
    return 0;
}

PyType_Slot TxPyImageType_Slots[] = {
    {Py_tp_dealloc, slotOf(fx_pyimg_Free)},
    {Py_tp_str, slotOf(python::guardedSlot<fx_pyimg_ToString>)},
    {Py_tp_getattro, slotOf(guarded<fx_pyimg_GetAttrO>)},
    {Py_tp_methods, px_image_meths},
    {Py_tp_init, slotOf(fx_pyimg_Init)},
    {Py_tp_new, slotOf(PyType_GenericNew)},
    {0, nullptr},
};

PyType_Spec TxPyImageType_Spec{"vistrel.Image", sizeof(SxPyImage), 0, Py_TPFLAGS_DEFAULT,
                               TxPyImageType_Slots};

} // namespace

PyMethodDef* fx_pyimg_method(const char* name)
{
    PyMethodDef* method = px_image_meths;
    while (std::strcmp(method->ml_name, name) != 0)
        ++method;
    return method;
}

void fx_pyimages_TypeReady()
{
    CxPythonScriptPlugin::addHelpToPythonFunctions("vistrel", nullptr, "imgObj", px_image_meths);
    TxPyImageType = fx_pyimg_prepareAttributes() ? PyType_FromSpec(&TxPyImageType_Spec) : nullptr;
    if (TxPyImageType == nullptr) {
        logCritical("fx_pyimages_TypeReady(): %1",
                    QStringLiteral("Failed to register vistrel.ImageType with limited API"));
        PyErr_Clear(); // the module is made without the type
    }
}

int fx_pyimages_TypeAdd(PyObject* module)
{
    return python::addType(module, "Image", TxPyImageType);
}

PyObject* fx_pyimg_createNewImageObject(CxImageData* image, bool owned)
{
    if (TxPyImageType == nullptr)
        return nullptr;
    PyRef object = PyRef::take(PyObject_CallObject(TxPyImageType, nullptr));
    if (object) {
        record(object.get()).imageData = image;
        record(object.get()).owned = owned;
    }
    if (object && image != nullptr && !owned)
        borrowed_images::watch(record(object.get()).imageData);
    return object.release();
}

PyObject* fx_pyimg_newOwner(std::unique_ptr<CxImageData> image)
{
    PyObject* object = fx_pyimg_createNewImageObject(image.get(), true);
    if (object != nullptr)
        static_cast<void>(image.release()); // the object owns it now
    return object;
}

PyObject* fx_pyimg_newOwnerOrError(Outcome<std::unique_ptr<CxImageData>> image)
{
    return image ? fx_pyimg_newOwner(std::move(image.value())) : python::raise(image.refusal());
}

CxImageData* fx_pyimg_getImageObjectData(PyObject* object)
{
    if (object == nullptr)
        return nullptr;
    // One plain load; but an image may go on a thread that knows nothing of the interpreter's lock.
    return std::atomic_ref(record(object).imageData).load(std::memory_order_relaxed);
}

Outcome<CxImageData*> fx_pyimg_imageArgument(PyObject* object)
{
    // The type cannot be subclassed, so there is one type to compare with.
    if (object == nullptr || reinterpret_cast<PyObject*>(Py_TYPE(object)) != TxPyImageType)
        return Refusal{image_messages::notAnImage};
    CxImageData* image = fx_pyimg_getImageObjectData(object);
    if (image == nullptr)
        return silentRefusal;
    return image;
}

SxPicBuf* fx_pyimg_buffer(PyObject* object)
{
    CxImageData* image = fx_pyimg_getImageObjectData(object);
    return image != nullptr ? image->picBuf() : nullptr;
}

void fx_pyimg_Free(PyObject* self)
{
    if (self == nullptr)
        return;
    if (record(self).owned)
        delete record(self).imageData;
    clear(record(self));
}

void fx_pyimg_refill(PyObject* self, std::unique_ptr<CxImageData> image)
{
    fx_pyimg_Free(self);
    record(self).imageData = image.release();
    record(self).owned = true;
}
