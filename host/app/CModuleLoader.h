// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QString>

class IAbstractControlInterface;
class ILayoutInterface;
class QWidget;

/// Loads modules by file. A module that was loaded stays in memory until the process ends: what it queued and
/// registered may be reached until then.
class CModuleLoader final
{
    Q_DECLARE_TR_FUNCTIONS(CModuleLoader)

public:
    /// The Layout module that belongs to the running program.
    static QString layoutFile();

    /// Enters the Layout module in @p file: its widget lies under @p parent and it has registered with @p
    /// host when this returns. The module owns what is returned. Error texts name the file. GUI thread, once.
    static CResult<ILayoutInterface *> loadLayout(const QString &file, IAbstractControlInterface &host,
                                                  QWidget *parent);
};
