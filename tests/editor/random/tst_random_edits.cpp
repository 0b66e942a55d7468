// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/resources/LayoutResources.h"
#include "tests/editor/random/CRandomWorld.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>

namespace {

constexpr int OperationsAWorld = 150;

// Sanitizer builds are slower and run less.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int UsualOperations = 15000;
#else
constexpr int UsualOperations = 100000;
#endif

QString faultOf(quint32 seed, const QVector<SRandomOperation> &operations, int *length = nullptr)
{
    CRandomWorld world(seed);
    for (int i = 0; i < operations.size(); ++i) {
        const QString fault = world.run(operations.at(i));
        if (length)
            *length = i + 1;
        if (!fault.isEmpty())
            return fault;
    }
    return world.checkHistory();
}

/// Leaves out operations, larger runs of them first, for as long as the world still fails.
QVector<SRandomOperation> shortened(quint32 seed, QVector<SRandomOperation> operations)
{
    for (int run = operations.size() / 2; run > 0; run /= 2) {
        for (int begin = 0; begin + run <= operations.size();) {
            QVector<SRandomOperation> fewer = operations;
            fewer.remove(begin, run);
            if (faultOf(seed, fewer).isEmpty())
                begin += run;
            else
                operations = fewer;
        }
    }
    return operations;
}

QString described(quint32 seed, const QVector<SRandomOperation> &operations)
{
    QStringList lines = {QStringLiteral("world %1: %2").arg(seed).arg(faultOf(seed, operations))};
    for (const SRandomOperation &operation : operations)
        lines << QStringLiteral("  %1 (%2)").arg(CRandomWorld::kindName(operation.kind)).arg(operation.seed);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

class CRandomEditsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void holdsWhatMustHold()
    {
        const auto given = [](const char *variable, int usual) {
            return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : usual;
        };
        const int firstSeed = given("RANDOM_SEED", 20261);
        const int operationCount = given("RANDOM_OPERATIONS", UsualOperations);
        qInfo("RANDOM_SEED=%d RANDOM_OPERATIONS=%d", firstSeed, operationCount);
        QRandomGenerator random(static_cast<quint32>(firstSeed));
        for (int done = 0; done < operationCount; done += OperationsAWorld) {
            const quint32 seed = random.generate();
            QVector<SRandomOperation> operations;
            for (int i = 0; i < OperationsAWorld; ++i)
                operations << SRandomOperation{random.bounded(CRandomWorld::KindCount), random.generate()};
            int length = 0;
            const QString fault = faultOf(seed, operations, &length);
            if (fault.isEmpty())
                continue;
            operations.resize(length);
            QFAIL(qPrintable(fault + QLatin1Char('\n') + described(seed, shortened(seed, operations))));
        }
    }
};

ORVO_TEST_MAIN(QApplication, CRandomEditsTest)
#include "tst_random_edits.moc"
