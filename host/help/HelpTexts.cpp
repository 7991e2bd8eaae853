// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Look-up of help texts. Each is asked for once in a process, so the tables are simply walked.
#include "help/HelpTexts.h"

#include "help/HelpTable.h"

#include <algorithm>

namespace vistrel {
namespace {

const char* findHelp(std::span<const HelpEntry> table, const char* owner, const char* name)
{
    if (!owner || !name)
        return nullptr;
    const auto found = std::find_if(table.begin(), table.end(), [=](const HelpEntry& entry) {
        return entry.owner == owner && entry.name == name;
    });
    return found == table.end() ? nullptr : found->text;
}

} // namespace

const char* functionHelp(const char* module, const char* function)
{
    return findHelp(functionHelpTable(), module, function);
}

const char* methodHelp(const char* type, const char* method)
{
    return findHelp(methodHelpTable(), type, method);
}

} // namespace vistrel
