// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QCoreApplication>

class IMappingFolder;
class QWidget;

/// Lets the host write a cabinet's configuration to a file: the one in the library, or the one read back from
/// the cabinet. GUI thread.
class CCabinetFiles final
{
    Q_DECLARE_TR_FUNCTIONS(CCabinetFiles)

public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    /// All must outlive this object; @p parent is the parent of dialogs and messages.
    CCabinetFiles(IMappingFolder &folder, QWidget *parent)
        : m_folder(folder)
        , m_parent(parent)
    {
    }

    // @p typeName is the name of the cabinet's type; empty without a type.
    void exportConfiguration(const Cabinet &cabinet, const QString &typeName);
    void readBack(const Cabinet &cabinet, const QString &typeName);

private:
    QString askForFile(const QString &title, const QString &proposed);

    IMappingFolder &m_folder;
    QWidget *m_parent;
};
