// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/plugin/CEditorCommands.h"
#include "layout/resources/LayoutResources.h"
#include "layout/settings/CCabinetFillSetting.h"
#include "layout/settings/CCabinetParaSave.h"
#include "layout/settings/CCabinetTypeSetting.h"
#include "layout/settings/CCustomCabinet.h"
#include "tests/editor/SceneParts.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CWorldTest.h"
#include "tests/harness/DialogUser.h"
#include "tests/harness/SStoreWorld.h"

#include <QCheckBox>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>

namespace {

/// A type of the library, with one receiver.
SSettings::TypeLibrary::STreeNode typeNode(const char *name, int width, int height)
{
    SSettings::TypeLibrary::STreeNode node;
    node.name = node.info.name = QString::fromLatin1(name);
    node.key = node.info.key = SMD5::ofContent(name);
    node.info.width = width;
    node.info.height = height;
    node.info.receivers = {QRect(0, 0, width, height)};
    return node;
}

/// A host, and the editor with its commands; a processor of two ports with three cabinets each is in view.
struct SCommandWorld final : SStoreWorld
{
    SCommandWorld()
    {
        host.answers()->library = {typeNode("Flat", 100, 100), typeNode("Huge", 2049, 100)};
        view.setCommands(&commands);
        store.setLayoutSource(&view.cabinetScene());
        open(2, 3);
    }
    ~SCommandWorld()
    {
        view.setCommands(nullptr);
        store.setLayoutSource(nullptr);
        QSettings(QStringLiteral("Velmarinth"), QStringLiteral("Orvo")).clear();
    }

    /// Brings a processor with @p ports ports of @p cabinets cabinets each into view.
    void open(int ports, int cabinets)
    {
        const QUuid processor = host.addProcessor(QStringLiteral("Main"), ports, cabinets);
        show(processor);
        const ProcessorTree::ProcessorNode node = host.answers()->getProcessorNode(processor);
        view.showLayout(node, store.openProcessor(processor));
        store.setCurrentPort(ports - 1);
    }
    CCabinetGraphicsScene &scene() { return view.cabinetScene(); }
    CEditorCommands::Cabinet cabinet(int port, int place)
    {
        return scene().backend().content().portItem(port)->cabinets(nullptr).at(place)->cabinet();
    }
    /// The same, of a type that the library knows.
    CEditorCommands::Cabinet typedCabinet(int port, int place)
    {
        CEditorCommands::Cabinet typed = cabinet(port, place);
        typed.type = SMD5::ofContent("Flat");
        return typed;
    }
    /// Does what the menu of a cabinet offers, and gives what the host was asked for, without the name.
    QStringList fileCallsFor(bool readback, const CEditorCommands::Cabinet &of)
    {
        host.answers()->forgetCalls();
        if (readback)
            commands.readBackConfiguration(of, nullptr);
        else
            commands.exportConfiguration(of, nullptr);
        const QString name = QLatin1String(readback ? "readbackCabinetConfig" : "exportCabinetConfig");
        QStringList calls = host.answers()->calls().filter(name);
        return calls.replaceInStrings(name, QString());
    }

    CLayoutGraphicsView view{store};
    CEditorCommands commands{store, view};
};

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

class CEditorCommandsTest final : public CWorldTest<SCommandWorld>
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void appendOffersRecentTypesAndTheLastSize()
    {
        m_world->store.recentCabinets().setCustomSize({5000, 4}); // as a damaged settings file may hold it
        QMenu first;
        m_world->commands.fillAppendMenu(first, nullptr);
        QCOMPARE(textsOf(first), (QStringList{QStringLiteral("Custom(2048x8)"), QStringLiteral("Custom..."),
                                              QString(), QStringLiteral("Type library")}));
        const QMenu *types = first.actions().last()->menu();
        QCOMPARE(types->actions().first()->text(), QStringLiteral("Flat\t100x100"));
        types->actions().first()->trigger();
        QVERIFY(m_world->scene().backend().placing().isAppending());
        m_world->scene().leaveOperation();
        inNext<CCustomCabinet>([](CCustomCabinet &dialog) {
            dialog.findChildren<QSpinBox *>().first()->setValue(64);
            dialog.findChildren<QSpinBox *>().last()->setValue(192);
            dialog.accept();
        });
        first.actions().at(1)->trigger();
        QVERIFY(m_world->scene().backend().placing().isAppending());
        QCOMPARE(m_world->scene().property("pendingAppendCabinetSize").toSize(), QSize(64, 192));
        QCOMPARE(m_world->scene().property("pendingAppendCabinetPort").toInt(), 1);
        m_world->scene().leaveOperation();

        m_world->host.answers()->library << typeNode("P%2 %3 wide", 10, 20);
        m_world->host.notify(LayoutNotification::TypeLibraryChanged);
        for (const char *name : {"P%2 %3 wide", "Flat", "Huge", "gone"})
            m_world->store.recentCabinets().noteType(SMD5::ofContent(name));
        QMenu menu;
        m_world->commands.fillAppendMenu(menu, nullptr);
        QCOMPARE(textsOf(menu),
                 (QStringList{QStringLiteral("Use recent"), QString(), QStringLiteral("Custom(64x192)"),
                              QStringLiteral("Custom..."), QString(), QStringLiteral("Type library")}));
        const QMenu &recent = *menu.actions().first()->menu();
        QCOMPARE(textsOf(recent),
                 (QStringList{QStringLiteral("Huge(2049x100)"), QStringLiteral("Flat(100x100)"),
                              QStringLiteral("P%2 %3 wide(10x20)")}));
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        recent.actions().first()->trigger();
        QVERIFY(!m_world->scene().backend().placing().isAppending());
        QVERIFY(user.texts().first().contains(QLatin1String("between 1-2048, the WxH (2049x100)")));
        recent.actions().at(1)->trigger();
        QVERIFY(m_world->scene().backend().placing().isAppending());
        QCOMPARE(m_world->store.recentCabinets().types().first(), SMD5::ofContent("Flat"));
    }

    void appendEndsTheSelectionInOtherPorts()
    {
        for (const int port : {1, 0}) { // the current port, another one
            m_world->view.onPortsChosen({port});
            m_world->commands.append({}, 1, {64, 64});
            QCOMPARE(m_world->scene().selection().isEmpty(), port == 0);
        }
    }

    void appendIsOfferedWhereItFitsOnly()
    {
        const auto offered = [this] {
            QMenu menu;
            m_world->commands.fillAppendMenu(menu, nullptr);
            return !menu.isEmpty();
        };
        QVERIFY(offered());
        const CSignalLog words(&m_world->scene(), &CCabinetGraphicsScene::notifyWords);
        m_world->store.setPortLocked(1, true);
        QVERIFY(!offered());
        QCOMPARE(words[0].first().toString(), QStringLiteral("Port 2 is locked."));
        m_world->store.setPortLocked(1, false);
        const QUuid processor = m_world->store.currentProcessor();
        m_world->host.answers()->layouts[processor].layout.ports[1].redundancy =
            CabinetLayout::CabinetPort::Redundant;
        m_world->host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, true});
        m_world->scene().onNotifyProcessorStateChanged();
        QVERIFY(!offered());
        settle(m_world->host, m_world->store); // a detection: no port is current
        QVERIFY(!offered());
        QCOMPARE(words.count(), 3); // each time

        m_world->open(1, 1024);
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        QVERIFY(!offered());
        QVERIFY(user.texts().first().endsWith(QStringLiteral("can not be over 1024.")));
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
        QCOMPARE(m_world->cabinet(0, 0).type, SMD5::ofContent("Flat"));
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
        m_world->store.syncLayoutData(true); // otherwise it would replace what follows
        const QUuid processor = m_world->store.currentProcessor();
        using Port = CabinetLayout::CabinetPort;
        m_world->answers()->layouts[processor].layout.ports[1].redundancy = Port::Redundant;
        m_world->store.openProcessor(processor);
        m_world->store.setPortLocked(0, true);
        m_world->store.setCurrentPort(0);
        choose(true);
        m_world->commands.fillCurrentPort(nullptr);
        QCOMPARE(m_world->store.port(0).color, QColor(10, 10, 10)); // a fill is no edit
        QVERIFY(!m_world->store.port(1).color.isValid());           // a redundancy port has none
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
        QCOMPARE(m_world->scene().backend().recorder().stack()->count(), 0);
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
        QCOMPARE(m_world->commands.connectionRefusal(), QString());
        CFakeHost &host = m_world->host;
        const quint32 address = host.answers()->nodes[0].address;
        host.answers()->nodes[0].address = 0; // a project
        QCOMPARE(m_world->commands.connectionRefusal(),
                 QStringLiteral("A project has no cabinets that are connected."));
        host.answers()->nodes[0].address = address;
        host.answers()->nodes[0].online = false;
        QCOMPARE(m_world->commands.connectionRefusal(), QStringLiteral("The processor is offline."));
    }

    void onlyWhatTheProcessorHoldsIsAsked()
    {
        const CEditorCommands &commands = m_world->commands;
        const auto first = m_world->cabinet(0, 0);
        const auto second = m_world->cabinet(1, 0);
        auto &ports = m_world->host.answers()->layouts[m_world->store.currentProcessor()].layout.ports;
        ports[0].groups[0].cabinets[0].mappingIndex = 0;
        QCOMPARE(commands.connectionRefusal({first}), QString());
        QCOMPARE(commands.connectionRefusal({second}),
                 QStringLiteral("The cabinet is not in the processor's saved mapping."));
        QCOMPARE(commands.connectionRefusal({first, second}),
                 QStringLiteral("Not all of the cabinets are in the processor's saved mapping."));
        QCOMPARE(commands.exportRefusal(m_world->typedCabinet(0, 0)), QString());
        auto strange = first;
        strange.type = SMD5::ofContent("gone");
        QCOMPARE(commands.exportRefusal(strange),
                 QStringLiteral("The cabinet's type is not in the type library."));
    }

    void parametersAreSavedForTheCabinetsThatWereGiven()
    {
        inNext<CCabinetParaSave>([](CCabinetParaSave &dialog) { dialog.accept(); });
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        m_world->commands.saveParameters({m_world->typedCabinet(1, 0), m_world->typedCabinet(1, 2)}, nullptr);
        QCOMPARE(m_world->host.answers()->calls().filter(QStringLiteral("sendCabinetParameters")),
                 QStringList{QStringLiteral("sendCabinetParameters(2,%1,2.8)")
                                 .arg(QString::fromLatin1(SMD5::ofContent("Flat").toText()))});
    }

    void aRefusedHighlightIsTold()
    {
        const QList<CabinetLayout::CabinetPort::Cabinet> one = {m_world->cabinet(0, 1)};
        QVERIFY(m_world->commands.highlight(one, CabinetHighlight::FlashingBox, nullptr));
        m_world->host.answers()->refused = {QStringLiteral("setCabinetHighlight")};
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        QVERIFY(!m_world->commands.highlight(one, CabinetHighlight::FlashingBox, nullptr));
        QVERIFY(!m_world->commands.highlight({}, CabinetHighlight::Off, nullptr)); // silently
        QCOMPARE(user.boxes().size(), 0);                                          // not during a press
        QTRY_COMPARE(user.boxes().size(), 1);
        QCOMPARE(user.boxes().first().details, m_world->host.answers()->error);
    }

    void filesAreNamedAskedForAndTold()
    {
        struct SCase
        {
            bool readback;
            const char *typed; // "": cancelled
            const char *existing;
            const char *pressed; // an answer each, separated by bars
            const char *written; // "": nothing
        };
        for (const auto &[readback, typed, existing, pressed, written] :
             {SCase{false, "a", "", "OK", "a.rcvbp"},
              {false, "Rental P2.6 tall", "", "OK", "Rental P2.6 tall.rcvbp"},
              {false, "Rental P1.9", "", "OK", "Rental P1.9.rcvbp"},
              {false, "a.v2", "", "OK", "a.v2"},
              {false, "a.rcvbp", "a.rcvbp", "Yes|OK", "a.rcvbp"},
              {false, "a.rcvbp", "a.rcvbp", "No", ""},
              {true, "b", "b", "OK", "b.rcvbp"},
              {true, "b", "b.rcvbp", "Yes|OK", "b.rcvbp"}, // it gets that name
              {true, "", "", "", ""}}) {
            const QTemporaryDir folder;
            if (*existing)
                QVERIFY(QFile(folder.filePath(QLatin1String(existing))).open(QIODevice::WriteOnly));
            const CFileDialogAnswerer files(*typed ? folder.filePath(QLatin1String(typed)) : QString());
            const QStringList answers =
                QString::fromLatin1(pressed).split(QLatin1Char('|'), Qt::SkipEmptyParts);
            const CMessageBoxAnswerer user(answers);
            const auto cabinet = m_world->typedCabinet(1, 1);
            const QString uuid = cabinet.uuid.toString(QUuid::WithoutBraces);
            const QString file = folder.filePath(QLatin1String(written));
            const QString call = QLatin1String(readback ? "(1,%1,%2,Flat)" : "(%1,%2)");
            QCOMPARE(m_world->fileCallsFor(readback, cabinet),
                     *written ? QStringList{call.arg(uuid, file)} : QStringList());
            QCOMPARE(user.boxes().size(), answers.size());
            QCOMPARE(m_world->store.mappingFolder() == folder.path(), *written != 0); // the next opens there
            const auto date = QDateTime::fromString(files.proposal, QStringLiteral("yyyy-MM-dd-hh-mm-ss"));
            QVERIFY(readback ? date.isValid() : files.proposal == QLatin1String("Flat"));
        }
    }

    void theProposedNameIsThatOfAFile()
    {
        m_world->host.answers()->library = {typeNode("Rental in/outdoor: P2.6 tall", 100, 100)};
        m_world->host.notify(LayoutNotification::TypeLibraryChanged);
        const CFileDialogAnswerer files{QString()};
        auto cabinet = m_world->cabinet(1, 1);
        cabinet.type = m_world->host.answers()->library.first().key;
        m_world->fileCallsFor(false, cabinet);
        QCOMPARE(files.proposal, QStringLiteral("Rental in-outdoor- P2.6 tall"));
    }

    void filesThatTheHostRefusesAreToldWithItsReason()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("a.rcvbp"));
        for (const QString &operation :
             {QStringLiteral("exportCabinetConfig"), QStringLiteral("readbackCabinetConfig"), QString()}) {
            m_world->host.answers()->refused = {operation};
            const bool readback = !operation.startsWith(QLatin1Char('e'));
            const CFileDialogAnswerer files(file);
            const CMessageBoxAnswerer user({QStringLiteral("OK")});
            const auto untyped = m_world->cabinet(0, 2);
            const QStringList calls = m_world->fileCallsFor(readback, untyped);
            QCOMPARE(user.boxes().first().details,
                     operation.isEmpty() ? QString() : m_world->host.answers()->error);
            const QString uuid = untyped.uuid.toString(QUuid::WithoutBraces);
            QCOMPARE(calls.first(),
                     (readback ? QStringLiteral("(0,%1,%2,)") : QStringLiteral("(%1,%2)")).arg(uuid, file));
        }
    }
};

ORVO_TEST_MAIN(QApplication, CEditorCommandsTest)
#include "tst_editor_commands.moc"
