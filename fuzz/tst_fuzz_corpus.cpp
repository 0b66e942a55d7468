// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/CJsonMutator.h"
#include "fuzz/FuzzTargets.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QDir>

/// What fuzzers have found worth keeping, and a few more changes of each.
class CFuzzCorpusTest final : public CTestBase
{
    Q_OBJECT

private:
    static constexpr int ChangesOfEach = 3;

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void revealsNoFault_data()
    {
        QTest::addColumn<int>("target");
        for (int target = 0; target < FuzzTargets::all().size(); ++target)
            QTest::newRow(FuzzTargets::all().at(target).name) << target;
    }
    void revealsNoFault()
    {
        QFETCH(int, target);
        const auto &[name, run, isJson] = FuzzTargets::all().at(target);
        const QDir folder(QStringLiteral(ORVO_FUZZ_CORPUS "/") + QLatin1String(name));
        const QFileInfoList files = folder.entryInfoList(QDir::Files);
        QVERIFY(!files.isEmpty());
        for (const QFileInfo &info : files) {
            QFile file(info.filePath());
            QVERIFY(file.open(QIODevice::ReadOnly));
            QByteArray bytes = file.readAll();
            QString fault = run(bytes);
            CJsonMutator mutator(1);
            for (int i = 0; isJson && i < ChangesOfEach && fault.isEmpty() && !bytes.isEmpty(); ++i) {
                bytes = mutator.mutated(bytes);
                fault = run(bytes);
            }
            QVERIFY2(fault.isEmpty(), qPrintable(info.fileName() + QStringLiteral(": ") + fault));
        }
    }
};

ORVO_TEST_MAIN(QApplication, CFuzzCorpusTest)
#include "tst_fuzz_corpus.moc"
