// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/CMappingLabel.h"
#include "platform/widgets/CMenuToolButton.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
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
    node.address = 1;
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

    void allCanBeChosenWithoutACurrentProcessor()
    {
        SMappingPanel unit;
        unit.panel.onCurrentProcessorChanged({});
        for (CMenuToolButton *button : {&unit.read, &unit.save}) {
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(20, 12));
            QVERIFY(unit.mapping.running.empty());
            QTimer::singleShot(0, button, [menu = button->menu()] {
                menu->setActiveAction(menu->actions().last());
                QTest::keyClick(menu, Qt::Key_Return);
            });
            QTest::keyClick(button, Qt::Key_Down); // returns once the drop-down is closed
            unit.mapping.end(true);
        }
        QCOMPARE(unit.mapping.reads, Roles{All});
        QCOMPARE(unit.mapping.saves, Roles{All});
    }

    void aReadTakesTheOptionsAlong()
    {
        const auto optionsWith = [](const char *option) {
            const SMappingPanel unit;
            for (QCheckBox *box : unit.panel.findChildren<QCheckBox *>()) {
                if (box->text() == QLatin1String(option))
                    box->toggle();
            }
            unit.click("Read");
            return unit.mapping.options;
        };
        const SMappingOptions initial = optionsWith("");
        QVERIFY(optionsWith("OSD(Number mapping)").numberMapping != initial.numberMapping);
        QVERIFY(optionsWith("Realtime mapping").realtime != initial.realtime);
        QVERIFY(optionsWith("Mapping from processor").mappingFromProcessor != initial.mappingFromProcessor);
    }

    void needsAProcessorThatAnswers()
    {
        ProcessorTree::ProcessorNode fiber = onlineProcessor();
        fiber.fiberTransceiver = true;
        ProcessorTree::ProcessorNode offline = onlineProcessor();
        offline.online = false;
        SMappingPanel unit;
        ProcessorTree::ProcessorNode project = onlineProcessor();
        project.address = 0;
        QStringList reasons;
        for (const auto &unusable : {fiber, offline, project, ProcessorTree::ProcessorNode()}) {
            unit.panel.onCurrentProcessorChanged(unusable);
            QVERIFY(!takesAClick(unit.read) && !takesAClick(unit.save));
            reasons << unit.save.toolTip();
            unit.panel.onCurrentProcessorStateChanged(onlineProcessor());
            QVERIFY(takesAClick(unit.read) && takesAClick(unit.save));
        }
        QCOMPARE(reasons.removeDuplicates(), 1);
        unit.mapping.refusal = QStringLiteral("No processor is online.");
        Q_EMIT unit.read.menu()->aboutToShow();
        QVERIFY(!unit.read.menu()->actions().last()->isEnabled());
        unit.panel.setEditingBlocked(true, false);
        QVERIFY(!unit.read.isEnabled() && unit.save.isEnabled());
        QCOMPARE(unit.read.toolTip(), QStringLiteral("Editing is locked."));
        unit.panel.setEditingBlocked(false, true); // "All" reads the others
        QVERIFY(unit.read.isEnabled() && !takesAClick(unit.read) && takesAClick(unit.save));
        QCOMPARE(unit.read.toolTip(), QStringLiteral("A redundancy processor follows its primary."));
        unit.panel.setEditingBlocked(false, false);
        QVERIFY(takesAClick(unit.read));
    }

    void aSaveThatSucceededIsAnnounced()
    {
        SMappingPanel unit;
        QSignalSpy saved(&unit.panel, &CLayoutSidePanel::notifySaveMappingSuccessed);
        unit.click("Read");
        unit.panel.onCurrentProcessorStateChanged(onlineProcessor());
        QVERIFY(!unit.read.isEnabled() && !unit.save.isEnabled()); // one at a time
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

    void aClickTakesNoFocus()
    {
        SMappingPanel unit;
        QWidget *option = unit.panel.findChild<CMappingLabel *>()->findChild<QCheckBox *>();
        option->setFocus();
        auto *pairs = buttonOf(unit.panel, QStringLiteral("Save current processor"));
        for (QAbstractButton *button :
             {static_cast<QAbstractButton *>(&unit.read), static_cast<QAbstractButton *>(&unit.save),
              static_cast<QAbstractButton *>(pairs)}) {
            QTest::mouseClick(button, Qt::LeftButton);
            QVERIFY(!button->isEnabled());
            QCOMPARE(unit.panel.window()->focusWidget(), option);
            unit.mapping.end(true);
            QCOMPARE(unit.panel.window()->focusWidget(), option);
        }
    }

    void theFocusComesBackAfterAnOperation()
    {
        for (const bool moved : {false, true}) {
            SMappingPanel unit;
            unit.save.setFocus();
            unit.click("Save");
            QVERIFY(unit.panel.window()->focusWidget() != &unit.save);
            QWidget *option = unit.panel.findChild<CMappingLabel *>()->findChild<QCheckBox *>();
            if (moved)
                option->setFocus();
            unit.mapping.end(true);
            QCOMPARE(unit.panel.window()->focusWidget(), moved ? option : &unit.save);
        }
    }
};

ORVO_TEST_MAIN(QApplication, CMappingLabelTest)
#include "tst_mapping_label.moc"
