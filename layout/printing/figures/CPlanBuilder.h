// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"

#include <QCoreApplication>
#include <QMap>
#include <QPair>

/// Makes the plan of a job from what is printed.
class CPlanBuilder final
{
    Q_DECLARE_TR_FUNCTIONS(CPlanBuilder)

public:
    CPlanBuilder(const SPrintInput &input, const SPrintJob &job);
    SPrintPlan build();

private:
    using Port = CabinetLayout::CabinetPort;

    SPlanProcessor processor(const SPrintedProcessor &source);
    SPlanPort port(const SPrintedProcessor &source, int index, SPlanProcessor &into);
    void addCabinets(QVector<Port::Cabinet> cabinets, SPlanPort &port, SPlanProcessor &into);
    void giveRedundancy(SPlanPort &port, const Port &record, const SPlanProcessor &processor) const;
    ProcessorTree::ProcessorNode nodeOf(const QUuid &processor) const; // without a name: unknown
    bool isKnown(const QUuid &processor) const;
    /// The other processor of a pair; @p shown: with its address.
    QString nameOf(const QUuid &processor, bool shown) const;
    int typeOf(const Port::Cabinet &cabinet, double pitch);
    void place(SPlanProcessor &processor) const;
    void sum(SPlanProcessor &processor) const;

    const SPrintInput &m_input;
    const SPrintJob &m_job;
    SPrintPlan m_plan;
    /// Key, size and the pitch that the millimetres are presumed from → index into the plan's types.
    QMap<QPair<QPair<SMD5, QPair<int, int>>, double>, int> m_types;
};
