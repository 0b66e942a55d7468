// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"

#include <QString>
#include <QVector>

/// One set of current-gain parameters of a *.acr file: what receivers apply at one frame rate and gain level.
struct SCurrentGainRow
{
    int frameRateCode = 0; ///< 0: 60 Hz, 1: 50 Hz, 2: 30 Hz
    int gainLevel = 0;     ///< 0: low, 1: medium, 2: high
    QVector<int> values;   ///< gain of red, green and blue, 0 to 255 each

    friend bool operator==(const SCurrentGainRow &a, const SCurrentGainRow &b)
    {
        return a.frameRateCode == b.frameRateCode && a.gainLevel == b.gainLevel && a.values == b.values;
    }
    friend bool operator!=(const SCurrentGainRow &a, const SCurrentGainRow &b) { return !(a == b); }
};

/// Reads and writes current-gain files (*.acr): at most one row per frame rate and gain level. Error texts
/// name the file and the place. Any thread.
class CCurrentGainFile final
{
public:
    static CResult<QVector<SCurrentGainRow>> read(const QString &file);
    static CStatus write(const QString &file, const QVector<SCurrentGainRow> &rows);
};
