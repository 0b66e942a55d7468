// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QRegularExpression>
#include <QtTest>

/// How long a test waits for something expected before it fails: enough for a sanitizer on a slow, busy
/// machine.
constexpr int PatienceMilliseconds = 30000;
#undef QTRY_VERIFY
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, PatienceMilliseconds)
#undef QTRY_COMPARE
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, PatienceMilliseconds)

/// Base of all test classes: a warning that was not announced with expectWarning() fails the test. A test
/// class with its own init() or cleanup() must call these.
class CTestBase : public QObject
{
    Q_OBJECT

public:
    /// Swallows every warning that matches @p pattern until the running test function ends.
    static void expectWarning(const QRegularExpression &pattern);

protected:
    virtual void setUp() {}    ///< before each function
    virtual void tearDown() {} ///< after it, before its warnings are counted

protected Q_SLOTS:
    void init();
    void cleanup();
};

/// Prepares the process before an application object exists: offscreen by default, 96 dpi, a private home
/// folder.
class CTestEnvironment final
{
public:
    CTestEnvironment();

private:
    QTemporaryDir m_home;
};

/// The main function of a test program: ORVO_TEST_MAIN(QApplication, CMyTest).
#define ORVO_TEST_MAIN(Application, Test)                                                                    \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        const CTestEnvironment environment;                                                                  \
        Application application(argc, argv);                                                                 \
        Test test;                                                                                           \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
