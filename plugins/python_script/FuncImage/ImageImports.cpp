// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Image`: methods that fill the object (alloc, from_file, from_array) and save_to_file.
#include "ErrorState.h"
#include "FuncImage/ArrayInterface.h"
#include "FuncImage/ImageCopies.h"
#include "FuncImage/ImageFiles.h"
#include "FuncImage/ImageMethods.h"
#include "FuncImage/ImageType.h"
#include "FuncImage/ListImport.h"
#include "HostServices.h"
#include "PyErrors.h"

#include <CxImageData.h>

using python::PyRef;

namespace {

/// Names a protocol that is not supported; the words are what scripts compare.
constexpr char noPixels[] = "object passed doesn't support neither buffer protocol, nor "
                            "__array_interface__, and is not list.";

/// Puts a new image into the object and returns None, or raises why there is none: the object then
/// keeps the one it has.
PyObject* refillOrError(PyObject* self, Outcome<std::unique_ptr<CxImageData>> image)
{
    if (!image)
        return python::raise(image.refusal());
    fx_pyimg_refill(self, std::move(image.value()));
    return python::newNone();
}

/// The source that an interface describes; refused when it reaches outside memory whose size is
/// known, that of a picture.
Outcome<ArraySource> checkedSource(PyObject* object, PyObject* interface)
{
    Outcome<ArraySource> source = array_interface::read(interface);
    Outcome<CxImageData*> image = fx_pyimg_imageArgument(object);
    if (!source || !image)
        return source;
    const SxPicBuf& memory = *image.value()->picBuf();
    const Outcome<bool> isInside =
        array_interface::checkInside(source.value(), memory.data, memory.dataSize());
    if (!isInside)
        return isInside.refusal();
    return source;
}

PyObject* fx_pyimg_CreateFromArrayInterface(PyObject* self, PyObject* object, PyObject* interface)
{
    if (!PyDict_Check(interface))
        return nullptr;
    Outcome<ArraySource> source = checkedSource(object, interface);
    if (!source)
        return python::raise(source.refusal());
    return refillOrError(self, array_import::imported(source.value()));
}

/// The error of the look-up that led here stays pending: the picture is made, and the call ends
/// with the interpreter's report of a result with an error set. Scripts have come to expect both.
PyObject* fx_pyimg_CreateFromList(PyObject* self, PyObject* list)
{
    python::ErrorState lookUpError = python::ErrorState::fetch();
    PyRef result = PyRef::take(refillOrError(self, list_import::imported(list)));
    if (!result)
        return nullptr;
    lookUpError.restore();
    return python::finishCall(*fx_pyimg_method("from_array"), self, std::move(result));
}

} // namespace

PyObject* fx_pyimg_CreateFromArray(PyObject* self, PyObject* object)
{
    const PyRef interface = PyRef::take(PyObject_GetAttrString(object, "__array_interface__"));
    if (interface)
        return fx_pyimg_CreateFromArrayInterface(self, object, interface.get());
    if (PyList_Check(object))
        return fx_pyimg_CreateFromList(self, object);
    return python::raise(Refusal{noPixels});
}

PyObject* fx_pyimg_CreateNew(PyObject* self, PyObject* args)
{
    if (self == nullptr)
        return nullptr;
    int width = 0;
    int height = 0;
    int channels = 0;
    int bpc = 0;
    if (!PyArg_ParseTuple(args, "iiii", &width, &height, &channels, &bpc))
        return nullptr;
    return refillOrError(self, image_copies::allocated(width, height, channels, bpc));
}

PyObject* fx_pyimg_CreateFromFile(PyObject* self, PyObject* args)
{
    const char* path = nullptr;
    if (!PyArg_ParseTuple(args, "s", &path))
        return nullptr;
    // A file that was found but cannot be read leaves the object empty, without an error: scripts
    // tell by the text form or by the error of the first use.
    return refillOrError(self, image_files::load(host_services::resolvedPath(path)));
}

PyObject* fx_pyimg_SaveToFile(PyObject* self, PyObject* args)
{
    CxImageData* image = fx_pyimg_getImageObjectData(self);
    if (image == nullptr)
        return nullptr;
    const char* path = nullptr;
    if (!PyArg_ParseTuple(args, "s", &path))
        return nullptr;
    const QString target = host_services::resolvedPath(path);
    image_files::makeFolderOf(target);
    return image_files::save(*image, target) ? python::newNone() : nullptr;
}
