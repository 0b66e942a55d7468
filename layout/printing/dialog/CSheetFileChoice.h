// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QString>

class QWidget;

/// Where sheets are saved, and as what. GUI thread.
class CSheetFileChoice final
{
    Q_DECLARE_TR_FUNCTIONS(CSheetFileChoice)

public:
    /// Asks for a file, and before anything is overwritten. @p title is the name that is proposed; pictures
    /// of several @p sheets are several files. Empty: nothing was chosen.
    static QString ask(QWidget *parent, const QString &title, int sheets);
    /// Whether the name is that of a table of the cabinets.
    static bool isTable(const QString &file);
};
