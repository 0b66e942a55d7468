// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <functional>

class ILayoutInterfaceHandler;
class QUuid;
class QWidget;

/// Ensures that what the user chose in a dialog is applied to the processor for which the dialog was opened,
/// not to one that came into view later. GUI thread.
class CProcessorInView final
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorInView)

public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;
    /// Returns whether it succeeded; if not, the host's lastError() says why.
    using Operation = std::function<bool(ILayoutInterfaceHandler &)>;

    /// The processor in view; null: none.
    static QUuid key();
    /// The reason why nothing can be sent to its cabinets, or read from them; empty if it can.
    static QString connectionRefusal();
    /// The same for @p cabinets, which must also be in its saved mapping. O(n) in the processor's cabinets.
    static QString connectionRefusal(const QList<Cabinet> &cabinets);

    /// Returns whether @p processor is still in view; if not, shows @p failure.
    static bool isStill(const QUuid &processor, QWidget *window, const QString &failure = tr("Set failed."));

    /// Carries out @p operation if @p processor is still in view. Otherwise, and if it fails, shows
    /// @p failure and the reason. Returns whether it succeeded.
    static bool carryOut(const QUuid &processor, QWidget *window, const Operation &operation,
                         const QString &failure = tr("Set failed."));
};
