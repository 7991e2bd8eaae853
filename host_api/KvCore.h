// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Codes of the core library for formats of pixel data. Scripts see the numbers as they are.
#pragma once

#include "SxPicBufInfo.h"

/// Code of a buffer's layout: 0 unknown, 1 mono of up to 8 bits, 2 mono of up to 16 bits, 3 colour
/// of up to 8 bits, 4 colour of up to 16 bits, 5 colour with alpha of up to 8 bits, 6 the same of
/// up to 16 bits, 7 packed 5-6-5, 8 mono of 32 bits, 9 floating point, 10 raw data of up to 8 bits
/// with a colour filter, 11 the same of up to 16 bits.
int kvCore_GetKvImgFormatForPicBufInfo(const SxPicBufInfo& info);

/// Code of a colour filter: 0 none, 1 RGGB, 2 GRBG, 3 GBRG, 4 BGGR.
int kvCore_GetKvCfaFromColorFilterArray(ExColorFilterArray colorFilterArray);

/// Code of a sign mode: 0 unsigned, 1 signed, 2 floating point.
int kvCore_GetKvDataSmFromDataType(ExImageDataType dataType);
