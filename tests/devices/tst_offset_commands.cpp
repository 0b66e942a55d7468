// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/SSimulationFault.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

class COffsetCommandsTest final : public CTestBase
{
    Q_OBJECT

private:
    QTemporaryDir m_state;
    std::unique_ptr<CDeviceFixture> m_host;
    QUuid m_left;
    QUuid m_right;

    void start()
    {
        m_host.reset();
        m_host = std::make_unique<CDeviceFixture>(0, m_state.path());
        m_left = m_host->named("Side left");
        m_right = m_host->named("Side right");
    }
    ProcessorOffsets offsets() const
    {
        ProcessorOffsets offsets;
        const ProcessorBoundingRects areas = m_host->handler.processorBoundingRects({m_left, m_right});
        for (auto it = areas.begin(); it != areas.end(); ++it)
            offsets.insert(it.key(), it->topLeft());
        return offsets;
    }

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        start();
    }
    void cleanup()
    {
        m_host.reset();
        CTestBase::cleanup();
    }

    void devicesKeepTheirOffsets()
    {
        const ProcessorOffsets wanted = {{m_left, {-30, 40}}, {m_right, {1890, 1 << 20}}};
        QVERIFY2(m_host->handler.setProcessorOffsets(wanted), qPrintable(m_host->handler.lastError()));
        QCOMPARE(offsets(), wanted);
        start();
        QCOMPARE(offsets(), wanted);
    }

    void aProjectKeepsItsOffsetInItsFile()
    {
        CProjectShelf &shelf = m_host->manager.projects();
        const QString file = m_state.filePath(QStringLiteral("wall.sprj"));
        const QUuid wall = shelf.openDemo().value();
        QVERIFY(shelf.save(wall, file));
        QVERIFY(m_host->handler.setProcessorOffsets({{wall, {40, -50}}}));
        QVERIFY(m_host->manager.table().isModified(wall));
        QVERIFY(shelf.save(wall, file));
        QVERIFY(!m_host->manager.table().isModified(wall));
        shelf.close(wall);
        const QUuid again = shelf.open(file).value();
        QCOMPARE(m_host->handler.processorBoundingRects({again}).value(again).topLeft(), QPoint(40, -50));
    }

    void aSelectionOfSeveralIsAnnouncedAgain()
    {
        m_host->manager.services().select({m_left, m_right}, PrcTreeNodeType::Group);
        const QString before = m_host->log.waitFor(28);
        const QPoint corner = offsets().value(m_left) + QPoint(5, 6);
        QVERIFY(m_host->handler.setProcessorOffsets({{m_left, corner}}));
        const QString after = m_host->log.waitFor(28);
        QVERIFY2(after.contains(QStringLiteral(" %1 %2 ").arg(corner.x()).arg(corner.y())),
                 qPrintable(after));
        QCOMPARE(after.left(4), before.left(4));                                          // still a group
        QVERIFY(m_host->handler.setProcessorOffsets({{m_host->named("Arena"), {7, 7}}})); // not among them
        m_host->select(m_left);
        QVERIFY(m_host->handler.setProcessorOffsets({{m_left, {1, 1}}}));
        m_host->select(m_right);
        QCOMPARE(m_host->log.waitFor(28).mid(3, 1), QStringLiteral("0")); // of the choice alone
        QVERIFY(m_host->log.waitFor(28).contains(m_right.toString(QUuid::WithoutBraces)));
    }

    void allAreMovedOrNone_data()
    {
        QTest::addColumn<QString>("obstacle");
        for (const char *obstacle : {"offline", "known as offline", "refuses", "beyond the limit", "unknown"})
            QTest::newRow(obstacle) << QString::fromLatin1(obstacle);
    }
    void allAreMovedOrNone()
    {
        QFETCH(QString, obstacle);
        const ProcessorOffsets before = offsets();
        ProcessorOffsets wanted = {{m_left, {100, 100}}, {m_right, {200, 200}}};
        const QUuid last = wanted.lastKey(); // after the other was moved
        if (obstacle == QLatin1String("beyond the limit"))
            wanted[last] = {0, -(1 << 20) - 1};
        else if (obstacle == QLatin1String("unknown"))
            wanted.insert(QUuid::createUuid(), {0, 0});
        else
            m_host->manager.simulate(last,
                                     obstacle == QLatin1String("refuses") ? SimulationFault::Refuse
                                                                          : SimulationFault::Offline,
                                     true);
        if (obstacle == QLatin1String("known as offline"))
            m_host->detect();
        QVERIFY(!m_host->handler.setProcessorOffsets(wanted));
        QVERIFY(!m_host->handler.lastError().isEmpty());
        QCOMPARE(offsets(), before);
        start();
        QCOMPARE(offsets(), before);
    }
};

ORVO_TEST_MAIN(QCoreApplication, COffsetCommandsTest)
#include "tst_offset_commands.moc"
