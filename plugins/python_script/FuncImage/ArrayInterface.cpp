// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads another object's `__array_interface__`.
#include "FuncImage/ArrayInterface.h"

#include "Logging.h"
#include "PyText.h"

#include <optional>
#include <vector>

using python::PyRef;

namespace array_interface {

namespace {

constexpr char noShape[] = "No shape provided in __array_interface__";
constexpr char badShape[] = "unsupported shape in __array_interface__";
constexpr char noTypestr[] = "No typestr provided in __array_interface__";
constexpr char badType[] = "unsupported data type in __array_interface__";
constexpr char badStrides[] = "unsupported strides in __array_interface__";
constexpr char noData[] = "No data provided in __array_interface__";
constexpr char dataNoTuple[] = "Data in __array_interface__ not as tuple";
constexpr char nullData[] = "Null data provided in __array_interface__";

/// An entry of the dictionary, or none. Held, because reading another one may run code of a script.
PyRef entryOf(PyObject* interface, const char* key)
{
    return PyRef::retain(PyDict_GetItemString(interface, key));
}

/// The integers of a tuple; nothing when it is no tuple or holds something else.
std::optional<std::vector<qint64>> integersOf(PyObject* object)
{
    if (!PyTuple_Check(object))
        return std::nullopt;
    std::vector<qint64> numbers;
    for (Py_ssize_t i = 0; i < PyTuple_Size(object); ++i) {
        // Asked for as an index: older interpreters would cut a float off.
        const PyRef index = PyRef::take(PyNumber_Index(PyTuple_GetItem(object, i)));
        const long long number = index ? PyLong_AsLongLong(index.get()) : -1;
        if (number == -1 && PyErr_Occurred() != nullptr) {
            PyErr_Clear();
            return std::nullopt;
        }
        numbers.push_back(number);
    }
    return numbers;
}

/// @param dimensions  set to the number of sizes, 1 to 3.
const char* readShape(PyObject* interface, ArraySource& source, std::size_t& dimensions)
{
    const PyRef shape = entryOf(interface, "shape");
    if (!shape)
        return noShape;
    const auto sizes = integersOf(shape.get());
    if (!sizes || sizes->empty() || sizes->size() > 3)
        return badShape;
    dimensions = sizes->size();
    source.height = sizes->at(0);
    source.width = sizes->size() > 1 ? sizes->at(1) : 1;
    source.channels = sizes->size() > 2 ? sizes->at(2) : 1;
    return nullptr;
}

struct ElementType {
    char kind;
    char size;
    ExImageDataType type;
};

constexpr ElementType elementTypes[] = {
    {'u', '1', ExImageDataType::UInt8},  {'u', '2', ExImageDataType::UInt16},
    {'u', '4', ExImageDataType::UInt32}, {'u', '8', ExImageDataType::UInt64},
    {'i', '1', ExImageDataType::Int8},   {'i', '2', ExImageDataType::Int16},
    {'i', '4', ExImageDataType::Int32},  {'i', '8', ExImageDataType::Int64},
    {'f', '4', ExImageDataType::Float},  {'f', '8', ExImageDataType::Double},
};

/// The first character, the byte order, is not looked at: data is copied as it is.
bool readElementType(const std::string& typestr, ArraySource& source)
{
    if (typestr.size() <= 2)
        return false;
    const char kind = typestr[1];
    const char size = typestr[2];
    for (const ElementType& known : elementTypes) {
        if (known.kind == kind && known.size == size) {
            source.dataType = known.type;
            source.elementSize = static_cast<quint32>(size - '0');
            return true;
        }
    }
    // Other kinds make a picture without a type, into which nothing is copied.
    const bool isKnownKind = kind == 'u' || kind == 'i' || kind == 'f';
    const bool isDigit = size >= '1' && size <= '9';
    source.elementSize = isDigit ? static_cast<quint32>(size - '0') : 1;
    return !isKnownKind;
}

const char* readType(PyObject* interface, ArraySource& source)
{
    const PyRef typestr = entryOf(interface, "typestr");
    if (!typestr)
        return noTypestr;
    const auto text = python::utf8Of(typestr.get());
    if (text && readElementType(*text, source))
        return nullptr;
    logCritical("ArrInt = unsupported data type provided: %1",
                QString::fromStdString(text.value_or("")));
    return badType;
}

const char* readStrides(PyObject* interface, std::size_t dimensions, ArraySource& source)
{
    source.setContiguousSteps();
    const PyRef strides = entryOf(interface, "strides");
    if (!strides || !PyTuple_Check(strides.get()))
        return nullptr;
    const auto steps = integersOf(strides.get());
    if (!steps || steps->size() != dimensions)
        return badStrides;
    source.pixelStep = steps->front();
    source.lineStep = dimensions > 1 ? steps->at(1) : source.pixelStep;
    if (dimensions != 2)
        source.channelStep = steps->back();
    return nullptr;
}

const char* readData(PyObject* interface, ArraySource& source)
{
    const PyRef data = entryOf(interface, "data");
    if (!data)
        return noData;
    if (!PyTuple_Check(data.get()))
        return dataNoTuple;
    if (PyTuple_Size(data.get()) < 1)
        return nullData;
    const unsigned long long address = PyLong_AsUnsignedLongLong(PyTuple_GetItem(data.get(), 0));
    if (PyErr_Occurred() != nullptr) {
        PyErr_Clear();
        return nullData;
    }
    source.data = reinterpret_cast<const quint8*>(static_cast<quintptr>(address));
    return source.data != nullptr ? nullptr : nullData;
}

} // namespace

Outcome<ArraySource> read(PyObject* interface)
{
    ArraySource source;
    std::size_t dimensions = 0;
    const char* error = readShape(interface, source, dimensions);
    if (error == nullptr)
        error = readType(interface, source);
    if (error == nullptr)
        error = readStrides(interface, dimensions, source);
    if (error == nullptr)
        error = readData(interface, source);
    if (error != nullptr)
        return Refusal{error};
    return source;
}

Outcome<bool> checkInside(const ArraySource& source, const quint8* block, quint64 size)
{
    const array_pixels::Reach reach = array_pixels::reachOf(source);
    const qint64 begin = source.data - block;
    if (begin + reach.first < 0 || begin + reach.last > static_cast<qint64>(size))
        return Refusal{array_pixels::outsideMemory};
    return true;
}

} // namespace array_interface
