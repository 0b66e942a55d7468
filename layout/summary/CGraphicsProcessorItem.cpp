// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/summary/CGraphicsProcessorItem.h"

#include "platform/widgets/ThemeColors.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QPen>

namespace {

constexpr int TextPixels = 12; // on the screen, at every zoom
constexpr int TextMargin = 8;
constexpr int FillOpacity = 225; // the edges of items below are visible through it

QColor translucent(QRgb rgb)
{
    QColor color(rgb);
    color.setAlpha(FillOpacity);
    return color;
}

} // namespace

CGraphicsProcessorItem::CGraphicsProcessorItem(const QUuid &processor, const QString &text, const QRect &area)
    : QGraphicsRectItem(area)
    , m_text(text)
{
    setFlags(ItemIsMovable | ItemIsSelectable | ItemSendsScenePositionChanges);
    QPen edge(QColor(ThemeColors::Outline), 0);
    edge.setCosmetic(true);
    setPen(edge);
    setData(KeyRole, processor);
    setData(AreaRole, area);
    setToolTip(text);
}

void CGraphicsProcessorItem::setOnline(bool online)
{
    m_online = online;
    QPen edge = pen();
    edge.setStyle(online ? Qt::SolidLine : Qt::DashLine);
    setPen(edge);
}

QVariant CGraphicsProcessorItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemScenePositionHasChanged) {
        Q_EMIT geometryChanged(mapRectToScene(rect()));
        Q_EMIT offsetChanged(offset());
    }
    return QGraphicsRectItem::itemChange(change, value);
}

void CGraphicsProcessorItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setPen(pen());
    painter->setBrush(translucent(isSelected() ? ThemeColors::Accent : ThemeColors::Raised));
    painter->drawRect(rect());
    painter->save();
    paintText(*painter);
    painter->restore();
}

/// Where a text can be read, in pixels of the screen at @p scale: where no item above covers it. That is the
/// whole item if its middle is free, else the widest part in which a line fits; empty without one.
QRect CGraphicsProcessorItem::roomFor(const QSize &text, int lineHeight, qreal scale) const
{
    const auto onScreen = [scale](const QRectF &place) {
        return QRectF(place.topLeft() * scale, place.size() * scale).toRect();
    };
    const QRect whole = onScreen(rect());
    QRegion seen(whole);
    const QList<QGraphicsItem *> upperFirst = scene()->items(sceneBoundingRect());
    for (const QGraphicsItem *item : upperFirst) {
        if (item == this)
            break;
        seen -= onScreen(mapRectFromItem(item, item->boundingRect()));
    }
    QRect middle(QPoint(), text.boundedTo(whole.size()));
    middle.moveCenter(whole.center());
    if (QRegion(middle).subtracted(seen).isEmpty())
        return whole;
    QRect widest;
    for (const QRect &part : seen) {
        if (part.height() >= lineHeight && part.width() > widest.width())
            widest = part;
    }
    return widest;
}

/// In pixels of the screen: a font of 12 pixels divided by the scale would be rounded when it is scaled back.
void CGraphicsProcessorItem::paintText(QPainter &painter) const
{
    const qreal scale = painter.worldTransform().m11();
    painter.scale(1 / scale, 1 / scale);
    QFont font = painter.font();
    font.setWeight(QFont::DemiBold); // 600
    font.setPixelSize(TextPixels);
    painter.setFont(font);
    const QFontMetricsF metrics(font, painter.device());
    const QSizeF text(metrics.horizontalAdvance(m_text), (m_online ? 1 : 2) * metrics.lineSpacing());
    const QRectF room = QRectF(roomFor(text.toSize(), qRound(metrics.height()), scale))
                            .adjusted(TextMargin, 0, -TextMargin, 0);
    if (room.width() < metrics.horizontalAdvance(QChar(0x2026)) || room.height() < metrics.height())
        return; // not even an ellipsis would fit
    painter.setPen(QColor(m_online ? ThemeColors::Text : ThemeColors::SoftText));
    const QString name = metrics.elidedText(m_text, Qt::ElideMiddle, room.width());
    const bool hasState = !m_online && room.height() >= 2 * metrics.lineSpacing();
    painter.drawText(room, Qt::AlignCenter, hasState ? name + QLatin1Char('\n') + tr("offline") : name);
}
