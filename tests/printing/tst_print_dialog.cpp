// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/CPrintConfigJson.h"
#include "layout/printing/dialog/CPrintDialog.h"
#include "layout/printing/dialog/CPrintSettings.h"
#include "layout/printing/dialog/CSheetPreview.h"
#include "layout/printing/dialog/PrintMemory.h"
#include "platform/widgets/CElidedLabel.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/printing/SheetJobs.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QWheelEvent>

class CPrintDialogTest final : public CTestBase
{
    Q_OBJECT

protected:
    void setUp() override { PrintMemory::save({}); }

private Q_SLOTS:
    void laysOutWhatIsChosen()
    {
        const SPrintInput input = SheetJobs::twoWalls();
        CPrintDialog dialog(input, {}, {}, nullptr);
        auto *processors = dialog.findChild<QListWidget *>();
        auto *save = found<QPushButton>(dialog, QStringLiteral("Save as…"));
        auto *number = dialog.findChild<CSheetPreview *>()->findChild<QSpinBox *>();
        QVERIFY(!save->isEnabled()); // no processor
        processors->item(0)->setCheckState(Qt::Checked);
        QTRY_COMPARE(number->maximum(), 24);
        QVERIFY(save->isEnabled());
        found<QCheckBox>(dialog, QStringLiteral("Parts list"))->setChecked(false);
        QVERIFY(!save->isEnabled()); // not what the settings say
        QTRY_COMPARE(number->maximum(), 23);
        QCOMPARE(dialog.findChild<CElidedLabel *>()->fullText(), QString()); // not laid out any more
        processors->item(1)->setCheckState(Qt::Checked);
        QTRY_VERIFY(number->maximum() > 30);
        for (auto *box : dialog.findChild<CPrintSettings *>()->findChildren<QCheckBox *>())
            box->setChecked(false);
        QTRY_COMPARE(number->maximum(), 0);
        QVERIFY(!save->isEnabled());
    }

    void aTypedSheetIsShownByEnter()
    {
        const SPrintInput input = SheetJobs::twoWalls();
        CPrintDialog dialog(input, {input.processors.first().node.uuid}, {}, nullptr);
        auto *number = dialog.findChild<CSheetPreview *>()->findChild<QSpinBox *>();
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_COMPARE(number->maximum(), 24);
        number->setFocus();
        number->selectAll();
        QTest::keyClicks(number, QStringLiteral("5"));
        QTest::keyClick(number, Qt::Key_Return);
        QCOMPARE(number->value(), 5);
        QVERIFY(dialog.isVisible());
    }

    /// A processor has the job's settings until it gets its own; both are remembered.
    void aProcessorCanHaveItsOwnSettings()
    {
        const SPrintInput input = SheetJobs::twoWalls();
        const QUuid first = input.processors.first().node.uuid;
        {
            CPrintDialog dialog(input, {first}, {}, nullptr);
            auto *settings = dialog.findChild<CPrintSettings *>();
            auto *paper = settings->findChild<QComboBox *>();
            auto *own = found<QCheckBox>(dialog, QStringLiteral("Other settings than those of the job"));
            auto *scope = dialog.findChild<QComboBox *>(QString(), Qt::FindDirectChildrenOnly);
            for (auto *box : dialog.findChildren<QComboBox *>())
                scope = box->findData(first) >= 0 ? box : scope;
            paper->setCurrentIndex(PrintConfig::A3);
            scope->setCurrentIndex(scope->findData(first));
            QCOMPARE(paper->currentIndex(), int(PrintConfig::A3));
            QVERIFY(!paper->isEnabled());
            own->click();
            paper->setCurrentIndex(PrintConfig::A2);
            QVERIFY(!found<QCheckBox>(dialog, QStringLiteral("Overview"))->isEnabled());
            scope->setCurrentIndex(0);
            QCOMPARE(paper->currentIndex(), int(PrintConfig::A3));
            dialog.reject();
        }
        const SPrintJob job = PrintMemory::load();
        QCOMPARE(job.whole.paper, PrintConfig::A3);
        QCOMPARE(job.own.size(), 1);
        QCOMPARE(job.of(first).paper, PrintConfig::A2);
    }

    /// Also without other settings than those of the job.
    void eachOfSeveralProjectsHasAnAddress()
    {
        SPrintInput input = SheetJobs::twoWalls();
        const QUuid second = input.processors[1].node.uuid;
        for (int i : {0, 1})
            input.others.insert(input.processors[i].node.uuid, input.processors[i].node);
        input.others[QUuid::createUuid()].name = QStringLiteral("Bare");
        ProcessorTree::ProcessorNode away;
        away.uuid = *input.unread.insert(QUuid::createUuid());
        input.others[away.uuid] = away;
        {
            CPrintDialog dialog(input, {second}, {}, nullptr);
            auto *processors = dialog.findChild<QListWidget *>();
            QCOMPARE(processors->count(), 4); // those without cabinets cannot be chosen
            QVERIFY(processors->item(2)->text().endsWith(QLatin1String(": not read yet")));
            QVERIFY(processors->item(3)->text() == QLatin1String("Bare(127.0.0.1): no cabinets") &&
                    !(processors->item(3)->flags() & Qt::ItemIsEnabled));
            auto *form = dialog.findChild<CPrintSettings *>();
            const auto fieldOf = [form](const char *label) {
                return qobject_cast<QLineEdit *>(found<QLabel>(*form, QString::fromLatin1(label))->buddy());
            };
            QVERIFY(!fieldOf("Processor address")->isEnabled() && fieldOf("Venue")->isEnabled());
            for (auto *box : dialog.findChildren<QComboBox *>()) {
                if (box->findData(second) >= 0)
                    box->setCurrentIndex(box->findData(second));
            }
            QVERIFY(fieldOf("Processor address")->isEnabled() && !fieldOf("Venue")->isEnabled());
            fieldOf("Processor address")->setText(QStringLiteral("10.0.0.8"));
            dialog.reject();
        }
        const SPrintJob kept = PrintMemory::load();
        QCOMPARE(kept.addresses.value(second), QStringLiteral("10.0.0.8"));
        QVERIFY(kept.own.isEmpty() && kept.addresses.size() == 1);
    }

    void showsEveryValueOfAFile()
    {
        using Json = CPrintConfigJson;
        PrintConfig config;
        config.customPaper = {Json::LargestSide, 1.5};
        config.bindingMargin = config.margin = Json::LargestMargin;
        config.pixelPitch = 2.604;
        config.rack = {true, Json::LargestDistance, Json::LargestDistance};
        config.cables = {Json::LargestSlack, Json::LargestSlack, {Json::LongestStock}, 100};
        CPrintSettings settings;
        settings.show(config, CPrintSettings::OfJob, false);
        QVector<double> shown;
        for (auto *box : settings.findChildren<QDoubleSpinBox *>())
            shown << box->value();
        QCOMPARE(shown, (QVector<double>{5000, 1.5, 100, 100, 2.604}));
        QVector<int> whole;
        for (auto *box : settings.findChildren<QSpinBox *>())
            whole << box->value();
        QCOMPARE(whole.mid(1, 5), (QVector<int>{1000000, 1000000, 100000, 100000, 100}));
        QCOMPARE(settings.findChild<QDoubleSpinBox *>()->text(),
                 settings.locale().toString(5000) + QStringLiteral(" mm"));
    }

    /// The wheel scrolls, also where a field without focus is under the cursor.
    void keepsValuesFromTheWheel()
    {
        CPrintSettings settings;
        settings.setVisible(true);
        auto *paper = settings.findChild<QComboBox *>();
        paper->clearFocus();
        QWheelEvent wheel({5, 5}, paper->mapToGlobal({5, 5}), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(paper, &wheel);
        QCOMPARE(paper->currentIndex(), int(PrintConfig::A4));
    }

    void savesUnderAnyName()
    {
        CFakeHost host;
        const SPrintInput input = SheetJobs::twoWalls();
        CPrintDialog dialog(input, {input.processors[1].node.uuid}, {}, nullptr);
        auto *save = found<QPushButton>(dialog, QStringLiteral("Save as…"));
        QVERIFY(!save->isEnabled()); // there are no sheets yet
        QTRY_VERIFY(save->isEnabled());
        const QTemporaryDir folder;
        const auto saved = [&](const QString &name) {
            const CFileDialogAnswerer user(name.isEmpty() ? name : folder.filePath(name));
            save->click();
        };
        saved({});
        QVERIFY(save->isEnabled() && host.answers()->files.isEmpty());
        saved(QStringLiteral("plan"));
        QTRY_VERIFY(save->isEnabled());
        QVERIFY(host.answers()->files.value(folder.filePath(QStringLiteral("plan.pdf"))).startsWith("%PDF"));
        saved(QStringLiteral("list.CSV"));
        QTRY_VERIFY(save->isEnabled());
        QCOMPARE(host.answers()->files.value(folder.filePath(QStringLiteral("list.CSV"))).count('\n'), 49);
        host.answers()->fileFailure = QStringLiteral("The disk is full.");
        {
            CMessageBoxAnswerer user({QStringLiteral("OK")});
            saved(QStringLiteral("plan.svg"));
            QTRY_COMPARE(user.boxes().size(), 1);
            QCOMPARE(user.boxes().first().details, QStringLiteral("The disk is full."));
            QTRY_VERIFY(save->isEnabled());
        }
        if (QPrinterInfo::availablePrinters().isEmpty()) {
            CMessageBoxAnswerer reader({QStringLiteral("OK")});
            found<QPushButton>(dialog, QStringLiteral("Print…"))->click();
            QCOMPARE(reader.texts(), QStringList(QStringLiteral("There is no printer.")));
        }
    }
};

ORVO_TEST_MAIN(QApplication, CPrintDialogTest)
#include "tst_print_dialog.moc"
