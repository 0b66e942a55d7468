// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/CPrintConfigJson.h"
#include "layout/printing/dialog/CPrintDialog.h"
#include "layout/printing/dialog/CPrintSettings.h"
#include "layout/printing/dialog/PrintMemory.h"
#include "layout/printing/sheets/SSheetArea.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/printing/SheetJobs.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

/// What the print dialog remembers.
class CPrintMemoryTest final : public CTestBase
{
    Q_OBJECT

protected:
    void setUp() override { PrintMemory::save({}); }

private Q_SLOTS:
    /// What a project keeps holds each time, and is kept again only if the user changes it.
    void keepsSettingsInProjects()
    {
        CFakeHost host;
        const SPrintInput input = SheetJobs::twoWalls();
        const QUuid first = input.processors[0].node.uuid;
        const QUuid second = input.processors[1].node.uuid;
        PrintConfig kept;
        kept.paper = PrintConfig::A1;
        kept.address = QStringLiteral("10.0.0.7");
        host.answers()->prints[first] = kept;
        CPrintDialog(input, {first}, host.answers()->prints, nullptr).reject();
        QVERIFY(host.answers()->count(QStringLiteral("setPrintSettings")) == 0);
        for (const PrintConfig::Paper paper : {PrintConfig::A2, PrintConfig::A0}) {
            CPrintDialog dialog(input, {first}, host.answers()->prints, nullptr);
            auto *choice = dialog.findChild<CPrintSettings *>()->findChild<QComboBox *>();
            QCOMPARE(choice->currentIndex(), int(host.answers()->prints.value(first).paper));
            choice->setCurrentIndex(paper);
            dialog.reject();
            QCOMPARE(host.answers()->prints.value(first).paper, paper);
            QCOMPARE(host.answers()->prints.value(first).address, kept.address);
        }
        QVERIFY(!host.answers()->prints.contains(second)); // was not printed
        QCOMPARE(PrintMemory::load().own.size(), 0);
        host.answers()->printsInProjects = false;
        {
            CPrintDialog dialog(input, {first, second}, {}, nullptr);
            dialog.findChild<CPrintSettings *>()->findChild<QComboBox *>()->setCurrentIndex(
                PrintConfig::Letter);
            dialog.reject();
        }
        QCOMPARE(PrintMemory::load().of(second).paper, PrintConfig::Letter);
    }

    /// What one project is printed with is not what others begin with; what the user changes is.
    void keepsOnlyWhatWasChanged()
    {
        CFakeHost host;
        const SPrintInput input = SheetJobs::twoWalls();
        const QUuid first = input.processors[0].node.uuid;
        PrintConfig project;
        project.venue = QStringLiteral("Hall");
        project.pixelPitch = 2.604;
        project.paper = PrintConfig::A2;
        PrintMemory::save({PrintConfig(), {}, {{input.processors[1].node.uuid, QStringLiteral("10.0.0.8")}}});
        CPrintDialog(input, {first}, {{first, project}}, nullptr).reject();
        QVERIFY(PrintMemory::load().whole == PrintConfig());
        QVERIFY(PrintMemory::load().own.isEmpty()); // an address alone is no settings
        {
            CPrintDialog dialog(input, {first}, {{first, project}}, nullptr);
            dialog.findChild<CPrintSettings *>()->findChild<QComboBox *>()->setCurrentIndex(PrintConfig::A4);
            for (auto *box : dialog.findChild<CPrintSettings *>()->findChildren<QCheckBox *>())
                box->setChecked(false);
            dialog.reject();
        }
        PrintConfig now = host.answers()->prints.value(first);
        QCOMPARE(now.sheets, int(PrintConfig::AllSheets)); // nobody prints none each time
        QCOMPARE(now.venue, project.venue);
        QCOMPARE(PrintMemory::load().whole.venue, QString());
        QVERIFY(!PrintMemory::load().whole.landscape);
        // Usual settings of a project hold against others of the program.
        PrintConfig usual;
        usual.paper = PrintConfig::A0;
        PrintMemory::save({usual, {}, {}});
        const auto reread = CPrintConfigJson::config(CPrintConfigJson::toJson(PrintConfig().kept()), "print");
        QCOMPARE(PrintMemory::opened(input, {first}, {{first, reread.value()}}).whole.paper, PrintConfig::A4);
        QCOMPARE(PrintMemory::opened(input, {first}, {}).whole.paper, PrintConfig::A0);
    }

    void leavesPaperThatNothingFitsOn()
    {
        CFakeHost host;
        const SPrintInput input = SheetJobs::twoWalls();
        PrintConfig config;
        config.sheets = PrintConfig::Overview;
        PrintMemory::save({config, {}, {}});
        CPrintDialog dialog(input, {input.processors[1].node.uuid}, {}, nullptr);
        QCheckBox &fit = *found<QCheckBox>(dialog, QStringLiteral("Fit the wall to the sheet"));
        dialog.show();
        QCOMPARE(dialog.findChild<QListWidget *>()->currentRow(), 1); // in view however long the list is
        QDoubleSpinBox &margin =
            *dialog.findChild<CPrintSettings *>()->findChildren<QDoubleSpinBox *>().at(3);
        QPushButton &usual = *found<QPushButton>(dialog, QStringLiteral("Usual paper and scale"));
        margin.setValue(95);
        QTRY_VERIFY(usual.isVisible());
        usual.click();
        QTRY_VERIFY(!usual.isVisible());
        QCOMPARE(margin.value(), PrintConfig().margin);
        QSpinBox &scale = *dialog.findChild<CPrintSettings *>()->findChild<QSpinBox *>();
        fit.click();
        scale.setValue(1);
        QTRY_VERIFY(usual.isVisible());
        dialog.reject();
        QCOMPARE(PrintMemory::load().whole.scale, 0);
        scale.setValue(20); // corrects it
        dialog.reject();
        QCOMPARE(PrintMemory::load().whole.scale, 20);
        margin.setValue(95); // bad before it is tried
        dialog.reject();
        QCOMPARE(PrintMemory::load().whole.margin, PrintConfig().margin);
        QCOMPARE(PrintMemory::load().whole.sheets, int(PrintConfig::Overview));
    }

    void leavesPaperThatIsNotToBlame()
    {
        const QUuid key = QUuid::createUuid();
        SPrintJob job;
        job.own[key].paper = PrintConfig::A2;
        job.whole.margin = 95;
        PrintMemory::takePaper(job, {}, {});
        QCOMPARE(job.whole.margin, PrintConfig().margin);
        QCOMPARE(job.own[key].paper, PrintConfig::A2);
        job.whole.paper = PrintConfig::A3;
        PrintMemory::takePaper(job, {}, {key});
        QCOMPARE(job.own[key].paper, PrintConfig::A4);
        QCOMPARE(job.whole.paper, PrintConfig::A3);
    }

    void aDateIsThatOfTheWholeJob()
    {
        SPrintJob job;
        job.whole.date = QDate(2026, 5, 4);
        const QUuid key = QUuid::createUuid();
        job.own[key].paper = PrintConfig::A1;
        QCOMPARE(job.of(key).date, job.whole.date);
        QCOMPARE(job.of(key).paper, PrintConfig::A1);
    }
};

ORVO_TEST_MAIN(QApplication, CPrintMemoryTest)
#include "tst_print_memory.moc"
