// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDate>
#include <QMetaType>
#include <QString>
#include <QUuid>

/// Print settings of the whole job (null processor) or of one processor.
struct PrintConfig
{
    enum Paper { A4 = 0, A3 = 1, A2 = 2 };

    QUuid processor;
    QString designer;
    QString auditor;
    QDate date;
    QString watermark;
    Paper paper = A4;
    bool landscape = true;
    bool backView = false; ///< as seen from behind the wall
    bool binding = false;  ///< leaves a margin for binding

    friend bool operator==(const PrintConfig &a, const PrintConfig &b)
    {
        return a.processor == b.processor && a.designer == b.designer && a.auditor == b.auditor &&
               a.date == b.date && a.watermark == b.watermark && a.paper == b.paper &&
               a.landscape == b.landscape && a.backView == b.backView && a.binding == b.binding;
    }
    friend bool operator!=(const PrintConfig &a, const PrintConfig &b) { return !(a == b); }
};
Q_DECLARE_METATYPE(PrintConfig)
