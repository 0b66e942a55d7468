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
    void replace(const QUuid &processor, int port, int place, const Cabinet &cabinet)
    {
        host.answers()->layouts[processor].layout.ports[port].groups[0].cabinets[place] = cabinet;
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

    void tellsTheFirstFault_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("mapped");
        QTest::addColumn<QString>("text");
        const QString noType = QStringLiteral(
            "Unable to save processor B(127.0.0.1)'s cabinet, please use cabinet type from type library or "
            "associate custom cabinet with a type.");
        QTest::newRow("neither type nor mapping") << QString() << false << noType;
        QTest::newRow("no type") << QString() << true << noType;
        QTest::newRow("not mapped") << QStringLiteral("broken") << false
                                    << QStringLiteral("Please setup processor B(127.0.0.1)'s mapping first.");
        QTest::newRow("damaged") << QStringLiteral("broken") << true
                                 << QStringLiteral("Type file broken is damaged.");
        QTest::newRow("unknown") << QStringLiteral("elsewhere") << true
                                 << QStringLiteral("Type file %1 is damaged.")
                                        .arg(QLatin1String(SMD5::ofContent("elsewhere").toText()));
    }
    void tellsTheFirstFault()
    {
        QFETCH(QString, type);
        QFETCH(bool, mapped);
        QFETCH(QString, text);
        SParameterScene scene;
        Cabinet faulty = scene.cabinet(scene.b, 0, 0);
        faulty.type = type.isEmpty() ? SMD5() : SMD5::ofContent(type.toLatin1());
        faulty.mappingIndex = mapped ? 7 : -1;
        scene.replace(scene.b, 0, 0, faulty);
        faulty = scene.cabinet(scene.b, 0, 1);
        faulty.type = SMD5();
        scene.replace(scene.b, 0, 1, faulty); // comes later
        QCOMPARE(scene.run().error(), text);
    }
};

ORVO_TEST_MAIN(QApplication, CParameterCheckTest)
#include "tst_parameter_check.moc"
