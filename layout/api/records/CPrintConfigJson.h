// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PrintConfig.h"
#include "platform/common/CResult.h"
#include "platform/json/CJsonValue.h"

#include <QCoreApplication>
#include <QJsonObject>

/// Converts print settings to JSON and back, as strictly as CRecordJson. Processor and date are no part of
/// it: whose settings they are is told by the file that holds them, and a plan is of the day on which it is
/// printed. Any thread.
class CPrintConfigJson final
{
    Q_DECLARE_TR_FUNCTIONS(CPrintConfigJson)

public:
    static constexpr int LongestText = 2000;
    static constexpr int MostLengths = 20;      ///< of cables in stock
    static constexpr double LargestSide = 5000; ///< of the paper, millimetres
    static constexpr double LargestMargin = 100;
    static constexpr int LargestDistance = 1000000; ///< of the rack, millimetres
    static constexpr int LargestSlack = 100000;     ///< millimetres
    static constexpr int LongestStock = 10000;      ///< metres
    static constexpr int LargestScale = 1000;

    /// Members with their default value are left out, except one if all have theirs and the settings are own.
    static QJsonObject toJson(const PrintConfig &config);
    /// @p place is the value's place in its document, with which each error text begins.
    static CResult<PrintConfig> config(const CJsonValue &json, const char *place);
    static CResult<PrintConfig> config(const QJsonObject &json, const char *place);
};
