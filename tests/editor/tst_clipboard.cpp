// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LayoutLimits.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CMouseTester.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QClipboard>
#include <QComboBox>
#include <QMimeData>
#include <QSignalSpy>

namespace {

/// Port 0 nested groups, 1 partly wired, 2 empty, 3 with @p full cabinets.
struct SCopyWorld
{
    explicit SCopyWorld(int full = 0)
        : data(SmallWorlds::data({SmallWorlds::nestedPort(0), SmallWorlds::partlyWiredPort(1),
                                  SmallWorlds::port(2, {}),
                                  SmallWorlds::port(3, {SmallWorlds::loose(3, full)})}))
    {
        scene.setLayoutData(SmallWorlds::node(data), data);
    }

    void copyPort(int index)
    {
        scene.clearSelection();
        scene.backend().picks().port(index, true);
        scene.backend().placing().copy();
    }
    void pasteInto(int index, const QPointF &place)
    {
        states.current = index;
        scene.pasteItems(place, nullptr);
    }

    CFixedPortStates states;
    LayoutData data;
    CCabinetGraphicsScene scene{states};
};

} // namespace

class CClipboardTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }
    void countsBeforeItPastes()
    {
        SCopyWorld world(1000);
        const auto copyFirst = [&world](int count) {
            world.scene.clearSelection();
            for (int i = 0; i < count; ++i)
                world.scene.portItem(3)->topItems().at(i)->setSelected(true);
            world.scene.backend().placing().copy();
        };
        copyFirst(25);
        const QSet<CGraphicsItemBase *> selected = world.scene.selection().items();
        {
            CMessageBoxAnswerer user({QStringLiteral("OK")});
            world.pasteInto(3, QPointF(10, 10));
            QCOMPARE(user.texts(),
                     QStringList{QStringLiteral(
                         "The number of receivers in a single output port can not be over 1024.")});
            QCOMPARE(user.boxes().first().title, QStringLiteral("Orvo"));
        }
        QCOMPARE(world.scene.portItem(3)->cabinets(nullptr).size(), 1000);
        QCOMPARE(world.scene.selection().items(), selected);
        QCOMPARE(world.scene.undoStack()->count(), 0);
        copyFirst(24);
        world.pasteInto(3, QPointF(10, 10));
        QCOMPARE(world.scene.portItem(3)->cabinets(nullptr).size(), 1024);
    }

    void otherProgramsGetPictureAndTable()
    {
        SCopyWorld world;
        world.copyPort(1);
        const QMimeData *copied = QApplication::clipboard()->mimeData();
        const QStringList lines = copied->text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 7);
        QCOMPARE(lines.at(1), QStringLiteral("2\t3\t0\t4096\t128\t128"));
        QVERIFY(copied->hasImage());
        const QImage picture = qvariant_cast<QImage>(copied->imageData());
        QCOMPARE(picture.size(), QSize(6 * 128, 128));
        QCOMPARE(picture.pixelColor(200, 100), QColor(Qt::darkCyan)); // the second cabinet is not wired
    }

    void appendsUnderTheCursor()
    {
        CMouseTester mouse;
        mouse.showAtActualSize();
        CScenePlacing::TypeInfo type;
        type.key = SMD5::ofContent("type");
        type.width = 64;
        type.height = 32;
        type.receivers = {QRect(0, 0, 32, 32), QRect(32, 0, 32, 32)};
        mouse.view().onNotifyAppendCabinet(type, 2, QSize(64, 32));
        QVERIFY(mouse.scene().backend().placing().isAppending());
        QCOMPARE(mouse.scene().property("pendingAppendCabinetSize").toSize(), QSize(64, 32));
        QCOMPARE(mouse.scene().property("pendingAppendCabinetPort").toInt(), 2);
        const QVariantMap pending = mouse.scene().property("pendingAppendCabinet").toMap();
        QCOMPARE(pending.value(QStringLiteral("rcvTypeInfo")).value<CScenePlacing::TypeInfo>(), type);
        for (const int port : {0, 2}) { // chosen meanwhile
            auto *ports = mouse.view().toolBar().findChild<QComboBox *>();
            ports->setCurrentIndex(port);
            Q_EMIT ports->activated(port);
            QCOMPARE(mouse.scene().property("pendingAppendCabinetPort").toInt(), port);
        }
        mouse.hover({700, 300});
        mouse.press({332, 316});
        QEvent lost(QEvent::WindowDeactivate); // another window gets the release, or none
        QApplication::sendEvent(mouse.view().viewport(), &lost);
        mouse.release({332, 316});
        QVERIFY(mouse.scene().backend().placing().isAppending());
        mouse.drag({332, 316}, {64, 32}); // two columns, two rows
        QVERIFY(!mouse.scene().backend().placing().isAppending());
        for (const char *property :
             {"pendingAppendCabinet", "pendingAppendCabinetPort", "pendingAppendCabinetSize"})
            QVERIFY2(!mouse.scene().property(property).isValid(), property);
        QCOMPARE(mouse.scene().selection().extent(), QRect(300, 300, 128, 64));
        QCOMPARE(mouse.stack().undoText(), QStringLiteral("Append"));
        mouse.scene().undo(nullptr);
        QCOMPARE(mouse.layout(), mouse.original());
    }

    void pastesUnderTheCursorByKey()
    {
        CMouseTester mouse;
        mouse.showAtActualSize();
        mouse.states().current = 2;
        mouse.scene().backend().picks().port(0, true);
        mouse.scene().backend().placing().copy();
        const QPoint place(700, 300);
        QCursor::setPos(mouse.view().viewport()->mapToGlobal(mouse.view().mapFromScene(place)));
        QTest::keyClick(&mouse.view(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(mouse.scene().selection().extent().topLeft(), place);
        QCOMPARE(mouse.scene().selection().ports(), QList<int>{2});
    }

    void aPortThatIsFullByNowTakesNoMore()
    {
        const LayoutData wall = SmallWorlds::data(
            {SmallWorlds::wiredPort(0, LayoutLimits::CabinetsPerPort - 1), SmallWorlds::wiredPort(1, 1)});
        CMouseTester mouse;
        mouse.view().showLayout(SmallWorlds::node(wall), wall);
        mouse.showAtActualSize();
        mouse.states().current = 0;
        mouse.scene().backend().picks().port(1, true);
        mouse.scene().backend().placing().copy();
        mouse.view().onNotifyAppendCabinet({}, 0, QSize(64, 64));
        mouse.scene().pasteItems({5000, 5000}, nullptr);
        QVERIFY(mouse.scene().backend().placing().isAppending());
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        mouse.click({300, 300});
        QCOMPARE(user.texts(), QStringList{QStringLiteral(
                                   "The number of cabinet in a single output port can not be over 1024.")});
        QVERIFY(!mouse.scene().backend().placing().isAppending());
        QCOMPARE(mouse.scene().portItem(0)->cabinets(nullptr).size(), LayoutLimits::CabinetsPerPort);
        QCOMPARE(mouse.stack().undoText(), QStringLiteral("Paste"));
    }

    void anAppendCanBeLeft_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("Escape") << 0;
        QTest::newRow("right button") << 1;
        QTest::newRow("another tool") << 2;
        QTest::newRow("locked meanwhile") << 3;
        QTest::newRow("another processor") << 4;
    }
    void anAppendCanBeLeft()
    {
        QFETCH(int, way);
        CMouseTester mouse;
        mouse.showAtActualSize();
        mouse.view().onNotifyAppendCabinet({}, 2, QSize(64, 64));
        const LayoutData other = SmallWorlds::data({SmallWorlds::port(0, {})});
        switch (way) {
        case 0:
            QTest::keyClick(&mouse.view(), Qt::Key_Escape);
            break;
        case 1:
            mouse.pressRight({300, 300});
            mouse.contextMenu({300, 300}); // no menu opens, or the test would wait for it
            break;
        case 2:
            mouse.view().toolBar().chooseMode(CEditorToolBar::Pen);
            break;
        case 3:
            mouse.states().locked[2] = true;
            mouse.click({300, 300});
            break;
        default:
            mouse.view().showLayout(SmallWorlds::node(other), other);
        }
        QVERIFY(!mouse.scene().backend().placing().isAppending());
        QCOMPARE(mouse.stack().count(), 0);
        if (way < 4)
            QCOMPARE(mouse.layout(), mouse.original());
    }
};

ORVO_TEST_MAIN(QApplication, CClipboardTest)
#include "tst_clipboard.moc"
