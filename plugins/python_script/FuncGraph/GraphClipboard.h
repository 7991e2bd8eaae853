// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A series as text on the system's clipboard.
#pragma once

#include "FuncGraph/GraphData.h"

#include <QtCore/QString>

namespace graph_clipboard {

/// A line "x", tab, "y", then one for each point in the order added, with 16 significant digits.
QString textOf(const CxGraphData::CxSeries& series);

/// Puts the text on the clipboard. Returns an error only for a thread other than the GUI's, which
/// must not touch it; a host without a clipboard is left alone, and failures are not reported.
const char* copy(const CxGraphData::CxSeries& series);

} // namespace graph_clipboard
