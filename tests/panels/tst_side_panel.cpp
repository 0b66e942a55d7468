// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LayoutLimits.h"
#include "layout/geometry/SSelectionFigures.h"
#include "layout/panels/CBackupLabel.h"
#include "layout/panels/CLayoutSidePanel.h"
#include "platform/widgets/input/CRecoveryFocusSpinBox.h"
#include "platform/widgets/input/SumExpression.h"
#include "tests/harness/CNotedWords.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/harness/SStoreWorld.h"
#include "tests/panels/SUnitWorld.h"

#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>
#include <QUndoStack>

#include <algorithm>

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;

QList<Cabinet> cabinetsAt(const QList<QPoint> &corners)
{
    QList<Cabinet> cabinets;
    for (const QPoint &corner : corners) {
        Cabinet cabinet;
        cabinet.uuid = QUuid::createUuid();
        cabinet.rect = QRect(corner, QSize(100, 50));
        cabinets << cabinet;
    }
    return cabinets;
}

/// The side panel of a processor with two ports, shown; three cabinets of the first are selected, in two
/// rows.
struct SPanelWorld final : SStoreWorld
{
    QUuid processor = host.addProcessor(QStringLiteral("A"), 2, 2);
    CNotedMappingCommands mapping;
    CLayoutSidePanel panel{SUnitServices{store, mapping}};

    SPanelWorld()
    {
        show(processor);
        store.openProcessor(processor);
        panel.onCurrentProcessorChanged(host.answers()->nodes.first());
        select();
        panel.show();
    }
    void select()
    {
        panel.onNotifySelectedPort({0});
        panel.onNotifySelectedCabinetInfos(cabinetsAt({{0, 0}, {100, 0}, {0, 50}}));
        panel.onNotifySelectedCabinetGeometryChanged(QRect(0, 0, 200, 100));
    }
    CRecoveryFocusSpinBox &field(const char *name) const
    {
        return *named<CRecoveryFocusSpinBox>(panel, name);
    }
    void type(const char *name, const char *text) const
    {
        CRecoveryFocusSpinBox &edited = field(name);
        edited.setFocus();
        edited.selectAll();
        QTest::keyClicks(&edited, QString::fromLatin1(text));
        QTest::keyClick(&edited, Qt::Key_Return);
    }
    QCheckBox &lock() const { return *buttonWithText(panel); }
    static QCheckBox *buttonWithText(const QWidget &panel)
    {
        for (QCheckBox *box : panel.findChildren<QCheckBox *>()) {
            if (box->text() == QLatin1String("Lock to prevent edits"))
                return box;
        }
        return nullptr;
    }
};

QPushButton *saveButton(const QWidget &panel, const char *text)
{
    for (QPushButton *button : panel.findChildren<QPushButton *>()) {
        if (button->text() == QLatin1String(text))
            return button;
    }
    return nullptr;
}

} // namespace

class CSidePanelTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void evaluatesSums_data()
    {
        QTest::addColumn<double>("value"); // -1: no sum
        const QVector<QPair<const char *, double>> sums{
            {"1920/2", 960},   {"3*192", 576}, {"2+3*4", 14}, {"(2+3)*4", 20}, {"10-2-3", 5},
            {"100/8/2", 6.25}, {"-(3)+ 5", 2}, {"1/0", -1},   {"3*", -1},      {"", -1},
            {"(1", -1},        {"1)", -1},     {"1 2", 12},   {"1e5", -1},     {"..", -1}};
        for (const auto &[text, value] : sums)
            QTest::newRow(text) << value;
    }
    void evaluatesSums()
    {
        QFETCH(double, value);
        QCOMPARE(SumExpression::evaluate(QString::fromLatin1(QTest::currentDataTag())).value_or(-1), value);
    }

    void figuresOfTheSelectionAreEdited()
    {
        const SPanelWorld world;
        QCOMPARE(world.field("Columns").value(), 2);
        QCOMPARE(world.field("Rows").value(), 2);
        const QSignalSpy places(&world.panel, &CLayoutSidePanel::notifySelectedCabinetPositionChanged);
        const QSignalSpy sizes(&world.panel, &CLayoutSidePanel::notifySelectedCabinetSizeChanged);
        const QSignalSpy ranks(&world.panel, &CLayoutSidePanel::notifySelectedCabinetRankChanged);
        world.type("X", "1920/2");
        QCOMPARE(places.last().first().toPoint(), QPoint(960, 0));
        QCOMPARE(world.field("X").value(), 0); // as nothing was moved
        world.type("Y", "0");
        QCOMPARE(places.count(), 1);    // is there already
        world.type("Y", "99999999999"); // the editor says what is too far
        QVERIFY(places.last().first().toPoint().y() > LayoutLimits::LargestOffset);
        world.type("Height", "3*192");
        QCOMPARE(sizes.last().first().toSize(), QSize(200, 576));
        world.type("Rows", "3");
        QCOMPARE(ranks.last().first().toSize(), QSize(1, 3));
        world.type("Columns", "99");
        QCOMPARE(ranks.last().first().toSize(), QSize(3, 1));
        world.type("Width", "3*");
        QCOMPARE(sizes.count(), 1);
        QCOMPARE(world.field("Width").text(), QStringLiteral("200"));
    }

    void typedFiguresWaitForTheirEnd()
    {
        SPanelWorld world;
        QVERIFY(QTest::qWaitForWindowActive(&world.panel));
        const QSignalSpy places(&world.panel, &CLayoutSidePanel::notifySelectedCabinetPositionChanged);
        CRecoveryFocusSpinBox &x = world.field("X");
        x.setFocus();
        x.selectAll();
        QTest::keyClicks(&x, QStringLiteral("30"));
        world.select(); // the same again
        QCOMPARE(x.text(), QStringLiteral("30"));
        QTest::keyClick(&x, Qt::Key_Escape);
        QCOMPARE(x.text(), QStringLiteral("0"));
        QCOMPARE(places.count(), 0);
        QTest::keyClick(&x, Qt::Key_Up);
        QTest::keyClick(&x, Qt::Key_Escape);
        QCOMPARE(x.text(), QStringLiteral("0"));
        QTest::mouseClick(&x, Qt::LeftButton, {}, QPoint(x.width() - 6, 6)); // the upper arrow
        QTest::keyClick(&x, Qt::Key_Up);
        QCOMPARE(x.text(), QStringLiteral("2"));
        QCOMPARE(places.count(), 0);
        world.field("Y").setFocus();
        QCOMPARE(places.count(), 1);
        QCOMPARE(places.last().first().toPoint(), QPoint(2, 0));
        x.setFocus();
        world.panel.onNotifySelectedCabinetGeometryChanged({}); // nothing is selected
        QVERIFY(x.isMixed() && x.text().isEmpty());
        QTest::keyClick(&x, Qt::Key_Up); // from where?
        QVERIFY(x.text().isEmpty());
        QTest::keyClick(&x, Qt::Key_Return);
        QCOMPARE(places.count(), 1);
        QTest::keyClicks(&x, QStringLiteral("7"));
        QTest::keyClick(&x, Qt::Key_Up);
        QCOMPARE(x.text(), QStringLiteral("8"));
        QTest::keyClick(&x, Qt::Key_Escape);
        QVERIFY(x.text().isEmpty());
        world.panel.onNotifySelectedCabinetInfos(cabinetsAt({{0, 0}, {100, 10}}));
        QVERIFY(world.field("Columns").isMixed());
        world.panel.onNotifySelectedCabinetInfos(cabinetsAt({{0, 0}, {100, 50}, {0, 50}}));
        QVERIFY(world.field("Rows").isMixed()); // the first row is not full
        world.panel.onNotifySelectedCabinetInfos(cabinetsAt({{0, 0}, {1 << 20, 0}, {0, 50}})); // far apart
        QCOMPARE(QSize(world.field("Columns").value(), world.field("Rows").value()), QSize(2, 2));
        world.panel.onNotifySelectedCabinetInfos(cabinetsAt({{0, 0}, {100, 0}, {0, 0}})); // one on another
        QVERIFY(world.field("Columns").isMixed());
        SSelectionFigures groups = SSelectionFigures::of(cabinetsAt({{0, 0}, {100, 0}, {0, 50}, {100, 50}}));
        groups.arranged = {QRect(0, 0, 200, 50), QRect(0, 50, 200, 50)};
        world.panel.onSelectionFigures(groups);
        QCOMPARE(QSize(world.field("Columns").value(), world.field("Rows").value()), QSize(1, 2));
        const QSignalSpy ranks(&world.panel, &CLayoutSidePanel::notifySelectedCabinetRankChanged);
        world.type("Columns", "4");
        QCOMPARE(ranks.last().first().toSize(), QSize(2, 1)); // a group is moved as one
        world.panel.onNotifySelectedCabinetInfos(cabinetsAt({{0, 0}, {0, 50}, {100, 0}, {0, 100}}));
        QCOMPARE(QSize(world.field("Columns").value(), world.field("Rows").value()), QSize(2, 3));
    }

    void pairsAreSavedWhereAProcessorAnswers()
    {
        SPanelWorld world;
        auto *current = saveButton(world.panel, "Save current processor");
        auto *all = saveButton(world.panel, "Save all processors");
        current->setFocus();
        current->click();
        QCOMPARE(world.mapping.saves, QVector<ReadSaveMappingRole>{ReadSaveMappingRole::Current});
        QVERIFY(!current->isEnabled() && !all->isEnabled()); // one at a time
        world.mapping.end(true);
        QVERIFY(current->isEnabled() && all->isEnabled());
        QCOMPARE(world.panel.focusWidget(), current);
        current->click();
        world.field("X").setFocus(); // the user goes on
        world.mapping.end(false);
        QCOMPARE(world.panel.focusWidget(), &world.field("X"));

        ProcessorTree::ProcessorNode node = world.host.answers()->nodes.first();
        node.online = false;
        world.panel.onCurrentProcessorStateChanged(node);
        QVERIFY(!current->isEnabled());
        QCOMPARE(current->toolTip(), QStringLiteral("The processor is offline."));
        world.mapping.refusal = QStringLiteral("No processor is online.");
        world.panel.onCurrentProcessorStateChanged(node);
        QCOMPARE(all->toolTip(), world.mapping.refusal);
    }

    void theHistoryIsFoldedAtFirstAndRemembered()
    {
        for (const bool shown : {false, true, false}) {
            SPanelWorld world;
            QCOMPARE(world.panel.isHistoryShown(), shown);
            world.panel.setHistoryShown(!shown);
        }
    }

    void theCurrentStepStaysInView()
    {
        SPanelWorld world;
        QUndoStack stack;
        world.panel.onHistoryChanged(&stack, QStringLiteral("Beginning"), {});
        world.panel.setHistoryShown(true);
        auto &list = *world.panel.findChild<QListView *>();
        const auto isSeen = [&list] {
            return list.viewport()->visibleRegion().contains(list.visualRect(list.currentIndex()).center());
        };
        const int above = list.mapTo(world.panel.widget(), QPoint()).y();
        world.panel.resize(world.panel.width(), above + list.height() / 2); // the list ends below the panel
        world.panel.verticalScrollBar()->setValue(0);
        for (int i = 0; i < 20; ++i) {
            stack.push(new QUndoCommand(QStringLiteral("Move")));
            QVERIFY2(isSeen(), qPrintable(QString::number(i)));
        }
        world.panel.verticalScrollBar()->setValue(0);
        world.field("X").setFocus(); // and is being worked with
        stack.undo();
        QCOMPARE(world.panel.verticalScrollBar()->value(), 0);
    }

    void saysWhatIsNotTakenAsItWasTyped()
    {
        SPanelWorld world;
        const CNotedWords told(world.panel);
        world.type("X", "f");
        QVERIFY(
            told.words.contains(QStringLiteral("Only numbers and sums such as 1920/2 can be typed here.")));
        world.type("Width", "1/0");
        QVERIFY(told.words.contains(QStringLiteral("\"1/0\" gives no figure, so the one before stays.")));
        world.type("Width", "99999999");
        QVERIFY(told.words.contains(QStringLiteral("The largest figure here is 1,048,576.")));
        world.type("Columns", "9");
        QVERIFY(told.words.contains(QStringLiteral("There are 3 cabinets and groups to arrange.")));
        world.panel.onNotifySelectedCabinetInfos(cabinetsAt({{0, 0}}));
        QVERIFY(!world.field("Columns").isEnabled() && !world.field("Columns").toolTip().isEmpty());
    }

    void namesTheProcessorThatThisOneStandsInFor()
    {
        SPanelWorld world;
        const auto hasLabel = [&world](const QString &wanted) {
            const auto labels = world.panel.findChild<CBackupLabel *>()->findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(), [&wanted](const QLabel *label) {
                return label->text() == wanted || label->toolTip() == wanted;
            });
        };
        QVERIFY(hasLabel(QStringLiteral("Primary processor")));
        const QUuid primary = world.host.addProcessor(QStringLiteral("B"), 2);
        const QString name = world.host.answers()->nodes.last().displayText();
        world.store.setProcessorRedundancies({{primary, world.processor}});
        QVERIFY(hasLabel(name));
    }

    void eachRedundancyPortHasARowThatEndsItsPair()
    {
        SPanelWorld world;
        const auto labels = [&world] {
            QStringList shown;
            for (const QLabel *label : world.panel.findChild<CBackupLabel *>()->findChildren<QLabel *>())
                shown << (!label->isVisible()          ? QString()
                          : label->toolTip().isEmpty() ? label->text()
                                                       : label->toolTip());
            return shown;
        };
        QVERIFY(labels().contains(QStringLiteral("None")) && !labels().contains(QStringLiteral("Port 2")));
        {
            const CFakeAnswers answers = world.host.answers();
            auto &ports = answers->layouts[world.processor].layout.ports;
            ports[0].redundancy = CabinetLayout::CabinetPort::Primary;
            ports[1].redundancy = CabinetLayout::CabinetPort::Redundant;
            ports[0].redundancyPort = 1;
            ports[1].redundancyPort = 0;
        }
        world.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, true});
        QTRY_VERIFY(labels().contains(QStringLiteral("Port 2")));
        QTRY_VERIFY(labels().join(QLatin1Char('|')).contains(QStringLiteral("Port 1"))); // its primary
        QSignalSpy ended(&world.panel, &CLayoutSidePanel::notifyCancelPortRedundancy);
        named<QPushButton>(world.panel, "Cancel redundancy, Port 2")->click();
        QTRY_COMPARE(ended.count(), 1);
        QCOMPARE(ended.first().first().toInt(), 1);
    }

    void arrowKeysGoFromPatternToPattern()
    {
        SPanelWorld world;
        world.panel.show();
        QVERIFY(QTest::qWaitForWindowActive(&world.panel));
        const QSignalSpy patterns(&world.panel, &CLayoutSidePanel::notifyTopologybuttonClicked);
        auto &first = *named<QToolButton>(world.panel, "LTR TTB snake");
        auto &second = *named<QToolButton>(world.panel, "TTB RTL snake"); // below and to the right
        first.click();
        first.setFocus();
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Down})
            QTest::keyClick(QApplication::focusWidget(), key);
        QVERIFY(second.hasFocus() && first.isChecked());
        QCOMPARE(patterns.count(), 1);
        QTest::keyClick(&second, Qt::Key_Space);
        QVERIFY(second.isChecked() && !first.isChecked());
        QCOMPARE(patterns.count(), 2);
        world.panel.onCurrentProcessorChanged({}); // for which no pattern was used
        QVERIFY(!second.isChecked());
    }

    void refusedEditsCannotBeAskedFor()
    {
        SPanelWorld world;
        const auto editable = [&world] {
            const QToolButton &pattern = *named<QToolButton>(world.panel, "BTT LTR snake");
            const bool field = world.field("X").isEnabled();
            return field == pattern.isEnabled() ? QVariant(field) : QVariant();
        };
        const QSignalSpy patterns(&world.panel, &CLayoutSidePanel::notifyTopologybuttonClicked);
        named<QToolButton>(world.panel, "BTT LTR snake")->click();
        QCOMPARE(patterns.last().first().toInt(), 7);
        QCOMPARE(editable(), QVariant(true));
        world.lock().click();
        QVERIFY(world.store.isPortLocked(0) && !world.store.isPortLocked(1));
        QCOMPARE(editable(), QVariant(false));
        world.panel.onNotifySelectedPort({0, 1});
        QCOMPARE(world.lock().checkState(), Qt::PartiallyChecked);
        world.lock().click();
        QVERIFY(world.store.isPortLocked(0) && world.store.isPortLocked(1));
        world.lock().click();
        QVERIFY(!world.store.isPortLocked(0) && !world.store.isPortLocked(1));
        QCOMPARE(editable(), QVariant(true));
        const auto tips = [&world] {
            return QStringList{named<QSpinBox>(world.panel, "X")->toolTip(),
                               named<QToolButton>(world.panel, "BTT LTR snake")->toolTip()};
        };
        const auto bothSay = [](const char *reason) {
            const QString text = QString::fromLatin1(reason);
            return QStringList{text, QStringLiteral("BTT LTR snake\n") + text};
        };
        QCOMPARE(tips(), (QStringList{QString(), QStringLiteral("BTT LTR snake")}));
        world.panel.setEditingBlocked(true, false);
        QCOMPARE(editable(), QVariant(false));
        QCOMPARE(tips(), bothSay("Editing is locked."));
        QVERIFY(!world.lock().isEnabled());
        world.panel.setEditingBlocked(false, false);
        world.panel.onNotifySelectedPort({});
        QCOMPARE(editable(), QVariant(false));
        QCOMPARE(tips(), bothSay("Nothing is selected."));
        world.lock().click(); // the whole processor
        QVERIFY(world.store.isPortLocked(0) && world.store.isPortLocked(1));
    }
};

ORVO_TEST_MAIN(QApplication, CSidePanelTest)
#include "tst_side_panel.moc"
