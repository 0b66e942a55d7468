// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/LayoutNotification.h"
#include "layout/data/CLayoutData.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/plugin/CLayout.h"
#include "layout/plugin/CWholeModuleWarningWidget.h"
#include "layout/plugin/SelectionRules.h"
#include "layout/summary/CSummaryGraphicsView.h"
#include "tests/editor/SceneParts.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CNotedWords.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/harness/StoreBarrier.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedLayout>
#include <QToolButton>
#include <QUndoStack>

namespace {

/// The whole module and its host, which attaches the store itself.
struct SModuleScene final
{
    CFakeHost host;
    QUuid a = host.addProcessor(QStringLiteral("A"), 4, 3);
    QUuid b = host.addProcessor(QStringLiteral("B"), 2, 1);
    CLayoutData store;
    CLayout layout{store};

    SModuleScene() { layout.setHost(host); }
    ~SModuleScene() { layout.stop(); }

    CFakeAnswers answers() { return host.answers(); }
    void select(const QList<QUuid> &processors, PrcTreeNodeType type = PrcTreeNodeType::Processor)
    {
        answers()->selected = processors;
        if (processors.size() == 1) {
            answers()->current = processors.first();
            host.notify(LayoutNotification::CurrentProcessorChanged, processors.first());
        }
        host.notify(LayoutNotification::SelectedNodeChanged, SSelectedNodeChange{{}, type});
        settle(host, store);
    }
    QStackedLayout &pages() const { return *layout.findChild<QStackedLayout *>(); }
    QString page() const
    {
        const QWidget *current = pages().currentWidget();
        return QString::fromLatin1(current->metaObject()->className());
    }
    QString title() const
    {
        const QWidget *current = pages().currentWidget();
        return current->findChild<QLabel *>()->text();
    }
    CCabinetGraphicsScene &scene() const { return layout.findChild<CLayoutGraphicsView *>()->cabinetScene(); }
    bool mappingEnabled(const char *command = "Save") const
    {
        const QList<QToolButton *> buttons = layout.rightBarWidget()->findChildren<QToolButton *>();
        return std::any_of(buttons.begin(), buttons.end(), [command](const QToolButton *button) {
            return button->text() == QLatin1String(command) && button->isEnabled() &&
                   button->menu()->defaultAction()->isEnabled();
        });
    }
    int cabinetsShown(const QUuid &processor) const
    {
        CabinetLayout shown;
        scene().getLayoutData(shown, processor);
        return shown.cabinetCount();
    }
};

const QString Editor = QStringLiteral("CLayoutEditorPage");
const QString Summary = QStringLiteral("CLayoutSummaryWidget");
const QString Warning = QStringLiteral("CWholeModuleWarningWidget");

} // namespace

class CLayoutControllerTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheCurrentProcessorAndPreparesItWhereNeeded()
    {
        SModuleScene module;
        module.select({module.a});
        QCOMPARE(module.page(), Editor);
        QCOMPARE(module.title(), QStringLiteral("A(127.0.0.1)"));
        QCOMPARE(module.cabinetsShown(module.a), 12);
        QCOMPARE(module.answers()->count(QStringLiteral("performPreparatoryStep")), 0);
        module.answers()->preparation = 1;
        module.select({module.b});
        QCOMPARE(module.answers()->count(QStringLiteral("performPreparatoryStep")), 1);
        QCOMPARE(module.cabinetsShown(module.a), 0);
        QCOMPARE(module.cabinetsShown(module.b), 2);
    }

    void aSelectionIsShownOrWarnedOf()
    {
        using W = WarningState;
        const QVector<std::tuple<const char *, bool, std::optional<W>>> rows{
            // o offline, f in fibre mode
            {"", false, W::NoneSelected}, // while another is online
            {"-", false, {}},
            {"o", false, W::Offline},
            {"f", false, W::FiberTransceiver},
            {"--", false, {}},
            {"oo", false, {}},
            {"-f", false, W::SeveralSelected}, // one has an area, one has none
            {"-f-", false, {}},
            {"-o", true, {}},
            {"-", true, W::SeveralSelected},
            {"-f-", true, W::FiberTransceiverInGroup}};
        for (const auto &[processors, group, warning] : rows) {
            QList<ProcessorTree::ProcessorNode> nodes;
            for (const char letter : QByteArray(processors)) {
                nodes << ProcessorTree::ProcessorNode();
                nodes.last().online = letter != 'o';
                nodes.last().fiberTransceiver = letter == 'f';
            }
            const auto type = group ? PrcTreeNodeType::Group : PrcTreeNodeType::Processor;
            QVERIFY2(SelectionRules::warningFor(type, nodes, true) == warning, processors);
        }
    }

    void followsTheSelection()
    {
        SModuleScene module;
        module.select({});
        QCOMPARE(module.page(), Warning);
        QCOMPARE(module.title(), QStringLiteral("No processor selected"));
        module.select({module.a});
        QCOMPARE(module.page(), Editor);
        module.select({module.a, module.b});
        QCOMPARE(module.page(), Summary);
        QCOMPARE(module.title(), QStringLiteral("Summary"));
        module.layout.show();
        module.layout.findChild<CSummaryGraphicsView *>()->setFocus();
        QTest::keyClick(module.layout.findChild<CSummaryGraphicsView *>(), Qt::Key_Right);
        QMenu edit;
        module.layout.fillEditMenu(edit);
        const QRect moved = module.answers()->rects.value(module.a);
        entryOf(edit, QStringLiteral("&Undo"))->trigger(); // what the page can undo
        QCOMPARE(module.answers()->rects.value(module.a), moved.translated(-1, 0));
        module.host.notify(LayoutNotification::SelectedNodeChanged,
                           SSelectedNodeChange{{}, PrcTreeNodeType::Other});
        module.answers()->selected = {module.a};
        QCOMPARE(module.page(), Summary); // a heading leaves the page as it is
        module.answers()->nodes[1].online = false;
        module.select({module.b});
        QCOMPARE(module.title(), QStringLiteral("The current processor is offline"));
        const CWholeModuleWarningWidget other; // all pages share the state
        QCOMPARE(other.findChild<QLabel *>()->text(), module.title());
        module.answers()->nodes[1].online = true;
        module.host.notify(LayoutNotification::ProcessorStateChanged, SProcessorStateChange{module.b, true});
        QTRY_COMPARE(module.page(), Editor);
    }

    void nothingIsReadIntoAProcessorThatFollowsOrIsOffline()
    {
        SModuleScene module;
        module.select({module.b});
        const auto tell = [&module](bool online) {
            module.host.notify(LayoutNotification::ProcessorStateChanged,
                               SProcessorStateChange{module.b, online});
            settle(module.host, module.store);
        };
        QVERIFY(module.mappingEnabled("Read"));
        module.answers()->redundancies = {{module.a, module.b}};
        tell(true);
        QVERIFY(!module.mappingEnabled("Read"));
        module.layout.setEditingBlocked(true); // unlocking it would not help
        const QString follows = QStringLiteral("A redundancy processor follows its primary.");
        for (const QToolButton *button : module.layout.rightBarWidget()->findChildren<QToolButton *>())
            QVERIFY(button->text() != QLatin1String("Read") || button->toolTip() == follows);
        QMenu menu;
        module.layout.fillProcessorMenu(menu, module.b);
        QCOMPARE(entryOf(menu, QStringLiteral("Import mapping by processor..."))->toolTip(), follows);
        module.layout.setEditingBlocked(false);
        module.select({module.a}); // the one that it follows
        QVERIFY(module.mappingEnabled("Read"));
        module.select({module.b});
        QVERIFY(!module.mappingEnabled("Read"));
        module.answers()->redundancies.clear();
        tell(true);
        QVERIFY(module.mappingEnabled("Read"));
        module.answers()->nodes[1].online = false;
        tell(false);
        QVERIFY(!module.mappingEnabled("Read"));
    }

    void offersToLeaveTheFiberMode()
    {
        SModuleScene module;
        module.answers()->fiber = {module.a};
        module.select({module.b});
        QVERIFY(module.mappingEnabled());
        module.select({module.a});
        QVERIFY(!module.mappingEnabled());
        QCOMPARE(module.page(), Warning);
        QCOMPARE(module.cabinetsShown(module.a), 0);
        const QString uuid = module.a.toString(QUuid::WithoutBraces);
        const CMessageBoxAnswerer user({QStringLiteral("OK"), QStringLiteral("OK")});
        const QList<QPushButton *> buttons = module.pages().currentWidget()->findChildren<QPushButton *>();
        buttons.at(0)->click();
        module.answers()->refused = {QStringLiteral("setWorkMode")};
        buttons.at(1)->click();
        QCOMPARE(module.answers()->calls().filter(QStringLiteral("setWorkMode")),
                 (QStringList{QStringLiteral("setWorkMode(%1,0)").arg(uuid),
                              QStringLiteral("setWorkMode(%1,1)").arg(uuid)}));
        QCOMPARE(user.texts(),
                 (QStringList{QStringLiteral("Set successful."), QStringLiteral("Set failed.")}));
        QCOMPARE(user.boxes().last().details, module.answers()->error);

        module.answers()->fiber.clear();
        module.host.notify(LayoutNotification::WorkModeChanged);
        QTRY_COMPARE(module.page(), Editor);
        QCOMPARE(module.cabinetsShown(module.a), 12);
    }

    void loadsAgainWhatTheHostReplaced()
    {
        SModuleScene module;
        module.select({module.a});
        module.answers()->layouts[module.a].layout.ports[0].groups.clear();
        module.host.notify(LayoutNotification::LayoutReplaced, module.a);
        QTRY_COMPARE(module.cabinetsShown(module.a), 9);
        module.answers()->layouts[module.a].layout.ports.removeLast();
        module.host.notify(LayoutNotification::PortCountChanged);
        QTRY_COMPARE(module.cabinetsShown(module.a), 6);
    }

    void theCurrentPortStaysAsLongAsTheWall()
    {
        SModuleScene module;
        module.select({module.a});
        module.scene().backend().picks().port(2, true);
        module.scene().backend().placing().copy();
        const auto isKept = [&module](int cabinets) {
            settle(module.host, module.store);
            QTRY_COMPARE(module.store.currentPort(), 2);
            module.scene().pasteItems({500, 500}, nullptr);
            QCOMPARE(module.scene().backend().content().portItem(2)->cabinets(nullptr).size(), cabinets);
        };
        isKept(6);
        module.host.notify(LayoutNotification::CurrentProcessorChanged, module.b);
        module.host.notify(LayoutNotification::CurrentProcessorChanged, module.a);
        isKept(9);
        module.answers()->layouts[module.a].layout.ports[2].groups[0].cabinets.removeLast();
        module.host.notify(LayoutNotification::LayoutReplaced, module.a);
        isKept(5);
    }

    void handsEditsToTheHost()
    {
        SModuleScene module;
        module.select({module.a});
        module.scene().selectAllItem();
        module.scene().selectedItemMoveDown();
        QVERIFY(module.scene().backend().recorder().stack()->canUndo());
        QTRY_VERIFY(module.answers()->layoutData(module.a).layout.boundingRect().top() == 1);
        module.select({module.b});
        QVERIFY(!module.scene().backend().recorder().stack()->canUndo());
    }

    void tellsHowAReadEnded()
    {
        SModuleScene module;
        module.select({module.a});
        const auto told = [&module] {
            const auto labels = module.pages().currentWidget()->findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
                return label->text() == QLatin1String("The processor's mapping equals the layout.");
            });
        };
        module.host.notify(LayoutNotification::ReadbackFinished, SReadbackResult{module.b, true});
        settle(module.host, module.store);
        QVERIFY(!told());
        module.host.notify(LayoutNotification::ReadbackFinished, SReadbackResult{module.a, true});
        QTRY_VERIFY(told());
        module.answers()->answerLater = true;
        for (QToolButton *button : module.layout.rightBarWidget()->findChildren<QToolButton *>()) {
            if (button->text() == QLatin1String("Save"))
                button->click();
        }
        QVERIFY(!told());
        module.host.endWaiting({SDeviceOutcome::Cancelled, {}});
    }

    void theOverlayNamesEditsThatWereNotSaved()
    {
        SModuleScene module;
        module.answers()->nodes[0].online = false;
        const auto told = [&module] {
            const auto labels = module.pages().currentWidget()->findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
                return !label->isHidden() && label->text().startsWith(QLatin1String("The edits of A("));
            });
        };
        module.select({module.a});
        QVERIFY(!told());
        module.answers()->unsaved[module.a].cabinets = true;
        module.select({module.a});
        QVERIFY(told());
    }

    void aLayoutThatIsNotShownIsNotUndone()
    {
        SModuleScene module;
        module.select({module.b});
        const auto *steps = module.layout.rightBarWidget()->findChild<QListView *>();
        auto *load = module.layout.rightBarWidget()->findChild<QProgressBar *>();
        QVERIFY(steps->isEnabled());
        module.layout.show();
        QApplication::setActiveWindow(&module.layout);
        module.answers()->nodes[0].online = false;
        module.select({module.a});
        QVERIFY(!steps->isEnabled());
        QCOMPARE(load->text(), QStringLiteral("\u2013"));
        const CNotedWords told(module.layout);
        QTest::keyClick(&module.layout, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(told.words.contains(QStringLiteral("Undo and redo need a layout, and none is shown.")));
        module.select({module.b});
        QVERIFY(steps->isEnabled());
        QVERIFY(load->text().endsWith(QLatin1Char('%')));
    }

    void anotherChoiceInTheTreeEndsTheHighlight()
    {
        SModuleScene module;
        module.select({module.a});
        auto &bar = *module.layout.findChild<CEditorToolBar *>();
        bar.chooseMode(CEditorToolBar::Calibrate);
        CGraphicsCabinetItem *cabinet =
            module.scene().backend().content().portItem(1)->cabinets(nullptr).first();
        cabinet->setHighlighted(true);
        const QString call = QStringLiteral("setCabinetHighlight");
        QTRY_COMPARE(module.answers()->calls().filter(call),
                     QStringList{QStringLiteral("setCabinetHighlight(1,1)")});
        module.host.notify(LayoutNotification::SelectedNodeChanged,
                           SSelectedNodeChange{{}, PrcTreeNodeType::Processor});
        settle(module.host, module.store);
        QVERIFY(!cabinet->isHighlighted());
        QVERIFY(bar.tool(CEditorToolBar::Arrow)->isChecked());
        QCOMPARE(module.answers()->calls().filter(call).last(), QStringLiteral("setCabinetHighlight(0,0)"));
    }
};

ORVO_TEST_MAIN(QApplication, CLayoutControllerTest)
#include "tst_layout_controller.moc"
