// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Files that take only so many bytes: what a full disk does, without one.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace vistrel::test {

/// Holds while it lives, for all files of the process.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_previous);
        const rlimit limit{bytes, m_previous.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_previous); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_previous{};
};

} // namespace vistrel::test
