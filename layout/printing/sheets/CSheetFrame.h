// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"
#include "layout/printing/sheets/SSheetArea.h"

#include <QCoreApplication>
#include <QDate>

/// What the title block says beside what the sheet itself knows.
struct STitleFacts
{
    QString project;
    QString redundancy; ///< the redundancy processor; empty: none
    QString paper;
    QString designer;
    QString auditor;
    QDate date;
    QString version;
    QString watermark;
    int number = 1;  ///< of the sheet, from 1
    int count = 1;   ///< of all sheets
    int columns = 0; ///< of the wall; 0: of several, which have different ones
    PrintConfig::Binding binding = PrintConfig::BindLeft;
    bool reverse = false; ///< it is the second side of a leaf, which is bound at its right edge
};

/// Puts frame, title block, view box and watermark on a sheet.
class CSheetFrame final
{
    Q_DECLARE_TR_FUNCTIONS(CSheetFrame)

public:
    static void add(SSheet &sheet, const SSheetArea &area, const STitleFacts &facts);

private:
    CSheetFrame(SSheet &sheet, const SSheetArea &area, const STitleFacts &facts);
    void addFrame();
    void addTitleBlock();
    /// A row of fields, @p top and @p height from the top of the title block.
    void addField(double left, double top, const QSizeF &size, const QString &caption, const QString &value,
                  double points, bool bold);
    void addViewBox();
    void addViewPicture(double left);
    void addReader(double centre, double top);
    void addWatermark();

    SSheet &m_sheet;
    const SSheetArea &m_area;
    const STitleFacts &m_facts;
    const bool m_back;
};
