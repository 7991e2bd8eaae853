// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Rotate".
#pragma once

#include "chains/ChainElement.h"
#include "chains/ResultPicture.h"

namespace vistrel {

/// Turns a picture clockwise by quarters, so that every pixel stays what it is. Works on pixels of
/// every kind; a colour filter's pattern goes along.
class Rotate : public ChainElement {
    Q_OBJECT
    Q_CLASSINFO("customName", "Rotate")

public:
    Rotate();

private:
    QString apply(CxImageData& image) override;

    ResultPicture m_result;
};

} // namespace vistrel
