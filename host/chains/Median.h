// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing element "Median".
#pragma once

#include "chains/ChainElement.h"
#include "chains/ResultPicture.h"

namespace vistrel {

/// Replaces each value by the median of those around it: takes single wrong pixels out and keeps
/// edges. Raw data is taken each colour by itself, in pixels of that colour.
class Median : public ChainElement {
    Q_OBJECT
    Q_CLASSINFO("customName", "Median")

public:
    Median();

private:
    QString apply(CxImageData& image) override;

    ResultPicture m_result;
};

} // namespace vistrel
