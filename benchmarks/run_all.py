# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs all benchmarks and prints one table. Fails when something does not run, not for an aim."""

import argparse
import datetime
import json
import os
import re
import subprocess
import sys
from pathlib import Path

import table

FOLDER = Path(__file__).resolve().parent
DOCUMENT = FOLDER.parent / "docs" / "benchmarks.md"
# Those that run in vistrel-run.
SCRIPTS = ("attributes.py", "pixels.py", "imports.py", "access.py", "measurements.py",
           "conversions.py", "peak_memory.py", "charts.py", "variables.py", "nested.py")
FIGURES_HEADING = "## Figures\n"

Figures = dict[str, dict[str, float]]


def output_of(*command: str) -> str:
    print("running", *(Path(word).name for word in command), file=sys.stderr, flush=True)
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, encoding="utf-8").stdout


def figures_of_lines(text: str) -> Figures:
    rows = [json.loads(line) for line in text.splitlines()]
    return {row.pop("name"): row for row in rows}


def figures_of_google(text: str) -> Figures:
    """The least of each benchmark's repetitions; their names are ROW/SIDE."""
    figures: Figures = {}
    for run in json.loads(text)["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        if run.get("error_occurred"):
            raise SystemExit(f"{run['name']}: {run['error_message']}")
        row, side = run["run_name"].split("/")[:2]  # "real_time" may follow
        seconds = run["real_time"] * 1e-9
        sides = figures.setdefault(row, {})
        sides[side] = min(seconds, sides.get(side, seconds))
    return figures


def figures_of_scripts(vistrel_run: str) -> Figures:
    figures: Figures = {}
    for script in SCRIPTS:
        figures |= figures_of_lines(output_of(vistrel_run, str(FOLDER / script)))
    return figures


def google_output_of(program: str, quick: bool) -> str:
    return output_of(program, "--benchmark_format=json",
                     f"--benchmark_min_time={0.001 if quick else 0.05}",
                     f"--benchmark_repetitions={2 if quick else 30}",
                     "--benchmark_enable_random_interleaving=true")


def measure(programs_file: str, programs: dict[str, str], quick: bool) -> Figures:
    return {
        **figures_of_google(google_output_of(programs["runs"], quick)),
        **figures_of_google(google_output_of(programs["chains"], quick)),
        **figures_of_lines(output_of(programs["python"], str(FOLDER / "process.py"),
                                     programs_file)),
        **figures_of_scripts(programs["vistrel_run"]),
        **figures_of_lines(output_of(programs["camera"], str(FOLDER / "camera.py"))),
        **figures_of_lines(output_of(programs["vistrel_run"], "--camera", "sim",
                                     str(FOLDER / "camera_reads.py"))),
        **figures_of_lines(output_of(programs["python"], str(FOLDER / "cameras.py"),
                                     programs_file)),
        **figures_of_lines(output_of(programs["memory"], "500" if quick else "100000")),
        **figures_of_lines(output_of(programs["viewer"], "1" if quick else "10", "100000")),
    }


def machine(python: str) -> str:
    version = subprocess.check_output([python, "--version"], encoding="utf-8").strip()
    names = re.findall(r"^model name\s*: (.*)$", Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    processor = f"{len(names)} x {names[0]}" if names else "unknown processor"
    return f"{datetime.date.today()}, {processor}, {version}"


def write_document(title: str, figures: Figures) -> None:
    """Replaces the figures at the end of the document."""
    method = DOCUMENT.read_text(encoding="utf-8").split(FIGURES_HEADING)[0]
    rows = "\n".join(table.lines(figures, markdown=True))
    DOCUMENT.write_text(f"{method}{FIGURES_HEADING}\n{title}.\n\n{rows}\n", encoding="utf-8")


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("programs", help="the list of programs that the build has written")
    parser.add_argument("--quick", action="store_true", help="try everything, measure badly")
    parser.add_argument("--markdown", action="store_true", help=f"also update {DOCUMENT.name}")
    options = parser.parse_args()

    os.environ.update(QT_QPA_PLATFORM="offscreen", PYTHONDONTWRITEBYTECODE="1",
                      PYTHONPATH=str(FOLDER), QT_LOGGING_RULES="default.warning=false")
    if options.quick:
        os.environ["VISTREL_BENCHMARK_QUICK"] = "1"
    programs = json.loads(Path(options.programs).read_text(encoding="utf-8"))
    os.environ["VISTREL_BENCHMARK_PYTHON"] = programs["python"]
    title = machine(programs["python"])
    figures = measure(options.programs, programs, options.quick)
    print(title, "", *table.lines(figures, markdown=False), sep="\n")
    if options.markdown:
        write_document(title, figures)


if __name__ == "__main__":
    main()
