// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CSheetExport.h"
#include "host/projects/CProcessorProject.h"
#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/PortPairs.h"
#include "layout/plugin/CPrintCommand.h"
#include "layout/printing/lists/CSheetSet.h"
#include "layout/printing/output/SheetFiles.h"
#include "platform/control/IAbstractControlInterface.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CWorldTest.h"
#include "tests/projects/ProjectSamples.h"

#include <QApplication>

#include <algorithm>
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
    /// Sheets of processors tell what those of their projects tell, also of a pair.
    void printsWhatItsProjectPrints()
    {
        QVERIFY(m_world->park.handler.setProcessorRedundancy(m_world->park.left, m_world->park.right));
        SPrintInput input = CPrintCommand::input();
        QCOMPARE(input.unread,
                 QSet<QUuid>{m_world->park.named("Foyer")}); // "Balcony" has told that it is empty
        const QString unread = CPrintCommand::notRead(input);
        QVERIFY(unread.contains(QStringLiteral("Foyer(")) &&
                unread.contains(QStringLiteral("this processor")));
        QVERIFY(!unread.contains(QStringLiteral("Balcony")));
        QCOMPARE(CPrintCommand::notRead({}), QString());
        SPrintJob job{PrintConfig(), {}, {}};
        job.whole.date = QDate(2026, 5, 4);
        job.whole.sheets = PrintConfig::Cover | PrintConfig::PortTable;
        SPrintJob ofProjects = job; // which have no address of their own
        QVector<SProcessorProject> projects;
        for (int i = 0; i < input.processors.size(); ++i) {
            const SPrintedProcessor &printed = input.processors.at(i);
            const QUuid key = printed.node.uuid;
            if (m_world->park.manager.table().device(key)->settings.threeD) {
                input.processors.remove(i--); // doubles the loads, and no project tells of it
                continue;
            }
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
            projects << project.value();
            ofProjects.addresses.insert(key, printed.node.addressText());
        }
        QVERIFY(projects.size() >= 3);
        const auto placeOf = [&projects](const QUuid &key) {
            return int(std::find_if(projects.begin(), projects.end(),
                                    [&](const auto &project) { return project.layout.processor == key; }) -
                       projects.begin());
        };
        const CSheetExport::Pair pair(placeOf(m_world->park.left), placeOf(m_world->park.right));
        const SPrintPlan window = SPrintPlan::of(input, job);
        const SPrintPlan shell = SPrintPlan::of(CSheetExport::inputOf(projects, {pair}), ofProjects);
        for (int i = 0; i < projects.size(); ++i)
            QCOMPARE(window.processors.at(i).version, shell.processors.at(i).version);
        QCOMPARE(window.processors.at(pair.second).primary, window.processors.at(pair.first).name);
        QVERIFY(SheetFiles::pdf(CSheetSet::of(window).value(), {}, job.whole.date) ==
                SheetFiles::pdf(CSheetSet::of(shell).value(), {}, job.whole.date));
    }

    /// Who has only the one project names the other processor.
    void aNamedRedundancyProcessorIsThatOfThePair()
    {
        const auto wall = [](const char *name) {
            SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Small);
            project.name = QString::fromLatin1(name);
            project.layout.processor = QUuid::createUuid();
            return project;
        };
        const SPrintInput both = CSheetExport::inputOf({wall("A"), wall("B")}, {{0, 1}});
        SPrintJob named;
        named.whole.farEnd = QStringLiteral("B (10.0.0.2)");
        QCOMPARE(SPrintPlan::of(both, {}).processors.first().version,
                 SPrintPlan::of(CSheetExport::inputOf({wall("A")}), named).processors.first().version);
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
