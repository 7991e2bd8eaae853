// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What became of reading or writing a camera's node, and what a node takes.
#pragma once

#include "cameras/NodeValue.h"

#include <QtCore/QString>

namespace vistrel {

/// What getParamDirect() and setParamDirect() report through their status.
enum class ParameterStatus : int {
    Done = 0,
    Unknown = 1,       ///< the camera has no parameter of that name
    WrongType = 2,     ///< the parameter does not take, or give, such a value
    OutOfRange = 3,    ///< below the least, above the greatest, off the steps, or no entry
    NotAccessible = 4, ///< not readable, or not writable, at all or now
    Disconnected = 5,  ///< the connection to the camera broke
    Refused = 6,       ///< anything else that the camera or the way to it reports
};

/// What became of reading or writing.
struct NodeResult {
    ParameterStatus status = ParameterStatus::Done;
    QString reason; ///< for people; empty when it is done

    bool done() const { return status == ParameterStatus::Done; }
};

/// Limits of a number; those that a node does not have are no value. All three are whole numbers
/// for an integer node.
struct NodeLimits {
    NodeValue minimum;
    NodeValue maximum;
    NodeValue increment;
};

} // namespace vistrel
