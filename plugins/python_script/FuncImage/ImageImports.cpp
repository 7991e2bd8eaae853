// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Image`: methods that fill the object (alloc, from_file) and save_to_file.
#include "FuncImage/ImageCopies.h"
#include "FuncImage/ImageFiles.h"
#include "FuncImage/ImageMethods.h"
#include "FuncImage/ImageType.h"
#include "HostServices.h"
#include "PyErrors.h"

#include <CxImageData.h>

namespace {

/// Puts a new image into the object and returns None, or raises why there is none: the object then
/// keeps the one it has.
PyObject* refillOrError(PyObject* self, Outcome<std::unique_ptr<CxImageData>> image)
{
    if (!image)
        return python::raise(image.refusal());
    fx_pyimg_refill(self, std::move(image.value()));
    return python::newNone();
}

} // namespace

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
