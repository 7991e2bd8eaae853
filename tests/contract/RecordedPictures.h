// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A host's operations on pictures that write down how they are called and answer as a test wants.
// They take the place of the host's own in a program that exports its symbols.
#pragma once

#include <CxPicBufMeas.h>
#include <SxPicBuf.h>

#include <string>
#include <unordered_map>
#include <vector>

/// What the operations write and answer while this object lives. By default all goes well.
struct RecordedPictures {
    RecordedPictures();
    ~RecordedPictures();
    RecordedPictures(const RecordedPictures&) = delete;
    RecordedPictures& operator=(const RecordedPictures&) = delete;

    /// The calls, each as `Operation argument argument`. A picture is written as its name.
    std::vector<std::string> calls;
    /// Names of pictures by their pixel memory; allocated ones are named new1, new2 and so on.
    std::unordered_map<const quint8*, std::string> names;

    int allocationsLeft = 1000;
    bool succeeds = true; ///< what operations on pixels report
    bool areValuesValid = true;
    bool hasNegativeValues = false;
    unsigned bitDepth = 8;
    quint64 largestAbsolute = 0;
    CxHistoData histogram;
    CxProfileData profiles;
};
