// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/graphics/CZoomStrip.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QToolButton>

namespace {
constexpr int StripIconSize = 18;
constexpr int StripScaleWidth = 52;
} // namespace

CZoomStrip::CZoomStrip(QWidget *parent)
    : QFrame(parent)
    , m_scale(new QLabel(this))
{
    setObjectName(QStringLiteral("ZoomStrip"));
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(6, 2, 6, 2);
    row->setSpacing(2);
    m_scale->setAlignment(Qt::AlignCenter);
    m_scale->setFixedWidth(StripScaleWidth);
    const auto key = [](const QKeySequence &sequence) { return sequence.toString(QKeySequence::NativeText); };
    row->addWidget(addButton(QStringLiteral("zoom-out"), tr("Zoom out(%1)").arg(key(QKeySequence::ZoomOut)),
                             &CZoomStrip::notifyZoomOutClicked));
    row->addWidget(m_scale);
    row->addWidget(addButton(QStringLiteral("zoom-in"), tr("Zoom in(%1)").arg(key(QKeySequence::ZoomIn)),
                             &CZoomStrip::notifyZoomInClicked));
    row->addWidget(addButton(QStringLiteral("fit"), tr("Fit(Ctrl+0)"), &CZoomStrip::notifyFitClicked));
    row->addWidget(
        addButton(QStringLiteral("actual-size"), tr("1:1(Ctrl+1)"), &CZoomStrip::notifyActualSizeClicked));
    showScale(1);
}

QToolButton *CZoomStrip::addButton(const QString &iconName, const QString &toolTip,
                                   void (CZoomStrip::*clicked)())
{
    auto *button = new QToolButton(this);
    QIcon icon(QStringLiteral(":/Image/App/%1_normal.svg").arg(iconName));
    icon.addFile(QStringLiteral(":/Image/App/%1_hover.svg").arg(iconName), {}, QIcon::Active);
    button->setIcon(icon);
    button->setIconSize(QSize(StripIconSize, StripIconSize));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus); // the keys stay with the canvas
    connect(button, &QToolButton::clicked, this, clicked);
    return button;
}

void CZoomStrip::showScale(qreal factor)
{
    const qreal percent = factor * 100;
    m_scale->setText(QStringLiteral("%1%").arg(percent, 0, 'f', percent < 10 ? 1 : 0));
}
