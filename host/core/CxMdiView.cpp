// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What closing a view means to its callers.
#include <CxMdiView.h>

void CxMdiView::closeMdiView() { requestClose(); }
