// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"
#include "layout/printing/lists/CCoverSheet.h"
#include "layout/printing/sheets/CSheetFrame.h"
#include "layout/printing/sheets/SSheet.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QUuid>

#include <functional>

/// Puts together all sheets of a job.
class CSheetSet final
{
    Q_DECLARE_TR_FUNCTIONS(CSheetSet)

public:
    /// The sheets in the order in which they are printed, complete with frames and numbers. Fails if the
    /// paper is too small, or no sheet is wanted, and without a reason soon after @p isStopped() is true. The
    /// dates in @p plan must be valid. @p unfit: is set to the processors, if any, whose drawings fail to fit
    /// on their paper at their scale. Any thread.
    static CResult<QVector<SSheet>> of(const SPrintPlan &plan, const std::function<bool()> &isStopped = {},
                                       QVector<QUuid> *unfit = nullptr);

private:
    using Sheet = PrintConfig::Sheet;

    CSheetSet(const SPrintPlan &plan, const CCoverSheet::Walls &walls, int coverSheets,
              const std::function<bool()> &isStopped);
    static QString problemOf(const SPrintPlan &plan);
    /// What is wrong with the papers that processors have for themselves.
    static QMap<int, QString> ownPapers(const SPrintPlan &plan);
    CStatus build();
    CStatus addDrawings();
    /// Where the ports' sheets of each processor begin; the sheets are left in @p ports.
    QVector<int> layOutPorts(int next, QVector<QVector<SSheet>> &ports);
    bool isRefused(int processor) const;
    /// Goes on, so that the user learns of all that do not fit at once.
    void refuse(int processor, const QString &problem);
    /// The overview of several processors.
    QVector<SSheet> joint() const;
    void add(int processor, const QVector<SSheet> &sheets, const QString &entry);
    void addFrames();
    QVector<SSheet> cover() const;
    /// Of a processor, or of the whole job.
    const PrintConfig &configOf(int processor) const;
    SSheetArea areaOf(int processor) const;
    STitleFacts factsOf(int processor) const;
    QString entryName(const QString &name, int processor) const;
    bool isStopped() const { return m_isStopped && m_isStopped(); }
    bool isWanted(Sheet kind) const { return (m_plan.config.sheets & kind) != 0; }
    int next() const { return m_coverSheets + m_sheets.size() + 1; }
    /// Front and back in turn are printed on both sides of leaves.
    bool isTwoSided() const { return m_plan.config.views == PrintConfig::BothViews; }
    /// The number from @p next on with which drawings of @p processor begin: both views on one leaf.
    int begin(int next, int processor) const;
    void addLeaves(int processor, const QVector<SSheet> &sheets, const QString &entry);

    const SPrintPlan &m_plan;
    const CCoverSheet::Walls &m_walls;
    const int m_coverSheets;
    const std::function<bool()> &m_isStopped;
    QVector<SSheet> m_sheets;
    QVector<int> m_processors; ///< of each sheet; -1: of all
    QVector<SCoverEntry> m_entries;
    QVector<QUuid> m_unfit; ///< the processors whose drawings failed
    QStringList m_problems; ///< of those
};
