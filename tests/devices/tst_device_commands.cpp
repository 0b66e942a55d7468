// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CCabinetConfig.h"
#include "host/projects/CCurrentGainFile.h"
#include "host/projects/CStrictFile.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CWorldTest.h"

#include <QFile>

#include <algorithm>

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;

/// The fixture with "Main stage" in view.
struct SStage final : CDeviceFixture
{
    SStage()
    {
        select(stage);
        log.waitFor(28);
    }
    Cabinet firstCabinet(const QUuid &processor) const
    {
        return layoutOf(processor).ports.at(0).getAllCabinets().first();
    }
    /// What the processor was sent for the type; 0: nothing.
    double gammaOf(const QUuid &processor, const SMD5 &type) const
    {
        return manager.table().device(processor)->settings.gammas.value(type);
    }
    /// Whether a command failed, and said why.
    bool refuses(bool done) const { return !done && !handler.lastError().isEmpty(); }

    /// Imports a file of these current gains.
    bool import(const QVector<SCurrentGainRow> &rows)
    {
        return CCurrentGainFile::write(gainFile, rows) && handler.importCurrentGain(gainFile);
    }
    /// Sends all current gains, with that one switched on.
    bool sendWithOn(int frameRate, int level)
    {
        QList<SCurrentGain> gains = handler.currentGains();
        for (SCurrentGain &gain : gains)
            gain.on = gain.frameRateCode == frameRate && gain.gainLevel == level;
        return handler.sendCurrentGains(gains);
    }
    /// The sets that are imported, "*" behind those that are on: "0/2 1/0*".
    static QString importedBy(const CLayoutHandler &handler)
    {
        QStringList texts;
        for (const SCurrentGain &gain : handler.currentGains()) {
            const QString on = gain.on ? QStringLiteral("*") : QString();
            if (gain.imported || gain.on)
                texts << QStringLiteral("%1/%2%3").arg(gain.frameRateCode).arg(gain.gainLevel).arg(on);
        }
        return texts.join(QLatin1Char(' '));
    }
    /// The sets that are imported here, and those that a second program on the same devices finds.
    QString gains()
    {
        CDeviceFixture again(0, folder.path());
        again.select(stage);
        return importedBy(handler) + QStringLiteral(" | ") + importedBy(again.handler);
    }

    ProcessorOffsets offsetsBy(const CLayoutHandler &some) const
    {
        ProcessorOffsets offsets;
        const ProcessorBoundingRects areas = some.processorBoundingRects({left, right});
        for (auto it = areas.begin(); it != areas.end(); ++it)
            offsets.insert(it.key(), it->topLeft());
        return offsets;
    }
    /// Whether these are the offsets, here and for a second program.
    bool isAt(const ProcessorOffsets &offsets) const
    {
        const CDeviceFixture again(0, folder.path());
        return offsetsBy(handler) == offsets && offsetsBy(again.handler) == offsets;
    }

    const QString configFile = folder.filePath(QStringLiteral("cabinet.rcvbp"));
    const QString gainFile = folder.filePath(QStringLiteral("gain.acr"));
};

const QVector<SCurrentGainRow> TwoGains{{0, 0, {9, 9, 9}}, {1, 2, {1, 2, 3}}};

} // namespace

/// What the processors are told of their cabinets, their current gains and their offsets.
class CDeviceCommandsTest final : public CWorldTest<SStage>
{
    Q_OBJECT

private Q_SLOTS:
    void cabinetsTakeParameters()
    {
        const CLayoutHandler &handler = m_world->handler;
        const Cabinet cabinet = m_world->firstCabinet(m_world->stage);
        Cabinet unknown = cabinet;
        unknown.uuid = QUuid::createUuid();
        const auto send = [this](const QList<Cabinet> &cabinets, const SMD5 &type, double gamma) {
            return m_world->handler.sendCabinetParameters(cabinets, type, gamma);
        };
        QVERIFY(!send({cabinet}, cabinet.type, 4.1));
        QVERIFY(!send({cabinet}, SMD5::ofContent("none"), 2.2));
        QVERIFY(!send({cabinet, unknown}, cabinet.type, 2.2));
        QVERIFY(!send({}, cabinet.type, 2.2));
        QCOMPARE(m_world->gammaOf(m_world->stage, cabinet.type), 0.0);
        const QList<Cabinet> both = {cabinet, m_world->firstCabinet(m_world->left)};
        QVERIFY(handler.areOnPrimaryPorts(both));
        bool served = false; // while the processors take their time
        QMetaObject::invokeMethod(
            qApp, [&served] { served = true; }, Qt::QueuedConnection);
        QVERIFY(send(both, cabinet.type, 2.4));
        QVERIFY(served);
        for (const QUuid &processor : {m_world->stage, m_world->left})
            QCOMPARE(m_world->gammaOf(processor, cabinet.type), 2.4);
        const auto *table = CTypeLibrary::builtIn().findBySize({640, 360});
        QVERIFY(table && table->customGamma);
        QVERIFY(send({cabinet}, table->key, 2.4));
        QCOMPARE(m_world->gammaOf(m_world->stage, table->key), 0.0); // its own table counts
    }

    void parametersStopAtTheProcessorThatRefuses()
    {
        const Cabinet refusing = m_world->firstCabinet(m_world->left);
        const Cabinet other = m_world->firstCabinet(m_world->stage);
        m_world->manager.simulate(m_world->left, SimulationFault::Refuse, true);
        for (const bool first : {true, false}) {
            const auto cabinets = first ? QList<Cabinet>{refusing, other} : QList<Cabinet>{other, refusing};
            QVERIFY(!m_world->handler.sendCabinetParameters(cabinets, other.type, 2.2));
            const QString error = m_world->handler.lastError();
            QVERIFY(error.startsWith(QLatin1String("Side left(")));
            QCOMPARE(error.contains(QLatin1String("already: Main stage(")), !first);
            QCOMPARE(m_world->gammaOf(m_world->left, other.type), 0.0);
            QCOMPARE(m_world->gammaOf(m_world->stage, other.type), first ? 0.0 : 2.2);
        }
    }

    void highlightsEndOnAProcessorThatLeftTheView()
    {
        for (const char *next : {"Lobby", "Foyer", "", "project"}) { // online, offline, none
            QMap<QUuid, int> shown; // how many cabinets stand out, by processor
            SStage host;
            connect(&host.manager.announcer(), &CDeviceAnnouncer::notifyHighlightChanged, this,
                    [&shown](const QUuid &processor, const QList<Cabinet> &cabinets) {
                        shown[processor] = cabinets.size();
                    });
            const QList<Cabinet> cabinets = host.layoutOf(host.stage).ports.at(0).getAllCabinets().toList();
            QVERIFY(host.handler.setCabinetHighlight(cabinets, CabinetHighlight::FlashingBox));
            QTRY_COMPARE(shown.value(host.stage), cabinets.size());
            if (!*next)
                host.manager.services().select({}, PrcTreeNodeType::Other);
            else
                host.select(next == QByteArray("project") ? host.manager.projects().openDemo().value()
                                                          : host.named(next));
            QCOMPARE(host.handler.setCabinetHighlight({}, CabinetHighlight::Off),
                     qstrcmp(next, "Lobby") == 0);
            QTRY_COMPARE(shown.value(host.stage), 0);
        }
    }

    void cabinetsGiveTheirConfiguration()
    {
        CLayoutHandler &handler = m_world->handler;
        const QString &file = m_world->configFile;
        const Cabinet cabinet = m_world->firstCabinet(m_world->stage);
        Cabinet unknown = cabinet;
        unknown.type = SMD5::ofContent("none");
        Cabinet foreign = cabinet;
        foreign.uuid = QUuid::createUuid();
        const QString nowhere = m_world->folder.filePath(QStringLiteral("none/cabinet.rcvbp"));
        QVERIFY(m_world->refuses(handler.exportCabinetConfig(unknown, file)));
        QVERIFY(m_world->refuses(handler.exportCabinetConfig(cabinet, nowhere)));
        QVERIFY(m_world->refuses(handler.readbackCabinetConfig(0, cabinet, nowhere, {})));
        QVERIFY(m_world->refuses(handler.readbackCabinetConfig(0, foreign, file, {})));
        QVERIFY(m_world->refuses(handler.readbackCabinetConfig(1, cabinet, file, {})));
        m_world->manager.simulate(m_world->stage, SimulationFault::Refuse, true);
        QVERIFY(m_world->refuses(handler.readbackCabinetConfig(0, cabinet, file, {})));
        m_world->manager.simulate(m_world->stage, SimulationFault::Refuse, false);
        QVERIFY(!QFile::exists(file));

        QVERIFY(handler.sendCabinetParameters({cabinet}, cabinet.type, 2.2));
        QVERIFY(handler.readbackCabinetConfig(0, cabinet, file, QStringLiteral("Left tile")));
        const SCabinetConfig config = CCabinetConfig::read(file).value();
        QCOMPARE(config.type.name, QStringLiteral("Left tile"));
        QCOMPARE(config.gamma, 2.2);
        QVERIFY(handler.exportCabinetConfig(cabinet, file));
        QCOMPARE(CCabinetConfig::read(file).value().type.name,
                 CTypeLibrary::builtIn().find(cabinet.type)->name);
        Cabinet custom = cabinet;
        custom.type = SMD5();
        QVERIFY2(handler.exportCabinetConfig(custom, file), qPrintable(handler.lastError()));
    }

    void aReadbackWritesWhatTheConnectedCabinetHas()
    {
        CLayoutHandler &handler = m_world->handler;
        const QString &file = m_world->configFile;
        LayoutData data = handler.layoutData(m_world->stage);
        Cabinet &first = data.layout.ports[0].groups[0].cabinets[0];
        const Cabinet connected = first;
        first.type = SMD5();
        first.rects = {QRect(0, 0, 5, 5)};
        handler.commitLayoutData(data); // not saved
        QVERIFY(handler.readbackCabinetConfig(0, first, file, QStringLiteral("Edited")));
        SCabinetConfig config = CCabinetConfig::read(file).value();
        QVERIFY(config.type == *CTypeLibrary::builtIn().find(connected.type));
        QCOMPARE(config.rects, connected.rects);
        first.type = SMD5::ofContent("none"); // which the library does not know
        handler.commitLayoutData(data);
        QVERIFY(m_world->save(m_world->stage).isDone());
        QVERIFY2(handler.readbackCabinetConfig(0, first, file, {}), qPrintable(handler.lastError()));
        config = CCabinetConfig::read(file).value();
        QCOMPARE(config.type.key, first.type);
        QCOMPARE(config.rects, first.rects);
        const QVector<Cabinet> chain = m_world->layoutOf(m_world->stage).ports.at(0).getAllCabinets();
        const auto tail = std::max_element(
            chain.begin(), chain.end(), [](const Cabinet &a, const Cabinet &b) { return a.rank < b.rank; });
        m_world->manager.simulate(m_world->stage, SimulationFault::Changed, true); // takes out the tail
        QVERIFY(!handler.readbackCabinetConfig(0, *tail, file, {}));
        QVERIFY(handler.lastError().contains(QLatin1String("no longer connected")));
    }

    void importedGainsWaitUntilTheyAreSent()
    {
        QCOMPARE(m_world->handler.currentGains().size(), 9);
        QVERIFY(m_world->import(TwoGains));
        QCOMPARE(m_world->gains(), QStringLiteral("0/0 1/2 | "));
        QVERIFY(m_world->detect().isDone());
        QVERIFY(m_world->import({{1, 2, {7, 8, 9}}, {2, 1, {4, 5, 6}}})); // the other set stays
        const QVector<SCurrentGainRow> rows{{0, 0, {9, 9, 9}}, {1, 2, {7, 8, 9}}, {2, 1, {4, 5, 6}}};
        QCOMPARE(m_world->manager.table().device(m_world->stage)->gainRows, rows);
        QVERIFY(m_world->sendWithOn(1, 2));
        QCOMPARE(m_world->gains(), QStringLiteral("0/0 1/2* 2/1 | 0/0 1/2* 2/1"));
        for (const SCurrentGain &wrong : {SCurrentGain{3, 0, true, true}, SCurrentGain{0, -1, true, true}})
            QVERIFY(!m_world->handler.sendCurrentGains({wrong}));
        QCOMPARE(m_world->gains(), QStringLiteral("0/0 1/2* 2/1 | 0/0 1/2* 2/1")); // its state can be read
        QVERIFY(m_world->handler.clearCurrentGains());
        QCOMPARE(m_world->gains(), QStringLiteral(" | "));
    }

    void aWrongFileOfGainsChangesNothing()
    {
        bool served = false; // while the file is read
        QMetaObject::invokeMethod(
            qApp, [&served] { served = true; }, Qt::QueuedConnection);
        QVERIFY(m_world->import(TwoGains) && served);
        const SFileFormat format{"orvo-current-gain", "a file of current-gain parameters", 1};
        const QByteArray row = R"({"frameRate":0,"gainLevel":1,"values":[1,2,3]})";
        for (const auto &[rows, place] :
             {std::pair(QByteArray(row).replace("Rate\":0", "Rate\":3"), "rows[0].frameRate: 3"),
              std::pair(QByteArray(row).replace(",3", ""), "rows[0].values: the gains"),
              std::pair(QByteArray(row).replace(",3", ",256"), "rows[0].values[2]"),
              std::pair(row + ',' + row, "rows[1].gainLevel")}) {
            QFile file(m_world->gainFile);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(
                CStrictFile::encode(format, QJsonDocument::fromJson("{\"rows\":[" + rows + "]}").object()));
            file.close();
            QVERIFY(!m_world->handler.importCurrentGain(m_world->gainFile));
            const QString error = m_world->handler.lastError();
            QVERIFY2(error.contains(m_world->gainFile) && error.contains(QLatin1String(place)), place);
        }
        QCOMPARE(SStage::importedBy(m_world->handler), QStringLiteral("0/0 1/2"));
    }

    void aProjectHasNobodyToSendGainsTo()
    {
        CLayoutHandler &handler = m_world->handler;
        m_world->select(m_world->manager.projects().openDemo().value());
        QVERIFY(m_world->import(TwoGains));
        QVERIFY(!m_world->sendWithOn(0, 0));
        QVERIFY(handler.clearCurrentGains());
        QCOMPARE(SStage::importedBy(handler), QString());
        m_world->manager.services().select({}, PrcTreeNodeType::Other);
        QVERIFY(m_world->refuses(handler.importCurrentGain(m_world->gainFile)));
        QVERIFY(!handler.clearCurrentGains() && handler.currentGains().isEmpty());
    }

    void offsetsAreKeptByDevicesAndFiles()
    {
        const ProcessorOffsets wanted = {{m_world->left, {-30, 40}}, {m_world->right, {1890, 1 << 20}}};
        bool served = false; // while the processors take their time
        QMetaObject::invokeMethod(
            qApp, [&served] { served = true; }, Qt::QueuedConnection);
        QVERIFY(m_world->handler.setProcessorOffsets(wanted));
        QVERIFY(served);
        QVERIFY(m_world->isAt(wanted));
        CProjectShelf &shelf = m_world->manager.projects();
        const QString file = m_world->folder.filePath(QStringLiteral("wall.sprj"));
        const QUuid wall = shelf.openDemo().value();
        QVERIFY(shelf.save(wall, file));
        QVERIFY(m_world->handler.setProcessorOffsets({{wall, {40, -50}}}));
        QVERIFY(m_world->manager.table().isModified(wall));
        QVERIFY(shelf.save(wall, file));
        QVERIFY(!m_world->manager.table().isModified(wall));
        shelf.close(wall);
        const QUuid again = shelf.open(file).value();
        QCOMPARE(m_world->handler.processorBoundingRects({again}).value(again).topLeft(), QPoint(40, -50));
    }

    void aMovedSelectionOfSeveralIsAnnouncedAgain()
    {
        const QUuid left = m_world->left;
        m_world->manager.services().select({left, m_world->right}, PrcTreeNodeType::Group);
        QVERIFY(m_world->log.waitFor(28).startsWith(QLatin1String("28 1 ")));
        QVERIFY(m_world->handler.setProcessorOffsets({{left, {5, 6}}}));
        QVERIFY(m_world->log.waitFor(28).startsWith(
            QStringLiteral("28 1 %1 5 6").arg(CDeviceFixture::idOf(left))));
        QVERIFY(m_world->handler.setProcessorOffsets({{m_world->named("Arena"), {7, 7}}})); // not among them
        m_world->select(left);
        QVERIFY(m_world->handler.setProcessorOffsets({{left, {1, 1}}}));
        m_world->select(m_world->right);
        QCOMPARE(m_world->log.waitFor(28).mid(3, 1), QStringLiteral("0")); // of the choice alone
        QVERIFY(m_world->log.waitFor(28).contains(CDeviceFixture::idOf(m_world->right)));
    }

    void allProcessorsAreMovedOrNone()
    {
        enum EObstacle { Offline, KnownAsOffline, Refuses, Silent, Damages, BeyondTheLimit, Unknown };
        const QHash<int, SimulationFault> faults = {{Refuses, SimulationFault::Refuse},
                                                    {Silent, SimulationFault::Silent},
                                                    {Damages, SimulationFault::Damaged}};
        for (const EObstacle obstacle :
             {Offline, KnownAsOffline, Refuses, Silent, Damages, BeyondTheLimit, Unknown}) {
            SStage host;
            const ProcessorOffsets before = host.offsetsBy(host.handler);
            ProcessorOffsets wanted = {{host.left, {100, 100}}, {host.right, {200, 200}}};
            const QUuid last = wanted.lastKey(); // after the other was moved
            if (obstacle == BeyondTheLimit)
                wanted[last] = {0, -(1 << 20) - 1};
            else if (obstacle == Unknown)
                wanted.insert(QUuid::createUuid(), {0, 0});
            else
                host.manager.simulate(last, faults.value(obstacle, SimulationFault::Offline), true);
            if (obstacle == KnownAsOffline)
                host.detect();
            QVERIFY(host.refuses(host.handler.setProcessorOffsets(wanted)));
            QVERIFY2(host.isAt(before), QByteArray::number(obstacle));
        }
    }
};

ORVO_TEST_MAIN(QGuiApplication, CDeviceCommandsTest)
#include "tst_device_commands.moc"
