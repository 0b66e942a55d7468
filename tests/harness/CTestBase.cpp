// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CTestBase.h"

#include <QTemporaryDir>

#include <mutex>

namespace {

std::mutex messageMutex;
QVector<QRegularExpression> expectedWarnings;
QStringList unexpectedWarnings;
QtMessageHandler outerHandler = nullptr;

void onMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    // What the offscreen platform says of each window that has a fixed size or is raised.
    if (text.startsWith(QLatin1String("This plugin does not support ")))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const std::lock_guard<std::mutex> lock(messageMutex);
        for (const QRegularExpression &pattern : qAsConst(expectedWarnings)) {
            if (pattern.match(text).hasMatch())
                return;
        }
        unexpectedWarnings << text;
    }
    if (outerHandler)
        outerHandler(type, context, text);
}

} // namespace

void CTestBase::expectWarning(const QRegularExpression &pattern)
{
    const std::lock_guard<std::mutex> lock(messageMutex);
    expectedWarnings << pattern;
}

void CTestBase::init()
{
    const QtMessageHandler previous = qInstallMessageHandler(onMessage);
    if (previous != onMessage)
        outerHandler = previous;
    setUp();
}

void CTestBase::cleanup()
{
    tearDown();
    QStringList unexpected;
    {
        const std::lock_guard<std::mutex> lock(messageMutex);
        unexpected.swap(unexpectedWarnings);
        expectedWarnings.clear();
    }
    QVERIFY2(unexpected.isEmpty(),
             qPrintable(QStringLiteral("unexpected warning: ") + unexpected.join(QLatin1Char('\n'))));
}

CTestEnvironment::CTestEnvironment()
{
    const QByteArray home = m_home.path().toUtf8();
    qputenv("HOME", home);
    for (const char *name :
         {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, home);
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_FONT_DPI", "96");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}
