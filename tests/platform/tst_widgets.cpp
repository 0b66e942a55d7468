// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CDialog.h"
#include "platform/widgets/CElidedLabel.h"
#include "platform/widgets/CMessageBox.h"
#include "platform/widgets/CPureImageBtn.h"
#include "platform/widgets/CSvgIcon.h"
#include "platform/widgets/CTheme.h"
#include "platform/widgets/CUnitLabel.h"
#include "platform/widgets/ThemeColors.h"
#include "platform/widgets/input/CClampedSpinBox.h"
#include "platform/widgets/input/CSliderSpinBox.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CNotedWords.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

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

    /// In each mode and state, whichever pictures there are beside the normal one.
    void svgIconsLookLikeQtsOwn()
    {
        const QTemporaryDir folder;
        const QString family = writeFamily(folder, {{QStringLiteral("0"), Qt::red},
                                                    {QStringLiteral("1"), Qt::green},
                                                    {QStringLiteral("2"), Qt::blue},
                                                    {QStringLiteral("3"), Qt::yellow}});
        const QVector<QPair<QIcon::Mode, QIcon::State>> looks = {{QIcon::Normal, QIcon::Off},
                                                                 {QIcon::Active, QIcon::Off},
                                                                 {QIcon::Normal, QIcon::On},
                                                                 {QIcon::Disabled, QIcon::Off}};
        for (int others = 0; others < 8; ++others) {
            CSvgIcon ours;
            QIcon theirs;
            for (int i = 0; i < looks.size(); ++i) {
                const QString file = family + QString::number(i) + QStringLiteral(".svg");
                if (i > 0 && !(others & 1 << (i - 1)))
                    continue;
                ours.add(file, looks.at(i).first, looks.at(i).second);
                theirs.addFile(file, {}, looks.at(i).first, looks.at(i).second);
            }
            for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Active, QIcon::Selected}) {
                for (const QIcon::State state : {QIcon::On, QIcon::Off})
                    QCOMPARE(ours.icon().pixmap({20, 16}, mode, state).toImage(),
                             theirs.pixmap({20, 16}, mode, state).toImage());
            }
        }
        QVERIFY(CSvgIcon().icon().isNull());
    }

    void sliderAndSpinBoxFollowEachOther()
    {
        CSliderSpinBox input(184, 46);
        input.setRange(10, 400);
        input.setSuffix(QStringLiteral("%"));
        auto *slider = input.findChild<QSlider *>();
        auto *spinBox = input.findChild<QSpinBox *>();
        QSignalSpy changed(&input, &CSliderSpinBox::notifyValueChanged);

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

    void whatIsNoNumberIsRefusedWithAWord()
    {
        const QString refused = QStringLiteral("Only numbers can be typed here.");
        const QString largest = QStringLiteral("The largest figure here is 50.");
        struct SCase
        {
            const char *typed;
            QString told;
        };
        for (const auto &[typed, words] :
             {SCase{"7", {}}, SCase{"7e", refused}, SCase{"e", refused}, SCase{"7#", refused},
              SCase{"7.", refused}, SCase{"777", largest}}) {
            QWidget window;
            const CNotedWords told(window);
            auto *box = new CSpinBox(&window);
            box->setRange(0, 50);
            box->setValue(7);
            box->selectAll(); // as Tab does
            QTest::keyClicks(box, QLatin1String(typed));
            QCOMPARE(told.words.value(told.words.size() - 1), words);
        }
        QWidget window;
        const CNotedWords told(window);
        auto *box = new CDoubleSpinBox(&window);
        box->setSuffix(QStringLiteral(" Hz"));
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("2.5 Hz"));
        QCOMPARE(told.words, QStringList());
        QCOMPARE(box->value(), 2.5);
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
        auto *area = new QCheckBox(QStringLiteral("Field area")); // the first letter is taken: that of a word
        for (QWidget *widget : QVector<QWidget *>{widthLabel, width, white, free, ratio, area})
            dialog.contentLayout()->addWidget(widget);
        auto *more = dialog.buttonBox()->addButton(QStringLiteral("More"), QDialogButtonBox::ActionRole);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(widthLabel->text(), QStringLiteral("&Width"));
        QCOMPARE(white->text(), QStringLiteral("W&hite"));
        QCOMPARE(ratio->text(), QStringLiteral("1:1"));
        QCOMPARE(area->text(), QStringLiteral("Field &area"));
        QCOMPARE(more->text(), QStringLiteral("&More"));
        area->setFocus();
        QVector<int> places; // of the buttons
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            QCOMPARE(dialog.focusWidget()->parentWidget(), dialog.buttonBox());
            places << dialog.focusWidget()->x();
        }
        QVERIFY(std::is_sorted(places.begin(), places.end()));
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

    void aUnitFoldsByMouseAndKeyboard()
    {
        CUnitLabel unit;
        auto *content = new QLabel(QStringLiteral("content"));
        unit.contentLayout()->addWidget(content);
        unit.show();
        QVERIFY(content->isVisible());
        const int unfolded = unit.sizeHint().height();

        auto *title = unit.findChild<QToolButton *>();
        QTest::mouseClick(title, Qt::LeftButton);
        QVERIFY(unit.isCollapsed() && !content->isVisible());
        QVERIFY(unit.sizeHint().height() < unfolded);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
            QTest::keyClick(title, key);
            QCOMPARE(content->isVisible(), key == Qt::Key_Return);
        }
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

        const QTemporaryDir other;
        CPureImageBtn makesDo(writeFamily(other, {{QStringLiteral("_normal"), Qt::red}}));
        makesDo.setCheckable(true);
        makesDo.setChecked(true);
        makesDo.setFixedSize(18, 18);
        makesDo.setToolTip(QStringLiteral("Show screen"));
        QCOMPARE(middleOf(makesDo), QColor(Qt::red));
        QCOMPARE(makesDo.accessibleName(), QStringLiteral("Show screen"));
        makesDo.setEnabled(false);
        QVERIFY2(middleOf(makesDo) != QColor(Qt::red), "a disabled button looks enabled");
    }

    void messageBoxesShowWhatTheyAreGiven()
    {
        const QString ok = QStringLiteral("OK");
        const QString yes = QStringLiteral("Yes");
        const QString no = QStringLiteral("No");
        const CMessageBoxAnswerer user({ok, ok, yes, no, yes});
        CMessageBox::information(nullptr, QStringLiteral("Done."), QStringLiteral("<b>wall</b>.sprj"));
        CMessageBox::warning(nullptr, QStringLiteral("Failed."), QStringLiteral("why"));
        QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("First?")), 0);
        QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Second?")), 1);
        QVERIFY(CMessageBox::confirm(nullptr, QStringLiteral("Lose it?")));
        const auto &boxes = user.boxes();
        for (const auto &box : boxes)
            QCOMPARE(box.title, QStringLiteral("Orvo"));
        QCOMPARE(boxes[0].details, QStringLiteral("<b>wall</b>.sprj"));
        QVERIFY(boxes[0].icon == QMessageBox::Information && boxes[1].icon == QMessageBox::Warning);
        QVERIFY(boxes[0].buttons == QStringList{ok} && boxes[2].buttons == (QStringList{yes, no}));
        QVERIFY(boxes[2].defaultButton == yes && boxes[4].defaultButton == no);
    }

    void aTextOfAnyLengthIsShown()
    {
        const QString text = QString(1 << 21, QLatin1Char('m'));
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        CMessageBox::warning(nullptr, QStringLiteral("Failed."), text);
        QVERIFY(user.boxes().first().details.size() < 10000);
        QWidget window;
        QHBoxLayout row(&window);
        CElidedLabel label;
        row.addWidget(&label);
        label.setFullText(text);
        QVERIFY(window.minimumSizeHint().width() < 200);
        window.resize(300, 40);
        window.show();
        QVERIFY(label.text().size() < 60);
        QVERIFY(label.toolTip().contains(label.fullText()));
        label.setFullText(QStringLiteral("short"));
        QVERIFY(label.text() == label.fullText() && label.toolTip().isEmpty());
        const int width = label.sizeHint().width();
        label.setContentsMargins(0, 0, 8, 0);
        QCOMPARE(label.sizeHint().width(), width + 8);
    }

    void afterAQuestionTheWindowBelowIsActive()
    {
        QWidget window;
        QWidget other;
        window.show();
        other.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window, PatienceMilliseconds));
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        CMessageBox::information(&window, QStringLiteral("Done"));
        QTRY_COMPARE(QApplication::activeWindow(), &window);
    }

    void theKeyboardAnswersMessageBoxes()
    {
        const QString text = QStringLiteral("Sure?");
        for (const bool loss : {false, true}) {
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
                QTimer::singleShot(0, this,
                                   [key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
                const bool yes =
                    loss ? CMessageBox::confirm(nullptr, text) : CMessageBox::question(nullptr, text) == 0;
                QCOMPARE(yes, key == Qt::Key_Return && !loss);
            }
        }
    }

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

    void textCanBeRead()
    {
        QCOMPARE(CTheme::contrast(Qt::black, Qt::white), 21.0);
        using namespace ThemeColors;
        QVector<QPair<QColor, QColor>> pairs;
        for (const QRgb background : {Frame, Base, Raised, RaisedHover, Accent, AccentHover, AccentDown})
            pairs << qMakePair(QColor(Text), QColor(background));
        for (const QRgb background : {LoadGood, LoadOver})
            pairs << qMakePair(CTheme::textOn(background), QColor(background));
        for (const QRgb color : {Fault, Warning, Focus})
            pairs << qMakePair(QColor(color), QColor(Frame));
        for (const QRgb load : {PortLoadGood, PortLoadUnknown})
            pairs << qMakePair(QColor(load), QColor(Card));
        pairs << qMakePair(QColor(Text), QColor(PortLoadOver))
              << qMakePair(QColor(Text), QColor(IdleSelection));
        pairs << qMakePair(QColor(DimText), QColor(Base)) << qMakePair(QColor(SoftText), QColor(Raised));
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
};

ORVO_TEST_MAIN(QApplication, CWidgetsTest)
#include "tst_widgets.moc"
