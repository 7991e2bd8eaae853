// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Changes to processing chains.
#pragma once

class CxChain;
class CxChainable;

/// The chain singleton. GUI thread.
class CxChainManager {
public:
    /// The manager; never null while the host is up.
    static CxChainManager* instance();

    /// Puts an element directly in front of another one. The chain is stopped and owns the element
    /// from now on.
    virtual void insertBefore(CxChain* chain, CxChainable* element, CxChainable* before) = 0;

protected:
    ~CxChainManager() = default;
};
