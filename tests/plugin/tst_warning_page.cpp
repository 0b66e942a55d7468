// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CWholeModuleWarningWidget.h"
#include "layout/plugin/SelectionRules.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CTestBase.h"

#include <QLabel>
#include <QPushButton>
#include <QSvgRenderer>
#include <QSvgWidget>

namespace {

using Node = ProcessorTree::ProcessorNode;

/// What a user sees of the page.
struct SSeen final
{
    explicit SSeen(const CWholeModuleWarningWidget &page)
    {
        const QList<QLabel *> labels = page.findChildren<QLabel *>();
        title = labels.at(0)->isHidden() ? QString() : labels.at(0)->text();
        hint = labels.at(1)->isHidden() ? QString() : labels.at(1)->text();
        const auto *svg = page.findChild<QSvgWidget *>();
        picture = !svg->isHidden() && svg->renderer()->isValid();
        for (const QPushButton *button : page.findChildren<QPushButton *>()) {
            if (!button->isHidden())
                buttons << button->text();
        }
    }
    QString title;
    QString hint;
    bool picture = false;
    QStringList buttons;
};

Node node(bool online, bool fiber)
{
    Node node;
    node.online = online;
    node.fiberTransceiver = fiber;
    return node;
}

} // namespace

class CWarningPageTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void saysWhatKeepsTheEditorAway()
    {
        using W = WarningState;
        QSet<QString> titles;
        for (const W state : {W::NoProcessorOnline, W::NoneSelected, W::SeveralSelected, W::Offline,
                              W::FiberTransceiver, W::FiberTransceiverInGroup}) {
            CWholeModuleWarningWidget page;
            page.setState(W::Nothing);
            page.setState(state);
            const SSeen seen(page);
            titles << seen.title;
            QVERIFY(seen.picture && !seen.title.isEmpty());
            const bool fiber = state == W::FiberTransceiver;
            QCOMPARE(seen.hint.isEmpty(), fiber);
            QCOMPARE(seen.buttons.size(), fiber ? 2 : 0);

            page.setDetectHintEnabled(false);
            const bool toDetect = state == W::NoProcessorOnline || state == W::Offline;
            QCOMPARE(SSeen(page).hint, toDetect ? QString() : seen.hint);
        }
        QCOMPARE(titles.size(), 6);
    }

    void nothingIsAnEmptyPage()
    {
        CWholeModuleWarningWidget page;
        page.setState(WarningState::FiberTransceiver);
        page.setState(WarningState::Nothing);
        const SSeen seen(page);
        QVERIFY(seen.title.isEmpty() && seen.hint.isEmpty() && seen.buttons.isEmpty() && !seen.picture);
    }

    void theSameStateAgainDoesNothing()
    {
        CWholeModuleWarningWidget page;
        page.setState(WarningState::NoneSelected);
        page.findChildren<QLabel *>().at(0)->hide();
        page.setState(WarningState::NoneSelected);
        QCOMPARE(SSeen(page).title, QString());
        page.setState(WarningState::Refresh);
        QCOMPARE(SSeen(page).title, QStringLiteral("No processor selected"));
        page.setState(WarningState::NoneSelected); // refreshing has not changed the state
        QCOMPARE(SSeen(page).title, QStringLiteral("No processor selected"));
    }

    void allPagesShareTheState()
    {
        CWholeModuleWarningWidget one;
        CWholeModuleWarningWidget other;
        one.setState(WarningState::NoneSelected);
        other.setState(WarningState::Offline);
        QCOMPARE(SSeen(one).title, QStringLiteral("No processor selected"));
        one.setState(WarningState::Refresh);
        QCOMPARE(SSeen(one).title, QStringLiteral("The current processor is offline"));
        QCOMPARE(SSeen(CWholeModuleWarningWidget()).title,
                 QStringLiteral("The current processor is offline"));
    }

    void theModeButtonsAnnounceThemselves()
    {
        CWholeModuleWarningWidget page;
        page.setState(WarningState::FiberTransceiver);
        QStringList announced;
        connect(&page, &CWholeModuleWarningWidget::NotifyByPassClicked,
                [&announced] { announced << QStringLiteral("bypass"); });
        connect(&page, &CWholeModuleWarningWidget::NotifyVideoProcessorClicked,
                [&announced] { announced << QStringLiteral("video"); });
        connect(&page, &CWholeModuleWarningWidget::NotifySetPrcBypassModeEnable,
                [&announced] { announced << QStringLiteral("enable"); });
        for (QPushButton *button : page.findChildren<QPushButton *>()) {
            button->click();
        }
        QCOMPARE(announced.join(QLatin1Char(' ')), QStringLiteral("video bypass enable"));
    }

    void theSelectionDecides_data()
    {
        QTest::addColumn<PrcTreeNodeType>("type");
        QTest::addColumn<QList<Node>>("selected");
        QTest::addColumn<bool>("anyOnline");
        QTest::addColumn<int>("state"); // 0: the editor
        const Node online = node(true, false);
        const Node offline = node(false, false);
        const Node fiber = node(true, true);
        const auto row = [](const char *name, PrcTreeNodeType type, const QList<Node> &selected,
                            bool anyOnline,
                            int state) { QTest::newRow(name) << type << selected << anyOnline << state; };
        const auto processor = PrcTreeNodeType::Processor;
        const auto group = PrcTreeNodeType::Group;
        row("none", processor, {}, true, 3);
        row("none, none online", processor, {}, false, 2);
        row("several", processor, {online, online}, true, 4);
        row("several with fibre", processor, {online, fiber}, true, 4);
        row("group", group, {online, online}, true, 4);
        row("group of one", group, {online}, true, 4);
        row("group with fibre", group, {online, fiber}, true, 7);
        row("offline", processor, {offline}, true, 5);
        row("offline in fibre mode", processor, {node(false, true)}, true, 5);
        row("fibre", processor, {fiber}, true, 6);
        row("editable", processor, {online}, true, 0);
    }
    void theSelectionDecides()
    {
        QFETCH(PrcTreeNodeType, type);
        QFETCH(QList<Node>, selected);
        QFETCH(bool, anyOnline);
        QFETCH(int, state);
        const auto warning = SelectionRules::warningFor(type, selected, anyOnline);
        QCOMPARE(warning ? static_cast<int>(*warning) : 0, state);
    }
};

ORVO_TEST_MAIN(QApplication, CWarningPageTest)
#include "tst_warning_page.moc"
