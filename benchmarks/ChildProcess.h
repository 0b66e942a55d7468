// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QStringList>

/// Runs programs for what can only be measured of a whole process. A program that fails ends the benchmark
/// with a message: half a figure is none.
namespace ChildProcess {

/// Another program of the same build.
QString programOfBuild(const QString &name);
/// What this program is called with to play @p part.
QStringList argumentsOfPart(const char *part);

/// Milliseconds from the start of @p program to its end.
double wholeRun(const QString &program, const QStringList &arguments);
/// Milliseconds from the start of @p program to its first output.
double timeToFirstOutput(const QString &program, const QStringList &arguments);
/// What this program prints when it plays @p part.
QByteArray outputOfPart(const char *part);

} // namespace ChildProcess
