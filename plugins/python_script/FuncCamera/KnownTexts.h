// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Names of attributes and parameters that scripts have used, in the host's form.
#pragma once

#include "FuncCamera/LockedPtr.h"
#include "FuncCamera/ParameterAttribute.h"
#include "FuncCamera/TextCache.h"

namespace known_texts {

/// Attributes of camera objects, taken apart. Null for unknown ones.
extern TextCache<LockedPtr<ParameterAttribute>>& attributes;
/// Keys that were given to get_param(). Empty for unknown ones.
extern TextCache<QString>& keys;

/// To be called when a new interpreter has started: all texts belong to the last one.
void forget();

} // namespace known_texts
