// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetFillSetting.h"
#include "platform/widgets/CTheme.h"
#include "platform/widgets/color/CColorSVPanel.h"
#include "platform/widgets/color/CColorSlider.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QCheckBox>
#include <QSpinBox>

namespace {

const QColor PortBlue(64, 92, 148);

/// A fill dialog as a user sees it.
struct SFillDialog
{
    explicit SFillDialog(const QColor &color)
        : dialog(color, PortBlue, nullptr)
    {
        dialog.show();
    }

    CColorSVPanel *panel() const { return dialog.findChild<CColorSVPanel *>(); }
    QSlider *slider(const char *name) const { return named<CColorSlider>(dialog, name); }
    QSpinBox *number(const char *name) const { return named<QSpinBox>(dialog, name); }
    QCheckBox *allPorts() const { return dialog.findChild<QCheckBox *>(); }
    /// Everything that the controls show: red, green, blue, hue, brightness, percent.
    QVector<int> shown() const
    {
        return {number("Red")->value(),        number("Green")->value(),
                number("Blue")->value(),       slider("Hue")->value(),
                slider("Brightness")->value(), number("Brightness in percent")->value()};
    }

    CCabinetFillSetting dialog;
};

using Values = QVector<int>;

} // namespace

class CCabinetFillTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void allControlsEditOneColor()
    {
        const SFillDialog opened(QColor(255, 0, 0));
        QCOMPARE(opened.shown(), (Values{255, 0, 0, 0, 255, 100}));
        opened.slider("Hue")->setValue(120);
        QCOMPARE(opened.shown(), (Values{0, 255, 0, 120, 255, 100}));
        opened.slider("Brightness")->setValue(128);
        QCOMPARE(opened.shown(), (Values{0, 128, 0, 120, 128, 50}));
        opened.number("Brightness in percent")->setValue(20);
        QCOMPARE(opened.shown(), (Values{0, 51, 0, 120, 51, 20}));
        opened.number("Blue")->setValue(255);
        QCOMPARE(opened.shown(), (Values{0, 51, 255, 228, 255, 100}));
        QCOMPARE(opened.panel()->marker(), QPoint(211, 0));
        QTest::mouseClick(opened.panel(), Qt::LeftButton, {}, QPoint(0, 211));
        QCOMPARE(opened.shown(), (Values{0, 0, 0, 228, 0, 0}));
        QTest::mouseClick(opened.panel(), Qt::LeftButton, {}, QPoint(211, 0));
        QCOMPARE(opened.shown()[3], 228);
        QCOMPARE(opened.dialog.fill().color, QColor(QColor::fromHsv(228, 255, 255).rgb()));
    }

    void keepsExactlyTheColorThatWasTyped()
    {
        // any, nearly grey, red just below the full circle, black, white
        for (const QColor &color : {QColor(13, 200, 77), QColor(100, 101, 100), QColor(255, 0, 1),
                                    QColor(0, 0, 0), QColor(255, 255, 255)}) {
            const SFillDialog opened(PortBlue);
            for (const auto &[name, value] :
                 {std::make_pair("Red", color.red()), std::make_pair("Green", color.green()),
                  std::make_pair("Blue", color.blue())}) {
                opened.number(name)->selectAll();
                QTest::keyClicks(opened.number(name), QString::number(value));
            }
            QCOMPARE(opened.dialog.fill().color, color);
            QCOMPARE(opened.shown().mid(0, 3), (Values{color.red(), color.green(), color.blue()}));
            QVERIFY(opened.slider("Hue")->value() <= 359);
        }
    }

    void comesBackFromBlackAndGrey()
    {
        const SFillDialog opened(QColor(200, 100, 50));
        const Values before = opened.shown();
        opened.slider("Brightness")->setValue(0);
        QCOMPARE(opened.dialog.fill().color, QColor(Qt::black));
        opened.slider("Brightness")->setValue(200);
        QCOMPARE(opened.shown(), before);
        QTest::mouseClick(opened.panel(), Qt::LeftButton, {}, QPoint(0, 100));
        QCOMPARE(opened.shown()[0], opened.shown()[2]);
        QCOMPARE(opened.shown()[3], before[3]);
    }

    void everyControlStopsAtItsEnds()
    {
        const SFillDialog opened(PortBlue);
        for (const char *name : {"Hue", "Brightness"}) {
            QTest::keyClick(opened.slider(name), Qt::Key_End);
            QTest::keyClick(opened.slider(name), Qt::Key_Right);
        }
        QCOMPARE(opened.slider("Hue")->value(), 359);
        QCOMPARE(opened.slider("Brightness")->value(), 255);
        CColorSVPanel *panel = opened.panel();
        QTest::mousePress(panel, Qt::LeftButton, {}, QPoint(100, 100));
        QTest::mouseMove(panel, QPoint(-50, 900));
        QTest::mouseRelease(panel, Qt::LeftButton, {}, QPoint(-50, 900));
        QVERIFY(panel->rect().contains(panel->marker()));
    }

    void theDefaultIsNoColorOfItsOwn()
    {
        const SFillDialog opened(QColor(200, 100, 50));
        QCOMPARE(opened.dialog.fill().color, QColor(200, 100, 50));
        QTest::mouseClick(buttonOf(opened.dialog, QStringLiteral("Default")), Qt::LeftButton);
        QCOMPARE(opened.shown().mid(0, 3), (Values{PortBlue.red(), PortBlue.green(), PortBlue.blue()}));
        QVERIFY2(!opened.dialog.fill().color.isValid(), "every port has a default of its own");
        opened.number("Red")->setValue(65);
        QCOMPARE(opened.dialog.fill().color, QColor(65, PortBlue.green(), PortBlue.blue()));

        QVERIFY(!opened.dialog.fill().allPorts);
        opened.allPorts()->click();
        QVERIFY(opened.dialog.fill().allPorts);

        const SFillDialog untouched{QColor()};
        QCOMPARE(untouched.shown().mid(0, 3), (Values{PortBlue.red(), PortBlue.green(), PortBlue.blue()}));
        QVERIFY(!untouched.dialog.fill().color.isValid());
    }

    void thePanelFollowsTheArrowKeys()
    {
        const SFillDialog opened(QColor(100, 100, 100));
        CColorSVPanel *panel = opened.panel();
        QSignalSpy picked(panel, &CColorSVPanel::saturationValueChanged);
        QTest::keyClick(panel, Qt::Key_Right);
        QTest::keyClick(panel, Qt::Key_Up);
        QTest::keyClick(panel, Qt::Key_Left, Qt::ShiftModifier);
        QTest::keyClick(panel, Qt::Key_Left); // is at its end
        QTest::keyClick(panel, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(picked, (QList<QList<QVariant>>{{1, 100}, {1, 101}, {0, 101}, {0, 85}}));
    }
};

ORVO_TEST_MAIN(QApplication, CCabinetFillTest)
#include "tst_cabinet_fill.moc"
