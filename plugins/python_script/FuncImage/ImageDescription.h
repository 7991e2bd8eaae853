// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// An image's text form and the codes of its element type, free of Python.
#pragma once

#include <QtCore/QString>

struct SxPicBuf;
struct SxPicBufInfo;

namespace image_description {

/// The text form: size, channels, significant bits, type.
QString textOf(const SxPicBufInfo& info);

/// The element type for the array interface, for example "|u2". Always with a bar as byte order,
/// as the type's users expect it; empty for an unknown type. A buffer without a type is described
/// as one of 64-bit integers, an old habit that scripts may rely on.
const char* typestrOf(const SxPicBufInfo& info);

/// The value of a saturated pixel: the stored one for floating-point data, else the greatest number
/// that the significant bits can hold.
double saturationOf(const SxPicBuf& buffer);

} // namespace image_description
