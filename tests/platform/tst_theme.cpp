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

    void textCanBeRead()
    {
        using namespace ThemeColors;
        QVector<QPair<QColor, QColor>> pairs;
        for (const QRgb background : {Frame, Base, Raised, RaisedHover, Accent, AccentHover, AccentDown})
            pairs << qMakePair(QColor(Text), QColor(background));
        for (const QRgb background : {LoadGood, LoadOver})
            pairs << qMakePair(CTheme::textOn(background), QColor(background));
        for (const QRgb background : {Frame, Base})
            pairs << qMakePair(QColor(DimText), QColor(background));
        pairs << qMakePair(QColor(SoftText), QColor(Raised)) << qMakePair(QColor(Focus), QColor(Frame));
        const QPalette palette = QApplication::palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const auto add = [&](QPalette::ColorRole text, QPalette::ColorRole background) {
                pairs << qMakePair(palette.color(group, text), palette.color(group, background));
            };
            add(QPalette::WindowText, QPalette::Window);
            add(QPalette::Text, QPalette::Base);
            add(QPalette::Text, QPalette::AlternateBase);
            add(QPalette::ButtonText, QPalette::Button);
            add(QPalette::HighlightedText, QPalette::Highlight);
            add(QPalette::ToolTipText, QPalette::ToolTipBase);
        }
        for (const auto &[text, background] : qAsConst(pairs))
            QVERIFY2(CTheme::contrast(text, background) >= 4.5,
                     qPrintable(text.name() + QLatin1String(" on ") + background.name()));
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
