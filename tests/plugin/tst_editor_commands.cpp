// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CLayoutData.h"
#include "layout/editor/CCabinetGraphicsScene.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/plugin/CEditorCommands.h"
#include "layout/plugin/LayoutNotification.h"
#include "layout/resources/LayoutResources.h"
#include "layout/settings/CCabinetFillSetting.h"
#include "layout/settings/CCabinetTypeSetting.h"
#include "layout/settings/CCustomCabinet.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QCheckBox>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>

namespace {

using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

SSettings::TypeLibrary::STreeNode typeNode(const char *name, int width, int height)
{
    SSettings::TypeLibrary::STreeNode node;
    node.name = QString::fromLatin1(name);
    node.key = SMD5::ofContent(name);
    node.info.key = node.key;
    node.info.name = node.name;
    node.info.width = width;
    node.info.height = height;
    node.info.receivers = {QRect(0, 0, width, height)};
    return node;
}

/// A host, and the editor with its commands.
struct SCommandWorld
{
    SCommandWorld()
    {
        host.answers().library = {typeNode("Flat", 100, 100), typeNode("Huge", 2049, 100)};
        host.subject()->attach(store);
        view.setCommands(&commands);
        store.setLayoutSource(&view.cabinetScene());
    }
    ~SCommandWorld()
    {
        view.setCommands(nullptr);
        store.setLayoutSource(nullptr);
        host.subject()->detach(store);
        store.stop();
    }

    /// Brings a processor with so many ports and cabinets a port into view.
    void open(int ports, int cabinets)
    {
        const QUuid processor = host.addProcessor(QStringLiteral("Main"), ports, cabinets);
        host.choose(processor);
        host.notify(LayoutNotification::CurrentProcessorChanged, processor);
        QTRY_COMPARE(store.currentProcessor(), processor);
        view.showLayout(host.answers().getProcessorNode(processor), store.openProcessor(processor));
        store.setCurrentPort(ports - 1);
    }
    CCabinetGraphicsScene &scene() { return view.cabinetScene(); }
    CGraphicsCabinetItem &cabinet(int port, int place)
    {
        return *scene().portItem(port)->cabinets(nullptr).at(place);
    }

    CFakeHost host;
    CLayoutData store;
    CLayoutGraphicsView view{store};
    CEditorCommands commands{store, view};
};

template <typename Dialog>
void inNext(const std::function<void(Dialog &)> &act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        act(*dialog);
    });
}

QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts << action->text();
    return texts;
}

} // namespace

class CEditorCommandsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }
    void init()
    {
        m_world = std::make_unique<SCommandWorld>();
        m_world->open(2, 3);
    }
    void cleanup()
    {
        m_world.reset();
        QSettings(QStringLiteral("Velmarinth"), QStringLiteral("Orvo")).clear();
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
        QVERIFY(m_world->scene().isAppending());
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
        QVERIFY(!m_world->scene().isAppending());
        QCOMPARE(user.texts(), QStringList{QStringLiteral(
                                   "Cabinet height or width must be between 1-2048, the WxH (2049x100) of "
                                   "this cabinet type already exceeds the limit.")});
        recent.actions().last()->trigger();
        QVERIFY(m_world->scene().isAppending());
        QCOMPARE(m_world->store.recentCabinets().types().first(), SMD5::ofContent("Flat"));
    }

    void appendIsRefusedBeforeItBegins()
    {
        QMenu menu;
        m_world->store.setPortLocked(1, true);
        m_world->commands.fillAppendMenu(menu, nullptr);
        m_world->store.setCurrentPort(-1);
        m_world->commands.fillAppendMenu(menu, nullptr);
        QVERIFY(menu.isEmpty());
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
        m_world->scene().selectPort(0, true);
        m_world->store.setPortLocked(0, true);
        {
            CMessageBoxAnswerer user({QStringLiteral("OK")});
            m_world->commands.chooseType(nullptr);
            QCOMPARE(user.texts(), QStringList{QStringLiteral("Port 1 is locked.")});
        }
        m_world->store.setPortLocked(0, false);
        inNext<CCabinetTypeSetting>([](CCabinetTypeSetting &dialog) {
            QMenu *menu = dialog.findChild<QPushButton *>()->menu();
            if (!menu)
                menu = dialog.findChild<QMenu *>();
            QVERIFY(menu);
            Q_EMIT menu->aboutToShow();
            menu->actions().first()->trigger();
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

    void filesTellHowTheyEnded_data()
    {
        QTest::addColumn<bool>("readback");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("exists");
        QTest::addColumn<bool>("refused");
        QTest::addColumn<QString>("written");
        QTest::addColumn<QStringList>("told");
        const QString overwrite =
            QStringLiteral("The file already exists in the current path. Do you want to overwrite it?");
        QTest::newRow("export") << false << "a.rcvbp" << false << false << "a.rcvbp"
                                << QStringList{QStringLiteral("Export Success.")};
        QTest::newRow("export over a file") << false << "a.rcvbp" << true << false << "a.rcvbp"
                                            << QStringList{overwrite, QStringLiteral("Export Success.")};
        QTest::newRow("export refused") << false << "a.rcvbp" << false << true << "a.rcvbp"
                                        << QStringList{QStringLiteral("Export failed.")};
        QTest::newRow("export cancelled") << false << "" << false << false << "" << QStringList();
        QTest::newRow("readback without a suffix") << true << "b" << false << false << "b.rcvbp"
                                                   << QStringList{QStringLiteral("Readback successful.")};
        QTest::newRow("readback of another kind") << true << "b.rcvp" << false << false << "b.rcvp"
                                                  << QStringList{QStringLiteral("Readback successful.")};
        QTest::newRow("readback refused")
            << true << "b" << false << true << "b.rcvbp" << QStringList{QStringLiteral("Readback failed.")};
        QTest::newRow("readback cancelled") << true << "" << false << false << "" << QStringList();
    }
    void filesTellHowTheyEnded()
    {
        QFETCH(bool, readback);
        QFETCH(QString, typed);
        QFETCH(QString, written);
        QFETCH(bool, exists);
        QFETCH(bool, refused);
        const QTemporaryDir folder;
        const auto inFolder = [&folder](const QString &name) {
            return name.isEmpty() ? QString() : folder.filePath(name);
        };
        if (exists) {
            QFile file(inFolder(typed));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        if (refused)
            m_world->host.answers().refused = {QStringLiteral("exportCabinetConfig"),
                                               QStringLiteral("readbackCabinetConfig")};
        CFileDialogAnswerer files(inFolder(typed));
        CMessageBoxAnswerer user(exists ? QStringList{QStringLiteral("Yes"), QStringLiteral("OK")}
                                        : QStringList{QStringLiteral("OK")});
        const auto cabinet = m_world->cabinet(0, 1).cabinet();
        if (readback)
            m_world->commands.readBackConfiguration(cabinet, nullptr);
        else
            m_world->commands.exportConfiguration(cabinet, nullptr);
        QTEST(user.texts(), "told");
        QCOMPARE(files.title, readback ? QStringLiteral("Readback...") : QStringLiteral("Export..."));
        const QString call =
            readback ? QStringLiteral("readbackCabinetConfig") : QStringLiteral("exportCabinetConfig");
        QCOMPARE(m_world->host.answers().count(call), written.isEmpty() ? 0 : 1);
        if (!written.isEmpty())
            QVERIFY(m_world->host.answers().calls().last().contains(inFolder(written)) ||
                    m_world->host.answers().calls().filter(call).last().contains(inFolder(written)));
        if (readback) {
            QCOMPARE(files.filters, (QStringList{QStringLiteral("*.rcvbp"), QStringLiteral("*.rcvp")}));
            QVERIFY(QDateTime::fromString(files.proposal, QStringLiteral("yyyy-MM-dd-hh-mm-ss")).isValid());
        }
    }

    void aRefusedHighlightIsTold()
    {
        const QList<CabinetLayout::CabinetPort::Cabinet> one = {m_world->cabinet(0, 1).cabinet()};
        QVERIFY(m_world->commands.highlight(one, CabinetHighlight::FlashingBox, nullptr));
        m_world->host.answers().refused = {QStringLiteral("setCabinetHighlight")};
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        QVERIFY(!m_world->commands.highlight(one, CabinetHighlight::FlashingBox, nullptr));
        QVERIFY(!m_world->commands.highlight({}, CabinetHighlight::Off, nullptr)); // silently
        QCOMPARE(user.boxes().size(), 1);
        QCOMPARE(user.boxes().first().details, m_world->host.answers().error);
    }

private:
    std::unique_ptr<SCommandWorld> m_world;
};

ORVO_TEST_MAIN(QApplication, CEditorCommandsTest)
#include "tst_editor_commands.moc"
