// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Remembers what was made of the texts in a script's code.
#pragma once

#include "AddressHash.h"
#include "PyRef.h"

#include <array>

/// Names and constants in a script's code are the same object each time they are met, so what was
/// made of one is found by its address alone: no conversion from Python's form of texts to Qt's, no
/// parsing. A text object never changes, and the cache holds it, so that no other one gets its
/// address. A newer text takes the place of an older one: what find() returns is a copy.
template<class Value>
class TextCache {
public:
    /// What was made of that very object; the empty value when it is not there.
    Value find(PyObject* text) const
    {
        const Slot& slot = m_slots[python::addressHash(text)];
        return slot.text.get() == text ? slot.value : Value();
    }

    /// Remembers what was made of a text. Objects of classes derived from str are a script's own
    /// and not to be held; long texts are not worth their memory.
    void add(PyObject* text, const Value& value)
    {
        if (PyUnicode_CheckExact(text) && PyUnicode_GetLength(text) <= longest)
            m_slots[python::addressHash(text)] = Slot{python::PyRef::retain(text), value};
    }

    /// For a new interpreter: the texts were the last one's, which took them with it.
    void forget()
    {
        for (Slot& slot : m_slots) {
            static_cast<void>(slot.text.release());
            slot.value = Value();
        }
    }

private:
    static constexpr Py_ssize_t longest = 100;

    struct Slot {
        python::PyRef text;
        Value value;
    };

    std::array<Slot, python::addressHashes> m_slots;
};
