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
int operationCount = 15000;
#else
int operationCount = 100000;
#endif
quint32 firstSeed = 20261;

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
        qInfo("seed %u, %d operations; other runs: -seed N -operations N", firstSeed, operationCount);
        QRandomGenerator random(firstSeed);
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

int main(int argc, char **argv)
{
    const CTestEnvironment environment;
    const QApplication application(argc, argv);
    QStringList arguments = application.arguments();
    const auto take = [&arguments](const QString &name, auto &value) {
        const int place = arguments.indexOf(name);
        if (place < 0 || place + 1 >= arguments.size())
            return;
        value = static_cast<std::decay_t<decltype(value)>>(arguments.at(place + 1).toUInt());
        arguments.erase(arguments.begin() + place, arguments.begin() + place + 2);
    };
    take(QStringLiteral("-seed"), firstSeed);
    take(QStringLiteral("-operations"), operationCount);
    CRandomEditsTest test;
    return QTest::qExec(&test, arguments);
}
#include "tst_random_edits.moc"
