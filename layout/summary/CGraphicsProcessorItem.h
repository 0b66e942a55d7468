// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsRectItem>
#include <QObject>
#include <QUuid>

/// A processor on the shared canvas: its area, at its offset.
class CGraphicsProcessorItem final : public QObject, public QGraphicsRectItem
{
    Q_OBJECT

public:
    enum EDataRole : int {
        KeyRole = 0, ///< QUuid of the processor
        AreaRole = 2 ///< QRect: the area in the processor's own pixels
    };

    CGraphicsProcessorItem(const QUuid &processor, const QString &text, const QRect &area);

    QUuid processor() const { return data(KeyRole).toUuid(); }
    QRect area() const { return data(AreaRole).toRect(); }
    const QString &text() const { return m_text; }
    QPoint offset() const { return pos().toPoint(); }
    QRect place() const { return area().translated(offset()); } ///< on the shared canvas
    /// Offline processors look different.
    void setOnline(bool online);
    bool isOnline() const { return m_online; }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

Q_SIGNALS:
    void geometryChanged(const QRectF &geometry); ///< in scene coordinates
    void offsetChanged(const QPoint &offset);

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    void paintText(QPainter &painter) const;
    QRect roomFor(const QSize &text, int lineHeight, qreal scale) const;

    const QString m_text;
    bool m_online = true;
};
