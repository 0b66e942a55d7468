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

class CMappingCommandsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsHowItEnded()
    {
        using R = SDeviceOutcome::Result;
        for (const bool save : {false, true}) {
            const QString what = save ? QStringLiteral("Save") : QStringLiteral("Read");
            const QVector<QPair<R, QString>> ends{{R::Done, what + QStringLiteral(" mapping successful.")},
                                                  {R::Failed, what + QStringLiteral(" mapping failed.")},
                                                  {R::Cancelled, QString()}};
            for (const auto &[result, message] : ends) {
                SMappingScene scene;
                scene.answers()->outcome = {result, QStringLiteral("A is silent.")};
                const CMessageBoxAnswerer user({QStringLiteral("OK")});
                scene.run(save);
                QCOMPARE(user.texts().join(QLatin1Char('|')), message);
                if (result == R::Failed)
                    QCOMPARE(user.boxes().first().details, scene.answers()->outcome.text);
                QCOMPARE(scene.ends, QVector<bool>{result == R::Done});
                QCOMPARE(scene.answers()->role,
                         save ? ReadSaveMappingRole::All : ReadSaveMappingRole::Current);
                if (save)
                    QCOMPARE(scene.answers()->saved, scene.answers()->layouts[scene.a]);
                else
                    QVERIFY(scene.answers()->readOptions.numberMapping);
            }
        }
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
