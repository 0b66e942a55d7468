// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QMap>
#include <QSize>
#include <QStringList>

/// The arguments of one command: files, and options of the form "--name VALUE" or "--name=VALUE". Reads
/// strictly: what is unknown, doubled, missing or not a number is an error.
class CCommandArguments final
{
    Q_DECLARE_TR_FUNCTIONS(CCommandArguments)

public:
    /// @p options are the names that the command knows, with their dashes; @p fileCount is how many files it
    /// wants.
    static CResult<CCommandArguments> parse(const QStringList &arguments, const QStringList &options,
                                            int fileCount);

    const QString &file(int index) const { return m_files.at(index); }
    bool has(const QString &option) const { return m_values.contains(option); }

    /// A number in plain decimal digits. On failure -1, and @p error is set.
    int number(const QString &option, int minimum, int maximum, QString &error) const;
    /// A size written 192x108. On failure empty, and @p error is set.
    QSize size(const QString &option, int maximum, QString &error) const;

private:
    QStringList m_files;
    QMap<QString, QString> m_values;
};
