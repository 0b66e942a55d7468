// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CMessageBox.h"
#include "platform/widgets/CTheme.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QLabel>

class CMessageBoxTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void showsWhatItIsGiven()
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
        QCOMPARE(user.texts().join(QLatin1Char(' ')),
                 QStringLiteral("Done. Failed. First? Second? Lose it?"));
        const auto &boxes = user.boxes();
        for (const auto &box : boxes)
            QCOMPARE(box.title, QStringLiteral("Orvo"));
        QCOMPARE(boxes[0].details, QStringLiteral("<b>wall</b>.sprj"));
        QVERIFY(boxes[0].icon == QMessageBox::Information && boxes[1].icon == QMessageBox::Warning);
        QVERIFY(boxes[0].buttons == QStringList{ok} && boxes[2].buttons == (QStringList{yes, no}));
        QVERIFY(boxes[2].defaultButton == yes && boxes[4].defaultButton == no);
    }

    void theKeyboardAnswers_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("loss");
        QTest::addColumn<bool>("yes");
        QTest::newRow("enter") << int(Qt::Key_Return) << false << true;
        QTest::newRow("escape") << int(Qt::Key_Escape) << false << false;
        QTest::newRow("enter, something would be lost") << int(Qt::Key_Return) << true << false;
        QTest::newRow("escape, something would be lost") << int(Qt::Key_Escape) << true << false;
    }

    void theKeyboardAnswers()
    {
        QFETCH(int, key);
        QFETCH(bool, loss);
        QFETCH(bool, yes);
        QTimer::singleShot(0, this,
                           [key] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key(key)); });
        const QString text = QStringLiteral("Sure?");
        QCOMPARE(loss ? CMessageBox::confirm(nullptr, text) : CMessageBox::question(nullptr, text) == 0, yes);
    }

    void fitsItsText_data()
    {
        QTest::addColumn<QString>("details");
        QTest::newRow("none") << "";
        QTest::newRow("long path") << QStringLiteral("/a folder/another-folder").repeated(12);
        QTest::newRow("long text") << QStringLiteral("The processor did not answer. ").repeated(20);
    }

    void fitsItsText()
    {
        QFETCH(QString, details);
        QSize size;
        bool clipped = false;
        QTimer::singleShot(0, this, [&] {
            QWidget *box = QApplication::activeModalWidget();
            size = box->size();
            for (const QLabel *label : box->findChildren<QLabel *>())
                clipped |= label->height() < label->heightForWidth(label->width());
            QTest::keyClick(box, Qt::Key_Escape);
        });
        CMessageBox::information(nullptr, QStringLiteral("Import mapping failed."), details);
        QVERIFY(size.width() >= 340);
        QVERIFY(size.width() <= 700);
        QVERIFY(!clipped);
    }

    void anAnswerThatIsNotOfferedIsReported()
    {
        expectWarning(
            QRegularExpression(QStringLiteral("^no answer \"Maybe\" to the message box \"Sure\\?\"$")));
        const CMessageBoxAnswerer user({QStringLiteral("Maybe")});
        QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Sure?")), 1);
        QCOMPARE(user.boxes().size(), 1);
    }
};

ORVO_TEST_MAIN(QApplication, CMessageBoxTest)
#include "tst_message_box.moc"
