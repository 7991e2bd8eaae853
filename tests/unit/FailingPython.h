// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Functions of the Python library that fail on demand: the test program's own definitions come
// before those of the library.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// What fails while this lives. Everything else goes on to the library.
struct FailingPython {
    FailingPython();
    ~FailingPython();
    FailingPython(const FailingPython&) = delete;
    FailingPython& operator=(const FailingPython&) = delete;

    const char* typeName = nullptr;   ///< PyType_FromSpec of the type of this name
    const char* addedName = nullptr;  ///< PyModule_AddObject under this name
    const char* moduleName = nullptr; ///< PyImport_AppendInittab of this module
    const char* madeModule = nullptr; ///< PyModule_Create2 of the module of this name
    bool mainModule = false;          ///< PyImport_AddModule of `__main__`
    bool finalizeThrows = false;      ///< Py_Finalize, after it has done its work
};

/// Collects the lines that go to Qt's log while it lives.
class CollectedLog {
public:
    CollectedLog();
    ~CollectedLog();
    CollectedLog(const CollectedLog&) = delete;
    CollectedLog& operator=(const CollectedLog&) = delete;

    /// Whether a line ends like that.
    bool hasLineEndingWith(const QString& text) const;
};
