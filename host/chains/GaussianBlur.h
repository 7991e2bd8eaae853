// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Gaussian Blur".
#pragma once

#include "chains/ChainElement.h"
#include "chains/ResultPicture.h"

namespace vistrel {

/// Smooths a picture. Raw data is blurred each colour by itself, in pixels of that colour.
class GaussianBlur : public ChainElement {
    Q_OBJECT
    Q_CLASSINFO("customName", "Gaussian Blur")

public:
    GaussianBlur();

private:
    QString apply(CxImageData& image) override;

    ResultPicture m_result;
};

} // namespace vistrel
