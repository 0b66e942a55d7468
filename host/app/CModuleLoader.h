// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QString>

class IAbstractControlInterface;
class ILayoutInterface;
class QWidget;

/// Loads modules from files. A loaded module stays in memory until the process ends, because queued calls and
/// registered types may need it until then.
class CModuleLoader final
{
    Q_DECLARE_TR_FUNCTIONS(CModuleLoader)

public:
    /// The Layout module that belongs to the running program.
    static QString layoutFile();

    /// Loads and starts the Layout module in @p file: on return its widget is a child of @p parent, and it
    /// has registered with @p host. The module owns the returned object. Error texts name the file. GUI
    /// thread; call once.
    static CResult<ILayoutInterface *> loadLayout(const QString &file, IAbstractControlInterface &host,
                                                  QWidget *parent);
};
