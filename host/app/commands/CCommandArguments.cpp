// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CCommandArguments.h"

#include <algorithm>

namespace {

constexpr int LongestNumber = 9; // digits, so that it fits an int

/// A number in plain decimal digits; -1 for anything else.
int plainNumber(const QString &text)
{
    const bool digits = std::all_of(text.begin(), text.end(),
                                    [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
    return !text.isEmpty() && text.size() <= LongestNumber && digits ? text.toInt() : -1;
}

} // namespace

CResult<CCommandArguments> CCommandArguments::parse(const QStringList &arguments, const QStringList &options,
                                                    int fileCount)
{
    auto parsed = read(arguments, options, {});
    if (parsed && (parsed.value().m_files.size() != fileCount || parsed.value().m_files.contains(QString())))
        return CResult<CCommandArguments>::failure(fileCount == 1
                                                       ? tr("exactly one file must be named")
                                                       : tr("exactly %1 files must be named").arg(fileCount));
    return parsed;
}

CResult<CCommandArguments> CCommandArguments::parse(const QStringList &arguments, const QStringList &options,
                                                    const QStringList &flags, int fewestFiles)
{
    auto parsed = read(arguments, options, flags);
    if (parsed && (parsed.value().m_files.size() < fewestFiles || parsed.value().m_files.contains(QString())))
        return CResult<CCommandArguments>::failure(tr("at least %1 files must be named").arg(fewestFiles));
    return parsed;
}

CResult<CCommandArguments> CCommandArguments::read(const QStringList &arguments, const QStringList &options,
                                                   const QStringList &flags)
{
    using Arguments = CResult<CCommandArguments>;
    CCommandArguments parsed;
    bool optionsEnded = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (optionsEnded || !argument.startsWith(QLatin1String("--"))) {
            parsed.m_files << argument;
            continue;
        }
        optionsEnded = argument == QLatin1String("--");
        if (optionsEnded)
            continue;
        const QString option = argument.section(QLatin1Char('='), 0, 0);
        const bool flag = flags.contains(option);
        if (!flag && !options.contains(option))
            return Arguments::failure(tr("the option %1 is not known").arg(option));
        if (parsed.m_values.contains(option))
            return Arguments::failure(tr("the option %1 is given twice").arg(option));
        const bool joined = argument.contains(QLatin1Char('='));
        if (flag && joined)
            return Arguments::failure(tr("the option %1 has no value").arg(option));
        if (flag) {
            parsed.m_values.insert(option, QString());
            continue;
        }
        if (!joined && i + 1 == arguments.size())
            return Arguments::failure(tr("the option %1 needs a value").arg(option));
        parsed.m_values.insert(option, joined ? argument.section(QLatin1Char('='), 1) : arguments.at(++i));
    }
    return parsed;
}

int CCommandArguments::number(const QString &option, int minimum, int maximum, QString &error) const
{
    const int value = plainNumber(m_values.value(option));
    if (value >= minimum && value <= maximum)
        return value;
    error = has(option) ? tr("%1 must be a whole number from %2 to %3, not \"%4\"")
                              .arg(option)
                              .arg(minimum)
                              .arg(maximum)
                              .arg(m_values.value(option))
                        : tr("the option %1 is missing").arg(option);
    return -1;
}

QSize CCommandArguments::size(const QString &option, int maximum, QString &error) const
{
    const QStringList sides = m_values.value(option).split(QLatin1Char('x'));
    const QSize size(plainNumber(sides.first()), plainNumber(sides.last()));
    const bool inRange = !size.isEmpty() && size.width() <= maximum && size.height() <= maximum;
    if (sides.size() == 2 && inRange)
        return size;
    error = has(option) ? tr("%1 must be a size like 192x108 with sides from 1 to %2, not \"%3\"")
                              .arg(option)
                              .arg(maximum)
                              .arg(m_values.value(option))
                        : tr("the option %1 is missing").arg(option);
    return {};
}
