# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# What can be switched when configuring, and settings for the whole build tree.

option(VISTREL_BUILD_TESTS "Build the tests" ON)
option(VISTREL_BUILD_BENCHMARKS "Build the benchmarks" ON)
option(VISTREL_BUILD_FUZZERS "Build the fuzzers; needs clang, see the preset fuzz" OFF)
set(VISTREL_PYTHON "/usr/bin/python3" CACHE FILEPATH
    "The Python, 3.8 or later, whose library the plugin is built against")
set(VISTREL_SANITIZERS "" CACHE STRING
    "Sanitizers for all our code, for example \"address;undefined\"")

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME runtime)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)

# One layout for the build tree and the installation, so that programs find the plugin, the host's
# library and its modules by the same relative paths in both.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib/vistrel")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../lib/vistrel")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Precompiled headers are cached only when told that they may.
    set(launcher "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros
                 "${CCACHE_PROGRAM}")
    set(CMAKE_C_COMPILER_LAUNCHER "${launcher}")
    set(CMAKE_CXX_COMPILER_LAUNCHER "${launcher}")
endif()
find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
    add_link_options(-fuse-ld=mold)
endif()

if(VISTREL_SANITIZERS)
    list(JOIN VISTREL_SANITIZERS "," sanitizer_list)
    add_compile_options(-fsanitize=${sanitizer_list} -fno-omit-frame-pointer
                        -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=${sanitizer_list})
endif()
