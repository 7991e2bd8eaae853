// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's image as far as the tests under threads need it: no pixels, but a count of those
// alive.
#pragma once

/// Number of images that are alive.
int countedImages();
