// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CDialog.h"
#include "platform/widgets/CTheme.h"
#include "platform/widgets/input/CClampedSpinBox.h"
#include "platform/widgets/input/CSliderSpinBox.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

class CInputsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void sliderAndSpinBoxFollowEachOther()
    {
        CSliderSpinBox input(184, 46);
        input.setRange(10, 400);
        input.setSuffix(QStringLiteral("%"));
        auto *slider = input.findChild<QSlider *>();
        auto *spinBox = input.findChild<QSpinBox *>();
        QSignalSpy changed(&input, &CSliderSpinBox::valueChanged);

        input.setValue(120);
        QCOMPARE(spinBox->text(), QStringLiteral("120%"));
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(spinBox->value(), 121);
        QTest::keyClick(spinBox, Qt::Key_Up);
        QCOMPARE(slider->value(), 122);
        input.setValue(1000);
        QCOMPARE(input.value(), 400);
        input.setValue(400);
        QCOMPARE(changed, (QList<QList<QVariant>>{{120}, {121}, {122}, {400}}));
    }

    void whatIsTypedBeyondTheRangeEndsAtItsLimit()
    {
        struct SCase
        {
            const char *typed;
            int meanwhile;
            const char *shown;
        };
        for (const auto &[typed, meanwhile, shown] :
             {SCase{"2000", 2000, "2000 px"}, SCase{"4000", 2048, "2048 px"},
              SCase{"99999999999", 2048, "2048 px"}, SCase{"7", 100, "8 px"}, // a second digit may follow
              SCase{"x-", 100, "100 px"}}) {
            CSpinBox box;
            box.setRange(8, 2048);
            box.setSuffix(QStringLiteral(" px"));
            box.setValue(100);
            box.selectAll();
            QTest::keyClicks(&box, QLatin1String(typed));
            QCOMPARE(box.value(), meanwhile);
            QTest::keyClick(&box, Qt::Key_Return);
            QCOMPARE(box.text(), QLatin1String(shown));
            QCOMPARE(box.value(), box.cleanText().toInt());
        }
    }

    void fieldsAreReachedByTheirLetters()
    {
        CDialog dialog(QStringLiteral("Size"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, nullptr);
        auto *width = new QSpinBox;
        auto *widthLabel = new QLabel(QStringLiteral("Width"));
        widthLabel->setBuddy(width);
        auto *white = new QCheckBox(QStringLiteral("White"));
        auto *free = new QCheckBox(QStringLiteral("&Free"));
        auto *ratio = new QCheckBox(QStringLiteral("1:1"));
        for (QWidget *widget : QVector<QWidget *>{widthLabel, width, white, free, ratio})
            dialog.contentLayout()->addWidget(widget);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(widthLabel->text(), QStringLiteral("&Width"));
        QCOMPARE(white->text(), QStringLiteral("W&hite"));
        QCOMPARE(ratio->text(), QStringLiteral("1:1"));
        free->setFocus();
        QTest::keyClick(&dialog, Qt::Key_W, Qt::AltModifier);
        QVERIFY(width->hasFocus());
        QTest::keyClick(&dialog, Qt::Key_H, Qt::AltModifier);
        QTRY_VERIFY(white->isChecked());
        dialog.hide();
        dialog.show(); // they stay as they are
        QCOMPARE(white->text(), QStringLiteral("W&hite"));
    }

    void returnShowsACorrectedNumberBeforeItConfirms()
    {
        QDialog dialog;
        auto *box = new CSpinBox;
        auto *ok = new QPushButton;
        auto *rows = new QVBoxLayout(&dialog);
        rows->addWidget(box);
        rows->addWidget(ok);
        ok->setDefault(true);
        connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
        box->setRange(8, 2048);
        dialog.show();
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("4000"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(box->text(), QStringLiteral("2048"));
        QVERIFY(dialog.isVisible());
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
    }
};

ORVO_TEST_MAIN(QApplication, CInputsTest)
#include "tst_inputs.moc"
