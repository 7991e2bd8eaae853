// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finds an attribute's number by its name with one hash look-up.
#pragma once

#include "AddressHash.h"
#include "PyRef.h"

#include <array>

/// Names in a script's code are interned: equal names are one object. So the index hashes addresses
/// first; only names that are not in it are looked up by their text, because getattr() may be given
/// a text of its own.
class AttributeIndex {
public:
    static constexpr int none = -1;
    static constexpr int failed = -2;

    /// Gives a name a number; `none` says for sure that it has none, which spares the second
    /// look-up. False with Python's error set when there is no memory.
    bool add(const char* name, int number);
    /// The name's number, or `none`; `failed`, with Python's error set, when comparing texts
    /// failed.
    int find(PyObject* name) const;

private:
    static constexpr std::size_t capacity = python::addressHashes; // sparsely filled

    struct Slot {
        python::PyRef name; ///< interned; holding it keeps the address from being used again
        int number = none;
    };

    int findByText(PyObject* name) const;

    std::array<Slot, capacity> m_slots;
    python::PyRef m_numbersByText; ///< a dict
};
