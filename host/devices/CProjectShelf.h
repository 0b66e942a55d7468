// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/SDevice.h"
#include "host/projects/CProcessorProject.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QUuid>

class CDeviceTable;

/// Opens and saves project files as processors without device. Any thread.
class CProjectShelf final
{
    Q_DECLARE_TR_FUNCTIONS(CProjectShelf)

public:
    explicit CProjectShelf(CDeviceTable &table);

    /// Puts the file's processor into the table; gives its key, also when the file is open already.
    CResult<QUuid> open(const QString &file);
    /// Puts the demo wall into the table.
    CResult<QUuid> openDemo();
    /// Puts a project without file into the table, all of it unsaved edits.
    CResult<QUuid> addUnsaved(const SProcessorProject &project);
    CStatus save(const QUuid &processor, const QString &file);

    static SProcessorProject projectOf(const SDevice &device);

private:
    CResult<QUuid> add(const SProcessorProject &project, const QString &file, const CabinetLayout &saved);
    QUuid openedAs(const QString &file) const;

    CDeviceTable &m_table;
};
