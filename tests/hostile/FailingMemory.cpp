// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Memory that fails on demand.
#include "FailingMemory.h"

#include <dlfcn.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

using failing_memory::Kind;

struct Order {
    Kind kind = Kind::Cpp;
    int successes = 0;
    bool isActive = false;
    bool hasFailed = false;
};

thread_local Order order;

bool isToFail(Kind kind)
{
    if (!order.isActive || order.kind != kind || order.successes-- > 0)
        return false;
    order.isActive = false;
    order.hasFailed = true;
    return true;
}

/// CPython's PyMemAllocatorEx, which the limited API leaves out.
struct Allocator {
    void* context;
    void* (*allocate)(void* context, std::size_t size);
    void* (*allocateCleared)(void* context, std::size_t count, std::size_t size);
    void* (*resize)(void* context, void* block, std::size_t size);
    void (*free)(void* context, void* block);
};

/// CPython's domains for objects and for what they hold; that of raw memory is left alone: it
/// serves start and end.
constexpr std::array domains = {1, 2};
std::array<Allocator, domains.size()> originals;

template<class Function>
Function* pythonFunction(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

const Allocator& original(void* context) { return *static_cast<const Allocator*>(context); }

void wrapPythonsAllocators()
{
    static bool areWrapped = false;
    if (areWrapped)
        return;
    areWrapped = true;
    const auto read = pythonFunction<void(int, Allocator*)>("PyMem_GetAllocator");
    const auto write = pythonFunction<void(int, Allocator*)>("PyMem_SetAllocator");
    for (std::size_t i = 0; i < domains.size(); ++i) {
        read(domains[i], &originals[i]);
        Allocator wrapper{
            &originals[i],
            [](void* context, std::size_t size) {
                const Allocator& next = original(context);
                return isToFail(Kind::Python) ? nullptr : next.allocate(next.context, size);
            },
            [](void* context, std::size_t count, std::size_t size) {
                const Allocator& next = original(context);
                return isToFail(Kind::Python) ? nullptr
                                              : next.allocateCleared(next.context, count, size);
            },
            [](void* context, void* block, std::size_t size) {
                const Allocator& next = original(context);
                return isToFail(Kind::Python) ? nullptr : next.resize(next.context, block, size);
            },
            [](void* context, void* block) {
                original(context).free(original(context).context, block);
            }};
        write(domains[i], &wrapper);
    }
}

void* allocate(std::size_t size)
{
    return isToFail(Kind::Cpp) ? nullptr : std::malloc(size != 0 ? size : 1);
}

} // namespace

void failing_memory::arm(Kind kind, int successes)
{
    if (kind == Kind::Python)
        wrapPythonsAllocators();
    order = {.kind = kind, .successes = successes, .isActive = true, .hasFailed = false};
}

bool failing_memory::disarm()
{
    order.isActive = false;
    return order.hasFailed;
}

void* operator new(std::size_t size)
{
    if (void* const block = allocate(size))
        return block;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
