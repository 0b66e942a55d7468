// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/CMappingLabel.h"
#include "platform/widgets/CMenuToolButton.h"
#include "tests/harness/CTestBase.h"
#include "tests/panels/SUnitWorld.h"

#include <QApplication>
#include <QCheckBox>
#include <QMenu>

namespace {

using Roles = QVector<ReadSaveMappingRole>;
constexpr auto Current = ReadSaveMappingRole::Current;
constexpr auto All = ReadSaveMappingRole::All;

ProcessorTree::ProcessorNode onlineProcessor()
{
    ProcessorTree::ProcessorNode node;
    node.uuid = QUuid::createUuid();
    node.online = true;
    return node;
}

bool takesAClick(const CMenuToolButton &button)
{
    return button.isEnabled() && button.menu()->defaultAction()->isEnabled();
}

/// The side panel with its mapping unit, shown; the processor in view is online.
struct SMappingPanel final : SUnitWorld
{
    SMappingPanel()
    {
        panel.onCurrentProcessorChanged(onlineProcessor());
        panel.show();
    }
    CMenuToolButton &button(const char *text) const
    {
        for (CMenuToolButton *button : panel.findChildren<CMenuToolButton *>()) {
            if (button->text() == QLatin1String(text))
                return *button;
        }
        qFatal("There is no button %s", text);
    }
    void click(const char *text) const { QTest::mouseClick(&button(text), Qt::LeftButton); }

    CLayoutSidePanel panel{services};
    CMenuToolButton &read = button("Read");
    CMenuToolButton &save = button("Save");
};

} // namespace

class CMappingLabelTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aClickMeansTheCurrentProcessorWhateverWasChosenBefore()
    {
        SMappingPanel unit;
        for (const char *text : {"Read", "Save"}) {
            unit.click(text);
            unit.mapping.end(true);
            unit.button(text).menu()->actions().last()->trigger();
            unit.mapping.end(true);
            unit.click(text);
            unit.mapping.end(true);
        }
        QCOMPARE(unit.mapping.reads, (Roles{Current, All, Current}));
        QCOMPARE(unit.mapping.saves, (Roles{Current, All, Current}));
    }

    void saysWhyItCannotBeUsed()
    {
        SMappingPanel unit;
        QCOMPARE(unit.read.toolTip(), QStringLiteral("Current processor cabinets"));
        unit.panel.setEditingBlocked(true);
        QVERIFY(!unit.read.isEnabled() && unit.save.isEnabled());
        QCOMPARE(unit.read.toolTip(), QStringLiteral("Editing is locked"));
        unit.panel.setEditingBlocked(false);
        QVERIFY(unit.read.isEnabled());
        unit.panel.onCurrentProcessorChanged({});
        QCOMPARE(unit.save.toolTip(), QStringLiteral("Please select a single processor that is online"));
        unit.save.menu()->actions().last()->trigger();
        QCOMPARE(unit.read.toolTip(), QStringLiteral("The mapping is being read or saved"));
    }

    void allCanBeChosenWithoutACurrentProcessor()
    {
        SMappingPanel unit;
        unit.panel.onCurrentProcessorChanged({});
        for (CMenuToolButton *button : {&unit.read, &unit.save}) {
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(20, 12));
            QTest::keyClick(button, Qt::Key_Space);
            QVERIFY(unit.mapping.running.empty());
            bool wasOpen = false;
            QTimer::singleShot(0, button, [menu = button->menu(), &wasOpen] {
                wasOpen = menu->isVisible();
                menu->setActiveAction(menu->actions().last());
                QTest::keyClick(menu, Qt::Key_Return);
                menu->close();
            });
            QTest::keyClick(button, Qt::Key_Down); // returns once the drop-down is closed
            QVERIFY(wasOpen);
            unit.mapping.end(true);
        }
        QCOMPARE(unit.mapping.reads, Roles{All});
        QCOMPARE(unit.mapping.saves, Roles{All});
    }

    void aBlockedDefaultLooksIt()
    {
        CMenuToolButton button(QStringLiteral("Read"));
        button.addAction(QStringLiteral("One"), 1);
        button.setFixedSize(96, 24);
        const auto differs = [&button](const QImage &before) {
            const QImage now = button.grab().toImage();
            return qMakePair(now.copy(0, 0, 70, 24) != before.copy(0, 0, 70, 24),
                             now.copy(85, 4, 8, 16) != before.copy(85, 4, 8, 16));
        };
        const QImage usual = button.grab().toImage();
        button.setDefaultBlocked(QStringLiteral("No"));
        QCOMPARE(differs(usual), qMakePair(true, false)); // the arrow still can be used
        button.setEnabled(false);
        QCOMPARE(differs(usual), qMakePair(true, true));
    }

    void aReadTakesTheOptionsAlong_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<int>("changed");
        QTest::newRow("numbers") << "OSD(Number mapping)" << 0;
        QTest::newRow("realtime") << "Realtime mapping" << 1;
        QTest::newRow("from processor") << "Mapping from processor" << 2;
    }
    void aReadTakesTheOptionsAlong()
    {
        QFETCH(QString, option);
        QFETCH(int, changed);
        SMappingPanel unit;
        for (QCheckBox *box : unit.panel.findChildren<QCheckBox *>()) {
            if (box->text() == option)
                box->toggle();
        }
        unit.click("Read");
        const SMappingOptions initial;
        QCOMPARE(unit.mapping.options.numberMapping != initial.numberMapping, changed == 0);
        QCOMPARE(unit.mapping.options.realtime != initial.realtime, changed == 1);
        QCOMPARE(unit.mapping.options.mappingFromProcessor != initial.mappingFromProcessor, changed == 2);
    }

    void needsAProcessorThatAnswers_data()
    {
        QTest::addColumn<ProcessorTree::ProcessorNode>("processor");
        QTest::addColumn<bool>("usable");
        ProcessorTree::ProcessorNode node = onlineProcessor();
        QTest::newRow("online") << node << true;
        node.fiberTransceiver = true;
        QTest::newRow("fibre optic transceiver") << node << false;
        node.fiberTransceiver = false;
        node.online = false;
        QTest::newRow("offline") << node << false;
        node.uuid = QUuid();
        node.online = true;
        QTest::newRow("none") << node << false;
    }
    void needsAProcessorThatAnswers()
    {
        QFETCH(ProcessorTree::ProcessorNode, processor);
        QFETCH(bool, usable);
        SMappingPanel unit;
        unit.panel.onCurrentProcessorChanged(processor);
        QCOMPARE(takesAClick(unit.read), usable);
        QCOMPARE(takesAClick(unit.save), usable);
        unit.panel.onCurrentProcessorStateChanged(onlineProcessor());
        QVERIFY(takesAClick(unit.read) && takesAClick(unit.save));
    }

    void runsOneOperationAtATime()
    {
        SMappingPanel unit;
        unit.click("Read");
        unit.panel.onCurrentProcessorStateChanged(onlineProcessor());
        QVERIFY(!unit.read.isEnabled() && !unit.save.isEnabled());
        unit.mapping.end(true);
        QVERIFY(takesAClick(unit.read) && takesAClick(unit.save));
    }

    void aSaveThatSucceededIsAnnounced()
    {
        SMappingPanel unit;
        QSignalSpy saved(&unit.panel, &CLayoutSidePanel::notifySaveMappingSuccessed);
        unit.click("Read");
        unit.mapping.end(true);
        unit.click("Save");
        unit.mapping.end(false);
        QCOMPARE(saved.size(), 0);
        unit.click("Save");
        unit.mapping.end(true);
        QCOMPARE(saved.size(), 1);
    }

    void anEndThatComesTooLateIsIgnored()
    {
        SUnitWorld world;
        {
            CMappingLabel unit(world.services);
            for (const CMenuToolButton *button : unit.findChildren<CMenuToolButton *>())
                button->menu()->actions().last()->trigger();
        }
        QCOMPARE(world.mapping.running.size(), size_t(2));
        world.mapping.end(true);
        world.mapping.end(true);
    }

    void theFocusComesBackAfterAnOperation_data()
    {
        QTest::addColumn<bool>("moved");
        QTest::newRow("left alone") << false;
        QTest::newRow("moved by the user") << true;
    }
    void theFocusComesBackAfterAnOperation()
    {
        QFETCH(bool, moved);
        SMappingPanel unit;
        unit.save.setFocus();
        unit.click("Save");
        QVERIFY(unit.panel.window()->focusWidget() != &unit.save);
        auto *option = unit.panel.findChild<QCheckBox *>();
        if (moved)
            option->setFocus();
        unit.mapping.end(true);
        QCOMPARE(unit.panel.window()->focusWidget(), moved ? static_cast<QWidget *>(option) : &unit.save);
    }

    void theDropDownClosesWhenAnOperationBegins()
    {
        SMappingPanel unit;
        bool wasOpen = false;
        QTimer::singleShot(0, &unit.panel, [&] {
            wasOpen = unit.read.menu()->isVisible();
            unit.save.menu()->defaultAction()->trigger();
        });
        QTest::keyClick(&unit.read, Qt::Key_Down); // returns once the drop-down is closed
        QVERIFY(wasOpen);
        QVERIFY(!unit.read.menu()->isVisible());
        QVERIFY(!unit.read.isEnabled());
    }
};

ORVO_TEST_MAIN(QApplication, CMappingLabelTest)
#include "tst_mapping_label.moc"
