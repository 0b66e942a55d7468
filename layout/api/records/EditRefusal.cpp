// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/EditRefusal.h"

#include <QCoreApplication>

QString EditRefusal::redundancy()
{
    return QCoreApplication::translate("EditRefusal", "A redundancy processor follows its primary");
}

QString EditRefusal::of(bool locked, bool isRedundancy)
{
    if (isRedundancy)
        return redundancy();
    return locked ? QCoreApplication::translate("EditRefusal", "Editing is locked") : QString();
}
