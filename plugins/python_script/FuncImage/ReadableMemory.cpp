// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Asks the system whether memory can be read.
#include "FuncImage/ReadableMemory.h"

#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <limits>
#include <utility>

namespace {

/// As many places as the system takes at once.
constexpr std::size_t mostProbes = 1024;

/// Reads a byte at each of the addresses, by a call that reports what it cannot read.
bool canRead(iovec* probes, std::size_t count)
{
    std::array<char, mostProbes> bytes;
    const iovec target{bytes.data(), count};
    const ssize_t read = process_vm_readv(getpid(), &target, 1, probes, count, 0);
    if (read >= 0)
        return static_cast<std::size_t>(read) == count;
    return errno != EFAULT;
}

iovec probeAt(quintptr address) { return {reinterpret_cast<void*>(address), 1}; }

/// Whether the block ends before the address space does.
bool isBlock(quintptr begin, quint64 size)
{
    return size - 1 <= std::numeric_limits<quintptr>::max() - begin;
}

} // namespace

namespace readable_memory {

bool isReadable(quintptr begin, quint64 size)
{
    // The ends first: what leads astray is mostly found there.
    if (!hasReadableEnds(begin, size))
        return false;
    const auto page = static_cast<quintptr>(sysconf(_SC_PAGESIZE));
    const quintptr last = begin + (size - 1);
    std::array<iovec, mostProbes> probes;
    std::size_t count = 0;
    for (quintptr address = (begin | (page - 1)) + 1; address != 0 && address <= last;
         address += page) {
        probes[count++] = probeAt(address);
        if (count == probes.size() && !canRead(probes.data(), std::exchange(count, 0)))
            return false;
    }
    return count == 0 || canRead(probes.data(), count);
}

bool hasReadableEnds(quintptr begin, quint64 size)
{
    if (!isBlock(begin, size))
        return false;
    std::array<iovec, 2> probes{probeAt(begin), probeAt(begin + (size - 1))};
    return canRead(probes.data(), probes.size());
}

} // namespace readable_memory
