// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QCoreApplication>

class IMappingFolder;
class ITypeLookup;
class QWidget;

/// Lets the host write a cabinet's configuration to a file: the one in the library, or the one read back from
/// the cabinet. GUI thread.
class CCabinetFiles final
{
    Q_DECLARE_TR_FUNCTIONS(CCabinetFiles)

public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    /// All must outlive this object; @p parent is the parent of dialogs and messages.
    CCabinetFiles(const ITypeLookup &types, IMappingFolder &folder, QWidget *parent)
        : m_types(types)
        , m_folder(folder)
        , m_parent(parent)
    {
    }

    void exportConfiguration(const Cabinet &cabinet);
    void readBack(const Cabinet &cabinet);

private:
    QString askForFile(const QString &title, const QString &proposed);

    const ITypeLookup &m_types;
    IMappingFolder &m_folder;
    QWidget *m_parent;
};
