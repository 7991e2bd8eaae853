// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The type `vistrel.Image`: a thin handle on one image of the host.
//
//     class Image:
//         width: int; height: int; ...          # ImageAttributes.cpp
//         def alloc(self, width: int, height: int, channels: int, bpc: int, /) -> None: ...
//         ...
#pragma once

#include "PythonApi.h"
#include "Refusal.h"

#include <memory>

class CxImageData;
struct SxPicBuf;

/// The instance record. `owned` is only true with an image, with one exception: after a load that
/// failed half-way there is none and `owned` is true all the same, which frees nothing.
struct SxPyImage {
    PyObject_HEAD CxImageData* imageData; ///< null: the object is empty
    bool owned;                           ///< deleted with the object, else the host's
};

/// The type object; null until the module was made, or when making it failed.
extern PyObject* TxPyImageType;
/// The method table; the first entry is `__bytes__`.
extern PyMethodDef px_image_meths[];
/// The entry of that name, which must be there.
PyMethodDef* fx_pyimg_method(const char* name);

/// Makes the type, with its help texts. A failure is logged and leaves TxPyImageType null.
void fx_pyimages_TypeReady();
/// Adds the type to the module as "Image". 1 on success, 0 on failure.
int fx_pyimages_TypeAdd(PyObject* module);

/// A new image object around an image; with `owned` the object deletes it, else it becomes empty
/// when the image is deleted. Null with Python's error set when it cannot be made: the image then
/// stays the caller's.
PyObject* fx_pyimg_createNewImageObject(CxImageData* image, bool owned);
/// A new object that owns the image. Null with Python's error set when it cannot be made.
PyObject* fx_pyimg_newOwner(std::unique_ptr<CxImageData> image);

/// The same for an operation that may have been refused: raises why.
PyObject* fx_pyimg_newOwnerOrError(Outcome<std::unique_ptr<CxImageData>> image);

/// The image behind an image object; null for null and for an empty object. The object's type is
/// not looked at: callers must know that it is an image object.
CxImageData* fx_pyimg_getImageObjectData(PyObject* object);
/// The image behind an argument of a script. Refused when it is no image object; refused silently
/// when it is an empty one.
Outcome<CxImageData*> fx_pyimg_imageArgument(PyObject* object);
/// The buffer behind an image object; null for an empty object.
SxPicBuf* fx_pyimg_buffer(PyObject* object);

/// Parses the arguments of a method, as PyArg_ParseTuple does, and returns the buffer behind the
/// object. Null for an empty object, whose arguments are not looked at, and with the parser's error
/// set. A script's number may run code that refills the object or deletes its image: the buffer is
/// looked up when that is over.
template<class... Targets>
SxPicBuf* fx_pyimg_bufferAndArguments(PyObject* self, PyObject* args, const char* format,
                                      Targets*... targets)
{
    if (fx_pyimg_buffer(self) == nullptr || !PyArg_ParseTuple(args, format, targets...))
        return nullptr;
    return fx_pyimg_buffer(self);
}

/// Deletes the image that the object owns, forgets the one it borrows; the object is empty then.
/// As the type's deallocator it never gives the object's own memory back: that is how the type is
/// meant to be, and it costs 32 bytes an object.
void fx_pyimg_Free(PyObject* self);
/// Gives the object another image, which it owns, and releases the one it had.
void fx_pyimg_refill(PyObject* self, std::unique_ptr<CxImageData> image);
