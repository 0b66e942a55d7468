// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"

#include "layout/api/access/ModuleSettings.h"
#include "layout/data/CLayoutData.h"
#include "layout/geometry/SSelectionFigures.h"
#include "layout/panels/CBackupLabel.h"
#include "layout/panels/CCabinetGemometryLabel.h"
#include "layout/panels/CHistoryLabel.h"
#include "layout/panels/CMappingLabel.h"
#include "layout/panels/CSystemLoadLabel.h"
#include "layout/panels/CTopologyLabel.h"
#include "layout/resources/LayoutResources.h"

namespace {

/// The units that the user has opened or folded; others are as they are at first.
QString changedKey(bool foldedAtFirst)
{
    return foldedAtFirst ? QStringLiteral("client/openUnits") : QStringLiteral("client/foldedUnits");
}

bool isChanged(const QString &name, bool foldedAtFirst)
{
    return ModuleSettings::open().value(changedKey(foldedAtFirst)).toStringList().contains(name);
}

/// Keeps for the next run whether the unit @p name is folded.
void keepFolded(const QString &name, bool folded, bool foldedAtFirst)
{
    QStringList names = ModuleSettings::open().value(changedKey(foldedAtFirst)).toStringList();
    names.removeAll(name);
    if (folded != foldedAtFirst)
        names << name;
    ModuleSettings::open().setValue(changedKey(foldedAtFirst), names);
}

} // namespace

CLayoutSidePanel::CLayoutSidePanel(const SUnitServices &services, QWidget *parent)
    : CSidePanel(parent)
{
    initLayoutResources();
    setAccessibleName(tr("Side panel"));
    // From top to bottom, one line per unit.
    const auto *geometry = add<CCabinetGemometryLabel>(services);
    const auto *topology = add<CTopologyLabel>(services);
    const auto *load = add<CSystemLoadLabel>(services);
    const auto *mapping = add<CMappingLabel>(services);
    m_backup = add<CBackupLabel>(services);
    m_history = add<CHistoryLabel>(services, FoldedAtFirst);

    using Geometry = CCabinetGemometryLabel;
    connect(geometry, &Geometry::notifySelectedCabinetPositionChanged, this,
            &CLayoutSidePanel::notifySelectedCabinetPositionChanged);
    connect(geometry, &Geometry::notifySelectedCabinetSizeChanged, this,
            &CLayoutSidePanel::notifySelectedCabinetSizeChanged);
    connect(geometry, &Geometry::notifySelectedCabinetRankChanged, this,
            &CLayoutSidePanel::notifySelectedCabinetRankChanged);
    connect(topology, &CTopologyLabel::buttonClicked, this, &CLayoutSidePanel::notifyTopologybuttonClicked);
    connect(load, &CSystemLoadLabel::notifySelectPorts, this, &CLayoutSidePanel::choosePorts);
    connect(mapping, &CMappingLabel::notifySaveMappingSuccessed, this,
            &CLayoutSidePanel::notifySaveMappingSuccessed);
    connect(m_backup, &CBackupLabel::notifySaveMappingSuccessed, this,
            &CLayoutSidePanel::notifySaveMappingSuccessed);
    connect(m_backup, &CBackupLabel::notifyCancelPortRedundancy, this,
            &CLayoutSidePanel::notifyCancelPortRedundancy);
    connect(m_history, &CHistoryLabel::notifyStepChosen, this, &CLayoutSidePanel::notifyStepChosen);
    connect(m_history, &CHistoryLabel::notifyCurrentMoved, this, &CLayoutSidePanel::followHistory);
    connectStore(services.store);
}

template <typename Unit>
Unit *CLayoutSidePanel::add(const SUnitServices &services, EFirst first)
{
    auto *unit = new Unit(services);
    addUnit(unit);
    const QString name = QString::fromLatin1(unit->metaObject()->className());
    const bool foldedAtFirst = first == FoldedAtFirst;
    unit->setCollapsed(isChanged(name, foldedAtFirst) != foldedAtFirst);
    connect(unit, &CUnitLabel::notifyCollapsed, this,
            [name, foldedAtFirst](bool collapsed) { keepFolded(name, collapsed, foldedAtFirst); });
    m_units.push_back(unit);
    return unit;
}

bool CLayoutSidePanel::isHistoryShown() const
{
    return !m_history->isCollapsed();
}

void CLayoutSidePanel::setHistoryShown(bool shown)
{
    m_history->setCollapsed(!shown);
    if (shown) // once it has its height
        QMetaObject::invokeMethod(
            m_history, [this] { ensureWidgetVisible(m_history); }, Qt::QueuedConnection);
}

void CLayoutSidePanel::onHistoryChanged(const QUndoStack *stack, const QString &beginning,
                                        const QSet<int> &savedRows)
{
    m_history->showHistory(stack, beginning, savedRows);
}

void CLayoutSidePanel::setLayoutShown(bool shown)
{
    for (ISidePanelUnit *unit : m_units)
        unit->setLayoutShown(shown);
}

/// Not while the user works in another unit, which would move away, or has scrolled the list out of view.
void CLayoutSidePanel::followHistory(const QRect &row)
{
    const QWidget *focus = window()->focusWidget();
    const bool elsewhere = focus && isAncestorOf(focus) && !m_history->isAncestorOf(focus);
    if (!elsewhere && !m_history->visibleRegion().isEmpty())
        ensureVisible(0, m_history->mapTo(widget(), row.bottomLeft()).y(), 0, row.height());
}

void CLayoutSidePanel::setEditingBlocked(bool locked, bool redundancy)
{
    for (ISidePanelUnit *unit : m_units)
        unit->setEditingBlocked(locked, redundancy);
}

void CLayoutSidePanel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor)
{
    for (ISidePanelUnit *unit : m_units)
        unit->onCurrentProcessorChanged(processor);
}

void CLayoutSidePanel::onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor)
{
    for (ISidePanelUnit *unit : m_units)
        unit->onCurrentProcessorStateChanged(processor);
}

void CLayoutSidePanel::onNotifyPortBackup(int primary, int backup, bool on)
{
    m_backup->onNotifyPortBackup(primary, backup, on);
    portStatesChanged();
}

void CLayoutSidePanel::onNotifyPortToggled(int, bool)
{
    portStatesChanged();
}

void CLayoutSidePanel::onNotifySelectedPort(const QList<int> &ports)
{
    for (ISidePanelUnit *unit : m_units)
        unit->onSelectedPorts(ports);
}

void CLayoutSidePanel::onNotifySelectedCabinetGeometryChanged(const QRect &extent)
{
    for (ISidePanelUnit *unit : m_units)
        unit->onSelectedGeometry(extent);
}

void CLayoutSidePanel::onCurrentProcessorBackupChanged()
{
    m_backup->onCurrentProcessorBackupChanged();
}

void CLayoutSidePanel::onSelectionFigures(const SSelectionFigures &figures)
{
    for (ISidePanelUnit *unit : m_units)
        unit->onSelectionFigures(figures);
}

void CLayoutSidePanel::onNotifySelectedCabinetInfos(
    const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets)
{
    onSelectionFigures(SSelectionFigures::of(cabinets));
}

/// They may lie outside what the view shows.
void CLayoutSidePanel::choosePorts(const QVector<int> &ports)
{
    Q_EMIT notifySelectPorts(ports);
    if (!m_selectedArea.isEmpty())
        Q_EMIT viewSceneRectChanged(m_selectedArea);
}

void CLayoutSidePanel::onNotifySelectedPortGeometryChanged(const QList<QPair<int, QRect>> &areas)
{
    m_selectedArea = QRect();
    for (const QPair<int, QRect> &area : areas)
        m_selectedArea |= area.second;
}

void CLayoutSidePanel::connectStore(const CLayoutData &store)
{
    connect(&store, &CLayoutData::notifyProcessorPortLocked, this, &CLayoutSidePanel::onNotifyPortToggled);
    connect(&store, &CLayoutData::notifyProcessorPortBackup, this, &CLayoutSidePanel::onNotifyPortBackup);
    connect(&store, &CLayoutData::notifyProcessorBackupChanged, this,
            &CLayoutSidePanel::onCurrentProcessorBackupChanged);
    connect(&store, &CLayoutData::notifyLayoutReplaced, this, &CLayoutSidePanel::portStatesChanged);
}

void CLayoutSidePanel::portStatesChanged()
{
    for (ISidePanelUnit *unit : m_units)
        unit->onPortStatesChanged();
}
