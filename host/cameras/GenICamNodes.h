// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Values of a device's GenICam nodes, to and from the host's typed values.
#pragma once

#include "cameras/CameraParameters.h"

namespace vistrel {

/// What became of reading or writing a node.
struct NodeResult {
    ParameterStatus status = ParameterStatus::Done;
    QString reason; ///< for people; empty when it is done

    bool done() const { return status == ParameterStatus::Done; }
};

/// Reads the node of that name; `value` is left alone on failure. An integer that does not fit into
/// 32 bits is given as its decimal text, an enumeration as its entry's name.
NodeResult readNode(ArvDevice* device, const QString& name, CxValue& value);
/// Writes the node of that name, or executes it when it is a command.
NodeResult writeNode(ArvDevice* device, const QString& name, const CxValue& value);

} // namespace vistrel
