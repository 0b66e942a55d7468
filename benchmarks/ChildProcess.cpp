// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/ChildProcess.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

namespace {

constexpr int ChildTimeout = 300000; ///< milliseconds

void start(QProcess &process, const QString &program, const QStringList &arguments)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
}

void requireSuccess(QProcess &process)
{
    process.waitForFinished(ChildTimeout);
    if (process.error() == QProcess::UnknownError && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0)
        return;
    qFatal("%s %s: %s, exit status %d", qPrintable(process.program()),
           qPrintable(process.arguments().join(QLatin1Char(' '))), qPrintable(process.errorString()),
           process.exitCode());
}

double elapsedMilliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

double ChildProcess::wholeRun(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    start(process, program, arguments);
    requireSuccess(process);
    return elapsedMilliseconds(timer);
}

QByteArray ChildProcess::outputOfPart(const char *part)
{
    QProcess process;
    start(process, QCoreApplication::applicationFilePath(), argumentsOfPart(part));
    requireSuccess(process);
    return process.readAllStandardOutput();
}

double ChildProcess::timeToFirstOutput(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    start(process, program, arguments);
    process.waitForReadyRead(ChildTimeout);
    const double taken = elapsedMilliseconds(timer);
    requireSuccess(process);
    return taken;
}

QString ChildProcess::programOfBuild(const QString &name)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
}

QStringList ChildProcess::argumentsOfPart(const char *part)
{
    return {QStringLiteral("--child"), QLatin1String(part)};
}
