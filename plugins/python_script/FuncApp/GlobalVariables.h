// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The shared variables: values that scripts hand to each other and from run to run. Free of Python.
#pragma once

#include <QtCore/QMap>
#include <QtCore/QMutex>
#include <QtCore/QString>

class CxImageData;

// The store belongs to the process, not to the interpreter: it lives from loading the plugin to
// unloading it. Three tables, so one name may hold an integer, a text and an image at once.

/// Guards all three tables together.
extern QMutex g_lockGlobalVars;
extern QMap<QString, int> g_mapGlobalVarInt;
extern QMap<QString, QString> g_mapGlobalVarString;
/// Owns its images; null where a variable has lost its image but not its name. Images that are left
/// when the plugin is unloaded are not deleted: the host may have gone before.
extern QMap<QString, CxImageData*> g_mapGlobalVarImg;

/// Operations on the store, for any thread. Names are compared exactly. Each takes the lock for the
/// whole of its work; `make` is called with the value while it is held, so that an image cannot be
/// deleted meanwhile, and must not come back to the store.
namespace global_variables {

/// What a variable that was never set reads as; also a value that can be stored.
inline constexpr int unknownInt = -1;

/// Stores a value; under an empty name nothing is stored.
void setInt(const QString& name, int value);
void setString(const QString& name, const QString& value);

/// Stores a copy of an image, under an empty name too, and deletes the image that it replaces. The
/// stored image itself changes nothing. Null deletes the stored image and keeps the name; so does
/// an image that the host cannot copy.
void setImage(const QString& name, CxImageData* image);

/// The result of `make` for the integer of that name, or for -1.
template<class Make>
auto readInt(const QString& name, Make make)
{
    const QMutexLocker lock(&g_lockGlobalVars);
    return make(g_mapGlobalVarInt.value(name, unknownInt));
}

/// The same for a text, or the empty text.
template<class Make>
auto readString(const QString& name, Make make)
{
    const QMutexLocker lock(&g_lockGlobalVars);
    return make(g_mapGlobalVarString.value(name));
}

/// The same for the stored image itself, no copy, or null.
template<class Make>
auto readImage(const QString& name, Make make)
{
    const QMutexLocker lock(&g_lockGlobalVars);
    return make(g_mapGlobalVarImg.value(name));
}

} // namespace global_variables
