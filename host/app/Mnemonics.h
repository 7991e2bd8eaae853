// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of buttons and menu entries as people read them.
#pragma once

#include <QtCore/QString>

namespace vistrel {

/// The text that is shown: "&Save && quit" reads "Save & quit".
QString withoutMnemonics(const QString& text);

} // namespace vistrel
