// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CMappingCommands.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/SStoreWorld.h"

#include <QWidget>

namespace {

struct SMappingScene final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 4, 2);
    QWidget window;
    std::unique_ptr<CMappingCommands> commands = std::make_unique<CMappingCommands>(store, window);
    QVector<bool> ends;

    SMappingScene() { show(a); }
    void run(bool save)
    {
        const auto ended = [this](bool done) { ends << done; };
        if (save)
            commands->saveMapping(ReadSaveMappingRole::All, ended);
        else
            commands->readMapping(ReadSaveMappingRole::Current, {true, false, true}, ended);
    }
};

} // namespace
Q_DECLARE_METATYPE(SDeviceOutcome::Result)

class CMappingCommandsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsHowItEnded_data()
    {
        QTest::addColumn<bool>("save");
        QTest::addColumn<SDeviceOutcome::Result>("result");
        QTest::addColumn<QString>("message");
        QTest::newRow("read") << false << SDeviceOutcome::Done << "Read mapping successful.";
        QTest::newRow("read, failed") << false << SDeviceOutcome::Failed << "Read mapping failed.";
        QTest::newRow("read, cancelled") << false << SDeviceOutcome::Cancelled << "";
        QTest::newRow("save") << true << SDeviceOutcome::Done << "Save mapping successful.";
        QTest::newRow("save, failed") << true << SDeviceOutcome::Failed << "Save mapping failed.";
        QTest::newRow("save, cancelled") << true << SDeviceOutcome::Cancelled << "";
    }
    void tellsHowItEnded()
    {
        QFETCH(bool, save);
        QFETCH(SDeviceOutcome::Result, result);
        QFETCH(QString, message);
        SMappingScene scene;
        const bool failed = result == SDeviceOutcome::Failed;
        scene.answers()->outcome = {result, failed ? QStringLiteral("A is silent.") : QString()};
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        scene.run(save);
        QCOMPARE(user.texts().join(QLatin1Char('|')), message);
        if (!message.isEmpty())
            QCOMPARE(user.boxes().first().details, scene.answers()->outcome.text);
        QCOMPARE(scene.ends, QVector<bool>{result == SDeviceOutcome::Done});
        QCOMPARE(scene.answers()->role, save ? ReadSaveMappingRole::All : ReadSaveMappingRole::Current);
        if (save)
            QCOMPARE(scene.answers()->saved, scene.answers()->layouts[scene.a]);
        else
            QVERIFY(scene.answers()->readOptions.numberMapping);
    }

    void anEndThatComesTooLateIsIgnored()
    {
        SMappingScene scene;
        scene.answers()->answerLater = true;
        scene.run(true);
        scene.commands.reset();
        scene.host.endWaiting({SDeviceOutcome::Done, {}}); // a message would fail the test
        QVERIFY(scene.ends.isEmpty());
    }
};

ORVO_TEST_MAIN(QApplication, CMappingCommandsTest)
#include "tst_mapping_commands.moc"
