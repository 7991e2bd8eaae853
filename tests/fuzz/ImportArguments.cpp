// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Arguments of Image.from_array() made from bytes.
#include "ImportArguments.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#include <string>

using python::PyRef;

namespace {

constexpr int deepest = 4;

constexpr const char* knownTypes[] = {"|u1", "<u2", "<u4", "<u8", "|i1", "<i2", "<i4",
                                      "<i8", "<f4", "<f8", "|b1", "<c8", ">u2", "<f2"};

} // namespace

ForeignMemory::ForeignMemory()
{
    constexpr std::size_t reach = std::size_t{3} << 30;
    void* const reserved =
        mmap(nullptr, 2 * reach, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (reserved == MAP_FAILED)
        std::abort();
    m_window = static_cast<unsigned char*>(reserved) + reach;
    if (mprotect(m_window, size, PROT_READ | PROT_WRITE) != 0)
        std::abort();
    for (std::size_t i = 0; i < size; ++i)
        m_window[i] = static_cast<unsigned char>(i * 7 + i / 256);
}

unsigned long long ForeignMemory::address() const { return reinterpret_cast<uintptr_t>(m_window); }

ImportArguments::ImportArguments(FuzzedDataProvider& bytes, const ForeignMemory& memory)
    : m_bytes(bytes)
    , m_memory(memory)
{
}

PyRef ImportArguments::argument()
{
    const int kind = m_bytes.ConsumeIntegralInRange(0, 15);
    if (kind == 0)
        return anything(0);
    if (kind < 6)
        return nestedList(m_bytes.ConsumeIntegralInRange(1, deepest));
    const PyRef types = PyRef::take(PyImport_ImportModule("types"));
    const PyRef holder = PyRef::take(PyObject_GetAttrString(types.get(), "SimpleNamespace"));
    PyRef source = PyRef::take(PyObject_CallObject(holder.get(), nullptr));
    const PyRef value = isOdd() ? anything(0) : interface();
    PyObject_SetAttrString(source.get(), "__array_interface__", value.get());
    return source;
}

PyRef ImportArguments::interface()
{
    PyRef dictionary = PyRef::take(PyDict_New());
    const auto set = [&](const char* key, const PyRef& value) {
        PyDict_SetItemString(dictionary.get(), key, value.get());
    };
    if (!isOdd())
        set("shape", shape());
    if (!isOdd())
        set("typestr", typestr());
    if (m_bytes.ConsumeBool())
        set("strides", strides());
    if (!isOdd())
        set("data", data());
    return dictionary;
}

PyRef ImportArguments::shape()
{
    if (isOdd())
        return anything(0);
    const int count =
        isOdd() ? m_bytes.ConsumeIntegralInRange(0, 5) : m_bytes.ConsumeIntegralInRange(1, 3);
    return tupleOf(count, [this] {
        return isOdd() ? anything(0)
                       : PyRef::take(PyLong_FromLong(m_bytes.ConsumeIntegralInRange(1, 40)));
    });
}

PyRef ImportArguments::typestr()
{
    if (isOdd())
        return anything(0);
    return isOdd() ? text()
                   : PyRef::take(PyUnicode_FromString(m_bytes.PickValueInArray(knownTypes)));
}

PyRef ImportArguments::strides()
{
    if (isOdd())
        return anything(0);
    return tupleOf(m_bytes.ConsumeIntegralInRange(0, 4), [this] {
        return isOdd() ? anything(0)
                       : PyRef::take(PyLong_FromLong(m_bytes.ConsumeIntegralInRange(-900, 900)));
    });
}

PyRef ImportArguments::data()
{
    if (isOdd())
        return anything(0);
    return tupleOf(isOdd() ? m_bytes.ConsumeIntegralInRange(0, 3) : 2,
                   [this] { return address(); });
}

/// Of the window mostly, else where no memory can be: what else the process has may be read.
PyRef ImportArguments::address()
{
    if (isOdd())
        return PyRef::take(PyLong_FromLong(m_bytes.ConsumeIntegralInRange(-3, 65535)));
    if (isOdd())
        return PyRef::take(PyLong_FromUnsignedLongLong(
            m_bytes.ConsumeIntegralInRange<std::uint64_t>(std::uint64_t{1} << 63, UINT64_MAX)));
    const auto offset = m_bytes.ConsumeIntegralInRange<std::uint64_t>(0, ForeignMemory::size - 1);
    return PyRef::take(PyLong_FromUnsignedLongLong(m_memory.address() + offset));
}

PyRef ImportArguments::nestedList(int depth)
{
    const bool isFloat = m_bytes.ConsumeBool();
    return listOf(m_bytes.ConsumeIntegralInRange(0, 9), [this, depth, isFloat] {
        if (isOdd())
            return anything(0);
        return depth > 1 ? nestedList(depth - 1) : leaf(isFloat);
    });
}

PyRef ImportArguments::leaf(bool isFloat)
{
    return isFloat ? PyRef::take(PyFloat_FromDouble(m_bytes.ConsumeFloatingPoint<double>()))
                   : integer();
}

PyRef ImportArguments::anything(int depth)
{
    const auto next = [this, depth] { return anything(depth + 1); };
    switch (m_bytes.ConsumeIntegralInRange(0, depth < deepest ? 8 : 4)) {
    case 0:
        return PyRef::retain(m_bytes.ConsumeBool() ? Py_None : Py_True);
    case 1:
    case 2:
        return integer();
    case 3:
        return leaf(true);
    case 4:
        return text();
    case 5:
        return tupleOf(m_bytes.ConsumeIntegralInRange(0, 4), next);
    case 6:
        return PyRef::take(PyDict_New());
    case 7:
        return PyRef::take(PyBytes_FromString(m_bytes.ConsumeRandomLengthString(8).c_str()));
    default:
        return listOf(m_bytes.ConsumeIntegralInRange(0, 4), next);
    }
}

/// Of any size, also beyond 64 bits.
PyRef ImportArguments::integer()
{
    const PyRef number = PyRef::take(PyLong_FromLongLong(m_bytes.ConsumeIntegral<std::int64_t>()));
    const PyRef shift = PyRef::take(PyLong_FromLong(m_bytes.ConsumeIntegralInRange(0, 63)));
    return PyRef::take(m_bytes.ConsumeBool() ? PyNumber_Rshift(number.get(), shift.get())
                                             : PyNumber_Lshift(number.get(), shift.get()));
}

PyRef ImportArguments::text()
{
    const std::string bytes = m_bytes.ConsumeRandomLengthString(12);
    // Lone surrogates stand for what is no UTF-8: such texts cannot be read as that.
    return PyRef::take(PyUnicode_DecodeUTF8(bytes.data(), static_cast<Py_ssize_t>(bytes.size()),
                                            "surrogateescape"));
}

bool ImportArguments::isOdd() { return m_bytes.ConsumeIntegralInRange(0, 15) == 15; }

template<class Make>
PyRef ImportArguments::tupleOf(int count, Make make)
{
    PyRef tuple = PyRef::take(PyTuple_New(count));
    for (int i = 0; i < count; ++i)
        PyTuple_SetItem(tuple.get(), i, make().release());
    return tuple;
}

template<class Make>
PyRef ImportArguments::listOf(int count, Make make)
{
    PyRef list = PyRef::take(PyList_New(0));
    for (int i = 0; i < count; ++i) {
        const PyRef item = make();
        PyList_Append(list.get(), item.get());
    }
    return list;
}
