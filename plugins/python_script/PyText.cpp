// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Texts between Python and Qt.
#include "PyText.h"

namespace python {

PyRef newText(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return PyRef::take(PyUnicode_FromStringAndSize(utf8.constData(), utf8.size()));
}

std::optional<std::string> utf8Of(PyObject* object)
{
    if (!PyUnicode_Check(object))
        return std::nullopt;
    const PyRef bytes = PyRef::take(PyUnicode_AsUTF8String(object));
    char* data = nullptr;
    Py_ssize_t size = 0;
    if (!bytes || PyBytes_AsStringAndSize(bytes.get(), &data, &size) != 0) {
        PyErr_Clear();
        return std::nullopt;
    }
    return std::string(data, static_cast<std::size_t>(size));
}

} // namespace python
