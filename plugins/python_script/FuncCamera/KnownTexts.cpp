// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Names of attributes and parameters that scripts have used.
#include "FuncCamera/KnownTexts.h"

namespace known_texts {

// They are never deleted: at the end of the process the interpreter that their texts belong to is
// gone.

TextCache<std::shared_ptr<const ParameterAttribute>>& attributes =
    *new TextCache<std::shared_ptr<const ParameterAttribute>>;

TextCache<QString>& keys = *new TextCache<QString>;

void forget()
{
    attributes.forget();
    keys.forget();
}

} // namespace known_texts
