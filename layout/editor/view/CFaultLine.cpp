// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CFaultLine.h"

#include "layout/drawing/LayoutColors.h"
#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CLayoutFaults.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CLayoutGraphicsView.h"

#include <QHBoxLayout>
#include <QToolButton>

namespace {

constexpr QChar WarningSign(0x26a0);
constexpr QChar HatchedSign(0x25a8);
constexpr QChar RingSign(0x25cb);

QString withSign(QChar sign, const QString &text)
{
    return sign + QLatin1Char(' ') + text;
}

} // namespace

CFaultLine::CFaultLine(CLayoutGraphicsView &view)
    : m_view(view)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    for (const CabinetFault fault : {CabinetFault::Overlapping, CabinetFault::Outside, CabinetFault::Unwired})
        addButton(fault);
    m_overload = makeButton(true);
    row->insertWidget(0, m_overload);
    m_overload->hide();
    connect(m_overload, &QToolButton::clicked, this, [this] { Q_EMIT notifyPortsSought(m_overloaded); });
    connect(&view.cabinetScene(), &CCabinetGraphicsScene::notifyFaultsChanged, this, &CFaultLine::showCounts);
    showCounts();
}

QToolButton *CFaultLine::makeButton(bool grave)
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    const QColor color = grave ? LayoutColors::Fault : LayoutColors::Warning;
    button->setStyleSheet(QStringLiteral("color:%1").arg(color.name()));
    return button;
}

void CFaultLine::addButton(CabinetFault fault)
{
    QToolButton *button = makeButton(fault == CabinetFault::Overlapping);
    button->setToolTip(tr("Select these cabinets"));
    layout()->addWidget(button);
    m_buttons.insert(int(fault), button);
    connect(button, &QToolButton::clicked, this, [this, fault] { select(fault); });
}

QString CFaultLine::text(CabinetFault fault, int count)
{
    switch (fault) {
    case CabinetFault::Overlapping:
        return withSign(WarningSign, tr("%1 overlapping").arg(count));
    case CabinetFault::Outside:
        return withSign(HatchedSign, tr("%1 outside the canvas").arg(count));
    default:
        return withSign(RingSign, tr("%1 unwired").arg(count));
    }
}

void CFaultLine::showCounts()
{
    for (auto button = m_buttons.begin(); button != m_buttons.end(); ++button) {
        const auto fault = CabinetFault(button.key());
        const int count = m_view.cabinetScene().backend().faults().count(fault);
        (*button)->setText(text(fault, count));
        (*button)->setVisible(count > 0);
    }
}

void CFaultLine::showOverload(const QString &text, const QString &toolTip, const QVector<int> &ports)
{
    m_overloaded = ports;
    m_overload->setText(withSign(WarningSign, text));
    m_overload->setToolTip(toolTip);
    m_overload->setVisible(!text.isEmpty());
}

void CFaultLine::select(CabinetFault fault)
{
    CSceneBackend &backend = m_view.cabinetScene().backend();
    backend.batches().cancelGesture();
    backend.picks().only(backend.faults().cabinets(fault));
    const QRect found = backend.selection().extent();
    if (!found.isEmpty() && !m_view.mapToScene(m_view.viewport()->rect()).boundingRect().intersects(found))
        m_view.showPlace(QRectF(found).center());
    m_view.setFocus();
}
