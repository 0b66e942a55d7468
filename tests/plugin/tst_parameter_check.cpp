// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CParameterCheck.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/SStoreWorld.h"

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;
using Node = SSettings::TypeLibrary::STreeNode;

Node typeNode(const char *name, bool damaged)
{
    Node node;
    node.key = node.info.key = SMD5::ofContent(name);
    node.name = node.info.name = QString::fromLatin1(name);
    node.info.damaged = damaged;
    return node;
}

/// Two detected processors with two good cabinets each, and a project that does not count.
struct SParameterScene final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 2, 1);
    QUuid b = host.addProcessor(QStringLiteral("B"), 1, 2);
    QUuid project = host.addProcessor(QStringLiteral("P"), 1, 1);

    SParameterScene()
    {
        prepareProcessors();
        show(a);
    }
    void prepareProcessors()
    {
        const auto answers = host.answers();
        answers->nodes[2].index = -1;
        answers->library = {typeNode("P2", false), typeNode("broken", true)};
        int index = 0;
        for (const QUuid &processor : {a, b}) {
            for (CabinetLayout::CabinetPort &port : answers->layouts[processor].layout.ports) {
                for (Cabinet &cabinet : port.groups[0].cabinets) {
                    cabinet.type = SMD5::ofContent("P2");
                    cabinet.mappingIndex = index++;
                }
            }
        }
    }
    Cabinet cabinet(const QUuid &processor, int port, int place)
    {
        return host.answers()->layouts[processor].layout.ports[port].groups[0].cabinets[place];
    }
    CResult<QList<Cabinet>> run() const { return CParameterCheck(store).run(); }
};

} // namespace

class CParameterCheckTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void givesTheCabinetsOfAllDetectedProcessors()
    {
        SParameterScene scene;
        const CResult<QList<Cabinet>> found = scene.run();
        QVERIFY2(found, qPrintable(found.error()));
        QList<Cabinet> wanted{scene.cabinet(scene.a, 0, 0), scene.cabinet(scene.a, 1, 0),
                              scene.cabinet(scene.b, 0, 0), scene.cabinet(scene.b, 0, 1)};
        QCOMPARE(found.value(), wanted);
    }

    void tellsWhenThereIsNothing()
    {
        SParameterScene scene;
        for (const QUuid &processor : {scene.a, scene.b})
            scene.host.answers()->layouts[processor].layout.ports.clear();
        QCOMPARE(scene.run().error(), QStringLiteral("There is no cabinet detected."));
        scene.host.answers()->detected = 0;
        QCOMPARE(scene.run().error(), QStringLiteral("No processor is detected."));
    }

    void tellsTheFirstFault()
    {
        const auto damaged = [](const QString &type) {
            return QStringLiteral("Type file %1 is damaged.").arg(type);
        };
        const QString noType = QStringLiteral(
            "Unable to save processor B(127.0.0.1)'s cabinet, please use cabinet type from type library or "
            "associate custom cabinet with a type.");
        const QString notMapped = QStringLiteral("Please setup processor B(127.0.0.1)'s mapping first.");
        const SMD5 broken = SMD5::ofContent("broken");
        const SMD5 unknown = SMD5::ofContent("elsewhere");
        const QVector<std::tuple<SMD5, int, QString>> faults{
            {SMD5(), -1, noType},
            {SMD5(), 7, noType},
            {broken, -1, notMapped},
            {broken, 7, damaged(QStringLiteral("broken"))},
            {unknown, 7, damaged(QLatin1String(unknown.toText()))}};
        for (const auto &[type, place, text] : faults) {
            SParameterScene scene;
            {
                const auto answers = scene.answers();
                auto &cabinets = answers->layouts[scene.b].layout.ports[0].groups[0].cabinets;
                cabinets[0].type = type;
                cabinets[0].mappingIndex = place;
                cabinets[1].type = SMD5(); // comes later
            }
            QCOMPARE(scene.run().error(), text);
        }
    }
};

ORVO_TEST_MAIN(QApplication, CParameterCheckTest)
#include "tst_parameter_check.moc"
