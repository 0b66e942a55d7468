// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"

#include <QPoint>
#include <QSize>
#include <QString>
#include <QUuid>

/// A processor as the summary shows it.
struct SSummaryProcessor
{
    QUuid uuid;
    QString text; ///< its display text
    QSize area;   ///< pixels
    QPoint offset;
    bool online = false; ///< only online processors can be moved

    friend bool operator==(const SSummaryProcessor &a, const SSummaryProcessor &b)
    {
        return a.uuid == b.uuid && a.text == b.text && a.area == b.area && a.offset == b.offset &&
               a.online == b.online;
    }
    friend bool operator!=(const SSummaryProcessor &a, const SSummaryProcessor &b) { return !(a == b); }
};
