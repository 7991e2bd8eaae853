// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Names of attributes and parameters that scripts have used.
#include "FuncCamera/KnownTexts.h"

namespace known_texts {

// They are never deleted: at the end of the process the interpreter that their texts belong to is
// gone.

TextCache<LockedPtr<ParameterAttribute>>& attributes =
    *new TextCache<LockedPtr<ParameterAttribute>>;

TextCache<QString>& keys = *new TextCache<QString>;

void forget()
{
    attributes.forget();
    keys.forget();
}

} // namespace known_texts
