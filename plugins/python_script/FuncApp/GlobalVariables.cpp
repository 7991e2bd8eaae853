// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The shared variables.
#include "FuncApp/GlobalVariables.h"

#include <CxImageData.h>

#include <memory>
#include <utility>

QMutex g_lockGlobalVars;
QMap<QString, int> g_mapGlobalVarInt;
QMap<QString, QString> g_mapGlobalVarString;
QMap<QString, CxImageData*> g_mapGlobalVarImg;

namespace global_variables {

namespace {

/// An independent copy, or null.
CxImageData* copyOf(CxImageData& image)
{
    QObject* const made = image.copy(nullptr);
    auto* const copy = qobject_cast<CxImageData*>(made);
    if (copy == nullptr)
        delete made;
    return copy;
}

} // namespace

void setInt(const QString& name, int value)
{
    const QMutexLocker lock(&g_lockGlobalVars);
    if (!name.isEmpty())
        g_mapGlobalVarInt[name] = value;
}

void setString(const QString& name, const QString& value)
{
    const QMutexLocker lock(&g_lockGlobalVars);
    if (!name.isEmpty())
        g_mapGlobalVarString[name] = value;
}

void setImage(const QString& name, CxImageData* image)
{
    // Deleted after the lock: whoever hears of it takes locks of his own, or uses the store.
    std::unique_ptr<CxImageData> replaced;
    const QMutexLocker lock(&g_lockGlobalVars);
    const auto stored = g_mapGlobalVarImg.find(name);
    if (stored != g_mapGlobalVarImg.end()) {
        if (*stored == image)
            return;
        replaced.reset(std::exchange(*stored, nullptr));
    }
    if (image != nullptr)
        g_mapGlobalVarImg[name] = copyOf(*image);
}

} // namespace global_variables
