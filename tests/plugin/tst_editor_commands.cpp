// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/resources/LayoutResources.h"
#include "layout/settings/CCabinetFillSetting.h"
#include "layout/settings/CCabinetInformation.h"
#include "layout/settings/CCabinetParaSave.h"
#include "layout/settings/CCabinetTypeSetting.h"
#include "layout/settings/CCustomCabinet.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/plugin/SCommandWorld.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>

namespace {

using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts << action->text();
    return texts;
}

void chooseFirstType(CCabinetTypeSetting &dialog)
{
    QMenu *menu = dialog.findChild<QPushButton *>()->menu();
    if (!menu)
        menu = dialog.findChild<QMenu *>();
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
        QCOMPARE(textsOf(first),
                 (QStringList{QStringLiteral("Custom(192x192)"), QStringLiteral("Custom...")}));
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
        QCOMPARE(user.texts(), QStringList{QStringLiteral(
                                   "Cabinet height or width must be between 1-2048, the WxH (2049x100) of "
                                   "this cabinet type already exceeds the limit.")});
        recent.actions().last()->trigger();
        QVERIFY(m_world->scene().backend().placing().isAppending());
        QCOMPARE(m_world->store.recentCabinets().types().first(), SMD5::ofContent("Flat"));
    }

    void appendEntriesCarryTypeAndSize()
    {
        m_world->store.recentCabinets().noteType(SMD5::ofContent("Flat"));
        m_world->store.recentCabinets().setCustomSize(QSize(64, 32));
        QMenu menu;
        m_world->commands.fillAppendMenu(menu, nullptr);
        QAction *flat = menu.actions().first()->menu()->actions().first();
        QCOMPARE(flat->property("append").value<TypeInfo>(), typeNode("Flat", 100, 100).info);
        QCOMPARE(flat->property("appendSize").toSize(), QSize(100, 100));
        QAction *custom = menu.actions().at(2);
        QVERIFY(custom->property("append").isValid());
        QCOMPARE(custom->property("append").value<TypeInfo>(), TypeInfo());
        QCOMPARE(custom->property("appendSize").toSize(), QSize(64, 32));
    }

    void appendIsOfferedWhereItFitsOnly_data()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<bool>("offered");
        QTest::newRow("a port with room") << QString() << true;
        for (const char *state : {"no port", "locked", "redundancy"})
            QTest::newRow(state) << QString::fromLatin1(state) << false;
    }
    void appendIsOfferedWhereItFitsOnly()
    {
        QFETCH(QString, state);
        if (state == QLatin1String("no port"))
            settle(m_world->host, m_world->store); // a detection that the page does not know of
        m_world->store.setPortLocked(1, state == QLatin1String("locked"));
        if (state == QLatin1String("redundancy")) {
            auto &layout = m_world->host.answers()->layouts[m_world->store.currentProcessor()].layout;
            layout.ports[1].redundancy = CabinetLayout::CabinetPort::Redundant;
            m_world->host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, true});
            m_world->scene().onNotifyProcessorStateChanged();
        }
        QMenu menu;
        m_world->commands.fillAppendMenu(menu, nullptr);
        QTEST(!menu.isEmpty(), "offered");
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

    void aFullPortTakesNoMore()
    {
        m_world->open(1, 1024);
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        QMenu menu;
        m_world->commands.fillAppendMenu(menu, nullptr);
        QVERIFY(menu.isEmpty());
        QCOMPARE(user.texts(), QStringList{QStringLiteral(
                                   "The number of cabinet in a single output port can not be over 1024.")});
    }

    void aTypeIsAskedForAndApplied()
    {
        m_world->scene().backend().picks().port(0, true);
        m_world->store.setPortLocked(0, true);
        {
            CMessageBoxAnswerer user({QStringLiteral("OK")});
            m_world->commands.chooseType(nullptr);
            QCOMPARE(user.texts(), QStringList{QStringLiteral("Port 1 is locked.")});
        }
        m_world->store.setPortLocked(0, false);
        inNext<CCabinetTypeSetting>([](CCabinetTypeSetting &dialog) {
            chooseFirstType(dialog);
            dialog.accept();
        });
        m_world->commands.chooseType(nullptr);
        QCOMPARE(m_world->cabinet(0, 0).cabinet().type, SMD5::ofContent("Flat"));
        QCOMPARE(m_world->store.recentCabinets().types().size(), 1);
        QCOMPARE(m_world->store.recentCabinets().types().first(), SMD5::ofContent("Flat"));
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

    void whatWasChosenForAnotherProcessorIsDropped_data()
    {
        QTest::addColumn<bool>("type");
        QTest::newRow("fill") << false;
        QTest::newRow("type") << true;
    }
    void whatWasChosenForAnotherProcessorIsDropped()
    {
        QFETCH(bool, type);
        const QUuid before = m_world->store.currentProcessor();
        const auto leave = [this] { m_world->open(2, 3); };
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        if (type) {
            m_world->scene().backend().picks().port(0, true);
            inNext<CCabinetTypeSetting>([&leave](CCabinetTypeSetting &dialog) {
                chooseFirstType(dialog);
                leave();
                dialog.accept();
            });
            m_world->commands.chooseType(nullptr);
        } else {
            inNext<CCabinetFillSetting>([&leave](CCabinetFillSetting &dialog) {
                for (QSpinBox *box : dialog.findChildren<QSpinBox *>())
                    box->setValue(10);
                leave();
                dialog.accept();
            });
            m_world->commands.fillCurrentPort(nullptr);
        }
        QVERIFY(m_world->store.currentProcessor() != before);
        QCOMPARE(user.texts(), QStringList{QStringLiteral("Set failed.")});
        QCOMPARE(user.boxes().first().details, QStringLiteral("The processor is no longer in view."));
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

    void theDialogsAreAboutTheCabinetsThatWereGiven()
    {
        QStringList shown;
        inNext<CCabinetInformation>([&shown](CCabinetInformation &dialog) {
            for (const QLineEdit *field : dialog.findChildren<QLineEdit *>())
                shown << field->text();
            dialog.accept();
        });
        m_world->commands.showInformation(typedCabinets(), nullptr);
        QCOMPARE(shown.mid(0, 3),
                 (QStringList{QStringLiteral("2"), QStringLiteral("Flat"), QStringLiteral("100x100")}));

        QStringList offered;
        inNext<CCabinetParaSave>([&offered](CCabinetParaSave &dialog) {
            const auto *types = dialog.findChild<QComboBox *>();
            for (int i = 0; i < types->count(); ++i)
                offered << types->itemText(i);
            dialog.accept();
        });
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        m_world->commands.saveParameters(typedCabinets(), nullptr);
        QCOMPARE(offered, (QStringList{QStringLiteral("Flat"), QStringLiteral("Huge")}));
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
    /// Two cabinets of the second port, of a type that the library knows.
    QList<CEditorCommands::Cabinet> typedCabinets()
    {
        QList<CEditorCommands::Cabinet> cabinets;
        for (const int place : {0, 2}) {
            cabinets << m_world->cabinet(1, place).cabinet();
            cabinets.last().type = SMD5::ofContent("Flat");
        }
        return cabinets;
    }

    std::unique_ptr<SCommandWorld> m_world;
};

ORVO_TEST_MAIN(QApplication, CEditorCommandsTest)
#include "tst_editor_commands.moc"
