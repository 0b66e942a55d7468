// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CCheckCommand.h"
#include "host/app/commands/CSheetExport.h"
#include "host/devices/services/SDevice.h"
#include "host/devices/simulated/CPortCapacity.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CLayoutCheck.h"
#include "layout/api/records/PortPairs.h"
#include "layout/printing/figures/CMillimetreAxis.h"
#include "layout/printing/figures/CableRoutes.h"
#include "layout/printing/figures/SPartsTally.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <functional>

namespace {

using Port = CabinetLayout::CabinetPort;

SPrintPlan planOf(const SProcessorProject &project, const PrintConfig &config = {})
{
    return SPrintPlan::of(CSheetExport::inputOf({project}), {config, {}, {}});
}

PrintConfig looped()
{
    PrintConfig config;
    config.farEnd = QStringLiteral("Main stage B (192.168.10.32)");
    return config;
}

} // namespace

/// The figures that sheets tell.
class CPrintPlanTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void givesTheMediumWallsTotals()
    {
        const SPlanTotals totals = planOf(ProjectSamples::ofWall(CWallBuilder::Medium)).totals;
        QCOMPARE(totals.cabinets, 240);
        QCOMPARE(totals.ports, 15);
        QCOMPARE(totals.pixels, qint64(8847360));
        QCOMPARE(totals.squareMetres, 60.0);
        QCOMPARE(totals.kilograms, 1680.0);
        QCOMPARE(totals.wattsMaximum, qint64(38400));
        QCOMPARE(totals.wattsAverage, qint64(19200));
        QVERIFY(totals.weightKnown && totals.maximumKnown && totals.averageKnown);
        QCOMPARE(SPlanTotals::amperes(38400, 230), 167.0); // 166.96, rounded up
        QCOMPARE(SPlanTotals::amperes(38400, 3 * 230), 55.7);
        QCOMPARE(SPlanTotals::amperes(2300, 230), 10.0);
    }

    void countsLikeTheLayout_data()
    {
        QTest::addColumn<int>("wall");
        for (int wall = 0; wall < CWallBuilder::WallCount; ++wall)
            QTest::newRow(qPrintable(CWallBuilder::plan(CWallBuilder::Wall(wall)).name)) << wall;
    }
    void countsLikeTheLayout()
    {
        QFETCH(int, wall);
        const SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Wall(wall));
        const SPrintPlan plan = planOf(project);
        const SPlanProcessor &printed = plan.processors.first();
        const SReceiverGeneration &generation =
            CProcessorKinds::builtIn().withPorts(project.portCount)->generation;
        const qint64 capacity = CPortCapacity::capacity(generation, {});
        qint64 pixels = 0;
        for (const Port &port : project.layout.ports) {
            const SPlanPort &planned = *printed.port(port.index);
            QCOMPARE(planned.chain.size() + planned.unwired.size(), port.cabinetCount());
            QCOMPARE(planned.charged, CPortCapacity::charged(generation, port));
            QVERIFY(planned.load >= CPortCapacity::percent(planned.charged, capacity));
            QCOMPARE(planned.capacity, capacity);
            pixels += planned.totals.pixels;
        }
        QCOMPARE(plan.totals.cabinets, project.layout.cabinetCount());
        QCOMPARE(plan.totals.pixels, pixels);
        QCOMPARE(printed.pixels, project.layout.boundingRect());
        const SWallPlan built = CWallBuilder::plan(CWallBuilder::Wall(wall));
        QCOMPARE(QSize(printed.columns, printed.rows), QSize(built.columns, built.rows));
    }

    /// Canvas and port list, sheets and check tell the same load, also of ports that repeat others.
    void tellsOneLoad_data() { countsLikeTheLayout_data(); }
    void tellsOneLoad()
    {
        QFETCH(int, wall);
        for (bool paired : {false, true}) {
            SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Wall(wall));
            SDevice device;
            device.kind = *CProcessorKinds::builtIn().withPorts(project.portCount);
            device.node.uuid = project.layout.processor;
            if (paired)
                ProjectSamples::addRedundancyPort(project);
            project.kind = device.kind.id;
            device.settings.portCount = project.portCount;
            device.takeLayout(project.layout);
            const SPlanProcessor printed = planOf(project).processors.first();
            const SLayoutLimits limits = CCheckCommand::limitsOf(project);
            for (const Port &port : project.layout.ports) {
                const int load = device.portLoad(port, port.index).percent;
                QCOMPARE(printed.port(port.index)->load, load);
                QCOMPARE(limits.portLoad(port).percent, load);
            }
            if (paired)
                QCOMPARE(printed.ports.last().load, printed.ports.first().load);
        }
    }

    void tellsAddresses()
    {
        SPrintInput input = CSheetExport::inputOf(
            {ProjectSamples::ofWall(CWallBuilder::Small), ProjectSamples::ofWall(CWallBuilder::Medium)});
        PrintConfig kept;
        kept.address = QStringLiteral("10.0.0.7");
        SPrintJob job;
        for (SPrintedProcessor &processor : input.processors) {
            processor.node.name = QStringLiteral("P");
            job.take(processor.node.uuid, kept);
        }
        input.processors[1].node.address = 0x0A000001; // a device tells its own
        input.processors << SPrintedProcessor();
        input.processors.last().node.name = QStringLiteral("Empty");
        input.processors.last().node.address = 0;
        const SPrintPlan plan = SPrintPlan::of(input, job);
        QCOMPARE(plan.processors.size(), 2);
        QCOMPARE(plan.processors[0].name, QStringLiteral("P(10.0.0.7)"));
        QCOMPARE(plan.processors[1].name, QStringLiteral("P(10.0.0.1)"));
        QCOMPARE(plan.empty, QStringList(QStringLiteral("Empty")));
        QVERIFY(job.own.isEmpty()); // an address alone does not part it from the job
    }

    void measuresCables()
    {
        const SPrintPlan plan = planOf(ProjectSamples::ofWall(CWallBuilder::Medium), looped());
        const SPlanPort &first = *plan.processors.first().port(0);
        QCOMPARE(first.hops.size(), 15);
        QCOMPARE(first.hops.first().need, 800); // half a metre from centre to centre, and slack
        QCOMPARE(first.hops.first().stock, 1);
        QCOMPARE(first.feed.need, 11000); // 3,250 across, 5,750 up, and slack
        QCOMPARE(first.feed.stock, 15);
        QCOMPARE(first.loop.need, 10500);
        QCOMPARE(plan.processors.first().port(3)->feed.stock, 10); // 10,000 mm take it exactly
        PrintConfig right = looped();
        right.rack.right = true;
        QCOMPARE(
            planOf(ProjectSamples::ofWall(CWallBuilder::Medium), right).processors.first().port(2)->feed.need,
            14500); // eight columns lie between the port's head and the rack
        QCOMPARE(CableRoutes::run({0, 0}, {0, 60000}, 0, {10, 50}).stock, 0);
        QCOMPARE(CableRoutes::run({0, 0}, {0, 50000}, 0, {10, 50}).stock, 50);
    }

    void talliesParts()
    {
        const SPartsTally tally =
            SPartsTally::of(planOf(ProjectSamples::ofWall(CWallBuilder::Medium), looped()));
        QCOMPARE(tally.cables.keys(), (QList<int>{1, 10, 15, 20}));
        QCOMPARE(tally.cables.value(1).hops, 225);
        QCOMPARE(tally.cables.value(15).feeds, 7);
        QCOMPARE(tally.cables.value(15).loops, 7);
        QCOMPARE(tally.all.needed(), 255);
        QCOMPARE(tally.circuits.count, 15);
        QCOMPARE(tally.circuits.mostCabinets, 16);
        QCOMPARE(tally.circuits.links, 225);
        PrintConfig weak = looped();
        weak.supply.circuitAmperes = 10; // 1,840 W: eleven cabinets
        const auto circuits =
            SPartsTally::of(planOf(ProjectSamples::ofWall(CWallBuilder::Medium), weak)).circuits;
        QCOMPARE(circuits.count, 30);
        QCOMPARE(circuits.mostWatts, qint64(11 * 160));
        SProcessorProject broken = ProjectSamples::ofWall(CWallBuilder::Medium);
        auto &chain = broken.layout.ports[0].groups[0].cabinets; // 16
        chain[3].type = SMD5::ofContent("a type that nobody knows");
        chain[14].rank = chain[15].rank = -1;
        const auto cut = SPartsTally::of(planOf(broken)).circuits;
        QCOMPARE(cut.count, 14 + 4); // before and behind the unknown one, and two alone
        QCOMPARE(cut.links, 14 * 15 + 2 + 9);
        QCOMPARE(cut.unknown, 1);
        QCOMPARE(SPartsTally::spares(225, 5), 12);
        QCOMPARE(SPartsTally::spares(0, 5), 0);
    }

    void placesCabinetsOfDifferentPitch()
    {
        // Two of 500 mm, one with twice the pitch; one above both; a gap with the mean pitch of all.
        const CMillimetreAxis axis({{0, 192, 500}, {192, 288, 500}, {384, 576, 500}, {0, 288, 1000}});
        QCOMPARE(axis.at(192), (500 + 1000 * 192 / 288.0) / 2);
        QCOMPARE(axis.at(288), 1000.0);
        QCOMPARE(axis.at(384), 1000.0 + 96 * 2500 / 768.0);
        QCOMPARE(axis.at(576) - axis.at(384), 500.0);
        QCOMPARE(axis.ordinal(384), 3);
        QCOMPARE(axis.count(), 3);
    }

    void tellsTypesApart()
    {
        SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        auto &cabinets = project.layout.ports[0].groups[0].cabinets;
        cabinets[0].type = CTypeLibrary::builtIn().findBySize({256, 256})->key; // P1.9, shrunk to 192 pixels
        cabinets[1].type = SMD5::ofContent("a type that nobody knows");
        cabinets[2].rect.setSize({191, 192});
        const SPrintPlan plan = planOf(project);
        QCOMPARE(plan.types.size(), 4);
        const auto typeOf = [&plan](int number) {
            return plan.types.at(plan.processors.first().cabinets.at(number - 1).type);
        };
        QCOMPARE(typeOf(1).millimetres, QSizeF(375, 375));
        QVERIFY(typeOf(2).presumed && typeOf(3).presumed && typeOf(4).alike && !typeOf(4).presumed);
        QCOMPARE(typeOf(3).millimetres, QSizeF(191, 192) * PrintConfig().pixelPitch);
        QVERIFY(!plan.totals.weightKnown && !plan.totals.maximumKnown && !plan.totals.averageKnown);
        QCOMPARE(plan.totals.wattsMaximum, qint64(238 * 160));
        QCOMPARE(plan.types.last().letter, QStringLiteral("D"));
    }

    void countsARedundancyPortOnce()
    {
        SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        ProjectSamples::addRedundancyPort(project);
        const SPlanProcessor printed = planOf(project).processors.first();
        QCOMPARE(printed.port(15)->load, printed.port(0)->load);
        QVERIFY(printed.port(0)->looped && !printed.port(15)->looped && !printed.port(1)->looped);
        QCOMPARE(printed.port(0)->redundancyText(), project.name + QStringLiteral(", port 16"));
        QCOMPARE(printed.port(15)->redundancyText(), project.name + QStringLiteral(", port 1"));
        QCOMPARE(printed.totals.pixels, qint64(8847360));
        QCOMPARE(printed.totals.ports, 16);
        QCOMPARE(printed.port(15)->added, qint64(0));
        project.layout.ports.last().redundancyProcessor = QUuid::createUuid();
        QCOMPARE(planOf(project).processors.first().port(15)->added, printed.port(0)->charged);
    }

    /// A stock and a supply serve the whole job; a pitch is that of one wall.
    void mixesSettings()
    {
        SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        project.layout.ports[0].groups[0].cabinets[0].rect.setSize({191, 192}); // like no type
        SProcessorProject other = project;
        other.layout.processor = QUuid::createUuid();
        const SPrintInput input = CSheetExport::inputOf({project, other});
        SPrintJob job{looped(), {}, {}};
        const SPartsTally alike = SPartsTally::of(SPrintPlan::of(input, job));
        PrintConfig &own = job.own[other.layout.processor] = looped();
        own.cables.stock = {7, 70};
        own.cables.hopSlack = 5000;
        own.supply.circuitAmperes = 5;
        own.pixelPitch = 2.7;
        const SPrintPlan plan = SPrintPlan::of(input, job);
        QCOMPARE(plan.processors.last().port(0)->hops.first().stock, 7);
        const SPartsTally tally = SPartsTally::of(plan);
        QCOMPARE(tally.cables.keys(), alike.cables.keys());
        QCOMPARE(tally.circuits.count, alike.circuits.count);
        const auto widthOf = [&plan](const SPlanProcessor &processor) {
            return plan.types.at(processor.cabinets.first().type).millimetres.width();
        };
        QCOMPARE(widthOf(plan.processors.first()), 191 * 2.6);
        QCOMPARE(widthOf(plan.processors.last()), 191 * 2.7);
        QCOMPARE(plan.types.size(), 3);
    }

    void versionTellsWiringApart()
    {
        using Change = std::function<void(SProcessorProject &)>;
        const SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Small);
        const auto versionAfter = [&project](const Change &change) {
            SProcessorProject changed = project;
            change(changed);
            return planOf(changed).processors.first().version;
        };
        const QString version = versionAfter([](SProcessorProject &) {});
        QVERIFY(QRegularExpression(QStringLiteral("^[0-9A-F]{4}-[0-9A-F]{4}$")).match(version).hasMatch());
        const auto first = [](SProcessorProject &p) -> Port::Cabinet & {
            return p.layout.ports[0].groups[0].cabinets[0];
        };
        const QVector<Change> same{[&](SProcessorProject &p) { first(p).uuid = QUuid::createUuid(); },
                                   [](SProcessorProject &p) { p.layout.ports[0].color = Qt::red; },
                                   [](SProcessorProject &p) { p.layout.ports[0].locked = true; },
                                   [](SProcessorProject &p) { p.portCount = 10; }};
        for (const Change &change : same)
            QCOMPARE(versionAfter(change), version);
        const QVector<Change> other{
            [](SProcessorProject &p) { p.name += QLatin1Char('B'); },
            [](SProcessorProject &p) { p.frameRate = 50; },
            [](SProcessorProject &p) { p.colorDepth = 10; },
            [](SProcessorProject &p) { p.canvas.rwidth() += 1; },
            [&](SProcessorProject &p) { first(p).rect.translate(1, 0); },
            [&](SProcessorProject &p) { first(p).type = SMD5::ofContent("type"); },
            [&](SProcessorProject &p) {
                first(p).rects = {{0, 0, 10, 10}};
            },
            [&](SProcessorProject &p) {
                std::swap(first(p).rank, p.layout.ports[0].groups[0].cabinets[1].rank);
            },
            [&](SProcessorProject &p) { first(p).rank = -1; },
            [](SProcessorProject &p) {
                p.layout.ports[0].index = 1;
                p.layout.ports.remove(1);
            },
            [](SProcessorProject &p) { p.layout.ports[0].redundancy = Port::Primary; },
            [](SProcessorProject &p) {
                p.layout.ports[0].redundancy = Port::Primary;
                p.layout.ports[0].redundancyProcessor = QUuid::createUuidV5(QUuid(), QStringLiteral("B"));
            }};
        QSet<QString> versions{version};
        for (const Change &change : other)
            versions << versionAfter(change);
        QCOMPARE(versions.size(), other.size() + 1);
    }

    /// All strings end in the processor that takes over.
    void namesTheRedundancyProcessor()
    {
        SPrintInput input = CSheetExport::inputOf({ProjectSamples::ofWall(CWallBuilder::Small)});
        ProcessorTree::ProcessorNode spare;
        spare.uuid = input.processors[0].redundancy = QUuid::createUuid();
        spare.name = QStringLiteral("Spare");
        spare.address = 0x0A000009;
        input.others.insert(spare.uuid, spare);
        const SPlanProcessor printed = SPrintPlan::of(input, {}).processors.first();
        QCOMPARE(printed.farEnd, QStringLiteral("Spare(10.0.0.9)"));
        QCOMPARE(printed.primary, QString());
        std::swap(input.processors[0].redundancy, input.processors[0].primary);
        const SPlanProcessor takesOver = SPrintPlan::of(input, {}).processors.first();
        QCOMPARE(takesOver.primary, printed.farEnd);
        QVERIFY(takesOver.farEnd.isEmpty() && !takesOver.port(7)->looped);
        std::swap(input.processors[0].redundancy, input.processors[0].primary);
        QVERIFY(printed.port(7)->looped);
        QCOMPARE(printed.port(7)->redundancyText(), QStringLiteral("Spare, port 8"));
        SPrintJob job;
        job.whole.farEnd = QStringLiteral("Other");
        QCOMPARE(SPrintPlan::of(input, job).processors.first().farEnd, job.whole.farEnd);
        QStringList versions;
        for (const char *name : {"Other", "Other (10.0.0.9)", "Other (left)"}) {
            job.whole.farEnd = QString::fromLatin1(name);
            versions << SPrintPlan::of(input, job).processors.first().version;
        }
        QCOMPARE(versions[0], versions[1]); // an address is nothing of the wiring
        QVERIFY(versions[0] != versions[2]);
    }

    void versionIsTheSameInEveryJob()
    {
        SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Small);
        const SProcessorProject backup = ProjectSamples::ofWall(CWallBuilder::Medium);
        PortPairs::setPair(project.layout.ports[0], project.layout.processor, Port::Primary,
                           {backup.layout.processor, 3});
        const SPrintPlan both = SPrintPlan::of(CSheetExport::inputOf({project, backup}), {});
        QCOMPARE(both.processors.first().port(0)->redundancyName, backup.name);
        SPrintJob job;
        job.whole.farEnd = QStringLiteral("Spare (10.0.0.9)");
        const SPrintPlan alone = SPrintPlan::of(CSheetExport::inputOf({project}), job);
        QCOMPARE(alone.processors.first().port(0)->redundancyShown, job.whole.farEnd);
        QCOMPARE(both.processors.first().version, planOf(project).processors.first().version);
        project.layout.ports[0].redundancy = Port::Redundant; // its strings do not end in its primary
        const SPrintPlan spare = SPrintPlan::of(CSheetExport::inputOf({project}), job);
        QCOMPARE(spare.processors.first().port(0)->redundancyName, QStringLiteral("another processor"));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CPrintPlanTest)
#include "tst_print_plan.moc"
