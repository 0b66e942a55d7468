// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CTheme.h"
#include "platform/widgets/ThemeColors.h"
#include "tests/harness/CTestBase.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QPalette>
#include <QStandardItemModel>

class CThemeTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void theStyleSheetIsComplete()
    {
        const QString sheet = qApp->styleSheet();
        QVERIFY(!sheet.isEmpty());
        const QString rules = QString(sheet).remove(QRegularExpression(QStringLiteral("/\\*.*?\\*/")));
        QVERIFY2(!rules.contains(QLatin1Char('@')), "a colour without a name in the theme");
        QRegularExpressionMatchIterator pictures =
            QRegularExpression(QStringLiteral("url\\(([^)]*)\\)")).globalMatch(rules);
        QVERIFY(pictures.hasNext());
        while (pictures.hasNext()) {
            const QString file = pictures.next().captured(1);
            QVERIFY2(QFile::exists(file), qPrintable(file));
        }
    }

    void measuresContrastAsTheGuidelineDoes()
    {
        QCOMPARE(CTheme::contrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(CTheme::contrast(Qt::white, Qt::black), 21.0);
        QVERIFY(qAbs(CTheme::contrast(QColor(0x76, 0x76, 0x76), Qt::white) - 4.54) < 0.01);
    }

    void textCanBeRead_data()
    {
        using namespace ThemeColors;
        QTest::addColumn<QColor>("text");
        QTest::addColumn<QColor>("background");
        const auto row = [](const char *name, const QColor &text, const QColor &background) {
            QTest::newRow(name) << text << background;
        };
        row("window", Text, Frame);
        row("field", Text, Base);
        row("button", Text, Raised);
        row("button under the mouse", Text, RaisedHover);
        row("main button, selection", Text, Accent);
        row("main button under the mouse", Text, AccentHover);
        row("main button pressed", Text, AccentDown);
        row("caption in a window", SoftText, Frame);
        row("caption on a button", SoftText, Raised);
        row("disabled in a window", DimText, Frame);
        row("hint in a field", DimText, Base);
        row("load", CTheme::textOn(LoadGood), LoadGood);
        row("overload", CTheme::textOn(LoadOver), LoadOver);
        row("link", Focus, Frame);
    }

    void textCanBeRead()
    {
        QFETCH(QColor, text);
        QFETCH(QColor, background);
        QVERIFY2(CTheme::contrast(text, background) >= 4.5,
                 qPrintable(QString::number(CTheme::contrast(text, background))));
    }

    void thePaletteCanBeReadInEachState_data()
    {
        QTest::addColumn<int>("text");
        QTest::addColumn<int>("background");
        QTest::newRow("window") << int(QPalette::WindowText) << int(QPalette::Window);
        QTest::newRow("field") << int(QPalette::Text) << int(QPalette::Base);
        QTest::newRow("other row") << int(QPalette::Text) << int(QPalette::AlternateBase);
        QTest::newRow("button") << int(QPalette::ButtonText) << int(QPalette::Button);
        QTest::newRow("selection") << int(QPalette::HighlightedText) << int(QPalette::Highlight);
        QTest::newRow("tool tip") << int(QPalette::ToolTipText) << int(QPalette::ToolTipBase);
    }

    void thePaletteCanBeReadInEachState()
    {
        QFETCH(int, text);
        QFETCH(int, background);
        const QPalette palette = QApplication::palette();
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QColor ink = palette.color(group, QPalette::ColorRole(text));
            const QColor paper = palette.color(group, QPalette::ColorRole(background));
            QVERIFY2(CTheme::contrast(ink, paper) >= 4.5, qPrintable(ink.name() + paper.name()));
        }
    }

    void disabledEntriesOfAListAreDimmed()
    {
        QComboBox box;
        for (int i = 0; i < 3; ++i)
            box.addItem(QStringLiteral("240Hz")); // the first is current and highlighted
        qobject_cast<QStandardItemModel *>(box.model())->item(2)->setEnabled(false);
        box.show();
        box.showPopup();
        const QImage list = box.view()->viewport()->grab().toImage();
        const auto brightest = [&](int row) {
            const QImage entry = list.copy(box.view()->visualRect(box.model()->index(row, 0)));
            int most = 0;
            for (int i = 0; i < entry.width() * entry.height(); ++i)
                most = qMax(most, qGray(entry.pixel(i % entry.width(), i / entry.width())));
            return most;
        };
        QVERIFY(brightest(2) < brightest(1));
    }

    void edgesAndFocusMarksCanBeSeen()
    {
        for (const QRgb edge : {ThemeColors::Outline, ThemeColors::Focus}) {
            QVERIFY(CTheme::contrast(edge, ThemeColors::Frame) >= 3.0);
            QVERIFY(CTheme::contrast(edge, ThemeColors::Base) >= 3.0);
        }
    }
};

ORVO_TEST_MAIN(QApplication, CThemeTest)
#include "tst_theme.moc"
