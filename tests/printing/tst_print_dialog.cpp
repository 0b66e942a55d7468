// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CSheetExport.h"
#include "layout/api/records/CPrintConfigJson.h"
#include "layout/printing/dialog/CPrintDialog.h"
#include "layout/printing/dialog/CPrintSettings.h"
#include "layout/printing/dialog/CSheetPictures.h"
#include "layout/printing/dialog/CSheetPreview.h"
#include "layout/printing/dialog/PrintMemory.h"
#include "layout/printing/lists/CSheetSet.h"
#include "layout/printing/output/CSheetPrinter.h"
#include "layout/printing/output/CSheetWriter.h"
#include "platform/widgets/CElidedLabel.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScrollArea>
#include <QSemaphore>
#include <QSignalSpy>
#include <QSpinBox>
#include <QWheelEvent>

#include <new>
#include <thread>

namespace {

SPrintInput twoWalls()
{
    SProcessorProject medium = ProjectSamples::ofWall(CWallBuilder::Medium);
    SProcessorProject small = ProjectSamples::ofWall(CWallBuilder::Small);
    medium.name = QStringLiteral("Main");
    small.name = QStringLiteral("Side");
    return CSheetExport::inputOf({medium, small});
}

QVector<SSheet> someSheets(int kinds)
{
    PrintConfig config;
    config.date = QDate(2026, 5, 4);
    config.sheets = kinds;
    const auto input = CSheetExport::inputOf({ProjectSamples::ofWall(CWallBuilder::Small)});
    return CSheetSet::of(SPrintPlan::of(input, {config, {}, {}})).value();
}

template <typename Widget>
Widget *found(QWidget &parent, const QString &text)
{
    for (Widget *widget : parent.findChildren<Widget *>()) {
        if (widget->text() == text)
            return widget;
    }
    return nullptr;
}

} // namespace

class CPrintDialogTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init() { PrintMemory::save({}); }

    void laysOutWhatIsChosen()
    {
        const SPrintInput input = twoWalls();
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

    /// A processor has the job's settings until it gets its own; both are remembered.
    void aProcessorCanHaveItsOwnSettings()
    {
        const SPrintInput input = twoWalls();
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
        SPrintInput input = twoWalls();
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

    /// What a project keeps holds each time, and is kept again only if the user changes it.
    void keepsSettingsInProjects()
    {
        CFakeHost host;
        const SPrintInput input = twoWalls();
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
        const SPrintInput input = twoWalls();
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
        const SPrintInput input = twoWalls();
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

    /// Also with the focus in the area that would scroll.
    void turnsPagesByKeys()
    {
        CSheetPreview preview;
        preview.show(someSheets(PrintConfig::PortSheets));
        for (QWidget *focus :
             {static_cast<QWidget *>(preview.findChild<QScrollArea *>()), static_cast<QWidget *>(&preview)}) {
            QTest::keyClick(focus, Qt::Key_PageDown);
            QTest::keyClick(focus, Qt::Key_PageDown);
            QCOMPARE(preview.page(), 2);
            QTest::keyClick(focus, Qt::Key_PageUp);
            QCOMPARE(preview.page(), 1);
            QTest::keyClick(focus, Qt::Key_Home, Qt::ControlModifier);
            QCOMPARE(preview.page(), 0);
        }
    }

    /// A sheet and those beside it are drawn ahead, also after sheets or size have changed.
    void drawsSheetsAhead()
    {
        CSheetPreview preview;
        preview.resize(600, 400);
        preview.setVisible(true);
        const QVector<SSheet> sheets = someSheets(PrintConfig::Cover | PrintConfig::PortSheets);
        const auto darkness = [&preview] {
            const QImage shown = preview.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
            return std::count_if(shown.constBits(), shown.constBits() + shown.sizeInBytes(),
                                 [](uchar grey) { return grey < 100; });
        };
        preview.show(sheets);
        QVERIFY(!preview.isDrawn(0));
        QTRY_VERIFY(preview.isDrawn(0) && preview.isDrawn(1));
        const auto cover = darkness();
        QTest::keyClick(&preview, Qt::Key_PageDown);
        QVERIFY(preview.isDrawn(1) && darkness() != cover);
        QTRY_VERIFY(preview.isDrawn(0) && preview.isDrawn(2) && preview.isDrawn(3));
        preview.resize(800, 600);
        QTRY_VERIFY(preview.isDrawn(1) && preview.isDrawn(2));
        preview.show(sheets.mid(1)); // page 1 is another one now
        QVERIFY(!preview.isDrawn(1));
        QTRY_VERIFY(preview.isDrawn(1));
    }

    /// Whatever is in work, and also when there is no memory for it.
    void drawsInTheSizeThatIsWishedLast()
    {
        CSheetPictures pictures;
        QSignalSpy drawn(&pictures, &CSheetPictures::notifyDrawn);
        pictures.setSheets(someSheets(PrintConfig::Cover));
        const QSize wished(140, 100);
        pictures.draw({{0, wished}});
        QTRY_COMPARE(pictures.picture(0).size(), wished);
        pictures.draw({{0, 2 * wished}});
        while (!QAbstractEventDispatcher::instance()->hasPendingEvents())
            std::this_thread::yield(); // until it is drawn, but not taken
        pictures.draw({{0, wished}});
        QCoreApplication::processEvents();
        QCOMPARE(pictures.picture(0).size(), wished);
        drawn.clear();
        pictures.draw({{0, {1 << 28, 1 << 28}}});
        QTRY_COMPARE(drawn.size(), 1);
        QVERIFY(pictures.picture(0).isNull());
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

    void savesUnderAnyName()
    {
        CFakeHost host;
        const SPrintInput input = twoWalls();
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

    /// Whoever cancels or closes waits for no more than the sheet in work.
    void stopsWritingWhenCancelled()
    {
        QSemaphore begun;
        const auto endless = [&begun](const SheetFiles::Progress &progress) {
            begun.release();
            while (progress(1))
                std::this_thread::yield();
            return CResult<QStringList>(QStringList());
        };
        {
            CSheetWork work;
            QSignalSpy written(&work, &CSheetWork::notifyWritten);
            work.run(endless);
            begun.acquire();
            work.cancel();
            QTRY_COMPARE(written.size(), 1);
            QCOMPARE(written[0][0].toStringList(), QStringList());
            const QStringList name{QStringLiteral("plan.pdf")};
            work.run([name](const SheetFiles::Progress &progress) {
                return CResult<QStringList>(progress(1) ? name : QStringList());
            });
            QTRY_COMPARE(written.size(), 2);
            QCOMPARE(written[1][0].toStringList(), name); // not cancelled any more
            work.run(endless);
            begun.acquire();
        } // closed while it writes
        const QTemporaryDir folder;
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(folder.filePath(QStringLiteral("out.pdf")));
        const QVector<SSheet> sheets = someSheets(PrintConfig::PortSheets);
        const auto cancelled = CSheetPrinter::print(sheets, printer, [](int sheet) { return sheet < 3; });
        QVERIFY(cancelled && cancelled.value().isEmpty()); // told as cancelled, not as done
        QVERIFY(!QFile::exists(printer.outputFileName()));
        QVERIFY_EXCEPTION_THROWN(
            (void)CSheetPrinter::print(sheets, printer, [](int) -> bool { throw std::bad_alloc(); }),
            std::bad_alloc);
        QVERIFY(!QFile::exists(printer.outputFileName()));
    }

    void writesPicturesOneByOneAndStopsAtAFailure()
    {
        const QVector<SSheet> sheets = someSheets(PrintConfig::Cover | PrintConfig::PortSheets);
        QStringList written;
        QString failure;
        const auto write = [&](const QString &file, const QByteArray &content) {
            if (written.size() == 2 && !failure.isEmpty())
                return failure;
            written << file;
            return content.isEmpty() ? QStringLiteral("empty") : QString();
        };
        CSheetWriter::SOrder order{QStringLiteral("/x/plan.png"), QStringLiteral("t"), QDate(2026, 5, 4), 20};
        const auto all = CSheetWriter::write(sheets, order, write);
        QVERIFY(all);
        QCOMPARE(all.value(), written);
        QCOMPARE(written.first(), QStringLiteral("/x/plan-1.png"));
        QCOMPARE(written.size(), sheets.size());
        written.clear();
        failure = QStringLiteral("The disk is full.");
        QCOMPARE(CSheetWriter::write(sheets, order, write).error(), failure);
        written.clear();
        order.file = QStringLiteral("/x/plan.pdf");
        const auto stopped = CSheetWriter::write(sheets, order, write, [](int done) { return done < 3; });
        QVERIFY(stopped && stopped.value().isEmpty() && written.isEmpty()); // no half file
    }

    void printsThePagesThatWereAskedFor()
    {
        const QTemporaryDir folder;
        const QVector<SSheet> sheets = someSheets(PrintConfig::Cover | PrintConfig::PortSheets);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(folder.filePath(QStringLiteral("out.pdf")));
        printer.setFromTo(2, 4);
        QVector<int> done;
        QVERIFY(CSheetPrinter::print(sheets, printer, [&done](int sheet) {
            done << sheet;
            return true;
        }));
        QCOMPARE(done, QVector<int>({2, 3, 4}));
        QFile file(printer.outputFileName());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        QCOMPARE(content.count("/Type /Page\n"), 3);
        printer.setOutputFileName(folder.filePath(QStringLiteral("none/out.pdf")));
        QVERIFY(CSheetPrinter::print(sheets, printer).error().contains(QStringLiteral("No such file")));
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), folder.filePath(QStringLiteral("full.pdf"))));
        printer.setOutputFileName(folder.filePath(QStringLiteral("full.pdf")));
        QVERIFY(CSheetPrinter::print(sheets, printer).error().contains(QStringLiteral("No space left")));
    }
};

ORVO_TEST_MAIN(QApplication, CPrintDialogTest)
#include "tst_print_dialog.moc"
