// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QStringList>

/// Runs programs for what can only be measured for a whole process. If a program fails, the benchmark ends
/// with a message.
namespace ChildProcess {

/// Another program of the same build.
QString programOfBuild(const QString &name);
/// The arguments with which this program runs @p part.
QStringList argumentsOfPart(const char *part);

/// Milliseconds from the start of @p program to its end.
double wholeRun(const QString &program, const QStringList &arguments);
/// Milliseconds from the start of @p program to its first output.
double timeToFirstOutput(const QString &program, const QStringList &arguments);
/// The output of this program when it runs @p part.
QByteArray outputOfPart(const char *part);

} // namespace ChildProcess
