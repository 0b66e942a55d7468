// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QVector>

class QPainter;

/// What is shown of a port once, above its cabinets: its name at the head of the chain, that of its
/// redundancy port at the end, and where its cable enters and ends. Rectangles and points are in canvas
/// pixels.
struct SPortLook
{
    int port = 0;
    QColor fill;
    bool locked = false;
    bool redundant = false;
    qint64 load = 0; ///< percent; an overload is told
    QRectF bounds;   ///< around the cabinets; empty for a port without any, which shows nothing
    QRectF head;     ///< the first cabinet of the chain, of an unwired port any
    QRectF tail;     ///< the last cabinet of the chain
    QString backup;  ///< see CPortLabel::backupText(); empty: none
    bool wired = false;
    bool single = false; ///< the chain has one cabinet
    QPointF entry;       ///< of the chain, if there is one
    QPointF exit;

    friend bool operator==(const SPortLook &a, const SPortLook &b);
};

/// Draws the labels of ports. Scales are in device pixels per canvas pixel. GUI thread.
class CPortLabel final
{
public:
    static void paint(QPainter &painter, const SPortLook &look, qreal scale);
    /// Whether a label may reach into @p exposed, at little cost.
    static bool mayReach(const SPortLook &look, const QRectF &exposed, qreal scale);
    /// What paint() covers, in canvas pixels.
    static QVector<QRectF> areas(const SPortLook &look, qreal scale);

    /// The width that a label, with or without a picture, takes before the number of a close cabinet, device
    /// pixels.
    static qreal widthBeforeNumber(const QString &text, bool icon);
    static bool isOverloaded(const SPortLook &look);
    /// @p load is in percent; an overload is part of the text.
    static QString text(int port, qint64 load = 0);
    /// Names the redundancy port of @p port, with an arrow if it is on another processor; empty: none.
    static QString backupText(const CabinetLayout::CabinetPort &port);
};
