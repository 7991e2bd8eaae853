#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Draws the charts of tests/scripts/charts anew, with a program that was built before. Look at the
# pictures before they are kept.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

VISTREL_CHARTS=$PWD/tests/scripts/charts VISTREL_RENEW_CHARTS=1 QT_QPA_PLATFORM=offscreen \
    build/bin/vistrel-run tests/scripts/graph_charts.py
git status --short tests/scripts/charts
