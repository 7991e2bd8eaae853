# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Makers of tests.

# What every test sees: no screen, and a Python that is not led astray by the developer's shell.
set(VISTREL_TEST_ENVIRONMENT "QT_QPA_PLATFORM=offscreen" "PYTHONDONTWRITEBYTECODE=1")

# vistrel_gtest(NAME SOURCES... LIBRARIES...): a GoogleTest program, each case a ctest of its own.
function(vistrel_gtest name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    vistrel_warnings(${name})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gmock)
    gtest_discover_tests(
        ${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 120 ENVIRONMENT "${VISTREL_TEST_ENVIRONMENT}")
endfunction()
