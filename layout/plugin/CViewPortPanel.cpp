// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CViewPortPanel.h"

#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/panels/ports/CPortList.h"

#include <QEvent>
#include <QSettings>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr QSize CollapseSize(62, 20);
constexpr int CollapseLocation = 4; // of a tool widget
constexpr int HeightForTwoRows = 600;

QSettings settings()
{
    return QSettings(QStringLiteral("Velmarinth"), QStringLiteral("Orvo"));
}

QString stateKey()
{
    return QStringLiteral("client/layout");
}

} // namespace

CViewPortPanel::CViewPortPanel(CLayoutGraphicsView &view, CPortList &ports, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
    , m_ports(ports)
{
    buildUi();
    connect(m_collapse, &QToolButton::toggled, this, &CViewPortPanel::onCollapseToggled);
    connect(m_splitter, &QSplitter::splitterMoved, this, &CViewPortPanel::saveState);
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

void CViewPortPanel::saveState() const
{
    if (m_restored && !m_collapse->isChecked())
        settings().setValue(stateKey(), m_splitter->saveState());
}

void CViewPortPanel::restoreState()
{
    m_restored = true;
    if (m_splitter->restoreState(settings().value(stateKey()).toByteArray())) {
        m_splitter->setHandleWidth(0);
        return;
    }
    const int list = m_ports.heightOfRows(window()->height() < HeightForTwoRows ? 1 : 2);
    m_splitter->setSizes({height() - list, list});
}

void CViewPortPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_restored)
        restoreState();
    placeOverlay();
}

void CViewPortPanel::onCollapseToggled(bool collapsed)
{
    m_ports.setVisible(!collapsed);
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
