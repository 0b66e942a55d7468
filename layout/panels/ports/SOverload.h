// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QCoreApplication>

#include <functional>

class CLayoutData;

/// Which output ports of a processor are overloaded, and how that is told to the user.
struct SOverload
{
    Q_DECLARE_TR_FUNCTIONS(SOverload)

public:
    QVector<int> ports;     ///< indices, ascending; without redundancy ports whose primary is one of them
    QVector<int> backups;   ///< those redundancy ports; shown as overloaded, too
    bool processor = false; ///< all ports together exceed what the processor can drive
    int worst = 0;          ///< the highest load, percent

    bool isEmpty() const { return ports.isEmpty(); }
    int count() const { return ports.size() + backups.size(); }
    /// "7 output ports are overloaded: 1 to 6, redundancy 9" or "The processor is overloaded"; empty without
    /// an overload.
    QString text() const;
    /// "7 overloaded" or "Processor overloaded", for the status bar.
    QString shortText() const;

    /// Of the processor in view, by the loads that the store has announced. Asks the host which limit one of
    /// them exceeds.
    static SOverload shown(const CLayoutData &store);
    /// Of any processor: asks the host for all loads. O(n) in its cabinets.
    static SOverload asked(const CabinetLayout &layout);

private:
    using Port = CabinetLayout::CabinetPort;
    static SOverload of(const CabinetLayout &layout, const std::function<int(const Port &)> &percentOf);
};
