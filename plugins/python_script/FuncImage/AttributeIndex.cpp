// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finds an attribute's number by its name.
#include "FuncImage/AttributeIndex.h"

#include "PyText.h"

#include <cstdint>

using python::PyRef;

std::size_t AttributeIndex::firstSlot(PyObject* name)
{
    // Objects are 16 bytes apart at least; the multiplier is the golden ratio's, as in Fibonacci
    // hashing.
    const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(name)) >> 4U;
    return static_cast<std::size_t>((address * 0x9E3779B97F4A7C15ULL) >> 56U) & (capacity - 1);
}

bool AttributeIndex::add(const char* name, int number)
{
    PyRef text = PyRef::take(PyUnicode_InternFromString(name));
    if (!m_numbersByText)
        m_numbersByText = PyRef::take(PyDict_New());
    const PyRef value = PyRef::take(PyLong_FromLong(number));
    if (!text || !m_numbersByText || !value
        || PyDict_SetItem(m_numbersByText.get(), text.get(), value.get()) != 0)
        return false;
    std::size_t slot = firstSlot(text.get());
    while (m_slots[slot].name)
        slot = (slot + 1) & (capacity - 1);
    m_slots[slot] = Slot{std::move(text), number};
    return true;
}

int AttributeIndex::find(PyObject* name) const
{
    for (std::size_t slot = firstSlot(name); m_slots[slot].name;
         slot = (slot + 1) & (capacity - 1)) {
        if (m_slots[slot].name.get() == name)
            return m_slots[slot].number;
    }
    return findByText(name);
}

int AttributeIndex::findByText(PyObject* name) const
{
    if (!python::isText(name))
        return none;
    PyObject* number = PyDict_GetItemWithError(m_numbersByText.get(), name);
    if (number == nullptr)
        return PyErr_Occurred() != nullptr ? failed : none;
    return static_cast<int>(PyLong_AsLong(number));
}
