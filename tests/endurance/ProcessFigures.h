// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the process holds at a moment.
#pragma once

struct ProcessFigures {
    static ProcessFigures now();

    double bytes = 0; ///< of memory that no file backs, from the page tables
    int threads = 0;
    int files = 0; ///< open ones, sockets and pipes too
};
