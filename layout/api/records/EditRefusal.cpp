// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/EditRefusal.h"

#include "layout/api/records/LayoutLimits.h"

#include <QCoreApplication>

QString EditRefusal::redundancy()
{
    return QCoreApplication::translate("EditRefusal", "A redundancy processor follows its primary.");
}

QString EditRefusal::of(bool locked, bool isRedundancy)
{
    if (isRedundancy)
        return redundancy();
    return locked ? QCoreApplication::translate("EditRefusal", "Editing is locked.") : QString();
}

QString EditRefusal::ofPort(int port, bool locked, bool isRedundancy)
{
    if (locked)
        return QCoreApplication::translate("EditRefusal", "Port %1 is locked.").arg(port + 1);
    return isRedundancy
               ? QCoreApplication::translate("EditRefusal", "Port %1 is a redundancy port.").arg(port + 1)
               : QString();
}

QString EditRefusal::nothingSelected()
{
    return QCoreApplication::translate("EditRefusal", "Nothing is selected.");
}

QString EditRefusal::offline()
{
    return QCoreApplication::translate("EditRefusal", "The processor is offline.");
}

QString EditRefusal::fullPort(int held, int more)
{
    if (held + more <= LayoutLimits::CabinetsPerPort)
        return {};
    return QCoreApplication::translate("EditRefusal",
                                       "The number of cabinet in a single output port can not be over %1.")
        .arg(LayoutLimits::CabinetsPerPort);
}
