// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/api/records/SHostRecords.h"
#include "layout/drawing/CCanvasFill.h"

#include <QObject>
#include <QPixmap>
#include <QSet>
#include <QTimer>

class QPainter;

/// Draws what the simulated wall shows: the cabinets of one processor, its background, and highlights. GUI
/// thread.
class CScreenPicture final : public QObject
{
    Q_OBJECT

public:
    explicit CScreenPicture(QObject *parent = nullptr);

    /// @p background is shown behind the cabinets, within the canvas.
    void setWall(const LayoutData &data, const SBackgroundInfo &background);
    void setStatusLed(bool on);
    void setNumbersShown(bool shown);
    /// Makes @p cabinets flash instead of the previous ones; those that the wall does not have are ignored.
    void setHighlight(const QVector<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                      CabinetHighlight highlight);

    /// The part of the canvas that is shown, in canvas pixels; empty if there is no wall.
    QRect extent() const;
    void paint(QPainter &painter, const QRect &target);

Q_SIGNALS:
    void notifyChanged(); ///< the picture must be painted again

private:
    void invalidate();
    void placeHighlight();
    void onFlash();
    QTransform transformTo(const QRectF &target) const;
    void paintWall(QPainter &painter, const QRectF &target);
    void paintStatusLeds(QPainter &painter) const;
    void paintHighlight(QPainter &painter) const;

    LayoutData m_data;
    CCanvasFill m_fill;
    bool m_statusLed = false;
    bool m_numbersShown = false;
    QSet<QUuid> m_highlighted;
    QVector<QRect> m_highlightRects; ///< the rectangles of m_highlighted on the wall
    CabinetHighlight m_highlight = CabinetHighlight::Off;
    bool m_flash = false; ///< in the half of the period in which highlights are visible
    QTimer m_flashTimer;
    QPixmap m_wall; ///< everything except what flashes; null: must be painted again
};
