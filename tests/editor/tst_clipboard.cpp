// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LayoutLimits.h"
#include "layout/drawing/CPortColors.h"
#include "tests/editor/CMouseTest.h"
#include "tests/harness/CMessageBoxAnswerer.h"

#include <QClipboard>
#include <QMimeData>

#include <functional>

class CClipboardTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void countsBeforeItPastes()
    {
        constexpr int Most = LayoutLimits::CabinetsPerPort;
        show({SmallWorlds::port(0, {SmallWorlds::loose(0, Most - 24)})});
        m_mouse->states().current = 0;
        const auto pasteFirst = [this](int count) {
            m_mouse->scene().clearSelection();
            for (int i = 0; i < count; ++i)
                m_mouse->scene().backend().content().portItem(0)->topItems().at(i)->setSelected(true);
            placing().copy();
            const Items selected = m_mouse->selected();
            m_mouse->scene().pasteItems(QPointF(10, 10), nullptr);
            return m_mouse->selected() != selected;
        };
        {
            const CMessageBoxAnswerer user({QStringLiteral("OK")});
            QVERIFY(!pasteFirst(25));
            QCOMPARE(user.texts(),
                     QStringList{QStringLiteral(
                         "The number of receivers in a single output port can not be over 1024.")});
        }
        QCOMPARE(m_mouse->stack().count(), 0);
        QVERIFY(pasteFirst(24));
        QCOMPARE(m_mouse->scene().backend().content().portItem(0)->cabinets(nullptr).size(), Most);
    }

    void otherProgramsGetPictureAndTable()
    {
        show({SmallWorlds::nestedPort(0), SmallWorlds::partlyWiredPort(1)});
        m_mouse->scene().backend().picks().port(1, true);
        placing().copy();
        const QMimeData *copied = QApplication::clipboard()->mimeData();
        const QStringList lines = copied->text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 7);
        QCOMPARE(lines.at(1), QStringLiteral("2\t3\t0\t4096\t128\t128"));
        const QImage picture = qvariant_cast<QImage>(copied->imageData());
        QCOMPARE(picture.size(), QSize(6 * 128, 128));
        QCOMPARE(picture.pixel(200, 100), CPortColors::faded(Qt::darkCyan).rgb()); // not wired
    }

    void appendsUnderTheCursor()
    {
        CScenePlacing::TypeInfo type;
        type.key = SMD5::ofContent("type");
        type.width = 64;
        type.height = 32;
        type.receivers = {QRect(0, 0, 32, 32), QRect(32, 0, 32, 32)};
        m_mouse->view().onNotifyAppendCabinet(type, 2, QSize(64, 32));
        const QVariantMap pending = m_mouse->scene().property("pendingAppendCabinet").toMap();
        QCOMPARE(pending.value(QStringLiteral("rcvTypeInfo")).value<CScenePlacing::TypeInfo>(), type);
        QCOMPARE(m_mouse->scene().property("pendingAppendCabinetSize").toSize(), QSize(64, 32));
        for (const int port : {0, 2}) { // chosen meanwhile
            m_mouse->view().onPortToggled(port, true);
            QCOMPARE(m_mouse->scene().property("pendingAppendCabinetPort").toInt(), port);
        }
        m_mouse->hover({700, 300});
        m_mouse->press({332, 316});
        QEvent lost(QEvent::WindowDeactivate); // another window gets the release, or none
        QApplication::sendEvent(m_mouse->view().viewport(), &lost);
        m_mouse->release({332, 316});
        QVERIFY(placing().isAppending());
        m_mouse->drag({332, 316}, {64, 32}); // two columns, two rows
        QVERIFY(!placing().isAppending());
        for (const char *property :
             {"pendingAppendCabinet", "pendingAppendCabinetPort", "pendingAppendCabinetSize"})
            QVERIFY2(!m_mouse->scene().property(property).isValid(), property);
        QCOMPARE(m_mouse->scene().selection().extent(), QRect(300, 300, 128, 64));
        m_mouse->scene().undo(nullptr);
        QCOMPARE(m_mouse->layout(), m_mouse->original());
    }

    void appendsByKeysInTheGridOfTheLastCabinet()
    {
        const QRect last = m_mouse->cabinet(0, 2).cabinet().rect;
        const auto press = [this](std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers with = {}) {
            for (const Qt::Key key : keys)
                QTest::keyClick(&m_mouse->view(), key, with);
            return placing().block();
        };
        QCursor::setPos(m_mouse->view().mapToGlobal({-50, -50})); // the mouse is elsewhere
        m_mouse->view().onNotifyAppendCabinet({}, 0, last.size());
        QCOMPARE(placing().block(), last.translated(0, 128)); // there is no room to the right
        QCOMPARE(press({Qt::Key_Right, Qt::Key_Up}), last.translated(128, 0));
        QCOMPARE(press({Qt::Key_Left, Qt::Key_Left}), last.translated(-128, 0));
        QCOMPARE(press({Qt::Key_Up, Qt::Key_Up}), last.translated(-128, 0)); // never off the canvas
        m_mouse->hover({700, 300});
        QCOMPARE(press({Qt::Key_Left}).topLeft(), QPoint(512, 256)); // back in the grid
        const QRect block =
            press({Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right}, Qt::ShiftModifier);
        QCOMPARE(block, QRect(512, 256, 384, 384));
        QCOMPARE(press({Qt::Key_Left}, Qt::ShiftModifier).size(), QSize(256, 384));
        QCOMPARE(press({Qt::Key_Down}).topLeft(), QPoint(512, 384));
        press({Qt::Key_Return});
        QVERIFY(!placing().isAppending());
        QCOMPARE(m_mouse->scene().selection().extent(), QRect(512, 384, 256, 384));
        QCOMPARE(m_mouse->stack().count(), 1);
        QCOMPARE(press({Qt::Key_Right}), QRect());
        QCOMPARE(m_mouse->scene().selection().extent().left(), 513); // moves what was placed
    }

    void pastesUnderTheCursorByKey()
    {
        m_mouse->states().current = 2;
        m_mouse->scene().backend().picks().port(0, true);
        placing().copy();
        const QPoint place(700, 300);
        QCursor::setPos(m_mouse->view().viewport()->mapToGlobal(m_mouse->view().mapFromScene(place)));
        QTest::keyClick(&m_mouse->view(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(m_mouse->scene().selection().extent().topLeft(), place);
        QCOMPARE(m_mouse->scene().selection().ports(), QList<int>{2});
        QCursor::setPos(m_mouse->view().mapToGlobal({-50, -50})); // the mouse is elsewhere
        m_mouse->view().centerOn(5000, 5000);
        QTest::keyClick(&m_mouse->view(), Qt::Key_V, Qt::ControlModifier);
        const QRect pasted = m_mouse->scene().selection().extent();
        QCOMPARE(pasted.topLeft(), place + QPoint(384, 0)); // to the right of the port's last cabinet
        QVERIFY(
            m_mouse->view().mapToScene(m_mouse->view().viewport()->rect()).boundingRect().contains(pasted));
    }

    void aPortThatIsFullByNowTakesNoMore()
    {
        show({SmallWorlds::wiredPort(0, LayoutLimits::CabinetsPerPort - 1), SmallWorlds::wiredPort(1, 1)});
        m_mouse->states().current = 0;
        m_mouse->scene().backend().picks().port(1, true);
        placing().copy();
        m_mouse->view().onNotifyAppendCabinet({}, 0, QSize(64, 64));
        m_mouse->scene().pasteItems({5000, 5000}, nullptr);
        QVERIFY(placing().isAppending());
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        m_mouse->click({300, 300});
        QCOMPARE(user.texts(), QStringList{QStringLiteral(
                                   "The number of cabinet in a single output port can not be over 1024.")});
        QVERIFY(!placing().isAppending());
        QCOMPARE(m_mouse->stack().undoText(), QStringLiteral("Paste"));
    }

    void anAppendCanBeLeft()
    {
        const QPoint place(300, 300);
        const std::function<void()> ways[] = {
            [&] { QTest::keyClick(&m_mouse->view(), Qt::Key_Escape); },
            [&] {
                m_mouse->pressRight(place);
                m_mouse->contextMenu(place); // no menu opens, or the test would wait for it
            },
            [&] { m_mouse->view().toolBar().chooseMode(CEditorToolBar::Pen); },
            [&] {
                m_mouse->states().locked[2] = true;
                m_mouse->click(place);
                m_mouse->states().locked.clear();
            },
            [&] { show({SmallWorlds::port(0, {})}); }};
        for (const auto &leave : ways) {
            m_mouse->view().onNotifyAppendCabinet({}, 2, QSize(64, 64));
            QVERIFY(placing().isAppending());
            leave();
            QVERIFY(!placing().isAppending());
            QCOMPARE(m_mouse->stack().count(), 0);
        }
    }

private:
    CScenePlacing &placing() { return m_mouse->scene().backend().placing(); }
    void show(const QVector<SmallWorlds::Port> &ports)
    {
        const LayoutData data = SmallWorlds::data(ports);
        m_mouse->view().showLayout(SmallWorlds::node(data), data);
        m_mouse->showAtActualSize();
    }
};

ORVO_TEST_MAIN(QApplication, CClipboardTest)
#include "tst_clipboard.moc"
