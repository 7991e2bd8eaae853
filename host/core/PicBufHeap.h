// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Memory of picture buffers, and what a test may change about it.
#pragma once

#include <cstddef>

namespace vistrel {

/// Gives a block of memory that std::free takes back, or null when there is none.
/// @param alignment  a power of two, or 0 for the heap's choice.
/// @param cleared    whether all of it must be 0.
using PicBufAllocator = void* (*)(std::size_t bytes, std::size_t alignment, bool cleared);

/// Replaces the function that gives memory for pixels, so that a test can run out of it; null
/// brings the heap back. Returns the function used until now. Any thread.
PicBufAllocator setPicBufAllocator(PicBufAllocator allocator);

} // namespace vistrel
