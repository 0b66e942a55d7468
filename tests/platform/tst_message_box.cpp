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

    void informsWithOneButton()
    {
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        CMessageBox::information(nullptr, QStringLiteral("Set failed."), QStringLiteral("<b>wall</b>.sprj"));
        QCOMPARE(user.boxes().size(), 1);
        const CMessageBoxAnswerer::SBox box = user.boxes().first();
        QCOMPARE(box.title, QStringLiteral("Orvo"));
        QCOMPARE(box.text, QStringLiteral("Set failed."));
        QCOMPARE(box.details, QStringLiteral("<b>wall</b>.sprj"));
        QCOMPARE(box.buttons, QStringList{QStringLiteral("OK")});
    }

    void aFailureHasAnotherSignThanASuccess()
    {
        const CMessageBoxAnswerer user({QStringLiteral("OK"), QStringLiteral("OK")});
        CMessageBox::information(nullptr, QStringLiteral("Done."));
        CMessageBox::warning(nullptr, QStringLiteral("Failed."), QStringLiteral("why"));
        QCOMPARE(user.boxes().at(0).icon, QMessageBox::Information);
        QCOMPARE(user.boxes().at(1).icon, QMessageBox::Warning);
        QCOMPARE(user.boxes().at(1).title, QStringLiteral("Orvo"));
        QCOMPARE(user.boxes().at(1).details, QStringLiteral("why"));
    }

    void asksWithYesAsTheDefault()
    {
        const CMessageBoxAnswerer user({QStringLiteral("Yes"), QStringLiteral("No")});
        QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("First?")), 0);
        QCOMPARE(CMessageBox::question(nullptr, QStringLiteral("Second?")), 1);
        QCOMPARE(user.texts(), (QStringList{QStringLiteral("First?"), QStringLiteral("Second?")}));
        QCOMPARE(user.boxes().first().buttons, (QStringList{QStringLiteral("Yes"), QStringLiteral("No")}));
        QCOMPARE(user.boxes().first().defaultButton, QStringLiteral("Yes"));
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
