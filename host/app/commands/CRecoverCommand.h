// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QStringList>

class QTextStream;
struct SCommandOutcome;

/// The command "recover": lists the unsaved edits that the next start would offer, writes them as projects,
/// which ends the offer, or removes them.
class CRecoverCommand final
{
    Q_DECLARE_TR_FUNCTIONS(CRecoverCommand)

public:
    static SCommandOutcome run(const QStringList &arguments, QTextStream &out);
};
