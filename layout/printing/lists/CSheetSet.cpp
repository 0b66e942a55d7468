// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/lists/CSheetSet.h"

#include "layout/printing/figures/LayoutVersion.h"
#include "layout/printing/graphics/CJointSheets.h"
#include "layout/printing/graphics/COverviewSheets.h"
#include "layout/printing/graphics/CPortSheets.h"
#include "layout/printing/lists/CCabinetList.h"
#include "layout/printing/lists/CPartsList.h"
#include "layout/printing/lists/CPortTable.h"
#include "layout/printing/lists/ListSheets.h"
#include "layout/printing/sheets/CSheetFrame.h"
#include "layout/printing/sheets/SheetMarks.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>
#include <memory>

namespace {

/// The processor that the strings of @p processor are looped back to, or the one that it takes over for;
/// empty unless it is one.
QString redundancyOf(const SPlanProcessor &processor)
{
    if (!processor.farEnd.isEmpty())
        return processor.farEnd;
    if (!processor.primary.isEmpty())
        return CSheetSet::tr("for %1").arg(processor.primary);
    QString found;
    for (const SPlanPort &port : processor.ports) {
        if (!port.looped)
            continue;
        if (!found.isEmpty() && found != port.redundancyShown)
            return {};
        found = port.redundancyShown;
    }
    return found;
}

/// What @p of tells of every processor; nothing unless it is the same of all.
template <typename Value>
Value ofAll(const SPrintPlan &plan, Value (*of)(const SPlanProcessor &))
{
    const Value first = of(plan.processors.first());
    const bool same = std::all_of(plan.processors.begin(), plan.processors.end(),
                                  [&](const SPlanProcessor &processor) { return of(processor) == first; });
    return same ? first : Value();
}

int columnsOf(const SPlanProcessor &processor)
{
    return processor.columns;
}

QString viewsOf(const PrintConfig &config)
{
    return config.views == PrintConfig::BothViews  ? CSheetSet::tr("front and back view in turn")
           : config.views == PrintConfig::BackView ? CSheetSet::tr("back view")
                                                   : CSheetSet::tr("front view");
}

QString needOf(const PrintConfig &config)
{
    return CSheetSet::tr("(%1 mm) is too small: frame and title block take at least %2 mm.")
        .arg(SheetNumbers::sides(SSheetArea::of(config).size),
             SheetNumbers::sides(SSheetArea::least(config)));
}

/// A line for each, or for the first ones and how many more there are.
QString firstOf(const QStringList &problems)
{
    constexpr int Most = 5;
    QStringList lines = problems.mid(0, Most);
    if (problems.size() > Most)
        lines << CSheetSet::tr("And %1 more like these.").arg(problems.size() - Most);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

CResult<QVector<SSheet>> CSheetSet::of(const SPrintPlan &plan, const std::function<bool()> &isStopped,
                                       QVector<QUuid> *unfit)
{
    using Sheets = CResult<QVector<SSheet>>;
    const QString problem = problemOf(plan);
    if (!problem.isEmpty())
        return Sheets::failure(problem);
    CCoverSheet::Walls walls;
    for (int i = 0; i < plan.processors.size(); ++i)
        walls << std::make_shared<const CWall>(plan, i);
    const bool covered = (plan.config.sheets & PrintConfig::Cover) != 0;
    for (int coverSheets = covered ? 1 : 0;;) {
        CSheetSet set(plan, walls, coverSheets, isStopped);
        const CStatus built = set.build();
        if (!built) {
            if (unfit)
                *unfit = set.m_unfit;
            return Sheets::failure(built.error());
        }
        const QVector<SSheet> cover = covered ? set.cover() : QVector<SSheet>();
        if (cover.size() != coverSheets) { // the numbers of all other sheets change with it
            coverSheets = cover.size();
            continue;
        }
        set.m_sheets = cover + set.m_sheets;
        set.m_processors = QVector<int>(cover.size(), -1) + set.m_processors;
        set.addFrames();
        return set.m_sheets;
    }
}

CSheetSet::CSheetSet(const SPrintPlan &plan, const CCoverSheet::Walls &walls, int coverSheets,
                     const std::function<bool()> &isStopped)
    : m_plan(plan)
    , m_walls(walls)
    , m_coverSheets(coverSheets)
    , m_isStopped(isStopped)
{
}

QString CSheetSet::problemOf(const SPrintPlan &plan)
{
    if (plan.config.sheets == 0)
        return tr("No sheet is chosen.");
    if (!SSheetArea::of(plan.config).isUsable())
        return firstOf(QStringList(tr("The paper %1").arg(needOf(plan.config))) + ownPapers(plan).values());
    return plan.totals.cabinets == 0 ? tr("There are no cabinets to print.") : QString();
}

QMap<int, QString> CSheetSet::ownPapers(const SPrintPlan &plan)
{
    QMap<int, QString> problems;
    for (int i = 0; i < plan.processors.size(); ++i) {
        const SPlanProcessor &processor = plan.processors.at(i);
        const QString need = needOf(processor.config);
        const bool small = !SSheetArea::of(processor.config).isUsable();
        if (small && need != needOf(plan.config)) // which is told once
            problems[i] = tr("The paper of %1 %2").arg(processor.name, need);
    }
    return problems;
}

CStatus CSheetSet::build()
{
    const int count = m_plan.processors.size();
    const QMap<int, QString> small = ownPapers(m_plan);
    for (auto it = small.begin(); it != small.end(); ++it)
        refuse(it.key(), it.value());
    for (int i = 0; i < count && isWanted(Sheet::PortTable) && small.isEmpty(); ++i)
        add(i, CPortTable::sheets(m_plan, *m_walls.at(i), areaOf(i)), tr("Table of ports"));
    const CStatus drawn = addDrawings();
    if (!drawn)
        return drawn;
    for (int i = 0; i < count && isWanted(Sheet::CabinetList) && !isStopped(); ++i)
        add(i, CCabinetList::sheets(m_plan, i, areaOf(i)), tr("List of cabinets"));
    if (isStopped())
        return CStatus::failure(QString());
    if (isWanted(Sheet::PartsList))
        add(-1, CPartsList::sheets(m_plan, areaOf(-1)), tr("Parts list"));
    return CStatus::done();
}

CStatus CSheetSet::addDrawings()
{
    using Sheets = CResult<QVector<SSheet>>;
    const int count = m_plan.processors.size();
    const auto overview = [this](int processor, int first, int firstPort) -> Sheets {
        if (!isWanted(Sheet::Overview))
            return QVector<SSheet>();
        return COverviewSheets(*m_walls.at(processor), areaOf(processor)).sheets(first, firstPort);
    };
    // The overviews tell where the ports' sheets begin, which come after all of them.
    const QVector<SSheet> joint = this->joint();
    int next = joint.isEmpty() ? this->next() : begin(this->next(), -1) + joint.size();
    for (int i = 0; i < count && !isStopped(); ++i) {
        if (isRefused(i))
            continue;
        const Sheets sheets = overview(i, 1, 1);
        if (!sheets)
            refuse(i, sheets.error());
        else if (!sheets.value().isEmpty())
            next = begin(next, i) + sheets.value().size();
    }
    QVector<QVector<SSheet>> ports;
    const QVector<int> firstPorts = layOutPorts(next, ports);
    if (isStopped())
        return CStatus::failure(QString());
    if (!m_problems.isEmpty())
        return CStatus::failure(firstOf(m_problems));
    addLeaves(-1, joint, tr("All processors, %1").arg(viewsOf(m_plan.config)));
    for (int i = 0; i < count && !isStopped(); ++i) {
        const Sheets sheets = overview(i, begin(this->next(), i), firstPorts.value(i));
        if (!sheets)
            return CStatus::failure(sheets.error());
        addLeaves(i, sheets.value(), tr("Overview, %1").arg(viewsOf(configOf(i))));
    }
    for (int i = 0; i < ports.size(); ++i)
        addLeaves(i, ports.at(i), tr("Ports, %1").arg(viewsOf(configOf(i))));
    return CStatus::done();
}

QVector<int> CSheetSet::layOutPorts(int next, QVector<QVector<SSheet>> &ports)
{
    QVector<int> first;
    for (int i = 0; i < m_plan.processors.size() && isWanted(Sheet::PortSheets) && !isStopped(); ++i) {
        if (isRefused(i))
            continue;
        next = begin(next, i);
        const auto sheets = CPortSheets(*m_walls.at(i), areaOf(i)).sheets(next);
        if (!sheets) {
            refuse(i, sheets.error());
            continue;
        }
        first << next;
        ports << sheets.value();
        next += ports.last().size();
    }
    return first;
}

bool CSheetSet::isRefused(int processor) const
{
    return m_unfit.contains(m_plan.processors.at(processor).source.node.uuid);
}

void CSheetSet::refuse(int processor, const QString &problem)
{
    m_unfit << m_plan.processors.at(processor).source.node.uuid;
    m_problems << problem;
}

int CSheetSet::begin(int next, int processor) const
{
    const bool both = configOf(processor).views == PrintConfig::BothViews;
    return isTwoSided() && both && next % 2 == 0 ? next + 1 : next;
}

void CSheetSet::addLeaves(int processor, const QVector<SSheet> &sheets, const QString &entry)
{
    if (!sheets.isEmpty() && begin(next(), processor) > next()) {
        m_sheets << ListSheets::sheet(areaOf(processor), m_plan, tr("Empty side"), tr("Empty side"),
                                      tr("so that a leaf shows front and back of the same cabinets"));
        m_processors << processor;
    }
    add(processor, sheets, entry);
}

QVector<SSheet> CSheetSet::joint() const
{
    if (m_walls.size() < 2 || !isWanted(Sheet::Overview))
        return {};
    QVector<const CWall *> walls;
    for (const auto &wall : m_walls)
        walls << wall.get();
    return CJointSheets::sheets(walls, areaOf(-1));
}

const PrintConfig &CSheetSet::configOf(int processor) const
{
    return processor < 0 ? m_plan.config : m_plan.processors.at(processor).config;
}

SSheetArea CSheetSet::areaOf(int processor) const
{
    return SSheetArea::of(configOf(processor));
}

void CSheetSet::add(int processor, const QVector<SSheet> &sheets, const QString &entry)
{
    if (sheets.isEmpty())
        return;
    m_entries.append({entryName(entry, processor), next(), next() + sheets.size() - 1});
    m_processors += QVector<int>(sheets.size(), processor);
    m_sheets += sheets;
}

QString CSheetSet::entryName(const QString &name, int processor) const
{
    return processor < 0 || m_plan.processors.size() < 2
               ? name
               : tr("%1: %2").arg(m_plan.processors.at(processor).source.node.name, name);
}

QVector<SSheet> CSheetSet::cover() const
{
    QVector<SCoverEntry> entries{{tr("Cover, totals"), 1, m_coverSheets}};
    return CCoverSheet::sheets(m_plan, m_walls, entries + m_entries, areaOf(-1));
}

STitleFacts CSheetSet::factsOf(int processor) const
{
    const bool all = processor < 0;
    const PrintConfig &config = configOf(processor);
    STitleFacts facts;
    facts.project = config.project;
    facts.redundancy = all ? ofAll(m_plan, redundancyOf) : redundancyOf(m_plan.processors.at(processor));
    facts.paper = SSheetArea::nameOf(config);
    facts.designer = config.designer;
    facts.auditor = config.auditor;
    facts.date = config.date;
    facts.version = all ? LayoutVersion::of(m_plan) : m_plan.processors.at(processor).version;
    facts.watermark = config.watermark;
    facts.count = m_sheets.size();
    facts.columns = all ? ofAll(m_plan, columnsOf) : columnsOf(m_plan.processors.at(processor));
    facts.binding = config.binding;
    return facts;
}

void CSheetSet::addFrames()
{
    for (int i = 0; i < m_sheets.size(); ++i) {
        const int processor = m_processors.at(i);
        STitleFacts facts = factsOf(processor);
        facts.number = i + 1;
        facts.reverse = isTwoSided() && facts.number % 2 == 0;
        CSheetFrame::add(m_sheets[i], areaOf(processor), facts);
        const PrintConfig &config = configOf(processor);
        if (facts.reverse && config.binding == PrintConfig::BindLeft)
            SheetMarks::move(m_sheets[i], {config.margin - config.bindingMargin, 0});
    }
}
