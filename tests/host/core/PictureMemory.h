// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Other memory for the pixels of pictures: none, some, or used.
#pragma once

#include "core/PicBufHeap.h"

#include <QtCore/QtGlobal>

#include <cstdlib>
#include <cstring>

namespace vistrel::test {

/// Lets another function give the memory of pixels for as long as it lives.
class PictureMemory {
public:
    explicit PictureMemory(PicBufAllocator allocator)
        : m_previous(setPicBufAllocator(allocator))
    {
    }
    ~PictureMemory() { setPicBufAllocator(m_previous); }
    PictureMemory(const PictureMemory&) = delete;
    PictureMemory& operator=(const PictureMemory&) = delete;

private:
    PicBufAllocator m_previous;
};

/// Lets every allocation of pixels fail for as long as it lives.
class NoPictureMemory : PictureMemory {
public:
    NoPictureMemory()
        : PictureMemory([](std::size_t, std::size_t, bool) -> void* { return nullptr; })
    {
    }
};

/// Gives pixels memory that has been used before, as a program's is after a while: each of its
/// bytes is `usedByte`, unless it is to be cleared.
class UsedPictureMemory : PictureMemory {
public:
    static constexpr quint8 usedByte = 0xEE;

    UsedPictureMemory()
        : PictureMemory(&allocate)
    {
    }

private:
    static void* allocate(std::size_t bytes, std::size_t, bool cleared)
    {
        void* const block = std::malloc(bytes);
        if (block != nullptr)
            std::memset(block, cleared ? 0 : usedByte, bytes);
        return block;
    }
};

} // namespace vistrel::test
