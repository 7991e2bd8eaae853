// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Sums from which minimum, maximum, mean, deviation and root mean square come, in one pass.
#pragma once

#include "core/ExactSums.h"
#include "core/Moments.h"

namespace vistrel {

template<class Element>
constexpr bool hasExactSums = std::is_integral_v<Element> && sizeof(Element) <= 2;

template<class Element>
struct SumsFor {
    using Channel = BlockMoments<Element>;
    using Columns = RunningColumnMoments<Element>;
};

template<class Element>
requires hasExactSums<Element>
struct SumsFor<Element> {
    using Channel = ExactSums<Element>;
    using Columns = ExactColumnSums<Element>;
};

} // namespace vistrel
