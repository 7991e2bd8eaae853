// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What is to be set of a camera: values of what it has once, and of what selectors show.
#pragma once

#include "cameras/NodeValue.h"

#include <map>
#include <vector>

namespace vistrel {

/// Values by the names of the camera's nodes.
using NodeValues = std::map<QString, NodeValue>;

/// Values that a camera shows while selectors stand somewhere.
struct SelectedValues {
    NodeValues position; ///< of the selectors
    NodeValues values;
};

/// All that is to be set of a camera.
struct CameraValues {
    NodeValues values; ///< of what there is once, selectors among them
    std::vector<SelectedValues> selected;
};

} // namespace vistrel
