# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""How the measurements that are written in Python take and report their figures."""

import json
import os
from typing import Callable

QUICK = "VISTREL_BENCHMARK_QUICK" in os.environ


def best(rounds: int, *measures: Callable[[], float]) -> list[float]:
    """Takes several measurements in turn, round after round, and returns the least of each.

    Whatever else the machine does in a round hits all of them.
    """
    figures = [[measure() for measure in measures] for _ in range(2 if QUICK else rounds)]
    return [min(column) for column in zip(*figures)]


def report(name: str, **figures: float) -> None:
    """Writes the figures of a row: ours, and theirs if there is something to compare with."""
    print(json.dumps({"name": name, **figures}), flush=True)
