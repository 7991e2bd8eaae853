// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Flip".
#pragma once

#include "chains/ChainElement.h"
#include "chains/ResultPicture.h"

namespace vistrel {

/// Mirrors a picture. Works on pixels of every kind; a colour filter's pattern goes along.
class Flip : public ChainElement {
    Q_OBJECT
    Q_CLASSINFO("customName", "Flip")

public:
    Flip();

private:
    QString apply(CxImageData& image) override;

    ResultPicture m_result;
};

} // namespace vistrel
