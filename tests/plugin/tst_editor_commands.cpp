// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/resources/LayoutResources.h"
#include "layout/settings/CCabinetFillSetting.h"
#include "layout/settings/CCabinetParaSave.h"
#include "layout/settings/CCabinetTypeSetting.h"
#include "layout/settings/CCustomCabinet.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/plugin/SCommandWorld.h"

#include <QCheckBox>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>

namespace {

QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts << action->text();
    return texts;
}

void chooseFirstType(CCabinetTypeSetting &dialog)
{
    auto *menu = dialog.findChild<QMenu *>();
    QVERIFY(menu);
    Q_EMIT menu->aboutToShow();
    menu->actions().first()->trigger();
}

} // namespace

class CEditorCommandsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }
    void init()
    {
        CTestBase::init();
        m_world = std::make_unique<SCommandWorld>();
        m_world->open(2, 3);
    }
    void cleanup()
    {
        m_world.reset();
        QSettings(QStringLiteral("Velmarinth"), QStringLiteral("Orvo")).clear();
        CTestBase::cleanup();
    }

    void appendOffersRecentTypesAndTheLastSize()
    {
        QMenu first;
        m_world->commands.fillAppendMenu(first, nullptr);
        QCOMPARE(first.actions().size(), 2); // without recent types
        inNext<CCustomCabinet>([](CCustomCabinet &dialog) {
            dialog.findChildren<QSpinBox *>().first()->setValue(64);
            dialog.accept();
        });
        first.actions().last()->trigger();
        QVERIFY(m_world->scene().backend().placing().isAppending());
        QCOMPARE(m_world->scene().property("pendingAppendCabinetSize").toSize(), QSize(64, 192));
        QCOMPARE(m_world->scene().property("pendingAppendCabinetPort").toInt(), 1);
        m_world->scene().leaveOperation();

        for (const char *name : {"Flat", "Huge", "gone"})
            m_world->store.recentCabinets().noteType(SMD5::ofContent(name));
        QMenu menu;
        m_world->commands.fillAppendMenu(menu, nullptr);
        QCOMPARE(textsOf(menu), (QStringList{QStringLiteral("Use recent"), QString(),
                                             QStringLiteral("Custom(64x192)"), QStringLiteral("Custom...")}));
        const QMenu &recent = *menu.actions().first()->menu();
        QCOMPARE(textsOf(recent),
                 (QStringList{QStringLiteral("Huge(2049x100)"), QStringLiteral("Flat(100x100)")}));
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        recent.actions().first()->trigger();
        QVERIFY(!m_world->scene().backend().placing().isAppending());
        QVERIFY(user.texts().first().contains(QLatin1String("(2049x100)")));
        recent.actions().last()->trigger();
        QVERIFY(m_world->scene().backend().placing().isAppending());
        QCOMPARE(m_world->store.recentCabinets().types().first(), SMD5::ofContent("Flat"));
    }

    void appendIsOfferedWhereItFitsOnly()
    {
        const auto offered = [this] {
            QMenu menu;
            m_world->commands.fillAppendMenu(menu, nullptr);
            return !menu.isEmpty();
        };
        QVERIFY(offered());
        m_world->store.setPortLocked(1, true);
        QVERIFY(!offered());
        m_world->store.setPortLocked(1, false);
        const QUuid processor = m_world->store.currentProcessor();
        m_world->host.answers()->layouts[processor].layout.ports[1].redundancy =
            CabinetLayout::CabinetPort::Redundant;
        m_world->host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, true});
        m_world->scene().onNotifyProcessorStateChanged();
        QVERIFY(!offered());
        settle(m_world->host, m_world->store); // a detection: no port is current
        QVERIFY(!offered());

        m_world->open(1, 1024);
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        QVERIFY(!offered());
        QVERIFY(user.texts().first().endsWith(QStringLiteral("can not be over 1024.")));
    }

    void appendNamesTypesAndSizesAsTheyAre()
    {
        const auto odd = typeNode("P%2 %3 wide", 10, 20);
        m_world->host.answers()->library = {odd};
        m_world->host.notify(LayoutNotification::TypeLibraryChanged);
        m_world->store.recentCabinets().noteType(odd.key);
        m_world->store.recentCabinets().setCustomSize({5000, 4}); // as a damaged settings file may hold it
        QMenu menu;
        m_world->commands.fillAppendMenu(menu, nullptr);
        QCOMPARE(textsOf(*menu.actions().first()->menu()), QStringList{QStringLiteral("P%2 %3 wide(10x20)")});
        QCOMPARE(textsOf(menu).at(2), QStringLiteral("Custom(2048x8)"));
    }

    void aTypeIsAskedForAndApplied()
    {
        m_world->scene().backend().picks().port(0, true);
        m_world->store.setPortLocked(0, true);
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        m_world->commands.chooseType(nullptr);
        QCOMPARE(user.texts(), QStringList{QStringLiteral("Port 1 is locked.")});
        m_world->store.setPortLocked(0, false);
        inNext<CCabinetTypeSetting>([](CCabinetTypeSetting &dialog) {
            chooseFirstType(dialog);
            dialog.accept();
        });
        m_world->commands.chooseType(nullptr);
        QCOMPARE(m_world->cabinet(0, 0).cabinet().type, SMD5::ofContent("Flat"));
        const QVector<SMD5> recent = m_world->store.recentCabinets().types();
        QVERIFY(recent.size() == 1 && recent.first() == SMD5::ofContent("Flat"));
    }

    void fillsOneOrAllPorts()
    {
        const auto choose = [](bool all) {
            inNext<CCabinetFillSetting>([all](CCabinetFillSetting &dialog) {
                dialog.findChild<QCheckBox *>()->setChecked(all);
                for (QSpinBox *box : dialog.findChildren<QSpinBox *>()) {
                    if (box->maximum() == 255)
                        box->setValue(10);
                }
                dialog.accept();
            });
        };
        choose(false);
        m_world->commands.fillCurrentPort(nullptr);
        QCOMPARE(m_world->store.portColor(1), QColor(10, 10, 10));
        QVERIFY(m_world->store.portColor(0) != QColor(10, 10, 10));
        choose(true);
        m_world->commands.fillCurrentPort(nullptr);
        QCOMPARE(m_world->store.portColor(0), QColor(10, 10, 10));
        m_world->commands.resetFills(nullptr);
        QVERIFY(!m_world->store.port(0).color.isValid() && !m_world->store.port(1).color.isValid());
    }

    void whatWasChosenForAnotherProcessorIsDropped()
    {
        const CMessageBoxAnswerer user({QStringLiteral("OK"), QStringLiteral("OK")});
        inNext<CCabinetFillSetting>([this](CCabinetFillSetting &dialog) {
            for (QSpinBox *box : dialog.findChildren<QSpinBox *>())
                box->setValue(10);
            m_world->open(2, 3);
            dialog.accept();
        });
        m_world->commands.fillCurrentPort(nullptr);
        m_world->scene().backend().picks().port(0, true);
        inNext<CCabinetTypeSetting>([this](CCabinetTypeSetting &dialog) {
            chooseFirstType(dialog);
            m_world->open(2, 3);
            dialog.accept();
        });
        m_world->commands.chooseType(nullptr);
        QCOMPARE(user.boxes().size(), 2);
        for (const auto &box : user.boxes())
            QCOMPARE(box.details, QStringLiteral("The processor is no longer in view."));
        QVERIFY(!m_world->store.port(1).color.isValid());
        QVERIFY(m_world->store.recentCabinets().types().isEmpty());
        QCOMPARE(m_world->scene().undoStack()->count(), 0);
    }

    void customCabinetsAreMarkedAndNothingElse()
    {
        SLayoutOptions expected;
        expected.followUp = false;
        m_world->store.setOptions(expected);
        for (const bool marked : {true, false}) {
            expected.markupCustomCabinets = marked;
            m_world->commands.markCustomCabinets(marked);
            QCOMPARE(m_world->store.options(), expected);
            QCOMPARE(m_world->scene().backend().states().marksCustomCabinets(), marked);
        }
    }

    void onlyProcessorsThatAnswerAreReadBack()
    {
        QCOMPARE(m_world->commands.readbackRefusal(), QString());
        CFakeHost &host = m_world->host;
        const quint32 address = host.answers()->nodes[0].address;
        host.answers()->nodes[0].address = 0; // a project
        QCOMPARE(m_world->commands.readbackRefusal(),
                 QStringLiteral("A project has no cabinets that are connected."));
        host.answers()->nodes[0].address = address;
        host.answers()->nodes[0].online = false;
        QCOMPARE(m_world->commands.readbackRefusal(), QStringLiteral("The processor is offline."));
    }

    void parametersAreSavedForTheCabinetsThatWereGiven()
    {
        QList<CEditorCommands::Cabinet> cabinets;
        for (const int place : {0, 2}) {
            cabinets << m_world->cabinet(1, place).cabinet();
            cabinets.last().type = SMD5::ofContent("Flat");
        }
        inNext<CCabinetParaSave>([](CCabinetParaSave &dialog) { dialog.accept(); });
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        m_world->commands.saveParameters(cabinets, nullptr);
        QCOMPARE(m_world->host.answers()->calls().filter(QStringLiteral("sendCabinetParameters")),
                 QStringList{QStringLiteral("sendCabinetParameters(2,%1,2.8)")
                                 .arg(QString::fromLatin1(SMD5::ofContent("Flat").toText()))});
    }

    void aRefusedHighlightIsTold()
    {
        const QList<CabinetLayout::CabinetPort::Cabinet> one = {m_world->cabinet(0, 1).cabinet()};
        QVERIFY(m_world->commands.highlight(one, CabinetHighlight::FlashingBox, nullptr));
        m_world->host.answers()->refused = {QStringLiteral("setCabinetHighlight")};
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        QVERIFY(!m_world->commands.highlight(one, CabinetHighlight::FlashingBox, nullptr));
        QVERIFY(!m_world->commands.highlight({}, CabinetHighlight::Off, nullptr)); // silently
        QCOMPARE(user.boxes().size(), 0);                                          // not during a press
        QTRY_COMPARE(user.boxes().size(), 1);
        QCOMPARE(user.boxes().first().details, m_world->host.answers()->error);
    }

private:
    std::unique_ptr<SCommandWorld> m_world;
};

ORVO_TEST_MAIN(QApplication, CEditorCommandsTest)
#include "tst_editor_commands.moc"
