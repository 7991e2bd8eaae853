// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Loads the film module when a recording is first started: its libraries are many.
#pragma once

#include <QtCore/QString>

namespace vistrel {

class FilmWriters;

/// The film writers of the module that lies beside the host's library; null with the reason in
/// `error` when it cannot be loaded. Any thread.
FilmWriters* filmWriters(QString& error);

} // namespace vistrel
