// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Arguments of Image.from_array() made from bytes: nested lists, and objects with an array
// interface.
#pragma once

#include "PyRef.h"

#include <fuzzer/FuzzedDataProvider.h>

/// Memory for arrays: a readable window in the middle of memory that nobody may touch and that
/// offsets of 32 bits do not leave. So whatever is read outside the window ends the process.
class ForeignMemory {
public:
    ForeignMemory();

    static constexpr std::size_t size = std::size_t{1} << 20;
    unsigned long long address() const;

private:
    unsigned char* m_window;
};

/// Makes objects of the interpreter from bytes; no bytes are left when all of them are used up.
class ImportArguments {
public:
    ImportArguments(FuzzedDataProvider& bytes, const ForeignMemory& memory);

    /// An argument: a list, an object with an interface, or anything else.
    python::PyRef argument();

private:
    python::PyRef interface();
    python::PyRef shape();
    python::PyRef typestr();
    python::PyRef strides();
    python::PyRef data();
    python::PyRef address();
    python::PyRef nestedList(int depth);
    python::PyRef leaf(bool isFloat);
    python::PyRef anything(int depth);
    python::PyRef integer();
    python::PyRef text();

    /// True for one in sixteen: what is good goes on to the next check.
    bool isOdd();
    /// A tuple or list of up to `most` objects that `make` makes.
    template<class Make>
    python::PyRef tupleOf(int count, Make make);
    template<class Make>
    python::PyRef listOf(int count, Make make);

    FuzzedDataProvider& m_bytes;
    const ForeignMemory& m_memory;
};
