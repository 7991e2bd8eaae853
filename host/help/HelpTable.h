// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The tables that generate_help.py makes from vistrel.pyi; who wants one text asks HelpTexts.h.
#pragma once

#include <span>
#include <string_view>

namespace vistrel {

/// One help text: UTF-8, ended by a zero, alive as long as the library is loaded.
struct HelpEntry {
    std::string_view owner; ///< a module, or the host's name of a type
    std::string_view name;
    const char* text;
};

/// All texts of module functions, in the stub's order.
std::span<const HelpEntry> functionHelpTable();
/// All texts of methods, in the stub's order.
std::span<const HelpEntry> methodHelpTable();
/// All texts of attributes, in the stub's order; the first line is "name: type".
std::span<const HelpEntry> attributeHelpTable();

} // namespace vistrel
