// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QMap>
#include <QSize>
#include <QStringList>

/// The arguments of one command: files, options of the form "--name VALUE" or "--name=VALUE", and flags,
/// which have no value. Strict: unknown, repeated or missing arguments, and values that are not numbers, are
/// errors.
class CCommandArguments final
{
    Q_DECLARE_TR_FUNCTIONS(CCommandArguments)

public:
    /// @p options are the command's option names, with their dashes; @p fileCount is the number of files it
    /// expects.
    static CResult<CCommandArguments> parse(const QStringList &arguments, const QStringList &options,
                                            int fileCount);
    /// @p flags are the names of options without a value; there may be any number of files from @p
    /// fewestFiles on.
    static CResult<CCommandArguments> parse(const QStringList &arguments, const QStringList &options,
                                            const QStringList &flags, int fewestFiles);

    const QString &file(int index) const { return m_files.at(index); }
    int fileCount() const { return m_files.size(); }
    /// The options and flags that are given.
    QStringList given() const { return m_values.keys(); }
    QString text(const QString &option) const { return m_values.value(option); }
    bool has(const QString &option) const { return m_values.contains(option); }

    /// A number in plain decimal digits. On failure -1, and @p error is set.
    int number(const QString &option, int minimum, int maximum, QString &error) const;
    /// A size written 192x108. On failure empty, and @p error is set.
    QSize size(const QString &option, int maximum, QString &error) const;

private:
    static CResult<CCommandArguments> read(const QStringList &arguments, const QStringList &options,
                                           const QStringList &flags);

    QStringList m_files;
    QMap<QString, QString> m_values;
};
