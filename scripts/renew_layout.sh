#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Takes the pictures of tests/host/viewer/layout anew, with a test that was built before. Look at them
# before they are kept.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

VISTREL_RENEW_LAYOUT=1 build/test-bin/host_viewer_layout
git status --short tests/host/viewer/layout
