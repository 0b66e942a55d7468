// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPartsTally.h"
#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/graphics/CWall.h"
#include "layout/printing/sheets/CTableFlow.h"
#include "layout/printing/sheets/SSheetArea.h"

#include <QCoreApplication>

#include <memory>

/// A line of the cover's list of sheets.
struct SCoverEntry
{
    QString name;
    int first = 0; ///< sheet number, from 1
    int last = 0;
};

/// Makes the cover: what the whole job comes to. One sheet, more only if the text does not fit.
class CCoverSheet final
{
    Q_DECLARE_TR_FUNCTIONS(CCoverSheet)

public:
    using Walls = QVector<std::shared_ptr<const CWall>>; ///< of the plan's processors

    static QVector<SSheet> sheets(const SPrintPlan &plan, const Walls &walls,
                                  const QVector<SCoverEntry> &entries, const SSheetArea &area);

private:
    CCoverSheet(const SPrintPlan &plan, const Walls &walls, const QVector<SCoverEntry> &entries,
                const SSheetArea &area);
    /// The name of the job and what it is a plan of.
    struct SHead
    {
        QStringList name;
        double namePoints = 0;
        QStringList beneath;
        double beneathPoints = 0;
        double height = 0;
    };

    SHead head() const;
    SSheet headed() const;
    QVector<QRectF> columns() const;
    QStringList linesOf(const SCoverEntry &entry, double width) const;
    void addTypes();
    void addWalls();
    void addEntries();
    QStringList notes() const;
    void addNotes();

    const SPrintPlan &m_plan;
    const Walls &m_walls;
    const QVector<SCoverEntry> &m_entries;
    const SSheetArea &m_area;
    const SPartsTally m_tally;
    const SHead m_head;
    CTableFlow m_flow;
    int m_shownTypes = 0;   ///< in the table of types, from the first
    double m_nameWidth = 0; ///< of their names in it
};
