// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The base of tests of the plugin's helpers: an interpreter of the test's own.
#pragma once

#include "PyErrors.h"
#include "PyText.h"

#include <gtest/gtest.h>

#include <string>

/// Starts the interpreter with a module `probe` that holds the test's functions.
class PythonTest : public testing::Test {
protected:
    PythonTest();
    ~PythonTest() override;

    /// Evaluates an expression in `__main__` and returns str() of it; a failure on any error.
    static std::string value(const char* expression);
    /// Runs statements in `__main__`; a failure on any error.
    static void run(const char* statements);
    /// Type and text of the pending error, which is cleared.
    static std::string takeError();
};
