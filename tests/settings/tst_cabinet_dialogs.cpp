// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetInformation.h"
#include "layout/settings/CCabinetParaSave.h"
#include "layout/settings/CCustomCabinet.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/settings/TypeSamples.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>

namespace {

/// A library that also has a damaged type, in a folder.
QVector<TypeNode> library()
{
    TypeInfo damaged = typeOf("Damaged");
    damaged.damaged = true;
    return {folder("Rental", {leaf(typeOf("A")), leaf(damaged)}), leaf(typeOf("Table"))};
}

/// The names in @p list, which are separated by commas.
QStringList names(const char *list)
{
    return QString::fromLatin1(list).split(QLatin1Char(','));
}

/// A save dialog as a user sees it.
struct SSaveDialog
{
    explicit SSaveDialog(const QStringList &types)
        : dialog(cabinetsOf(types), library(), nullptr)
    {
        dialog.show();
    }

    QComboBox *type() const { return dialog.findChild<QComboBox *>(); }
    QDoubleSpinBox *gamma() const { return dialog.findChild<QDoubleSpinBox *>(); }
    bool canSave() const { return dialog.buttonBox()->button(QDialogButtonBox::Save)->isEnabled(); }
    bool showsNote() const { return dialog.findChild<QLabel *>(QStringLiteral("Note"))->isVisible(); }

    CCabinetParaSave dialog;
};

} // namespace

class CCabinetDialogsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatCabinetsHaveInCommon_data()
    {
        QTest::addColumn<QStringList>("types");
        QTest::addColumn<QString>("values");
        QTest::newRow("nothing") << QStringList() << "0|-|-|-|-|-|-";
        QTest::newRow("one") << names("A") << "1|A|192x384|500mm x 1000.5mm|100V ~ 240V|320W|11.8Kg";
        QTest::newRow("equal") << names("A,A,A") << "3|A|192x384|500mm x 1000.5mm|100V ~ 240V|320W|11.8Kg";
        QTest::newRow("types that differ in weight")
            << names("A,Lighter,A") << "3|Multiple Type|192x384|500mm x 1000.5mm|100V ~ 240V|320W|-";
        QTest::newRow("types that differ in everything")
            << names("Bare,A,A") << "3|Multiple Type|192x384|-|-|-|-";
        QTest::newRow("little known") << names("Bare") << "1|Bare|192x384|-|-|-|-";
        QTest::newRow("custom") << names(",") << "2|-|128x96|-|-|-|-";
        QTest::newRow("custom and type") << names("A,") << "2|Multiple Type|-|-|-|-|-";
        QTest::newRow("not in the library") << names("Lost") << "1|-|128x96|-|-|-|-";
    }

    void tellsWhatCabinetsHaveInCommon()
    {
        QFETCH(QStringList, types);
        QFETCH(QString, values);
        const CCabinetInformation dialog(cabinetsOf(types), typeOfKey, nullptr);
        QStringList shown;
        for (const char *row : {"Count", "Cabinet type", "Resolution", "Size", "Working voltage",
                                "Power consumption", "Weight"})
            shown << labelled<QLineEdit>(dialog, row)->text();
        QCOMPARE(shown.join(QLatin1Char('|')), values);
    }

    void halfARangeOfVoltsIsUnknown()
    {
        for (const bool lower : {true, false}) {
            const auto typeOfHalf = [lower](const SMD5 &key) {
                TypeInfo type = typeOfKey(key);
                (lower ? type.voltsMinimum : type.voltsMaximum) = 0;
                return type;
            };
            const CCabinetInformation dialog(cabinetsOf({"A"}), typeOfHalf, nullptr);
            QCOMPARE(labelled<QLineEdit>(dialog, "Working voltage")->text(), QStringLiteral("-"));
        }
    }

    void savingStartsWithTheCabinetsOwnType_data()
    {
        QTest::addColumn<QStringList>("cabinetTypes");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("of one type") << names("Table,Table") << "Table";
        QTest::newRow("of two types") << names("A,Table") << "";
        QTest::newRow("custom") << names("") << "";
        QTest::newRow("damaged") << names("Damaged") << "";
        QTest::newRow("none") << QStringList{} << "";
    }

    void savingStartsWithTheCabinetsOwnType()
    {
        QFETCH(QStringList, cabinetTypes);
        QFETCH(QString, chosen);
        CFakeHost host;
        SSaveDialog opened(cabinetTypes);
        QCOMPARE(opened.type()->count(), 2);
        QCOMPARE(opened.type()->currentText(), chosen);
        QCOMPARE(opened.gamma()->value(), 2.8);
        QCOMPARE(opened.canSave(), !chosen.isEmpty());
        if (chosen.isEmpty())
            QTest::keyClick(&opened.dialog, Qt::Key_Return); // there is nothing to be saved
        QCOMPARE(opened.dialog.isVisible(), true);
        QVERIFY(host.answers()->calls().isEmpty());
    }

    void gammaIsTypedWithOneDecimal_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("value");
        QTest::newRow("one decimal") << "2.2" << 2.2;
        QTest::newRow("two decimals") << "3.45" << 3.4; // the last key does nothing
        QTest::newRow("too large") << "4.1" << 4.0;
        QTest::newRow("too small") << "0.9" << 1.0;
    }
    void gammaIsTypedWithOneDecimal()
    {
        QFETCH(QString, typed);
        const SSaveDialog opened({QStringLiteral("A")});
        opened.gamma()->selectAll();
        QTest::keyClicks(opened.gamma(), typed);
        opened.gamma()->interpretText();
        QTEST(opened.gamma()->value(), "value");
    }

    void aGammaTableOfItsOwnForbidsAValue()
    {
        const SSaveDialog opened({QStringLiteral("A")});
        const QSize size = opened.dialog.size();
        for (const int type : {0, 1, 0}) {
            opened.type()->setCurrentIndex(type);
            QCoreApplication::processEvents();
            QCOMPARE(opened.gamma()->isEnabled(), type == 0);
            QCOMPARE(opened.showsNote(), type == 1);
            QCOMPARE(opened.dialog.size(), size);
        }
    }

    void nothingIsSavedToARedundancyPort()
    {
        CFakeHost host;
        host.answers()->primaryPorts = false;
        SSaveDialog opened({QStringLiteral("A")});
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        QTest::keyClick(&opened.dialog, Qt::Key_Return);
        QCOMPARE(user.texts(), QStringList{QStringLiteral("Unable to save, please make sure the cabinets are "
                                                          "connected to primary output ports.")});
        QCOMPARE(host.answers()->count(QStringLiteral("sendCabinetParameters")), 0);
        QVERIFY(opened.dialog.isVisible());
    }

    void aCustomCabinetHasTheSizeThatWasTyped()
    {
        CCustomCabinet dialog({192, 5000}, nullptr);
        dialog.show();
        QCOMPARE(dialog.cabinetSize(), QSize(192, 2048));
        QTest::keyClicks(labelled<QSpinBox>(dialog, "Width"),
                         QStringLiteral("320")); // replaces what was there
        labelled<QSpinBox>(dialog, "Height")->setValue(7);
        QCOMPARE(dialog.cabinetSize(), QSize(320, 8));
    }
};

ORVO_TEST_MAIN(QApplication, CCabinetDialogsTest)
#include "tst_cabinet_dialogs.moc"
