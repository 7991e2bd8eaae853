// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Scatters the addresses of Python's objects.
#pragma once

#include "PythonApi.h"

#include <cstdint>

namespace python {

/// One more than the largest address hash; a power of two.
inline constexpr std::size_t addressHashes = 256;

/// Objects are 16 bytes apart at least; the multiplier is the golden ratio's, as in Fibonacci
/// hashing.
inline std::size_t addressHash(const PyObject* object)
{
    const auto address = std::uint64_t{reinterpret_cast<std::uintptr_t>(object)} >> 4U;
    constexpr unsigned unusedBits = 64 - 8; // of the product the high bits are scattered best
    return static_cast<std::size_t>((address * 0x9E3779B97F4A7C15ULL) >> unusedBits);
}

} // namespace python
