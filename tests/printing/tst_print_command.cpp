// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CSheetExport.h"
#include "host/projects/CProcessorProject.h"
#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/PortPairs.h"
#include "layout/plugin/CPrintCommand.h"
#include "platform/control/IAbstractControlInterface.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CWorldTest.h"

#include <QApplication>

#include <memory>

namespace {

/// The simulated park as the host of the module.
class CParkHost final : public IAbstractControlInterface
{
public:
    CParkHost() { CHostAccess::setHost(this); }
    ~CParkHost() override { CHostAccess::setHost(nullptr); }
    Q_DISABLE_COPY(CParkHost)

    QObject *object() override { return nullptr; }
    std::shared_ptr<IAbstractInterfaceHandler> handler() const override
    {
        return {std::shared_ptr<void>(), &park.handler}; // the park owns it
    }
    CSubject *subject() override { return nullptr; }
    void stop() override {}

    mutable CDeviceFixture park;
};

} // namespace

class CPrintCommandTest final : public CWorldTest<CParkHost>
{
    Q_OBJECT

private Q_SLOTS:
    /// Sheets of a processor tell what those of its project tell.
    void printsWhatItsProjectPrints()
    {
        int compared = 0;
        for (const SPrintedProcessor &printed : CPrintCommand::input().processors) {
            const QUuid key = printed.node.uuid;
            if (m_world->park.manager.table().device(key)->settings.threeD)
                continue; // doubles the loads, and no project tells of it
            const QString file = m_world->park.folder.filePath(QStringLiteral("printed.sprj"));
            QVERIFY(m_world->park.handler.exportProcessorMapping(key, file));
            const auto project = CProcessorProject::read(file);
            QVERIFY2(project, qPrintable(project.error()));
            const SPrintedProcessor exported = CSheetExport::inputOf({project.value()}).processors.first();
            QCOMPARE(printed.kind, exported.kind);
            QCOMPARE(printed.portCount, exported.portCount);
            QCOMPARE(printed.canvas, exported.canvas);
            QCOMPARE(printed.frameRate, exported.frameRate);
            QCOMPARE(printed.colorDepth, exported.colorDepth);
            QCOMPARE(printed.pixelLimit, exported.pixelLimit);
            QCOMPARE(printed.bitsPerPixel, exported.bitsPerPixel);
            QCOMPARE(printed.bitsPerSecond, exported.bitsPerSecond);
            for (auto load = printed.loads.begin(); load != printed.loads.end(); ++load) {
                const SPortLoad same = exported.loads.value(load.key());
                QCOMPARE(load->percent, same.percent);
                QCOMPARE(load->pixels, same.pixels);
                QCOMPARE(load->capacity, same.capacity);
            }
            ++compared;
        }
        QVERIFY(compared >= 3);
    }

    void redundancyPortsOfProjectsFollowTheirPrimaries()
    {
        using Port = CabinetLayout::CabinetPort;
        SProcessorProject left, right;
        for (SProcessorProject *project : {&left, &right}) {
            project->portCount = 4;
            project->layout.processor = QUuid::createUuid();
            project->layout.ports.resize(4);
            for (int port = 0; port < 4; ++port)
                project->layout.ports[port].index = port;
        }
        const auto pair = [](SProcessorProject &of, int primary, SProcessorProject &by, int backup,
                             int width) {
            Port::Cabinet cabinet;
            cabinet.rect = QRect(0, 0, width, 100);
            cabinet.rank = 0;
            Port &port = of.layout.ports[primary];
            port.groups.resize(1);
            port.groups[0].cabinets = {cabinet};
            PortPairs::setPair(port, of.layout.processor, Port::Primary, {by.layout.processor, backup});
            PortPairs::setPair(by.layout.ports[backup], by.layout.processor, Port::Redundant,
                               {of.layout.processor, primary}); // the mirror is older
        };
        pair(left, 0, left, 1, 100);
        pair(left, 2, right, 3, 200);
        const auto printed = CSheetExport::inputOf({left, right}).processors;
        QCOMPARE(printed[0].loads.value(1).pixels, qint64(100 * 100));
        QCOMPARE(printed[1].loads.value(3).pixels, qint64(200 * 100));
    }
};

ORVO_TEST_MAIN(QApplication, CPrintCommandTest)
#include "tst_print_command.moc"
