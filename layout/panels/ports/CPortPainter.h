// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFont>
#include <QRect>
#include <QRegion>

class QPainter;
struct SPortFace;

/// Draws the button of an output port from values. GUI thread.
class CPortPainter final
{
public:
    static constexpr QSize Size{94, 64};
    /// The parts of the button that have a click of their own.
    enum EArea { Fill, Lock, Append, AreaCount, NoArea = AreaCount };

    /// How the user deals with the button at the moment.
    struct SState
    {
        bool enabled = true;
        bool checked = false;
        bool hovered = false;
        bool held = false;    ///< pressed, or its append menu is open
        bool focused = false; ///< by keyboard
        EArea hoveredArea = NoArea;
        EArea pressedArea = NoArea;
    };

    static QRect areaRect(EArea area);
    static EArea areaAt(const QPoint &place); ///< NoArea outside all
    /// The parts that depend on the load: text and bar.
    static QRegion loadRegion() { return QRegion(34, 4, 55, 25) | QRegion(7, 29, 80, 7); }

    explicit CPortPainter(QPainter &painter)
        : m_painter(painter)
    {
    }
    /// Draws what lies in @p exposed, with the frame in the whole.
    void paint(const SPortFace &face, const SState &state, const QRegion &exposed) const;

private:
    void paintCard(const SState &state, const QRegion &exposed) const;
    void paintFrame(const SState &state) const;
    void paintLabel(const SPortFace &face, bool enabled) const;
    void paintLoad(const SPortFace &face, const SState &state) const;
    void paintFill(const SPortFace &face, const SState &state) const;
    void paintPicture(EArea area, const SPortFace &face, const SState &state) const;

    QPainter &m_painter;
};
