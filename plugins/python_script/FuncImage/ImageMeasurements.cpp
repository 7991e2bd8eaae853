// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// `vistrel.Image`: statistics of a rectangle, as a whole and by lines or columns.
#include "FuncImage/ImageMethods.h"
#include "FuncImage/ImageType.h"
#include "FuncImage/MeasuredRect.h"
#include "PyErrors.h"

#include <CxImageData.h>
#include <CxPicBufMeas.h>

using python::PyRef;
using Stats = CxHistoData::CxPixelStats;

namespace {

constexpr char cannotMeasure[] = "Cannot measure data";
constexpr char cannotMeasureProfile[] = "Cannot measure profile data";

PyObject* newDictionary(const QString& name, const Stats& stats)
{
    const double deviation = stats.standardDeviation;
    return Py_BuildValue("{s:s,s:d,s:d,s:d,s:d,s:d,s:d}", "name", name.toUtf8().constData(), "mean",
                         stats.mean, "stdev", deviation, "variance", deviation * deviation, "rms",
                         stats.rootMeanSquare, "min", stats.minimum, "max", stats.maximum);
}

/// A list whose items `make` gives by their number; null with Python's error set on a failure.
template<class Make>
PyObject* newList(qsizetype size, Make make)
{
    PyRef list = PyRef::take(PyList_New(size));
    for (qsizetype i = 0; list && i < size; ++i) {
        PyObject* item = make(i);
        // The list takes the item over, also when it refuses it.
        if (item == nullptr || PyList_SetItem(list.get(), i, item) != 0)
            return nullptr;
    }
    return list.release();
}

QString nameOf(const QList<QString>& names, qsizetype channel)
{
    return channel < names.size() ? names.at(channel) : QString();
}

/// One entry a line or column, each a list of one dictionary a channel.
PyObject* newProfileList(const CxProfileData& data)
{
    const qsizetype channels = data.stats.size();
    const qsizetype length = channels > 0 ? data.stats.first().size() : 0;
    return newList(length, [&](qsizetype k) {
        return newList(channels, [&](qsizetype c) {
            return newDictionary(nameOf(data.channelNames, c), data.stats.at(c).value(k));
        });
    });
}

PyObject* fx_internal_pyimg_MeasureRowColProfilesInRect(PyObject* self, PyObject* args, bool rows)
{
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;
    const SxPicBuf* buffer = fx_pyimg_bufferAndArguments(self, args, "|iiii", &x, &y, &w, &h);
    if (buffer == nullptr)
        return nullptr;
    CxProfileData data;
    if (!CxPicBufMeas::measureRowsColumnsProfileStats(rows, data, fx_pyimg_getImageObjectData(self),
                                                      measuredRect(*buffer, x, y, w, h)))
        return python::raise(Refusal{cannotMeasureProfile});
    return newProfileList(data);
}

} // namespace

PyObject* fx_pyimg_MeasureRect(PyObject* self, PyObject* args)
{
    int x = 0;
    int y = 0;
    int w = 0;
    int h = 0;
    int splitRawColors = 0;
    const SxPicBuf* buffer =
        fx_pyimg_bufferAndArguments(self, args, "|iiiip", &x, &y, &w, &h, &splitRawColors);
    if (buffer == nullptr)
        return nullptr;
    CxHistoData::ExHistoDataFlags flags = CxHistoData::Statistics;
    flags.setFlag(CxHistoData::SplitRawColors, splitRawColors != 0);
    CxHistoData data;
    if (!CxPicBufMeas::measureHistogram(data, fx_pyimg_getImageObjectData(self),
                                        measuredRect(*buffer, x, y, w, h), flags))
        return python::raise(Refusal{cannotMeasure});
    return newList(data.stats.size(), [&](qsizetype i) {
        return newDictionary(nameOf(data.channelNames, i), data.stats.at(i));
    });
}

PyObject* fx_pyimg_MeasureRowProfilesInRect(PyObject* self, PyObject* args)
{
    return fx_internal_pyimg_MeasureRowColProfilesInRect(self, args, true);
}

PyObject* fx_pyimg_MeasureColumnProfilesInRect(PyObject* self, PyObject* args)
{
    return fx_internal_pyimg_MeasureRowColProfilesInRect(self, args, false);
}
