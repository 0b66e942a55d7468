// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CDialog.h"
#include "platform/widgets/CPureImageBtn.h"
#include "platform/widgets/CSidePanel.h"
#include "platform/widgets/CTheme.h"
#include "platform/widgets/CUnitLabel.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

/// Writes pictures of one plain colour each: the family "picture" in a folder.
QString writeFamily(const QTemporaryDir &folder, const QMap<QString, QColor> &pictures)
{
    const QString family = folder.filePath(QStringLiteral("picture"));
    for (auto it = pictures.cbegin(); it != pictures.cend(); ++it) {
        QFile file(family + it.key() + QStringLiteral(".svg"));
        file.open(QIODevice::WriteOnly);
        file.write(QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 18 18\">"
                                  "<rect width=\"18\" height=\"18\" fill=\"%1\"/></svg>")
                       .arg(it.value().name())
                       .toUtf8());
    }
    return family;
}

QColor middleOf(QWidget &widget)
{
    const QImage image = widget.grab().toImage();
    return image.pixelColor(image.rect().center());
}

} // namespace

class CWidgetsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void aUnitFoldsByMouseAndKeyboard()
    {
        CUnitLabel unit;
        unit.SetTitle(QStringLiteral("Mapping"));
        auto *content = new QLabel(QStringLiteral("content"));
        unit.contentLayout()->addWidget(content);
        unit.show();
        QVERIFY(content->isVisible());
        const int unfolded = unit.sizeHint().height();

        auto *title = unit.findChild<QToolButton *>();
        QTest::mouseClick(title, Qt::LeftButton);
        QVERIFY(unit.isCollapsed());
        QVERIFY(!content->isVisible());
        QVERIFY(unit.sizeHint().height() < unfolded);
        QTest::keyClick(title, Qt::Key_Return);
        QVERIFY(!unit.isCollapsed());
        QTest::keyClick(title, Qt::Key_Space);
        QVERIFY(unit.isCollapsed());
        unit.setCollapsed(false);
        QVERIFY(content->isVisible());
        QCOMPARE(unit.title(), QStringLiteral("Mapping"));
    }

    void aSidePanelScrollsWithoutCuttingItsUnits()
    {
        CSidePanel panel;
        QVector<CUnitLabel *> units;
        for (int i = 0; i < 3; ++i) {
            auto *unit = new CUnitLabel;
            auto *block = new QWidget;
            block->setFixedSize(340, 200);
            unit->contentLayout()->addWidget(block);
            units << unit;
            panel.addUnit(unit);
        }
        panel.resize(panel.minimumWidth(), 300);
        panel.show();
        QVERIFY(panel.minimumWidth() <= 364);
        QTRY_VERIFY(panel.verticalScrollBar()->isVisible());
        QVERIFY(!panel.horizontalScrollBar()->isVisible());
        for (int i = 0; i < units.size(); ++i) {
            const int right = units[i]->mapTo(&panel, QPoint(units[i]->width(), 0)).x();
            QVERIFY(right <= panel.viewport()->width());
            QVERIFY(i == 0 || units[i]->y() >= units[i - 1]->geometry().bottom());
        }
    }

    void aDialogsButtonsComeAfterItsContent()
    {
        CDialog dialog(QStringLiteral("Type"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, nullptr);
        dialog.setDefaultButton(QDialogButtonBox::Ok);
        QVector<QWidget *> order{new QLineEdit, new QSpinBox};
        for (QWidget *field : qAsConst(order))
            dialog.contentLayout()->addWidget(field);
        dialog.contentLayout()->addWidget(new QLabel(QStringLiteral("Note")));
        order << dialog.buttonBox()->button(QDialogButtonBox::Ok)
              << dialog.buttonBox()->button(QDialogButtonBox::Cancel) << order.first();
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog, PatienceMilliseconds));
        for (QWidget *expected : qAsConst(order)) {
            QCOMPARE(dialog.focusWidget(), expected);
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        }
    }

    void aDialogHasRoomForItsTitle()
    {
        const QString title(60, QLatin1Char('m'));
        CDialog growing(title, QDialogButtonBox::Ok, nullptr);
        CDialog shrunk(title, QDialogButtonBox::Ok, nullptr);
        shrunk.layout()->setSizeConstraint(QLayout::SetFixedSize);
        for (CDialog *dialog : {&growing, &shrunk}) {
            dialog->show();
            dialog->resize(10, 10);
            QVERIFY(dialog->width() > dialog->fontMetrics().horizontalAdvance(title));
        }
        CDialog fixed(title, QDialogButtonBox::Ok, nullptr);
        fixed.setFixedSize(208, 151);
        fixed.show();
        QCOMPARE(fixed.size(), QSize(208, 151));
        QVERIFY(fixed.rect().contains(fixed.buttonBox()->geometry()));
    }

    void anImageButtonShowsItsState()
    {
        const QTemporaryDir folder;
        CPureImageBtn button(writeFamily(folder, {{QStringLiteral("_normal"), Qt::gray},
                                                  {QStringLiteral("_checked"), Qt::green},
                                                  {QStringLiteral("_pressed"), Qt::blue},
                                                  {QStringLiteral("_disabled"), Qt::black}}));
        button.setCheckable(true);
        button.setFixedSize(18, 18);
        QCOMPARE(middleOf(button), QColor(Qt::gray));
        QTest::mousePress(&button, Qt::LeftButton);
        QCOMPARE(middleOf(button), QColor(Qt::blue));
        QTest::mouseRelease(&button, Qt::LeftButton);
        QVERIFY(button.isChecked());
        QCOMPARE(middleOf(button), QColor(Qt::green));
        button.setEnabled(false);
        QCOMPARE(middleOf(button), QColor(Qt::black));
    }

    void anImageButtonMakesDoWithOnePicture()
    {
        const QTemporaryDir folder;
        CPureImageBtn button(writeFamily(folder, {{QStringLiteral("_normal"), Qt::red}}));
        button.setCheckable(true);
        button.setChecked(true);
        button.setFixedSize(18, 18);
        button.setToolTip(QStringLiteral("Show screen"));
        QCOMPARE(middleOf(button), QColor(Qt::red));
        QCOMPARE(button.accessibleName(), QStringLiteral("Show screen"));
        button.setEnabled(false);
        QVERIFY2(middleOf(button) != QColor(Qt::red), "a disabled button looks enabled");
    }
};

ORVO_TEST_MAIN(QApplication, CWidgetsTest)
#include "tst_widgets.moc"
