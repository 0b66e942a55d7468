// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/CMappingLabel.h"
#include "platform/widgets/CMenuToolButton.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

using Roles = QVector<ReadSaveMappingRole>;

ProcessorTree::ProcessorNode onlineProcessor()
{
    ProcessorTree::ProcessorNode node;
    node.uuid = QUuid::createUuid();
    node.online = true;
    return node;
}

CMenuToolButton *buttonNamed(const QWidget &parent, const QString &text)
{
    for (CMenuToolButton *button : parent.findChildren<CMenuToolButton *>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

bool takesAClick(const CMenuToolButton &button)
{
    return button.isEnabled() && button.menu()->defaultAction()->isEnabled();
}

QCheckBox *optionNamed(const QWidget &parent, const QString &text)
{
    for (QCheckBox *option : parent.findChildren<QCheckBox *>()) {
        if (option->text() == text)
            return option;
    }
    return nullptr;
}

/// Keeps what a mapping unit asked for.
struct SRequests
{
    template <typename Sender>
    explicit SRequests(Sender &sender)
    {
        QObject::connect(&sender, &Sender::notifyReadMapping, &sender,
                         [this](ReadSaveMappingRole role, const SMappingOptions &wanted) {
                             reads << role;
                             options = wanted;
                         });
        QObject::connect(&sender, &Sender::notifySaveMapping, &sender,
                         [this](ReadSaveMappingRole role) { saves << role; });
    }

    Roles reads;
    Roles saves;
    SMappingOptions options;
};

} // namespace

class CMappingLabelTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void offersTheCurrentProcessorFirst_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("entries");
        QTest::newRow("read") << "Read"
                              << "Current processor cabinets|All cabinets";
        QTest::newRow("save") << "Save"
                              << "Current processor and cabinets|All processors and cabinets";
    }

    void offersTheCurrentProcessorFirst()
    {
        QFETCH(QString, button);
        QFETCH(QString, entries);
        CMappingLabel unit;
        QCOMPARE(unit.title(), QStringLiteral("Mapping"));
        const CMenuToolButton *tool = buttonNamed(unit, button);
        QVERIFY(tool);
        QStringList texts;
        Roles roles;
        for (const QAction *action : tool->menu()->actions()) {
            texts << action->text();
            roles << action->data().value<ReadSaveMappingRole>();
        }
        QCOMPARE(texts.join(QLatin1Char('|')), entries);
        QCOMPARE(roles, (Roles{ReadSaveMappingRole::Current, ReadSaveMappingRole::All}));
        QCOMPARE(tool->menu()->defaultAction(), tool->menu()->actions().first());
    }

    void aClickMeansTheCurrentProcessorWhateverWasChosenBefore()
    {
        CMappingLabel unit;
        unit.onCurrentProcessorChanged(onlineProcessor());
        unit.show();
        const SRequests requests(unit);
        CMenuToolButton *save = buttonNamed(unit, QStringLiteral("Save"));
        QTest::mouseClick(save, Qt::LeftButton);
        QCOMPARE(requests.saves, Roles{ReadSaveMappingRole::Current});

        save->menu()->actions().last()->trigger();
        QTest::mouseClick(save, Qt::LeftButton);
        QCOMPARE(requests.saves.mid(1), (Roles{ReadSaveMappingRole::All, ReadSaveMappingRole::Current}));
        QCOMPARE(save->text(), QStringLiteral("Save"));
        QCOMPARE(save->toolTip(), QStringLiteral("Current processor and cabinets"));
        QVERIFY(requests.reads.isEmpty());
    }

    void saysWhyItCannotBeUsed()
    {
        CMappingLabel unit;
        const CMenuToolButton *read = buttonNamed(unit, QStringLiteral("Read"));
        const CMenuToolButton *save = buttonNamed(unit, QStringLiteral("Save"));
        QVERIFY(!takesAClick(*save));
        QCOMPARE(save->toolTip(), QStringLiteral("Please select a single processor that is online"));
        unit.onCurrentProcessorChanged(onlineProcessor());
        unit.setReadBlocked(true);
        QVERIFY(!read->isEnabled() && save->isEnabled());
        QCOMPARE(read->toolTip(), QStringLiteral("Editing is locked"));
        unit.setReadBlocked(false);
        QVERIFY(read->isEnabled());
        QCOMPARE(read->toolTip(), QStringLiteral("Current processor cabinets"));
        unit.setBusy(true);
        QCOMPARE(save->toolTip(), QStringLiteral("The mapping is being read or saved"));
    }

    void allCanBeChosenWithoutACurrentProcessor_data()
    {
        QTest::addColumn<bool>("known");
        QTest::newRow("none") << false;
        QTest::newRow("offline") << true;
    }

    void allCanBeChosenWithoutACurrentProcessor()
    {
        QFETCH(bool, known);
        ProcessorTree::ProcessorNode processor = onlineProcessor();
        processor.online = false;
        CMappingLabel unit;
        if (known)
            unit.onCurrentProcessorChanged(processor);
        unit.show();
        SRequests requests(unit);
        for (const char *name : {"Read", "Save"}) {
            CMenuToolButton *button = buttonNamed(unit, QString::fromLatin1(name));
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(20, 12));
            QTest::keyClick(button, Qt::Key_Space);
            bool wasOpen = false;
            QTimer::singleShot(0, button, [menu = button->menu(), &wasOpen] {
                wasOpen = menu->isVisible();
                menu->setActiveAction(menu->actions().last());
                QTest::keyClick(menu, Qt::Key_Return);
                menu->close();
            });
            QTest::keyClick(button, Qt::Key_Down); // returns once the drop-down is closed
            QVERIFY2(wasOpen, name);
        }
        QCOMPARE(requests.reads, Roles{ReadSaveMappingRole::All});
        QCOMPARE(requests.saves, Roles{ReadSaveMappingRole::All});
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
        CMappingLabel unit;
        unit.onCurrentProcessorChanged(onlineProcessor());
        unit.show();
        const SRequests requests(unit);
        QCheckBox *box = optionNamed(unit, option);
        QVERIFY(box);
        QCOMPARE(box->width(), 284);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
        QTest::mouseClick(buttonNamed(unit, QStringLiteral("Read")), Qt::LeftButton);

        QCOMPARE(requests.reads, Roles{ReadSaveMappingRole::Current});
        const SMappingOptions initial;
        QCOMPARE(requests.options.numberMapping != initial.numberMapping, changed == 0);
        QCOMPARE(requests.options.realtime != initial.realtime, changed == 1);
        QCOMPARE(requests.options.mappingFromProcessor != initial.mappingFromProcessor, changed == 2);
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
        CMappingLabel unit;
        const CMenuToolButton *read = buttonNamed(unit, QStringLiteral("Read"));
        const CMenuToolButton *save = buttonNamed(unit, QStringLiteral("Save"));
        QVERIFY(!takesAClick(*read) && !takesAClick(*save));
        unit.onCurrentProcessorChanged(processor);
        QCOMPARE(takesAClick(*read), usable);
        QCOMPARE(takesAClick(*save), usable);
        unit.onCurrentProcessorStateChanged(onlineProcessor());
        QVERIFY(takesAClick(*read) && takesAClick(*save));
    }

    void runsOneOperationAtATime()
    {
        CMappingLabel unit;
        unit.onCurrentProcessorChanged(onlineProcessor());
        const CMenuToolButton *read = buttonNamed(unit, QStringLiteral("Read"));
        const CMenuToolButton *save = buttonNamed(unit, QStringLiteral("Save"));
        unit.setBusy(true);
        unit.onCurrentProcessorStateChanged(onlineProcessor());
        QVERIFY(!read->isEnabled() && !save->isEnabled());
        unit.onCurrentProcessorStateChanged({});
        unit.setBusy(false);
        QVERIFY(!takesAClick(*read) && !takesAClick(*save));
        unit.onCurrentProcessorStateChanged(onlineProcessor());
        QVERIFY(takesAClick(*read) && takesAClick(*save));
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
        QWidget window;
        auto *column = new QVBoxLayout(&window);
        auto *unit = new CMappingLabel;
        auto *next = new QPushButton;
        column->addWidget(unit);
        column->addWidget(next);
        unit->onCurrentProcessorChanged(onlineProcessor());
        window.show();
        CMenuToolButton *save = buttonNamed(*unit, QStringLiteral("Save"));
        save->setFocus();
        unit->setBusy(true);
        QVERIFY(window.focusWidget() != save);
        auto *option = unit->findChild<QCheckBox *>();
        if (moved)
            option->setFocus();
        unit->setBusy(false);
        QCOMPARE(window.focusWidget(), moved ? static_cast<QWidget *>(option) : save);
    }

    void theDropDownClosesWhenAnOperationBegins()
    {
        CMappingLabel unit;
        unit.onCurrentProcessorChanged(onlineProcessor());
        unit.show();
        CMenuToolButton *read = buttonNamed(unit, QStringLiteral("Read"));
        bool wasOpen = false;
        QTimer::singleShot(0, &unit, [&] {
            wasOpen = read->menu()->isVisible();
            unit.setBusy(true);
        });
        QTest::keyClick(read, Qt::Key_Down); // returns once the drop-down is closed
        QVERIFY(wasOpen);
        QVERIFY(!read->menu()->isVisible());
        QVERIFY(!read->isEnabled());
    }

    void thePanelPassesEverythingOn()
    {
        CLayoutSidePanel panel;
        panel.onCurrentProcessorChanged(onlineProcessor());
        panel.show();
        const SRequests requests(panel);
        QSignalSpy saved(&panel, &CLayoutSidePanel::notifySaveMappingSuccessed);
        QTest::mouseClick(buttonNamed(panel, QStringLiteral("Read")), Qt::LeftButton);
        QTest::mouseClick(buttonNamed(panel, QStringLiteral("Save")), Qt::LeftButton);
        QCOMPARE(requests.reads.size(), 1);
        QCOMPARE(requests.saves.size(), 1);
        QCOMPARE(saved.size(), 0);
        panel.reportMappingSaved();
        QCOMPARE(saved.size(), 1);
        panel.setMappingBusy(true);
        QVERIFY(!buttonNamed(panel, QStringLiteral("Save"))->isEnabled());
    }
};

ORVO_TEST_MAIN(QApplication, CMappingLabelTest)
#include "tst_mapping_label.moc"
