# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# What every target of ours has in common.

# Warnings are errors on our own code; headers of libraries are system headers.
function(vistrel_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
    target_compile_definitions(
        ${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_FOREACH
                          QT_DISABLE_DEPRECATED_BEFORE=0x060400)
endfunction()

# vistrel_sanitized_pieces(TARGET [FILES...]): under the sanitizers sources are compiled several at once,
# which takes a fifth of the time. FILES stay alone: they have names of their own that others have too.
function(vistrel_sanitized_pieces target)
    if(VISTREL_SANITIZERS AND NOT VISTREL_BUILD_FUZZERS)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
        set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
endfunction()
