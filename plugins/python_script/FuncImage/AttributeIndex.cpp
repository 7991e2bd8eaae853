// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finds an attribute's number by its name.
#include "FuncImage/AttributeIndex.h"

using python::PyRef;

bool AttributeIndex::add(const char* name, int number)
{
    PyRef text = PyRef::take(PyUnicode_InternFromString(name));
    if (!m_numbersByText)
        m_numbersByText = PyRef::take(PyDict_New());
    const PyRef value = PyRef::take(PyLong_FromLong(number));
    if (!text || !m_numbersByText || !value
        || PyDict_SetItem(m_numbersByText.get(), text.get(), value.get()) != 0)
        return false;
    std::size_t slot = python::addressHash(text.get());
    while (m_slots[slot].name)
        slot = (slot + 1) & (capacity - 1);
    m_slots[slot] = Slot{std::move(text), number};
    return true;
}

int AttributeIndex::find(PyObject* name) const
{
    for (std::size_t slot = python::addressHash(name); m_slots[slot].name;
         slot = (slot + 1) & (capacity - 1)) {
        if (m_slots[slot].name.get() == name)
            return m_slots[slot].number;
    }
    return findByText(name);
}

int AttributeIndex::findByText(PyObject* name) const
{
    if (!PyUnicode_Check(name))
        return none;
    PyObject* number = PyDict_GetItemWithError(m_numbersByText.get(), name);
    if (number == nullptr)
        return PyErr_Occurred() != nullptr ? failed : none;
    return static_cast<int>(PyLong_AsLong(number));
}
