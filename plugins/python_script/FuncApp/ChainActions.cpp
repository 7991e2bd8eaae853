// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Changes to a view's processing chain.
#include "FuncApp/ChainActions.h"

#include "HostServices.h"

#include <CxChain.h>
#include <CxChainManager.h>
#include <CxChainable.h>
#include <CxMdiView.h>
#include <CxRTTI.h>
#include <IxAppDelegate.h>

#include <QtCore/QObject>

namespace chain_actions {

namespace {

constexpr char noSuchElement[] = "Cannot find chain object class";
constexpr char noActiveView[] = "No active view";

/// A chain stands still while this lives. One that stood still before is left so.
class StoppedChain {
public:
    explicit StoppedChain(CxChain& chain)
        : m_chain(chain)
        , m_isToStart(!chain.stopped())
    {
        if (m_isToStart)
            m_chain.stop();
    }
    StoppedChain(const StoppedChain&) = delete;
    StoppedChain& operator=(const StoppedChain&) = delete;
    ~StoppedChain()
    {
        try {
            restart();
        } catch (...) { // what is thrown already tells more
        }
    }

    void restart()
    {
        if (std::exchange(m_isToStart, false))
            m_chain.start();
    }

private:
    CxChain& m_chain;
    bool m_isToStart;
};

/// A new instance of the class of elements with that display name; null when there is none. An
/// instance of something else is left where it is: its class claims to be an element's, so what
/// becomes of it is the registry's business.
CxChainable* newElement(const QString& displayName)
{
    for (const QString& className :
         host_services::classes().classesForInterface(QStringLiteral("CxChainable"), true)) {
        if (CxRTTI::customNameForClass(className).compare(displayName, Qt::CaseInsensitive) == 0)
            return dynamic_cast<CxChainable*>(CxRTTI::createInstanceOfClass(className));
    }
    return nullptr;
}

} // namespace

Outcome<bool> insertElement(const QString& name, const QDomElement& conf)
{
    CxChainable* const element = newElement(name);
    if (element == nullptr)
        return Refusal{noSuchElement};
    IxAppDelegate& application = host_services::application();
    CxMdiView* const view = application.view(application.activeViewId());
    if (view == nullptr)
        return Refusal{noActiveView};
    CxChainable* const chainEnd = view->chainEnd();
    CxChain* const chain = chainEnd != nullptr ? chainEnd->chain() : nullptr;
    if (chain == nullptr)
        return silentRefusal;
    CxChainManager& manager = host_services::chains();

    StoppedChain stopped(*chain);
    element->configure(conf);
    element->setEnabled(true);
    manager.insertBefore(chain, element, chainEnd);
    stopped.restart();
    return true;
}

} // namespace chain_actions
