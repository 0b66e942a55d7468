// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CViewPortPanel.h"

#include "layout/api/access/ModuleSettings.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/ports/CPortList.h"
#include "layout/plugin/CWiringLayoutWidget.h"
#include "platform/graphics/ArrowKeys.h"
#include "platform/widgets/CTranslatingAnimation.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr QSize CollapseSize(62, 20);
constexpr int CollapseLocation = 4; // of a tool widget
constexpr int HeightForTwoRows = 600;
constexpr int UsualRows = 2;
constexpr int AreaMargin = 16; // around an area that is brought into view, screen pixels

QString stateKey()
{
    return QStringLiteral("client/layout");
}

QString foldedKey()
{
    return QStringLiteral("client/portListFolded");
}

} // namespace

CViewPortPanel::CViewPortPanel(CLayoutGraphicsView &view, CPortList &ports, CWiringLayoutWidget &wiring,
                               QWidget *parent)
    : QWidget(parent)
    , m_view(view)
    , m_ports(ports)
    , m_wiring(wiring)
{
    buildUi();
    buildOverlay();
    connectSignals();
}

void CViewPortPanel::buildUi()
{
    setObjectName(QStringLiteral("ViewPort"));
    m_splitter = new QSplitter(Qt::Vertical);
    m_splitter->addWidget(&m_view);
    m_splitter->addWidget(&m_ports);
    m_splitter->setStretchFactor(0, 5);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(0);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_splitter);
    m_slide = new CTranslatingAnimation(m_ports, Qt::BottomEdge, this);
}

void CViewPortPanel::buildOverlay()
{
    m_overlay = new QWidget(this);
    m_overlay->setObjectName(QStringLiteral("Overlay"));
    m_overlay->setFixedSize(CollapseSize);
    m_collapse = new QToolButton(m_overlay);
    m_collapse->setObjectName(QStringLiteral("ListCollapse"));
    m_collapse->setProperty("ToolLocation", CollapseLocation);
    m_collapse->setCheckable(true);
    m_collapse->setFixedSize(CollapseSize);
    m_collapse->setFocusPolicy(Qt::TabFocus);
    showToolTip();
    m_view.viewport()->installEventFilter(this);
}

void CViewPortPanel::connectSignals()
{
    using View = CLayoutGraphicsView;
    using Panel = CViewPortPanel;
    connect(m_collapse, &QToolButton::toggled, this, &Panel::onCollapseToggled);
    connect(m_splitter, &QSplitter::splitterMoved, this, &Panel::keepListHeight);

    connect(this, &Panel::notifyTopologybuttonClicked, &m_view, &View::onTopologyButtonClicked);
    connect(this, &Panel::notifySelectedCabinetPositionChanged, &m_view,
            &View::onNotifySelectedCabinetPositionChanged);
    connect(this, &Panel::notifySelectedCabinetSizeChanged, &m_view,
            &View::onNotifySelectedCabinetSizeChanged);
    connect(this, &Panel::notifySelectedCabinetRankChanged, &m_view,
            &View::onNotifySelectedCabinetRankChanged);

    connect(&m_view, &View::notifySelectedCabinetGeometryChanged, this,
            &Panel::notifySelectedCabinetGeometryChanged);
    connect(&m_view, &View::notifySelectedCabinetGeometryChanged, this, &Panel::tellPortAreas);
    connect(&m_view, &View::notifySelectedPort, this, &Panel::tellPortAreas);
    connect(&m_view, &View::notifySelectedPort, this, &Panel::notifySelectedPort);
    connect(&m_view, &View::notifySelectionFigures, this, &Panel::tellRecords);
    connect(this, &Panel::notifySelectedPort, &m_ports, &CPortList::setCurrentSelectPort);

    connect(&m_ports, &CPortList::notifyPortClicked, this, &Panel::notifyPortClicked);
    connect(&m_ports, &CPortList::notifyPortToggled, this, &Panel::notifyPortToggled);
    connect(this, &Panel::notifyPortClicked, &m_view, &View::onPortClicked);
}

void CViewPortPanel::connectSidePanel(CLayoutSidePanel &panel)
{
    using Panel = CViewPortPanel;
    using Side = CLayoutSidePanel;
    connect(&panel, &Side::notifyTopologybuttonClicked, this, &Panel::notifyTopologybuttonClicked);
    connect(&panel, &Side::notifySelectedCabinetPositionChanged, this,
            &Panel::notifySelectedCabinetPositionChanged);
    connect(&panel, &Side::notifySelectedCabinetSizeChanged, this, &Panel::notifySelectedCabinetSizeChanged);
    connect(&panel, &Side::notifySelectedCabinetRankChanged, this, &Panel::notifySelectedCabinetRankChanged);
    connect(&panel, &Side::viewSceneRectChanged, this, &Panel::showArea);
    connect(&panel, &Side::notifySaveMappingSuccessed, this, &Panel::onNotifySaveMappingSuccessed);
    connect(this, &Panel::notifySelectedPort, &panel, &Side::onNotifySelectedPort);
    connect(this, &Panel::notifyPortToggled, &panel, &Side::onNotifyPortToggled);
    connect(&m_view, &CLayoutGraphicsView::notifySelectionFigures, &panel, &Side::onSelectionFigures);
    connect(this, &Panel::notifySelectedCabinetGeometryChanged, &panel,
            &Side::onNotifySelectedCabinetGeometryChanged);
    connect(this, &Panel::notifySelectedPortGeometryChanged, &panel,
            &Side::onNotifySelectedPortGeometryChanged);
}

/// Records cost a walk over the selection, so that they are only built for somebody.
void CViewPortPanel::tellRecords()
{
    static const auto infos = QMetaMethod::fromSignal(&CViewPortPanel::notifySelectedCabinetInfos);
    if (isSignalConnected(infos))
        Q_EMIT notifySelectedCabinetInfos(m_view.cabinetScene().selection().records());
}

/// Keys that the port list does not use are for the canvas: whoever has just chosen a port goes on with what
/// it holds. Arrow keys are not among them: at the list's ends they would move cabinets.
void CViewPortPanel::keyPressEvent(QKeyEvent *event)
{
    if (m_passingKey || m_view.hasFocus() || !ArrowKeys::directionOf(event->key()).isNull()) {
        QWidget::keyPressEvent(event);
        return;
    }
    m_passingKey = true; // what the view ignores comes back here
    QCoreApplication::sendEvent(&m_view, event);
    m_passingKey = false;
}

void CViewPortPanel::tellPortAreas()
{
    const CSceneContent &content = m_view.cabinetScene().backend().content();
    QList<QPair<int, QRect>> areas;
    const QList<int> selected = m_view.cabinetScene().selection().ports();
    for (const int port : selected)
        areas << qMakePair(port, content.portItem(port)->bounds().toRect());
    Q_EMIT notifySelectedPortGeometryChanged(areas);
}

/// Leaves the view as it is if @p area is seen already.
void CViewPortPanel::showArea(const QRect &area)
{
    const QRectF seen = m_view.mapToScene(m_view.viewport()->rect()).boundingRect();
    if (seen.contains(area))
        return;
    if (area.width() > seen.width() || area.height() > seen.height())
        m_view.fit(area);
    else
        m_view.ensureVisible(area, AreaMargin, AreaMargin);
}

void CViewPortPanel::setEditingBlocked(bool blocked)
{
    m_blocked = blocked;
    m_view.setEditingBlocked(blocked);
    block();
}

void CViewPortPanel::block()
{
    m_ports.setEditingBlocked(m_blocked || m_backup);
}

void CViewPortPanel::onNotifyCancelCalibrate()
{
    m_view.cancelCalibrate();
}

void CViewPortPanel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processorInfo)
{
    m_wiring.onCurrentProcessorChanged(processorInfo);
    m_view.onCurrentProcessorChanged(processorInfo);
}

void CViewPortPanel::onCurrentProcessorBackupChanged(bool isBackup)
{
    m_backup = isBackup;
    m_view.onCurrentProcessorBackupChanged(isBackup);
    block();
}

void CViewPortPanel::onReadbackMappingFinished(bool same)
{
    m_wiring.setReadResult(same);
}

void CViewPortPanel::onNotifySaveMappingSuccessed()
{
    m_wiring.dropReadResult(); // the processor holds another mapping now
}

void CViewPortPanel::keepListHeight()
{
    if (!m_low && !m_collapse->isChecked())
        m_listHeight = m_splitter->sizes().value(1);
    saveState();
}

void CViewPortPanel::saveState() const
{
    if (m_restored && !m_low && !m_collapse->isChecked())
        ModuleSettings::open().setValue(stateKey(), m_splitter->saveState());
}

void CViewPortPanel::restoreState()
{
    const int usual = m_ports.heightOfRows(UsualRows);
    if (m_splitter->restoreState(ModuleSettings::open().value(stateKey()).toByteArray()))
        m_splitter->setHandleWidth(0);
    else
        m_splitter->setSizes({height() - usual, usual});
    const int list = m_splitter->sizes().value(1);
    m_listHeight = list > 0 ? list : usual;
    m_restored = true;
    fitList();
    if (ModuleSettings::open().value(foldedKey()).toBool()) {
        m_ports.hide(); // at once: nothing was seen of it yet
        m_collapse->setChecked(true);
    }
}

/// In a low window the list has one row, so that the canvas keeps its share.
void CViewPortPanel::fitList()
{
    const bool low = window()->height() < HeightForTwoRows;
    if (!m_restored || low == m_low)
        return;
    m_low = low;
    if (low) {
        m_ports.setMaximumHeight(m_ports.heightOfRows(1));
    } else {
        m_ports.setMaximumHeight(QWIDGETSIZE_MAX);
        m_splitter->setSizes({height() - m_listHeight, m_listHeight});
    }
}

void CViewPortPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_restored)
        restoreState();
    placeOverlay();
}

void CViewPortPanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitList();
}

void CViewPortPanel::onCollapseToggled(bool collapsed)
{
    if (collapsed)
        m_slide->moveOut();
    else
        m_slide->moveIn();
    ModuleSettings::open().setValue(foldedKey(), collapsed);
    showToolTip();
}

void CViewPortPanel::showToolTip()
{
    const bool collapsed = m_collapse->isChecked();
    m_collapse->setIcon(
        QIcon(collapsed ? QStringLiteral(":/Theme/arrow-up.svg") : QStringLiteral(":/Theme/arrow-down.svg")));
    m_collapse->setToolTip(collapsed ? tr("Expand") : tr("Collapse"));
    m_collapse->setAccessibleName(collapsed ? tr("Expand the port list") : tr("Collapse the port list"));
}

void CViewPortPanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        showToolTip();
    QWidget::changeEvent(event);
}

bool CViewPortPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        placeOverlay();
    return QWidget::eventFilter(watched, event);
}

/// At the lower edge of what the view shows.
void CViewPortPanel::placeOverlay()
{
    const QWidget &shown = *m_view.viewport();
    const QRect view(shown.mapTo(this, QPoint(0, 0)), shown.size());
    m_overlay->move(view.center().x() - CollapseSize.width() / 2, view.bottom() + 1 - CollapseSize.height());
    m_overlay->raise();
}
