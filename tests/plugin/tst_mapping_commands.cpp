// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/plugin/CMappingCommands.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/plugin/SStoreWorld.h"

#include <QToolButton>

namespace {

struct SMappingScene final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 4, 2);
    QWidget window;
    CLayoutSidePanel panel;
    std::unique_ptr<CMappingCommands> commands = std::make_unique<CMappingCommands>(store, panel, window);

    SMappingScene()
    {
        show(a);
        const ProcessorTree::ProcessorNode node = host.answers()->currentProcessorNode();
        panel.onCurrentProcessorChanged(node);
    }
    void run(bool save)
    {
        if (save)
            Q_EMIT panel.notifySaveMapping(ReadSaveMappingRole::All);
        else
            Q_EMIT panel.notifyReadMapping(ReadSaveMappingRole::Current, {true, false, true});
    }
    bool mappingEnabled() const
    {
        for (const QToolButton *button : panel.findChildren<QToolButton *>()) {
            if (button->text() == QLatin1String("Read") || button->text() == QLatin1String("Save"))
                return button->isEnabled();
        }
        return false;
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
        QTest::addColumn<QStringList>("messages");
        QTest::newRow("read") << false << SDeviceOutcome::Done
                              << QStringList{QStringLiteral("Read mapping successful.")};
        QTest::newRow("read, failed")
            << false << SDeviceOutcome::Failed << QStringList{QStringLiteral("Read mapping failed.")};
        QTest::newRow("read, cancelled") << false << SDeviceOutcome::Cancelled << QStringList();
        QTest::newRow("save") << true << SDeviceOutcome::Done
                              << QStringList{QStringLiteral("Save mapping successful.")};
        QTest::newRow("save, failed")
            << true << SDeviceOutcome::Failed << QStringList{QStringLiteral("Save mapping failed.")};
        QTest::newRow("save, cancelled") << true << SDeviceOutcome::Cancelled << QStringList();
    }
    void tellsHowItEnded()
    {
        QFETCH(bool, save);
        QFETCH(SDeviceOutcome::Result, result);
        QFETCH(QStringList, messages);
        SMappingScene scene;
        scene.answers()->outcome.result = result;
        if (result == SDeviceOutcome::Failed)
            scene.answers()->outcome.text = QStringLiteral("A does not answer.");
        QSignalSpy saved(&scene.panel, &CLayoutSidePanel::notifySaveMappingSuccessed);
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        scene.run(save);
        QCOMPARE(user.texts(), messages);
        if (!messages.isEmpty())
            QCOMPARE(user.boxes().first().details, scene.answers()->outcome.text);
        QCOMPARE(saved.count(), save && result == SDeviceOutcome::Done ? 1 : 0);
        QCOMPARE(scene.answers()->role, save ? ReadSaveMappingRole::All : ReadSaveMappingRole::Current);
        if (save)
            QCOMPARE(scene.answers()->saved, scene.answers()->layouts[scene.a]);
        else
            QVERIFY(scene.answers()->readOptions.numberMapping);
    }

    void nothingElseIsStartedMeanwhile()
    {
        SMappingScene scene;
        scene.answers()->answerLater = true;
        QVERIFY(scene.mappingEnabled());
        scene.run(false);
        QVERIFY(!scene.mappingEnabled());
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        scene.host.endWaiting({SDeviceOutcome::Done, {}});
        QVERIFY(scene.mappingEnabled());
        QCOMPARE(user.texts().size(), 1);
    }

    void anEndThatComesTooLateIsIgnored()
    {
        SMappingScene scene;
        scene.answers()->answerLater = true;
        scene.run(true);
        scene.commands.reset();
        scene.host.endWaiting({SDeviceOutcome::Done, {}}); // a message would fail the test
    }
};

ORVO_TEST_MAIN(QApplication, CMappingCommandsTest)
#include "tst_mapping_commands.moc"
