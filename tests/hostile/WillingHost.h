// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A host of mocks that does all it is asked for, and a script that asks for all there is.
#pragma once

#include "CameraFixture.h"

#include <QtWidgets/QMenu>

/// One view with a picture and a chain, one camera with a parameter, one file format.
class WillingHost : public CameraTest {
protected:
    WillingHost();

    /// What comes of each call of the tour, as "name: result" or "name: error", in its order.
    QStringList tour();
    /// The calls of the tour from `first` on, each in a function of no arguments named in `calls`.
    static const char* const tourScript;

    using Element = testing::NiceMock<MockElement>;

    QMenu menu;
    std::unique_ptr<CxImageData> shown = makeImage(6, 4, 3, ExImageDataType::UInt8, 8);
    testing::NiceMock<MockMdiView> view;
    testing::NiceMock<MockChain> chain;
    Element end;
    Element element;
};
