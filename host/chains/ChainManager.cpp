// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Changes to processing chains that come from plugins.
#include "chains/ChainManager.h"

#include "chains/Chain.h"
#include "core/Log.h"

namespace vistrel {

void ChainManager::insertBefore(CxChain* chain, CxChainable* element, CxChainable* before)
{
    if (element == nullptr)
        return;
    if (element->chain() != nullptr) {
        logError(QObject::tr("An element that is in a chain already cannot go into another one"));
        return;
    }
    auto* const target = dynamic_cast<Chain*>(chain);
    auto* const own = dynamic_cast<ChainElement*>(element);
    if (target == nullptr || own == nullptr) {
        logError(QObject::tr("A processing element was not added: %1")
                     .arg(target == nullptr ? QObject::tr("there is no such chain")
                                            : QObject::tr("it cannot process pictures")));
        delete element;
        return;
    }
    target->insertBefore(std::unique_ptr<ChainElement>(own), before);
}

} // namespace vistrel
