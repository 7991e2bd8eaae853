// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the names of dynamic attributes apart.
#include "FuncCamera/ParameterAttribute.h"

namespace {

using Access = ParameterAttribute::Access;

struct Prefix {
    QLatin1String text;
    Access access;
};

const Prefix prefixes[] = {
    {QLatin1String("set_"), Access::Set},         {QLatin1String("get_"), Access::Get},
    {QLatin1String("is_"), Access::Get},          {QLatin1String("enable_"), Access::Enable},
    {QLatin1String("disable_"), Access::Disable},
};

/// An ending of an attribute and what it is in a key.
struct Ending {
    QLatin1String text;
    QLatin1String suffix;
};

const Ending endings[] = {
    {QLatin1String("_maximum"), QLatin1String(":max")},
    {QLatin1String("_minimum"), QLatin1String(":min")},
    {QLatin1String("_increment"), QLatin1String(":inc")},
};

/// A name that begins with its ending has no parameter before it: there it is no ending.
bool endsWith(const QString& name, QLatin1String ending)
{
    return name.size() > ending.size() && name.endsWith(ending);
}

} // namespace

ParameterAttribute ParameterAttribute::parse(const QString& name)
{
    for (const Prefix& prefix : prefixes) {
        if (!name.startsWith(prefix.text))
            continue;
        const QString rest = name.mid(prefix.text.size());
        for (const Ending& ending : endings) {
            if (endsWith(rest, ending.text)) {
                const QString parameter = rest.chopped(ending.text.size());
                return {prefix.access, parameter, parameter + ending.suffix};
            }
        }
        return {prefix.access, rest, rest};
    }
    return {};
}
