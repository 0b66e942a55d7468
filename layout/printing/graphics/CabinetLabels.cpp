// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CabinetLabels.h"

#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

using SheetMarks::CaptionPoints;
using SheetMarks::NotePoints;
using SheetMarks::NumberPoints;

constexpr double LargeSide = 24; // millimetres
constexpr double MediumSide = 14;
constexpr double MediumNumber = 16; // points
constexpr double SmallNumber = 9;
constexpr double PlacePoints = 8;
constexpr double TypePoints = 9;
constexpr double TagPadding = 0.8; // millimetres
constexpr double TagBorder = 0.5;
constexpr double LabelGap = 0.5;
constexpr double LeaderWidth = 0.2;
constexpr double BesideBorder = 2;   // of a wire that follows a border
constexpr double PixelLeft = 2.5;    // of the centre, beside an arrow head
constexpr double LabelStep = 1.25;   // of a line's height
constexpr double SmallPadding = 0.8; // below MediumSide
constexpr double DigitRoom = 1.1;    // of their height: nothing is below the line
constexpr double WireRoom = 0.75;    // from the middle of a wire: half an arrow head, and air

double sideOf(const QRectF &rect)
{
    return std::min(rect.width(), rect.height());
}

/// What texts may use: also without the wires that run along the borders.
QRectF innerOf(const SCabinetLabels &labels)
{
    const QRectF &rect = labels.rect;
    const double side = sideOf(rect);
    const double padding = side >= LargeSide ? 1.4 : side >= MediumSide ? 0.9 : SmallPadding;
    QRectF inner = rect.adjusted(padding, padding, -padding, -padding);
    for (const QRectF &wire : labels.obstacles) {
        const QPointF middle = wire.center();
        const bool upright = wire.height() > wire.width();
        if (upright && std::abs(middle.x() - rect.left()) < BesideBorder)
            inner.setLeft(std::max(inner.left(), wire.right() + LabelGap));
        else if (upright && std::abs(middle.x() - rect.right()) < BesideBorder)
            inner.setRight(std::min(inner.right(), wire.left() - LabelGap));
        else if (!upright && std::abs(middle.y() - rect.top()) < BesideBorder)
            inner.setTop(std::max(inner.top(), wire.bottom() + LabelGap));
        else if (!upright && std::abs(middle.y() - rect.bottom()) < BesideBorder)
            inner.setBottom(std::min(inner.bottom(), wire.top() - LabelGap));
    }
    return inner;
}

QRectF numberRoom(const QString &number, double points)
{
    QRectF room = DrawnMarks::room(number, points, true);
    room.setHeight(CSheetFont::capHeight(points) * DigitRoom);
    return room;
}

/// Whether a number in @p box keeps clear of wires and border.
bool isClear(const SCabinetLabels &labels, const QRectF &inner, const QRectF &box)
{
    return box.width() <= inner.width() && box.height() <= inner.height() &&
           std::none_of(labels.obstacles.begin(), labels.obstacles.end(),
                        [&](const QRectF &obstacle) { return obstacle.intersects(box); });
}

/// The corner of a cabinet in which a number keeps clear of wires and border: the upper left one, if it can
/// be.
std::optional<QRectF> clearCorner(const SCabinetLabels &labels, const QRectF &inner, double points)
{
    QRectF box = numberRoom(labels.number, points);
    const double right = inner.right() - box.width();
    const double bottom = inner.bottom() - box.height();
    const QPointF corners[] = {
        inner.topLeft(), {inner.left(), bottom}, {right, inner.top()}, {right, bottom}};
    for (const QPointF &corner : corners) {
        box.moveTopLeft(corner);
        if (isClear(labels, inner, box))
            return box;
    }
    return std::nullopt;
}

/// What one cabinet gets, label by label.
class CPlacer final
{
public:
    CPlacer(SSheet &sheet, const SCabinetLabels &labels)
        : m_sheet(sheet)
        , m_labels(labels)
        , m_taken(labels.obstacles)
        , m_side(sideOf(labels.rect))
        , m_inner(innerOf(labels))
    {
    }

    void placeNumber(double points)
    {
        const std::optional<QRectF> clear = clearCorner(m_labels, m_inner, points);
        const QRectF box = clear.value_or(numberRoom(m_labels.number, points).translated(m_inner.topLeft()));
        if (!clear) // rather a gap in the wire than a number that is struck through
            SheetMarks::fill(m_sheet, box, Qt::white);
        add(box, m_labels.number, points, true, EMark::CabinetNumber);
    }

    void placeTags()
    {
        double top = m_inner.top();
        for (const SCabinetTag &tag : m_labels.tags) {
            if (tag.look == SCabinetTag::Plain)
                top = placePlain(tag, top);
            else
                top = placeBoxed(tag, top);
        }
    }

    void placeLower()
    {
        if (m_side < MediumSide)
            return;
        const bool large = m_side >= LargeSide;
        const double points = large ? PlacePoints : CaptionPoints;
        const double step = DrawnMarks::room({}, points, false).height() * LabelStep;
        const double base = m_inner.bottom();
        const double typePoints = large ? TypePoints : PlacePoints;
        const double left = m_inner.left();
        if (addAbove(base - step, left, m_labels.type, typePoints, true, EMark::CabinetType)) {
            addAbove(base, left, m_labels.place, points, false, EMark::CabinetPlace);
        } else if (addAbove(base, left, m_labels.type, typePoints, true, EMark::CabinetType)) { // in one line
            const double width = DrawnMarks::room(m_labels.type, typePoints, true).width();
            addAbove(base, left + width + 2 * LabelGap, m_labels.place, points, false, EMark::CabinetPlace);
        }
        if (large)
            placePixel(points, step);
    }

private:
    bool isFree(const QRectF &box) const
    {
        const QRectF room = box.adjusted(-LabelGap, -LabelGap, LabelGap, LabelGap);
        return m_labels.rect.contains(box) &&
               std::none_of(m_taken.begin(), m_taken.end(),
                            [&](const QRectF &taken) { return taken.intersects(room); });
    }

    void add(const QRectF &box, const QString &text, double points, bool bold, EMark mark)
    {
        DrawnMarks::text(m_sheet, box, text, points, bold, mark);
        m_taken << box;
    }

    bool addAbove(double bottom, double left, const QString &text, double points, bool bold, EMark mark)
    {
        QRectF box = DrawnMarks::room(text, points, bold);
        box.moveBottomLeft({left, bottom});
        if (text.isEmpty() || !isFree(box))
            return false;
        add(box, text, points, bold, mark);
        return true;
    }

    /// Both lines or none.
    void placePixel(double points, double step)
    {
        if (m_labels.pixel.size() != 2)
            return;
        const double left = m_labels.rect.center().x() + PixelLeft;
        QRectF lower = DrawnMarks::room(m_labels.pixel[1], points, false);
        QRectF upper = DrawnMarks::room(m_labels.pixel[0], points, false);
        lower.moveBottomLeft({left, m_inner.bottom()});
        upper.moveBottomLeft({left, m_inner.bottom() - step});
        if (!isFree(upper) || !isFree(lower))
            return;
        add(upper, m_labels.pixel[0], points, false, EMark::CabinetPixel);
        add(lower, m_labels.pixel[1], points, false, EMark::CabinetPixel);
    }

    /// Returns where the next tag begins.
    double placeBoxed(const SCabinetTag &tag, double top)
    {
        const QString text = tag.wordings.first();
        const bool start = tag.look == SCabinetTag::Start;
        for (double points : {NotePoints, CaptionPoints}) {
            QRectF box = DrawnMarks::room(text, points, true)
                             .adjusted(-TagPadding, -TagPadding, TagPadding, TagPadding);
            box.moveTopRight({m_inner.right(), top});
            if (!isFree(box))
                continue;
            DrawnMarks::box(m_sheet, box, start ? Qt::black : Qt::white, TagBorder);
            DrawnMarks::text(m_sheet, box.adjusted(TagPadding, TagPadding, -TagPadding, -TagPadding), text,
                             points, true, EMark::Tag, start ? Qt::white : Qt::black);
            m_taken << box;
            return box.bottom() + LabelGap * 2;
        }
        return top;
    }

    /// Rather in a lower quarter, where it displaces other labels, than shorter.
    double placePlain(const SCabinetTag &tag, double top)
    {
        for (const QString &wording : tag.wordings) {
            const QStringList lines = wording.split(QLatin1Char('\n'));
            const double height =
                lines.size() * (DrawnMarks::room({}, CaptionPoints, false).height() + LabelGap);
            if (addLines(lines, top, true))
                return top + height + LabelGap;
            const double lower = m_inner.bottom() - height + LabelGap;
            if (addLines(lines, lower, true) || addLines(lines, lower, false))
                return top;
        }
        return top;
    }

    /// All lines or none.
    bool addLines(const QStringList &lines, double top, bool right)
    {
        QVector<QRectF> boxes;
        for (const QString &line : lines) {
            QRectF box = DrawnMarks::room(line, CaptionPoints, false);
            box.moveTopLeft({right ? m_inner.right() - box.width() : m_inner.left(), top});
            if (!isFree(box))
                return false;
            top = box.bottom() + LabelGap;
            boxes << box;
        }
        for (int i = 0; i < lines.size(); ++i)
            add(boxes[i], lines[i], CaptionPoints, false, EMark::Tag);
        return true;
    }

    SSheet &m_sheet;
    const SCabinetLabels &m_labels;
    QVector<QRectF> m_taken;
    double m_side;
    QRectF m_inner;
};

} // namespace

double CabinetLabels::largestNumber(const QRectF &rect)
{
    const double side = sideOf(rect);
    return side >= LargeSide ? NumberPoints : side >= MediumSide ? MediumNumber : SmallNumber;
}

double CabinetLabels::numberPoints(const SCabinetLabels &labels)
{
    const QRectF inner = innerOf(labels);
    const double largest = largestNumber(labels.rect);
    for (double points = largest; points > CaptionPoints; points -= 1) {
        const std::optional<QRectF> clear = clearCorner(labels, inner, points);
        // Where other texts have the other quarters, it is rather smaller.
        if (clear && (largest == SmallNumber || clear->topLeft() == inner.topLeft()))
            return points;
    }
    return CaptionPoints;
}

double CabinetLabels::smallestSide(int largest, bool upright)
{
    const double width = DrawnMarks::room(QString::number(largest), CaptionPoints, true).width();
    return std::max(SmallestSide, upright ? 2 * (SmallPadding + width + WireRoom) : 2 * SmallPadding + width);
}

void CabinetLabels::place(SSheet &sheet, const SCabinetLabels &labels, double numberPoints)
{
    CPlacer placer(sheet, labels);
    placer.placeNumber(numberPoints);
    placer.placeTags();
    placer.placeLower();
}

bool CabinetLabels::isTooSmall(const SCabinetLabels &labels)
{
    const QRectF box = numberRoom(labels.number, CaptionPoints);
    return box.width() > labels.rect.width() - 0.6 || box.height() > labels.rect.height() - 0.6;
}

void CabinetLabels::placeBeside(SSheet &sheet, const SCabinetLabels &labels, const QRectF &room)
{
    QVector<QRectF> taken = labels.obstacles;
    for (const SSheetMark &mark : qAsConst(sheet.marks)) {
        if (const auto *text = std::get_if<SSheetText>(&mark))
            taken << text->box.adjusted(-0.3, -0.3, 0.3, 0.3);
    }
    const QPointF centre = labels.rect.center();
    QRectF box = numberRoom(labels.number, CaptionPoints);
    bool found = false;
    for (int step = 0; step < 400 && !found; ++step) { // outwards, in a spiral
        const double angle = step * M_PI / 8;
        box.moveCenter(centre + QPointF(std::cos(angle), std::sin(angle)) * (3 + step * 0.15));
        found = room.contains(box) && std::none_of(taken.begin(), taken.end(), [&](const QRectF &other) {
                    return other.intersects(box);
                });
    }
    if (!found)
        box.moveCenter(centre);
    DrawnMarks::polyline(sheet, QVector<QPointF>{centre, box.center()}, LeaderWidth, {}, LeaderWidth);
    DrawnMarks::text(sheet, box, labels.number, CaptionPoints, true, EMark::CabinetNumber, Qt::black, 0.4);
}
