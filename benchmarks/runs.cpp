// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What a run costs beside its script, and what printing costs.
#include "PyRef.h" // before Qt

#include "HostedPlugin.h"

#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

using python::PyRef;

namespace {

HostedPlugin* plugin = nullptr;
QString received;

const QString printing = QStringLiteral("def work():\n"
                                        "    for _ in range(100_000):\n"
                                        "        print('a line of text')\n"
                                        "work()\n");
const QString printingIntoStringIo =
    QStringLiteral("import contextlib, io\n"
                   "def work():\n"
                   "    for _ in range(100_000):\n"
                   "        print('a line of text')\n"
                   "with contextlib.redirect_stdout(io.StringIO()):\n"
                   "    work()\n");

void receive(const QString& text, bool) { received += text; }

void emptyRun(benchmark::State& state)
{
    while (state.KeepRunning())
        plugin->run(QString(), receive);
}
BENCHMARK(emptyRun)->Name("empty_run/ours");

void emptyEvaluation(benchmark::State& state)
{
    while (state.KeepRunning()) {
        const PyRef code = PyRef::take(Py_CompileString("", "<script>", Py_file_input));
        const PyRef names = PyRef::take(PyDict_New());
        const PyRef result = PyRef::take(PyEval_EvalCode(code.get(), names.get(), names.get()));
        if (!result)
            state.SkipWithError("the empty text does not run");
    }
}
BENCHMARK(emptyEvaluation)->Name("empty_run/theirs");

void printIntoCallback(benchmark::State& state)
{
    while (state.KeepRunning()) {
        received.clear();
        plugin->run(printing, receive);
    }
}
BENCHMARK(printIntoCallback)->Name("print/ours");

void printIntoStringIo(benchmark::State& state)
{
    while (state.KeepRunning())
        plugin->run(printingIntoStringIo, receive);
}
BENCHMARK(printIntoStringIo)->Name("print/theirs");

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    vistrel::HostApplication host;
    HostedPlugin hosted(host.environment());
    plugin = &hosted;
    plugin->run(QString(), receive); // starts the interpreter
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
