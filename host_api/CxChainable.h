// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// An element of a processing chain.
#pragma once

#include <QtCore/QtPlugin>

class CxChain;
class QDomElement;

/// Takes an image, changes it, hands it to the next element. Classes of elements are found through
/// CxRTTI by the name of this interface. GUI thread; a chain must be stopped while it is changed.
class CxChainable {
public:
    virtual ~CxChainable() = default;

    /// The chain that the element belongs to; null when it belongs to none.
    virtual CxChain* chain() = 0;
    /// Reads the element's settings from the attributes of a "conf" element. An attribute that is
    /// wrong is logged and left at its default.
    virtual void configure(const QDomElement& conf) = 0;
    /// Switches the element on or off; off it hands images on as they are.
    virtual void setEnabled(bool on) = 0;
};

#define CxChainable_iid "com.kovra.CxChainable"
Q_DECLARE_INTERFACE(CxChainable, CxChainable_iid)
