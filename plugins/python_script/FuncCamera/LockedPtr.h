// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A shared value that is used under the interpreter lock alone.
#pragma once

#include <utility>

/// Shares a constant value among owners that all hold the interpreter lock: a plain count does
/// in the place of an atomic one.
template<class T>
class LockedPtr {
public:
    LockedPtr() = default;
    explicit LockedPtr(T value)
        : m_shared(new Shared{std::move(value)})
    {
    }
    LockedPtr(const LockedPtr& other)
        : m_shared(other.m_shared)
    {
        if (m_shared != nullptr)
            ++m_shared->owners;
    }
    LockedPtr(LockedPtr&& other) noexcept
        : m_shared(std::exchange(other.m_shared, nullptr))
    {
    }
    LockedPtr& operator=(LockedPtr other) noexcept
    {
        std::swap(m_shared, other.m_shared);
        return *this;
    }
    ~LockedPtr()
    {
        if (m_shared != nullptr && --m_shared->owners == 0)
            delete m_shared;
    }

    explicit operator bool() const { return m_shared != nullptr; }
    const T& operator*() const { return m_shared->value; }
    const T* operator->() const { return &m_shared->value; }

private:
    struct Shared {
        T value;
        int owners = 1;
    };

    Shared* m_shared = nullptr;
};
