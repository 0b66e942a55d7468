// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/CPortPainter.h"

#include "layout/drawing/CPortColors.h"
#include "layout/panels/ports/SPortFace.h"
#include "platform/widgets/ThemeColors.h"
#include "platform/widgets/WarningSign.h"

#include <QCoreApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmapCache>

#include <map>

namespace {

constexpr qreal CardRadius = 4;
constexpr QRect LabelRect(8, 7, 25, 18);
constexpr int LoadBaseline = 20;
constexpr int LoadRight = 86;
constexpr QRectF TroughRect(7, 29, 80, 7);
constexpr QRectF BarRect(8, 30, 78, 5);
constexpr QRectF SwatchRect(11.5, 43.5, 17, 12);
constexpr int PictureSide = 16;

QFont portFont(bool bold)
{
    QFont font;
    font.setPixelSize(12);
    font.setWeight(bold ? QFont::Bold : QFont::Medium); // 57
    return font;
}

QColor cardColor(const CPortPainter::SState &state)
{
    return QColor(state.held ? ThemeColors::Base : ThemeColors::Card);
}

/// Decided on the load itself, not on what is shown of it.
QColor loadColor(int load)
{
    if (load <= 100)
        return QColor(ThemeColors::PortLoadGood);
    return QColor(load == SPortFace::UnknownLoad ? ThemeColors::PortLoadUnknown : ThemeColors::PortLoadOver);
}

const QIcon &picture(const char *name)
{
    static std::map<std::string, QIcon> icons;
    QIcon &icon = icons[name];
    if (icon.isNull())
        icon = QIcon(QStringLiteral(":/Image/Layout/PortList/%1.svg").arg(QLatin1String(name)));
    return icon;
}

const char *pictureName(CPortPainter::EArea area, const SPortFace &face, const CPortPainter::SState &state)
{
    const bool down = state.pressedArea == area;
    const bool hovered = state.hoveredArea == area;
    if (area == CPortPainter::Lock) {
        if (!state.enabled)
            return "lock_disabled";
        if (down)
            return "lock_down";
        return face.locked ? "lock_checked" : hovered ? "lock_hover" : "lock_normal";
    }
    if (!state.enabled || face.locked || face.redundant)
        return "append_disabled";
    if (down || state.held)
        return "append_down";
    return hovered ? "append_hover" : "append_normal";
}

void drawFrame(QPainter &painter, const CPortPainter::SState &state)
{
    const QRectF whole(QPoint(0, 0), CPortPainter::Size);
    const bool lit = state.enabled && (state.hovered || state.held);
    QColor frame(state.checked ? ThemeColors::Text : lit ? ThemeColors::SoftText : ThemeColors::Frame);
    if (lit)
        frame = frame.lighter(110);
    const qreal width = state.checked ? 2 : 1;
    painter.setPen(QPen(frame, width));
    painter.setBrush(cardColor(state));
    painter.drawRoundedRect(whole.adjusted(width / 2, width / 2, -width / 2, -width / 2), CardRadius,
                            CardRadius);
    if (!state.focused)
        return;
    // Inside the frame, so that both can be seen.
    const qreal inset = state.checked ? 3 : 2;
    painter.setPen(QPen(QColor(ThemeColors::Focus), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(whole.adjusted(inset, inset, -inset, -inset), 3, 3);
}

} // namespace

QRect CPortPainter::areaRect(EArea area)
{
    constexpr int Left[AreaCount] = {7, 34, 61};
    return area == NoArea ? QRect() : QRect(Left[area], 39, 26, 21);
}

CPortPainter::EArea CPortPainter::areaAt(const QPoint &place)
{
    for (const EArea area : {Fill, Lock, Append}) {
        if (areaRect(area).contains(place))
            return area;
    }
    return NoArea;
}

void CPortPainter::paint(const SPortFace &face, const SState &state, const QRegion &exposed) const
{
    m_painter.setRenderHint(QPainter::Antialiasing);
    paintCard(state, exposed);
    if (exposed.intersects(LabelRect))
        paintLabel(face, state.enabled);
    if (exposed.intersects(loadRegion()))
        paintLoad(face, state);
    if (exposed.boundingRect().bottom() < areaRect(Fill).top())
        return;
    if (state.hoveredArea != NoArea && state.enabled) {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(QColor(ThemeColors::RaisedHover));
        m_painter.drawRoundedRect(areaRect(state.hoveredArea), 3, 3);
    }
    paintFill(face, state);
    paintPicture(Lock, face, state);
    paintPicture(Append, face, state);
}

/// In a storm of loads only the inside is exposed, which needs no frame.
void CPortPainter::paintCard(const SState &state, const QRegion &exposed) const
{
    constexpr QRect Inside(4, 4, 86, 56);
    if (!Inside.contains(exposed.boundingRect())) {
        paintFrame(state);
        return;
    }
    for (const QRect &part : exposed)
        m_painter.fillRect(part, cardColor(state));
}

/// Round corners are half of what a button costs, so that frames are kept: all buttons have the same few.
void CPortPainter::paintFrame(const SState &state) const
{
    const qreal ratio = m_painter.device()->devicePixelRatioF();
    const QString key = QStringLiteral("CPortPainter %1 %2%3%4%5%6")
                            .arg(ratio)
                            .arg(state.enabled)
                            .arg(state.checked)
                            .arg(state.hovered)
                            .arg(state.held)
                            .arg(state.focused);
    QPixmap frame;
    if (!QPixmapCache::find(key, &frame)) {
        frame = QPixmap((QSizeF(Size) * ratio).toSize());
        frame.setDevicePixelRatio(ratio);
        frame.fill(Qt::transparent);
        QPainter painter(&frame);
        painter.setRenderHint(QPainter::Antialiasing);
        drawFrame(painter, state);
        painter.end();
        QPixmapCache::insert(key, frame);
    }
    m_painter.drawPixmap(0, 0, frame);
}

void CPortPainter::paintLabel(const SPortFace &face, bool enabled) const
{
    const QFont font = portFont(false);
    const QString text =
        QStringLiteral("%1%2").arg(QCoreApplication::translate("CPort", "P")).arg(face.port + 1);
    QRectF label(LabelRect);
    label.setWidth(QFontMetricsF(font).horizontalAdvance(text) + 10);
    const QColor color = CPortColors::tint(face.fill);
    const bool outlined = face.redundant || !enabled;
    const QColor line = enabled ? color : QColor(ThemeColors::Outline);
    m_painter.setPen(outlined ? QPen(line, 1) : QPen(Qt::NoPen));
    m_painter.setBrush(outlined ? QColor(ThemeColors::Base) : color);
    m_painter.drawRoundedRect(outlined ? label.adjusted(0.5, 0.5, -0.5, -0.5) : label, 3, 3);
    m_painter.setFont(font);
    m_painter.setPen(outlined ? (enabled ? color : QColor(ThemeColors::DimText)) : CPortColors::ink(color));
    m_painter.drawText(label, Qt::AlignCenter, text);
}

void CPortPainter::paintLoad(const SPortFace &face, const SState &state) const
{
    const bool over = face.load > 100;
    QColor color = loadColor(face.load);
    if (!state.enabled)
        color = QColor(ThemeColors::DimText);
    const QFont font = portFont(over);
    const QString text = face.loadText();
    const qreal width = QFontMetricsF(font).horizontalAdvance(text);
    m_painter.setPen(Qt::NoPen);
    if (over && face.load != SPortFace::UnknownLoad && state.enabled) { // red is too dark for the card
        m_painter.setBrush(QColor(ThemeColors::Text));
        m_painter.drawRoundedRect(QRectF(LoadRight - width - 2, LabelRect.y(), width + 4, LabelRect.height()),
                                  3, 3);
    }
    m_painter.setBrush(QColor(ThemeColors::Base));
    m_painter.drawRoundedRect(TroughRect, 3, 3);
    QRectF bar(BarRect);
    bar.setWidth(BarRect.width() * qBound(0, face.load, 100) / 100);
    m_painter.setBrush(color);
    m_painter.drawRoundedRect(bar, 2, 2);
    m_painter.setFont(font);
    m_painter.setPen(color);
    m_painter.drawText(QPointF(LoadRight - width, LoadBaseline), text);
}

void CPortPainter::paintFill(const SPortFace &face, const SState &state) const
{
    const QPointF middle = SwatchRect.center();
    if (face.redundant) {
        const QRectF shield(middle.x() - PictureSide / 2, middle.y() - PictureSide / 2, PictureSide,
                            PictureSide);
        picture("Menu/backup").paint(&m_painter, shield.toAlignedRect());
    } else {
        m_painter.setPen(
            QPen(state.enabled ? CPortColors::tint(face.fill) : QColor(ThemeColors::Outline), 1));
        m_painter.setBrush(state.enabled ? QBrush(face.fill) : QBrush(Qt::NoBrush));
        m_painter.drawRoundedRect(SwatchRect, 2, 2);
    }
    if (face.needsReset)
        WarningSign::paint(m_painter, middle + QPointF(8, 3), QColor(ThemeColors::Warning),
                           QColor(ThemeColors::Card));
}

void CPortPainter::paintPicture(EArea area, const SPortFace &face, const SState &state) const
{
    QRect place(0, 0, PictureSide, PictureSide);
    place.moveCenter(areaRect(area).center());
    picture(pictureName(area, face, state)).paint(&m_painter, place);
}
