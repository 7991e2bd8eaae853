# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Finds the Python that VISTREL_PYTHON names. Left to itself, CMake takes whatever python3 comes
# first on PATH, which may be one without a shared library.

set(Python3_EXECUTABLE "${VISTREL_PYTHON}")
find_package(Python3 3.8 REQUIRED COMPONENTS Interpreter Development.Embed)
