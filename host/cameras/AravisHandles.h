// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Owners for what Aravis hands out: references to its objects, and its errors.
#pragma once

#include <QtCore/QString>

#include <arv.h>

#include <utility>

namespace vistrel {

/// One reference to an object of Aravis, or none. Move-only.
template<class Object>
class ObjectRef {
public:
    ObjectRef() = default;
    ObjectRef(ObjectRef&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    ~ObjectRef() { reset(); }
    ObjectRef& operator=(ObjectRef other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    /// Owns a reference that the caller holds already; null is allowed.
    static ObjectRef take(Object* object) { return ObjectRef(object); }
    /// Adds a reference to an object that somebody else owns; it is not null.
    static ObjectRef share(Object* object)
    {
        g_object_ref(object);
        return ObjectRef(object);
    }

    Object* get() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    void reset()
    {
        if (Object* object = std::exchange(m_object, nullptr))
            g_object_unref(object);
    }
    /// Gives the reference away to a function that takes it over.
    Object* release() { return std::exchange(m_object, nullptr); }

private:
    explicit ObjectRef(Object* object)
        : m_object(object)
    {
    }

    Object* m_object = nullptr;
};

/// Receives the error of one call, or of several that stop at the first error.
class ArvFailure {
public:
    ArvFailure() = default;
    ArvFailure(const ArvFailure&) = delete;
    ArvFailure& operator=(const ArvFailure&) = delete;
    ~ArvFailure() { g_clear_error(&m_error); }

    /// Where the call puts its error; an earlier one is forgotten.
    GError** receive()
    {
        g_clear_error(&m_error);
        return &m_error;
    }
    explicit operator bool() const { return m_error != nullptr; }
    QString message() const { return m_error ? QString::fromUtf8(m_error->message) : QString(); }
    bool is(GQuark domain, int code) const { return g_error_matches(m_error, domain, code); }

private:
    GError* m_error = nullptr;
};

} // namespace vistrel
