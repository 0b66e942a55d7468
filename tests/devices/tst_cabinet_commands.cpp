// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CCabinetConfig.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

#include <QFile>

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;

} // namespace

class CCabinetCommandsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        m_host = std::make_unique<CDeviceFixture>();
        m_stage = m_host->stage;
        m_left = m_host->left;
        m_host->select(m_stage);
        QVERIFY(!m_host->log.waitFor(28).isEmpty());
        m_file = m_host->folder.filePath(QStringLiteral("cabinet.rcvbp"));
    }
    void cleanup()
    {
        m_host.reset();
        CTestBase::cleanup();
    }

    void cabinetsTakeParameters()
    {
        CLayoutHandler &handler = m_host->handler;
        const Cabinet cabinet = firstCabinet(m_stage);
        Cabinet unknown = cabinet;
        unknown.uuid = QUuid::createUuid();
        QVERIFY(CTypeLibrary::builtIn().find(cabinet.type));
        QVERIFY(!handler.sendCabinetParameters({cabinet}, cabinet.type, 4.1));
        QVERIFY(!handler.sendCabinetParameters({cabinet}, SMD5::ofContent("none"), 2.2));
        QVERIFY(!handler.sendCabinetParameters({cabinet, unknown}, cabinet.type, 2.2));
        QVERIFY(!handler.sendCabinetParameters({}, cabinet.type, 2.2));
        QCOMPARE(gammaOf(m_stage, cabinet.type), 0.0);
        const QList<Cabinet> both = {cabinet, firstCabinet(m_left)};
        QVERIFY(handler.areOnPrimaryPorts(both));
        QVERIFY(handler.sendCabinetParameters(both, cabinet.type, 2.2));
        QCOMPARE(gammaOf(m_stage, cabinet.type), 2.2);
        QCOMPARE(gammaOf(m_left, cabinet.type), 2.2);

        bool served = false; // while the processors take their time
        QMetaObject::invokeMethod(
            qApp, [&served] { served = true; }, Qt::QueuedConnection);
        QVERIFY(handler.sendCabinetParameters(both, cabinet.type, 2.4));
        QVERIFY(served);
    }

    void highlightsEndOnAProcessorThatLeftTheView_data()
    {
        QTest::addColumn<QByteArray>("next");
        for (const char *next : {"Lobby", "Foyer", "", "project"}) // online, offline, none
            QTest::addRow("for \"%s\"", next) << QByteArray(next);
    }
    void highlightsEndOnAProcessorThatLeftTheView()
    {
        QFETCH(QByteArray, next);
        QMap<QUuid, int> shown; // how many cabinets stand out, by processor
        connect(&m_host->manager.announcer(), &CDeviceAnnouncer::notifyHighlightChanged, this,
                [&shown](const QUuid &processor, const QList<Cabinet> &cabinets) {
                    shown[processor] = cabinets.size();
                });
        const QList<Cabinet> cabinets = m_host->layoutOf(m_stage).ports.at(0).getAllCabinets().toList();
        QVERIFY(m_host->handler.setCabinetHighlight(cabinets, CabinetHighlight::FlashingBox));
        QTRY_COMPARE(shown.value(m_stage), cabinets.size());
        if (next.isEmpty())
            m_host->manager.services().select({}, PrcTreeNodeType::Other);
        else
            m_host->select(next == "project" ? m_host->manager.projects().openDemo().value()
                                             : m_host->named(next.constData()));
        QCOMPARE(m_host->handler.setCabinetHighlight({}, CabinetHighlight::Off), next == "Lobby");
        QTRY_COMPARE(shown.value(m_stage), 0);
    }

    void parametersStopAtTheProcessorThatRefuses()
    {
        Cabinet cabinet = firstCabinet(m_left);
        m_host->manager.simulate(m_left, SimulationFault::Refuse, true);
        for (const bool first : {true, false}) { // it refuses
            QList<Cabinet> cabinets{firstCabinet(m_stage)};
            cabinets.insert(first ? 0 : 1, cabinet);
            QVERIFY(!m_host->handler.sendCabinetParameters(cabinets, cabinet.type, 2.2));
            QVERIFY(m_host->handler.lastError().startsWith(QLatin1String("Side left(")));
            QCOMPARE(gammaOf(m_left, cabinet.type), 0.0);
            QCOMPARE(gammaOf(m_stage, cabinet.type), first ? 0.0 : 2.2);
        }
        cabinet = firstCabinet(m_stage);
        m_host->manager.simulate(m_stage, SimulationFault::Refuse, true);
        QVERIFY(!m_host->handler.readbackCabinetConfig(0, cabinet, m_file, {}));
        QVERIFY(!QFile::exists(m_file));
    }

    void cabinetsGiveTheirConfiguration()
    {
        CLayoutHandler &handler = m_host->handler;
        const Cabinet cabinet = firstCabinet(m_stage);
        QVERIFY(handler.sendCabinetParameters({cabinet}, cabinet.type, 2.2));
        QVERIFY2(handler.readbackCabinetConfig(0, cabinet, m_file, QStringLiteral("Left tile")),
                 qPrintable(handler.lastError()));
        const auto config = CCabinetConfig::read(m_file);
        QVERIFY2(bool(config), qPrintable(config.error()));
        QCOMPARE(config.value().type.name, QStringLiteral("Left tile"));
        QCOMPARE(config.value().gamma, 2.2);
        QVERIFY(handler.exportCabinetConfig(cabinet, m_file));
        QCOMPARE(CCabinetConfig::read(m_file).value().type.name,
                 CTypeLibrary::builtIn().find(cabinet.type)->name);
        Cabinet custom = cabinet;
        custom.type = SMD5();
        QVERIFY2(handler.exportCabinetConfig(custom, m_file), qPrintable(handler.lastError()));
    }

    void filesThatCannotBeMadeLeaveNothing()
    {
        CLayoutHandler &handler = m_host->handler;
        const Cabinet cabinet = firstCabinet(m_stage);
        Cabinet unknown = cabinet;
        unknown.type = SMD5::ofContent("none");
        Cabinet foreign = cabinet;
        foreign.uuid = QUuid::createUuid();
        const QString nowhere = m_host->folder.filePath(QStringLiteral("none/cabinet.rcvbp"));
        QVERIFY(!handler.exportCabinetConfig(unknown, m_file) && !handler.lastError().isEmpty());
        QVERIFY(!handler.exportCabinetConfig(cabinet, nowhere) && !handler.lastError().isEmpty());
        QVERIFY(!handler.readbackCabinetConfig(0, unknown, m_file, {}) && !handler.lastError().isEmpty());
        QVERIFY(!handler.readbackCabinetConfig(0, cabinet, nowhere, {}) && !handler.lastError().isEmpty());
        QVERIFY(!handler.readbackCabinetConfig(0, foreign, m_file, {}) && !handler.lastError().isEmpty());
        QVERIFY(!handler.readbackCabinetConfig(1, cabinet, m_file, {}) && !handler.lastError().isEmpty());
        QVERIFY(!QFile::exists(m_file));
    }

private:
    Cabinet firstCabinet(const QUuid &processor) const
    {
        return m_host->layoutOf(processor).ports.at(0).getAllCabinets().first();
    }
    /// What the processor was sent for the type; 0: nothing.
    double gammaOf(const QUuid &processor, const SMD5 &type) const
    {
        return m_host->manager.table().device(processor)->settings.gammas.value(type);
    }

    std::unique_ptr<CDeviceFixture> m_host;
    QUuid m_stage;
    QUuid m_left;
    QString m_file;
};

ORVO_TEST_MAIN(QGuiApplication, CCabinetCommandsTest)
#include "tst_cabinet_commands.moc"
