// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QRectF>
#include <QString>
#include <QVector>

/// Reads back what QPdfWriter has written. Millimetres from the upper left corner of the page.
namespace PdfText {

/// Letters that were drawn as one text.
struct SRun
{
    QString text;
    QRectF letters; ///< from the base line to the height of capital letters
};

struct SPage
{
    QString text; ///< of all runs, in the order in which they were drawn, without anything between them
    QVector<SRun> runs;
    QRectF drawn; ///< around all lines and areas
};

QVector<SPage> pages(const QByteArray &pdf);

} // namespace PdfText
