// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The chain singleton.
#pragma once

#include <CxChainManager.h>

namespace vistrel {

class ChainManager : public CxChainManager {
public:
    /// The element belongs to the chain afterwards, or is deleted when it cannot go there: when
    /// there is no such chain, or the element is none of this host's. One that is in a chain
    /// already stays there. Both are logged. An element for which there is no such place goes to
    /// the chain's end. A chain that runs is stopped for the insertion.
    void insertBefore(CxChain* chain, CxChainable* element, CxChainable* before) override;
};

} // namespace vistrel
