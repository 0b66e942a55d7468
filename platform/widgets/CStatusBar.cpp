// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CStatusBar.h"

#include <QPainter>
#include <QSizeGrip>
#include <QStyleOption>

#include <algorithm>

namespace {
constexpr int TextMargin = 8;
}

QRect CStatusBar::messageRect() const
{
    int end = width() - TextMargin;
    for (const QObject *child : children()) {
        const auto *widget = qobject_cast<const QWidget *>(child);
        if (widget && widget->isVisible() && !qobject_cast<const QSizeGrip *>(widget))
            end = std::min(end, widget->x() - TextMargin);
    }
    return {TextMargin, 0, end - TextMargin, height()};
}

void CStatusBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_PanelStatusBar, &option, &painter, this);
    const QRect place = messageRect();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(currentMessage(), Qt::ElideRight, place.width()));
}
