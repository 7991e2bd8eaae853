# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Makers of tests.

# What every test sees: no screen, and a Python that is not led astray by the developer's shell.
set(VISTREL_TEST_ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen" "PYTHONDONTWRITEBYTECODE=1"
    # Tests ask for pictures that no memory holds, and for some that hold most of it.
    "ASAN_OPTIONS=allocator_may_return_null=1:max_allocation_size_mb=1024"
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/sanitizers/lsan.supp:print_suppressions=0"
    "TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/sanitizers/tsan.supp"
    "UBSAN_OPTIONS=print_stacktrace=1")

# Seconds, for what hangs: nothing takes a tenth of it on a machine that does nothing else. What is
# checked at each step takes longer.
set(VISTREL_TEST_TIMEOUT 600)
if(VISTREL_SANITIZERS)
    set(VISTREL_TEST_TIMEOUT 1200)
endif()

# vistrel_gtest(NAME SOURCES... LIBRARIES... [LOCK RESOURCE]): a GoogleTest program, each case a ctest
# of its own. Cases and other tests with the same LOCK do not run at the same time.
function(vistrel_gtest name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "LOCK" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    vistrel_warnings(${name})
    if(VISTREL_SANITIZERS) # what the tests call is worth optimising, they themselves are not
        target_compile_options(${name} PRIVATE -O0)
    endif()
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/test-bin")
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gmock)
    gtest_discover_tests(
        ${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT ${VISTREL_TEST_TIMEOUT}
        PROPERTIES TIMEOUT ${VISTREL_TEST_TIMEOUT} RESOURCE_LOCK "${arg_LOCK}")
    # gtest_discover_tests keeps only the first entry of a list; the names that it found are known
    # when ctest starts.
    set(environment_file "${CMAKE_CURRENT_BINARY_DIR}/${name}_environment.cmake")
    file(WRITE "${environment_file}"
         "set_tests_properties(\${${name}_TESTS} PROPERTIES ENVIRONMENT "
         "\"${VISTREL_TEST_ENVIRONMENT}\")\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${environment_file}")
endfunction()

# vistrel_script_test(NAME SCRIPT [ARGS...] [ENVIRONMENT...]): a script of the calling folder, run by
# vistrel-run. It passes when it ends without writing anything to standard error, so a failed assert
# fails it. ARGS are options of vistrel-run, ENVIRONMENT holds entries NAME=VALUE.
function(vistrel_script_test name script)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "ARGS;ENVIRONMENT")
    add_test(NAME ${name} COMMAND "$<TARGET_FILE:vistrel-run>" ${arg_ARGS}
                                  "${CMAKE_CURRENT_SOURCE_DIR}/${script}")
    set_tests_properties(${name} PROPERTIES TIMEOUT ${VISTREL_TEST_TIMEOUT}
                         ENVIRONMENT "${VISTREL_TEST_ENVIRONMENT};${arg_ENVIRONMENT}")
endfunction()
