// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QHash>

/// What a walk over the cabinets of a port has given, kept so that nobody walks again.
struct SPortFacts
{
    QRect area;               ///< of its cabinets on the canvas
    bool highlighted = false; ///< one of them carries the number of a running highlight

    static SPortFacts of(const CabinetLayout::CabinetPort &port);
    /// The facts of @p ports, by index. A port that shares its cabinets with that of @p known has its facts;
    /// others are walked.
    static QHash<int, SPortFacts> ofAll(const QVector<CabinetLayout::CabinetPort> &ports,
                                        const CabinetLayout &known, const QHash<int, SPortFacts> &knownFacts);
    /// Whether two ports share their cabinets, so that they have the same facts.
    static bool areShared(const CabinetLayout::CabinetPort &a, const CabinetLayout::CabinetPort &b);
    /// Takes the numbers of a highlight from the cabinets of @p port, whose facts these are.
    void endHighlight(CabinetLayout::CabinetPort &port);
};
