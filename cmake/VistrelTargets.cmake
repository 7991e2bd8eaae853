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
