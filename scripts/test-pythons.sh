#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs the tests of the plugin with every Python from 3.8 on that this machine has with a shared
# library, without building anything anew: scripts/test-pythons.sh [--others] [GROUP...]
# A GROUP is contract, unit, hostile or scripts; --others leaves out the Python that the plugin was linked
# with. Pythons are those of the system and of pyenv. Needs a built build/. Fails when a Python that is
# there fails; those that are not there are named.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

exec /usr/bin/python3 tests/pythons/every_python.py --build build "$@"
