// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CSheetPictures.h"
#include "layout/printing/dialog/CSheetPreview.h"
#include "tests/harness/CTestBase.h"
#include "tests/printing/SheetJobs.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QScrollArea>
#include <QSignalSpy>

#include <algorithm>
#include <thread>

/// Looking at sheets before they are printed.
class CPrintPreviewTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    /// Also with the focus in the area that would scroll.
    void turnsPagesByKeys()
    {
        CSheetPreview preview;
        preview.show(SheetJobs::someSheets(PrintConfig::PortSheets));
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
        const QVector<SSheet> sheets = SheetJobs::someSheets(PrintConfig::Cover | PrintConfig::PortSheets);
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
        pictures.setSheets(SheetJobs::someSheets(PrintConfig::Cover));
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
};

ORVO_TEST_MAIN(QApplication, CPrintPreviewTest)
#include "tst_print_preview.moc"
