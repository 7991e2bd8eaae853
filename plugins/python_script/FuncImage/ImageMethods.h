// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Slots and methods of `vistrel.Image`, by the file that defines them.
#pragma once

#include "PythonApi.h"

// ImageAttributes.cpp
/// Prepares the look-up of attribute names; once for each interpreter, before the type is made.
/// False with Python's error set when there is no memory for it.
bool fx_pyimg_prepareAttributes();
PyObject* fx_pyimg_GetAttrO(PyObject* self, PyObject* name);

// ImageAccessors.cpp
PyObject* fx_pyimg_ToString(PyObject* self);
PyObject* fx_pyimg_GetWidth(PyObject* self, PyObject* args);
PyObject* fx_pyimg_GetHeight(PyObject* self, PyObject* args);
PyObject* fx_pyimg_GetChannels(PyObject* self, PyObject* args);
PyObject* fx_pyimg_GetBpc(PyObject* self, PyObject* args);
PyObject* fx_pyimg_GetFrameNumber(PyObject* self, PyObject* args);
PyObject* fx_pyimg_GetTimeStamp(PyObject* self, PyObject* args);
PyObject* fx_pyimg_GetBytesPerPixel(PyObject* self, PyObject* args);

// ImageExports.cpp
PyObject* fx_pyimg_ToBytes(PyObject* self, PyObject* args);
PyObject* fx_pyimg_GetImageDataRaw(PyObject* self, PyObject* args);
PyObject* fx_pyimg_GetImageDataNumpy(PyObject* self, PyObject* args);
PyObject* fx_pyimg_NewCopy(PyObject* self, PyObject* args);

// ImageImports.cpp
PyObject* fx_pyimg_CreateNew(PyObject* self, PyObject* args);
PyObject* fx_pyimg_CreateFromFile(PyObject* self, PyObject* args);
PyObject* fx_pyimg_SaveToFile(PyObject* self, PyObject* args);
PyObject* fx_pyimg_CreateFromArray(PyObject* self, PyObject* object);

// ImagePixels.cpp
PyObject* fx_pyimg_GetPixelValue(PyObject* self, PyObject* args);
PyObject* fx_pyimg_SetPixelValue(PyObject* self, PyObject* args);
PyObject* fx_pyimg_DrawPixelLine(PyObject* self, PyObject* args);
PyObject* fx_pyimg_DrawPixelRect(PyObject* self, PyObject* args);

// ImageConversionMethods.cpp
PyObject* fx_pyimg_ToRgb(PyObject* self, PyObject* args);
PyObject* fx_pyimg_ExtractChannel(PyObject* self, PyObject* args);
PyObject* fx_pyimg_ConvertBpc(PyObject* self, PyObject* args);
PyObject* fx_pyimg_Crop(PyObject* self, PyObject* args);
PyObject* fx_pyimg_Resize(PyObject* self, PyObject* args);
PyObject* fx_pyimg_CopyTo(PyObject* self, PyObject* target);
PyObject* fx_pyimg_CopyRectTo(PyObject* self, PyObject* args);
PyObject* fx_pyimg_ResizeTo(PyObject* self, PyObject* target);
PyObject* fx_pyimg_ResizeRectTo(PyObject* self, PyObject* args);
PyObject* fx_pyimg_Add(PyObject* self, PyObject* other);
PyObject* fx_pyimg_Subtract(PyObject* self, PyObject* other);
PyObject* fx_pyimg_DivideByValue(PyObject* self, PyObject* args);

// ImageMeasurements.cpp
PyObject* fx_pyimg_MeasureRect(PyObject* self, PyObject* args);
PyObject* fx_pyimg_MeasureRowProfilesInRect(PyObject* self, PyObject* args);
PyObject* fx_pyimg_MeasureColumnProfilesInRect(PyObject* self, PyObject* args);
