// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LoadSum.h"
#include "layout/panels/ports/COverloadLine.h"
#include "layout/panels/ports/LoadText.h"
#include "platform/widgets/CFlowListView.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/panels/SListWorld.h"

#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QStackedLayout>
#include <QToolTip>

namespace {

using Port = CabinetLayout::CabinetPort;

bool hasPixelsOf(const QImage &image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

QString toolTipOf(QWidget &widget, const QPoint &place)
{
    QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
    return QToolTip::text();
}

} // namespace

class CPortListTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void withoutPortsItSaysSo()
    {
        SListWorld world;
        const auto *label = world.list.findChild<QStackedLayout *>()->currentWidget();
        QCOMPARE(qobject_cast<const QLabel *>(label)->text(), QStringLiteral("No output port is detected."));
        world.open(2);
        QVERIFY(label != world.list.findChild<QStackedLayout *>()->currentWidget());
    }

    void theColourOfALoadIsDecidedBeforeItsTextIsCut()
    {
        SListWorld world;
        world.open(1);
        const QVector<std::tuple<int, QString, QColor>> loads{
            {100, QStringLiteral("100%"), QColor(49, 194, 73)},
            {101, QStringLiteral("100%"), QColor(200, 53, 53)},
            {255, QStringLiteral("100%"), QColor(190, 163, 25)},
            {40, QStringLiteral("40%"), QColor(49, 194, 73)}};
        const auto *counts = world.list.findChild<QLabel *>(QStringLiteral("PortCounts"));
        QCOMPARE(counts->text(), QStringLiteral("0 in use, 0 redundancy"));
        for (const auto &[load, text, color] : loads) {
            Q_EMIT world.store.notifyProcessorPortPayloadChanged(0, load);
            QCOMPARE(world.port(0).face().loadText(), text);
            const QImage bar = world.port(0).grab(QRect(8, 30, 78, 5)).toImage();
            QVERIFY(hasPixelsOf(bar, color));
            QCOMPARE(bar.pixelColor(70, 2) == color, load >= 100); // its empty part
        }
        Q_EMIT world.store.notifyProcessorPortPayloadChanged(7, 1); // no such button
        QCOMPARE(counts->text(), QStringLiteral("1 in use, 0 redundancy"));
    }

    void tellsInToolTipsWhatIsBelowTheMouse()
    {
        SListWorld world;
        world.answers()->loads[1] = 130;
        world.answers()->details.bitsPerPixel = 24;
        world.open(2);
        world.list.show();
        const auto areaTip = [&](CPortPainter::EArea area) {
            return toolTipOf(world.port(1), CPortPainter::areaRect(area).center());
        };
        QCOMPARE(areaTip(CPortPainter::Fill), QStringLiteral("Cabinet fill"));
        QCOMPARE(areaTip(CPortPainter::Append), QStringLiteral("Append(Ctrl+T)"));
        QCOMPARE(areaTip(CPortPainter::Lock), QStringLiteral("Lock"));
        world.store.setPortLocked(1, true);
        QCOMPARE(areaTip(CPortPainter::Lock), QStringLiteral("Unlock"));
        const QString sum = toolTipOf(world.port(1), QPoint(60, 15));
        QVERIFY2(sum.startsWith(QStringLiteral("Port 2: 130%\n")) && sum.contains(QStringLiteral("24 bits")),
                 qPrintable(sum));
        QCOMPARE(toolTipOf(*world.list.findChild<COverloadLine *>(), QPoint(5, 5)),
                 QStringLiteral("1 output port is overloaded: 2\n") + sum);
        QVERIFY(
            LoadText::ofProcessor(world.store, 65)
                .startsWith(QStringLiteral("System load: 65%, the mean of 2 output ports\nPort 2: 130%\n")));
    }

    void looksAsItIsUsed()
    {
        SListWorld world;
        world.open(2);
        CPort &port = world.port(1);
        QImage picture(CPortPainter::Size, QImage::Format_RGB32);
        const auto frame = [&](bool checked, bool hovered, bool focused = false) {
            QPainter painter(&picture);
            CPortPainter::SState state;
            state.checked = checked;
            state.hovered = hovered;
            state.focused = focused;
            CPortPainter(painter).paint(port.face(), state, QRect(QPoint(), CPortPainter::Size));
            return picture.pixelColor(47, 0);
        };
        QCOMPARE(frame(false, false), QColor(31, 31, 36));
        QCOMPARE(frame(false, true), QColor(QColor(202, 202, 210).lighter(110).rgb()));
        QCOMPARE(frame(true, false), QColor(240, 240, 246));
        QCOMPARE(frame(true, true), QColor(QColor(240, 240, 246).lighter(110).rgb()));
        frame(false, false, true);
        QVERIFY(hasPixelsOf(picture, QColor(94, 160, 255)));
        Q_EMIT world.store.notifyProcessorPortColorChanged(1, QColor(1, 2, 3));
        QVERIFY(
            hasPixelsOf(port.grab(CPortPainter::areaRect(CPortPainter::Fill)).toImage(), QColor(1, 2, 3)));
    }

    void aRebuildKeepsButtonsScrollAndFocus()
    {
        SListWorld world;
        world.open(40);
        world.list.show();
        QVERIFY(QTest::qWaitForWindowActive(&world.list));
        auto *flow = world.list.findChild<CFlowListView *>();
        world.port(0).setFocus(Qt::TabFocusReason);
        for (const int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_End, Qt::Key_Left})
            QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
        QTRY_COMPARE(QApplication::focusWidget(), &world.port(38));
        world.list.setCurrentSelectPort({36, 38});
        QVERIFY(flow->verticalScrollBar()->value() > 0);
        const int scrolled = flow->verticalScrollBar()->value();
        world.open(40, 2);
        QCOMPARE(QApplication::focusWidget(), &world.port(38));
        QCOMPARE(flow->verticalScrollBar()->value(), scrolled);
        QVERIFY(world.port(36).isChecked() && world.port(38).isChecked() && !world.port(37).isChecked());
        const QRect lock = CPortPainter::areaRect(CPortPainter::Lock);
        QTest::mouseMove(&world.port(38), lock.center());
        QTRY_VERIFY(world.port(38).underMouse());
        const QImage hovered = world.port(38).grab(lock).toImage();
        world.open(39);
        QVERIFY(world.port(38).underMouse());
        QVERIFY(world.port(38).grab(lock).toImage() == hovered);
        world.list.setCurrentSelectPort({38});
        world.commands.whole = false;
        CSignalLog clicked(&world.list, &CPortList::notifyPortClicked);
        QTest::keyClick(&world.port(38), Qt::Key_Space);
        QCOMPARE(clicked[0], (QVariantList{38, true}));
        QCOMPARE(world.store.currentPort(), 38);
        world.open(3);
        QCOMPARE(world.list.button(38), nullptr);
        QVERIFY(world.list.button(2));
    }

    void buttonsFillTheRowsAndAreOneStopOfTheTabKey()
    {
        SListWorld world;
        world.list.resize(340, 180);
        world.open(7);
        world.list.show();
        const auto stops = [&world] {
            int count = 0;
            for (int i = 0; i < 7; ++i)
                count += world.port(i).focusPolicy() & Qt::TabFocus ? 1 : 0;
            return count;
        };
        for (const auto &[width, perRow] : {std::pair(340, 3), {396, 4}, {395, 3}, {900, 9}}) {
            world.list.resize(width, 600);
            for (int i = 0; i < 7; ++i) {
                const QPoint place = world.port(i).pos() - world.port(0).pos();
                QCOMPARE(place, QPoint(i % perRow * 98, i / perRow * 68));
            }
        }
        QCOMPARE(stops(), 1);
        world.port(4).setFocus(Qt::MouseFocusReason);
        QCOMPARE(stops(), 1);
        world.open(3); // the one with the stop is gone
        QVERIFY(world.port(0).focusPolicy() & Qt::TabFocus);
    }

    void aNoteFollowsAnEditOfThePrimaryOnce()
    {
        SListWorld world;
        const QUuid processor = world.open(2, 2);
        world.setRole(processor, 0, Port::Primary, 1);
        world.setRole(processor, 1, Port::Redundant, 0);
        {
            const CFakeAnswers answers = world.answers();
            QVector<Port> &ports = answers->layouts[processor].layout.ports;
            ports[1].mirrored = PortPairs::mirrorOf(ports[0]);
        }
        world.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, true});
        QTRY_COMPARE(world.port(1).face().note, QStringLiteral("Redundancy for output port1"));
        CSignalLog notes(&world.store, &CLayoutData::notifyProcessorPortNoteChanged);
        world.answers()->layouts[processor].layout.ports[0].groups[0].cabinets[0].rect.translate(5, 0);
        world.host.notify(LayoutNotification::LayoutReplaced, processor);
        QTRY_VERIFY(world.port(1).face().needsReset);
        QCOMPARE(world.port(1).face().note,
                 QStringLiteral("Redundancy for output port1, please reset the mapping."));
        world.host.notify(LayoutNotification::LayoutReplaced, processor);
        settle(world.host, world.store);
        QCOMPARE(notes.count(), 1);
        QVERIFY(world.port(1).accessibleName().contains(QStringLiteral("please reset")));
    }

    void overloadsAreNamedAndSelected()
    {
        SListWorld world;
        {
            const CFakeAnswers answers = world.answers();
            for (const int port : {0, 1, 2, 4})
                answers->loads[port] = 224;
            answers->loads[5] = 224; // the redundancy port of the first one
            answers->details.pixelLimit = 100;
            answers->details.totalPixels = 100;
        }
        const QUuid processor = world.open(6);
        world.setRole(processor, 0, Port::Primary, 5);
        world.setRole(processor, 5, Port::Redundant, 0);
        world.store.openProcessor(processor);
        world.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 5, true});
        auto *line = world.list.findChild<COverloadLine *>();
        QTRY_COMPARE(line->text(), QStringLiteral("5 output ports are overloaded: 1 to 3, 5, redundancy 6"));
        QCOMPARE(line->overload().shortText(), QStringLiteral("5 overloaded")); // as many buttons are red
        QCOMPARE(toolTipOf(*line, QPoint(5, 5)).count(QLatin1String(": 224%")), 5);
        CSignalLog sought(&world.list, &CPortList::notifyPortsSought);
        line->click();
        QCOMPARE(sought[0].first().value<QVector<int>>(), (QVector<int>{0, 1, 2, 4}));
        world.answers()->details.totalPixels = 101;
        line->refresh();
        QCOMPARE(line->text(), QStringLiteral("The processor is overloaded"));
        QCOMPARE(line->accessibleName(), QStringLiteral("The processor is overloaded (up to 224%)"));
        world.answers()->loads.clear();
        for (const int port : {0, 1, 2, 4})
            world.store.updatePortLoad(port, false);
        QTRY_VERIFY(line->isHidden());
    }

    void theSumBehindALoadNamesTheLimit()
    {
        SPortLoad load;
        load.pixels = 655360;
        load.frameRate = 60;
        load.bitsPerPixel = 24;
        load.bitsPerSecond = 950000000;
        load.capacity = 659722;
        load.totalPixels = 9000001;
        load.pixelLimit = 9000000;
        QCOMPARE(
            LoadSum::sentences(load),
            (QStringList{QStringLiteral("655,360 pixels × 60 Hz × 24 bits ÷ 950,000,000 bits a second"),
                         QStringLiteral("The port's rate determines the load: it carries 659,722 pixels")}));
        load.limit = SPortLoad::ProcessorPixels;
        QVERIFY(LoadSum::sentences(load).last().endsWith(
            QStringLiteral("all ports have 9,000,001 of 9,000,000 pixels")));
    }
};

ORVO_TEST_MAIN(QApplication, CPortListTest)
#include "tst_port_list.moc"
