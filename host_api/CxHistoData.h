// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics of the pixels of a rectangle, a record for each channel.
#pragma once

#include <QtCore/QFlags>
#include <QtCore/QList>
#include <QtCore/QString>

/// Filled by CxPicBufMeas; the two lists run in parallel.
class CxHistoData {
public:
    enum ExHistoDataFlag : int {
        Statistics = 2,     ///< fill the statistics
        SplitRawColors = 8, ///< take the colour filter positions of raw data as channels
    };
    Q_DECLARE_FLAGS(ExHistoDataFlags, ExHistoDataFlag)

    /// The order of the fields is part of the binary interface.
    struct CxPixelStats {
        double minimum = 0.0;
        double maximum = 0.0;
        double mean = 0.0;
        double standardDeviation = 0.0; ///< of the population
        double rootMeanSquare = 0.0;
    };

    QList<QString> channelNames;
    QList<CxPixelStats> stats;
};
Q_DECLARE_OPERATORS_FOR_FLAGS(CxHistoData::ExHistoDataFlags)
