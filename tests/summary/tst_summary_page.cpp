// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/resources/LayoutResources.h"
#include "layout/summary/CLayoutSummaryWidget.h"
#include "layout/summary/CSummaryGraphicsView.h"
#include "layout/summary/CSummaryLabel.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CNotedWords.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const QString Write = QStringLiteral("setProcessorOffsets");

struct SPageWorld
{
    SPageWorld()
    {
        host.answers()->rects = {
            {a, QRect(0, 0, 400, 300)}, {b, QRect(500, 0, 200, 200)}, {c, QRect(0, 500, 100, 100)}};
        page.resize(900, 600);
        page.show();
        QApplication::setActiveWindow(&page);
        show({a, b});
    }

    void show(const QList<QUuid> &processors)
    {
        QList<ProcessorTree::ProcessorNode> nodes;
        for (const QUuid &processor : processors)
            nodes << host.answers()->getProcessorNode(processor);
        page.showProcessors(nodes);
    }
    CSummaryGraphicsView &view() const { return *page.findChild<CSummaryGraphicsView *>(); }
    ProcessorOffsets offsets() const { return view().offsets(); }
    ProcessorOffsets kept()
    {
        ProcessorOffsets kept;
        const auto answers = host.answers();
        for (const QUuid &processor : {a, b})
            kept.insert(processor, answers->rects.value(processor).topLeft());
        return kept;
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QApplication::setActiveWindow(view().window()); // after a message box, too
        view().setFocus();
        QTest::keyClick(&view(), Qt::Key(key), modifiers);
    }
    QSpinBox &field(const char *name) const { return *named<QSpinBox>(page, name); }
    void typeX(const char *text) const
    {
        QSpinBox &x = field("Offset, X");
        x.setFocus();
        x.selectAll();
        QTest::keyClicks(&x, QString::fromLatin1(text));
        QTest::keyClick(&x, Qt::Key_Return);
    }
    QToolButton &button(int place) const { return *page.findChildren<QToolButton *>().at(place); }
    bool says(const char *text) const
    {
        const auto labels = page.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(), [text](const QLabel *label) {
            return label->text().contains(QLatin1String(text));
        });
    }

    CFakeHost host;
    QUuid a = host.addProcessor(QStringLiteral("A"), 1);
    QUuid b = host.addProcessor(QStringLiteral("B"), 1);
    QUuid c = host.addProcessor(QStringLiteral("C"), 1);
    CLayoutSummaryWidget page;
};

} // namespace

class CSummaryPageTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void undoAndRedoAreExact()
    {
        SPageWorld world;
        QVector<ProcessorOffsets> states{world.offsets()};
        const auto note = [&] { states << world.offsets(); };
        world.key(Qt::Key_Down);
        note();
        world.key(Qt::Key_A, Qt::ControlModifier);
        world.key(Qt::Key_Left, Qt::ShiftModifier);
        note();
        world.typeX("-777"); // the outline of both
        note();
        QCOMPARE(world.offsets().value(world.b).x() - world.offsets().value(world.a).x(), 500);
        for (int round = 0; round < 2; ++round) {
            for (int i = states.size() - 2; i >= 0; --i) {
                QVERIFY(world.button(0).isEnabled());
                world.key(Qt::Key_Z, Qt::ControlModifier);
                QCOMPARE(world.offsets(), states.at(i));
                QCOMPARE(world.kept(), states.at(i));
            }
            QVERIFY(!world.button(0).isEnabled());
            for (int i = 1; i < states.size(); ++i) {
                world.key(Qt::Key_Y, Qt::ControlModifier);
                QCOMPARE(world.offsets(), states.at(i));
                QCOMPARE(world.kept(), states.at(i));
            }
            QVERIFY(!world.button(1).isEnabled());
        }
    }

    void stepsAreUndoneFromAFieldThatIsNotTypedIn()
    {
        SPageWorld world;
        world.typeX("80");
        QSpinBox &x = world.field("Offset, X");
        QTest::keyClicks(&x, QStringLiteral("9"));
        QTest::keyClick(&x, Qt::Key_Z, Qt::ControlModifier); // what was typed
        QCOMPARE(world.kept().value(world.a), QPoint(80, 0));
        QTest::keyClick(&x, Qt::Key_Escape);
        QTest::keyClick(&x, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(world.kept().value(world.a), QPoint(0, 0));
        QCOMPARE(x.value(), 0);
        const CNotedWords told(world.page);
        for (int again = 0; again < 2; ++again) { // at the limit, nothing moves any more
            world.typeX("99999999");
            QCOMPARE(x.value(), world.kept().value(world.a).x());
        }
        QVERIFY(told.words.contains(QStringLiteral("Offsets go from -1,048,576 to 1,048,576.")));
        const QRect place(world.offsets().value(world.a), QSize(400, 300));
        QVERIFY(world.view()
                    .mapToScene(world.view().viewport()->rect())
                    .boundingRect()
                    .intersects(place)); // the view has followed
    }

    void stepsAreUndoneWhereverTheFocusIs()
    {
        SPageWorld world;
        QWidget window; // with what chooses the processors
        QLineEdit tree;
        tree.setReadOnly(true);
        auto &row = *new QVBoxLayout(&window);
        row.addWidget(&tree);
        row.addWidget(&world.page);
        window.show();
        QApplication::setActiveWindow(&window);
        tree.setFocus();
        QTest::mouseClick(&world.field("Offset, X"), Qt::LeftButton);
        world.typeX("80");
        QVERIFY(world.view().hasFocus());
        tree.setFocus();
        QTest::keyClick(&tree, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(world.kept().value(world.a), QPoint(0, 0));
        QMenu menu;
        world.page.fillEditMenu(menu);
        QCOMPARE(menu.actions().at(1)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Y));
        world.page.setParent(nullptr);
    }

    void aRefusalChangesNothingAndSaysWhy()
    {
        SPageWorld world;
        world.key(Qt::Key_Right);
        const ProcessorOffsets before = world.kept();
        world.host.answers()->refused = {Write};
        CMessageBoxAnswerer user({QStringLiteral("OK"), QStringLiteral("OK"), QStringLiteral("OK")});
        world.key(Qt::Key_Down);
        world.typeX("55");
        QCOMPARE(world.field("Offset, X").value(), 1);
        world.key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(user.boxes().size(), 3);
        QCOMPARE(user.texts().first(), QStringLiteral("Set failed."));
        QCOMPARE(user.boxes().first().details, world.host.answers()->error);
        QCOMPARE(world.offsets(), before);
        world.host.answers()->refused.clear();
        world.key(Qt::Key_Z, Qt::ControlModifier); // the step was not lost
        QCOMPARE(world.offsets().value(world.a), QPoint(0, 0));
        QVERIFY(!world.button(0).isEnabled());
    }

    void whatTheHostAnnouncesDuringAStepWaitsForItsEnd()
    {
        SPageWorld world;
        const ProcessorOffsets before = world.offsets();
        for (int step = 0; step < 2; ++step) {
            world.host.answers()->onCalled = [&world](const QString &call) {
                if (!call.startsWith(Write))
                    return;
                world.host.answers()->rects[world.b].moveTo(3, 3); // as far as the host has come
                world.show({world.a, world.b});
                world.host.answers()->rects[world.b].moveTo(500, 0);
            };
            world.key(Qt::Key_Right);
            world.host.answers()->onCalled = nullptr;
            QCOMPARE(world.offsets(), world.kept());
        }
        QCOMPARE(world.offsets().value(world.a), QPoint(2, 0));
        for (int step = 0; step < 2; ++step)
            world.key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(world.offsets(), before);
    }

    void theHistoryIsThatOfTheProcessorsInView()
    {
        enum EMeanwhile { AnotherName, OthersShown, MovedElsewhere };
        for (const EMeanwhile meanwhile : {AnotherName, OthersShown, MovedElsewhere}) {
            SPageWorld world;
            world.key(Qt::Key_Right);
            if (meanwhile == AnotherName)
                world.host.answers()->nodes[0].name = QStringLiteral("Alpha");
            else if (meanwhile == OthersShown)
                world.show({world.a, world.c});
            else
                world.host.answers()->rects[world.b].moveTo(3, 3);
            world.show({world.a, world.b});
            QCOMPARE(world.button(0).isEnabled(), meanwhile == AnotherName);
            QCOMPARE(world.offsets(), world.kept());
        }
    }

    void whatStandsInTheWayIsTold()
    {
        SPageWorld world;
        world.key(Qt::Key_Right);
        world.host.answers()->forgetCalls();
        QVERIFY(world.says("Drag to move") && world.button(0).isEnabled());
        world.page.setEditingBlocked(true);
        QVERIFY(world.says("Editing is locked.") && !world.button(0).isEnabled());
        QVERIFY(!world.field("Offset, X").isEnabled());
        world.page.setEditingBlocked(false);
        QVERIFY(world.field("Offset, X").isEnabled());
        world.host.answers()->nodes[0].online = false;
        world.show({world.a, world.b});
        QVERIFY(world.says("The processor is offline"));
        QVERIFY(!world.field("Offset, X").isEnabled());
        world.key(Qt::Key_Right);
        QCOMPARE(world.host.answers()->count(Write), 0);
        world.key(Qt::Key_A, Qt::ControlModifier);
        QVERIFY(world.says("2 processors selected"));
        QVERIFY(world.says("Those that are offline stay"));
        world.host.answers()->nodes[2].fiberTransceiver = true;
        world.show({world.a, world.b, world.c});
        QVERIFY(world.says("2 processors, 1 without an area"));
        QCOMPARE(world.offsets().size(), 2);
    }
};

ORVO_TEST_MAIN(QApplication, CSummaryPageTest)
#include "tst_summary_page.moc"
