// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Threshold".
#pragma once

#include "chains/ChainElement.h"
#include "chains/ResultPicture.h"

namespace vistrel {

/// Makes values above a level white and all others 0.
class Threshold : public ChainElement {
    Q_OBJECT
    Q_CLASSINFO("customName", "Threshold")

public:
    Threshold();

private:
    QString apply(CxImageData& image) override;

    ResultPicture m_result;
};

} // namespace vistrel
