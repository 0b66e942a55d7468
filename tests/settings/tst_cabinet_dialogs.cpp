// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetInformation.h"
#include "layout/settings/CCabinetParaSave.h"
#include "platform/widgets/CTheme.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>

namespace {

using Node = SSettings::TypeLibrary::STreeNode;
using Type = Node::RcvTypeInfo;
using Cabinets = QList<CabinetLayout::CabinetPort::Cabinet>;

Type rental(const char *name)
{
    Type type;
    type.key = SMD5::ofContent(name);
    type.name = QLatin1String(name);
    type.width = 192;
    type.height = 384;
    type.millimetres = {500, 1000.5};
    type.kilograms = 11.8;
    type.wattsMaximum = 320;
    type.wattsAverage = 130;
    type.voltsMinimum = 100;
    type.voltsMaximum = 240;
    return type;
}

/// What the library knows of "A", "B" (as A, but lighter) and "Bare" (nothing but its pixels).
Type typeOf(const SMD5 &key)
{
    Type bare;
    bare.key = SMD5::ofContent("Bare");
    bare.name = QStringLiteral("Bare");
    bare.width = 64;
    bare.height = 32;
    Type lighter = rental("B");
    lighter.kilograms = 7;
    lighter.customGamma = true;
    for (const Type &type : {rental("A"), lighter, bare}) {
        if (type.key == key)
            return type;
    }
    return {};
}

/// Cabinets of 128 x 96 pixels on the canvas; "" is one without a type.
Cabinets cabinets(const QStringList &types)
{
    Cabinets result;
    for (const QString &type : types) {
        CabinetLayout::CabinetPort::Cabinet cabinet;
        cabinet.rect = QRect(500, 300, 128, 96);
        if (!type.isEmpty())
            cabinet.type = SMD5::ofContent(type.toUtf8());
        result << cabinet;
    }
    return result;
}

CCabinetParaSave::Nodes library()
{
    CCabinetParaSave::Nodes types;
    for (const char *name : {"A", "B"}) {
        Node node;
        node.info = typeOf(SMD5::ofContent(name));
        node.key = node.info.key;
        types << node;
    }
    Node damaged;
    damaged.info = rental("Damaged");
    damaged.info.damaged = true;
    Node folder;
    folder.name = QStringLiteral("Rental");
    folder.kind = Node::Folder;
    folder.children = {types[0], damaged};
    return {folder, types[1]};
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
        : dialog(cabinets(types), library(), nullptr)
    {
        dialog.show();
    }

    QComboBox *type() const { return dialog.findChild<QComboBox *>(); }
    QDoubleSpinBox *gamma() const { return dialog.findChild<QDoubleSpinBox *>(); }
    QPushButton *save() const { return dialog.buttonBox()->button(QDialogButtonBox::Save); }
    /// The text below the gamma value; empty while there is none.
    QString note() const
    {
        const auto *label = dialog.findChild<QLabel *>(QStringLiteral("Note"));
        return label->isVisible() ? label->text() : QString();
    }

    CCabinetParaSave dialog;
};

} // namespace

class CCabinetDialogsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void tellsWhatCabinetsHaveInCommon_data()
    {
        QTest::addColumn<QStringList>("types");
        QTest::addColumn<QString>("values");
        QTest::newRow("nothing") << QStringList() << "0|-|-|-|-|-|-";
        QTest::newRow("one") << names("A") << "1|A|192x384|500mm x 1000.5mm|100V ~ 240V|320W|11.8Kg";
        QTest::newRow("equal") << names("A,A,A") << "3|A|192x384|500mm x 1000.5mm|100V ~ 240V|320W|11.8Kg";
        QTest::newRow("types that differ in weight")
            << names("A,B,A") << "3|Multiple Type|192x384|500mm x 1000.5mm|100V ~ 240V|320W|-";
        QTest::newRow("types that differ in everything") << names("Bare,A,A") << "3|Multiple Type|-|-|-|-|-";
        QTest::newRow("little known") << names("Bare") << "1|Bare|64x32|-|-|-|-";
        QTest::newRow("custom") << names(",") << "2|-|128x96|-|-|-|-";
        QTest::newRow("custom and type") << names("A,") << "2|Multiple Type|-|-|-|-|-";
        QTest::newRow("not in the library") << names("Lost") << "1|-|128x96|-|-|-|-";
    }

    void tellsWhatCabinetsHaveInCommon()
    {
        QFETCH(QStringList, types);
        QFETCH(QString, values);
        const CCabinetInformation dialog(cabinets(types), typeOf, nullptr);
        QStringList shown;
        for (const char *row : {"Count", "Cabinet type", "Resolution", "Size", "Working voltage",
                                "Power consumption", "Weight"})
            shown << labelled<QLineEdit>(dialog, row)->text();
        QCOMPARE(shown.join(QLatin1Char('|')), values);
    }

    void halfARangeOfVoltsIsUnknown()
    {
        const CCabinetInformation dialog(
            cabinets({QStringLiteral("A")}),
            [](const SMD5 &key) {
                Type type = typeOf(key);
                type.voltsMaximum = 0;
                return type;
            },
            nullptr);
        QCOMPARE(labelled<QLineEdit>(dialog, "Working voltage")->text(), QStringLiteral("-"));
    }

    void theInformationFitsItsWindow()
    {
        CCabinetInformation dialog(cabinets({QStringLiteral("A")}), typeOf, nullptr);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Cabinet information"));
        QCOMPARE(dialog.size(), QSize(351, 318));
        QCOMPARE(dialog.buttonBox()->buttons().size(), 1);
        int above = 0;
        for (const QLineEdit *field : dialog.findChildren<QLineEdit *>()) {
            const QRect area(field->mapTo(&dialog, QPoint()), field->size());
            QCOMPARE(area.width(), 210);
            QVERIFY(area.top() > above && dialog.rect().contains(area));
            above = area.bottom();
            QVERIFY(field->isReadOnly());
        }
        for (const QLabel *name : dialog.findChildren<QLabel *>())
            QVERIFY2(name->width() >= name->sizeHint().width(), qPrintable(name->text()));
        QTest::keyClick(&dialog, Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
    }

    void startsWithTheCabinetsOwnType_data()
    {
        QTest::addColumn<QStringList>("cabinetTypes");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("of one type") << names("B,B") << "B";
        QTest::newRow("of two types") << names("A,B") << "";
        QTest::newRow("custom") << names("") << "";
        QTest::newRow("damaged") << names("Damaged") << "";
        QTest::newRow("none") << QStringList{} << "";
    }

    void startsWithTheCabinetsOwnType()
    {
        QFETCH(QStringList, cabinetTypes);
        QFETCH(QString, chosen);
        const SSaveDialog opened(cabinetTypes);
        QCOMPARE(opened.type()->count(), 2);
        QCOMPARE(opened.type()->width(), 238);
        QCOMPARE(opened.type()->currentText(), chosen);
        QCOMPARE(opened.save()->isEnabled(), !chosen.isEmpty());
    }

    void gammaIsTypedWithOneDecimal_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::newRow("one decimal") << "2.2"
                                     << "2.2";
        QTest::newRow("no decimal") << "3"
                                    << "3.0";
        QTest::newRow("two decimals") << "3.45"
                                      << "3.4"; // the last key does nothing
        QTest::newRow("too large") << "4.1"
                                   << "4.0";
        QTest::newRow("too small") << "0.9"
                                   << "1.0";
    }
    void gammaIsTypedWithOneDecimal()
    {
        QFETCH(QString, typed);
        const SSaveDialog opened({QStringLiteral("A")});
        QDoubleSpinBox *gamma = opened.gamma();
        gamma->selectAll();
        QTest::keyClicks(gamma, typed);
        gamma->interpretText();
        QTEST(gamma->text(), "shown");
        QCOMPARE(gamma->value(), gamma->text().toDouble());
    }

    void aGammaTableOfItsOwnForbidsAValue()
    {
        const SSaveDialog opened({QStringLiteral("A")});
        const QSize size = opened.dialog.size();
        QVERIFY(opened.gamma()->isEnabled() && opened.note().isEmpty());
        opened.type()->setCurrentIndex(1);
        QVERIFY(!opened.gamma()->isEnabled());
        QCOMPARE(opened.note(), QStringLiteral("With a custom gamma table, the gamma value cannot be set."));
        QTest::qWait(0);
        QCOMPARE(opened.dialog.size(), size);
        opened.type()->setCurrentIndex(0);
        QVERIFY(opened.gamma()->isEnabled() && opened.note().isEmpty());
    }

    void tellsHowTheSaveEnded_data()
    {
        QTest::addColumn<bool>("primary");
        QTest::addColumn<bool>("refused");
        QTest::addColumn<QString>("message");
        QTest::newRow("saved") << true << false << "Save successful.|";
        QTest::newRow("refused") << true << true << "Save failed.|The processor does not answer.";
        QTest::newRow("on a redundancy port")
            << false << false
            << "Unable to save, please make sure the cabinets are connected to primary output ports.|";
    }

    void tellsHowTheSaveEnded()
    {
        QFETCH(bool, primary);
        QFETCH(bool, refused);
        QFETCH(QString, message);
        CFakeHost host;
        host.answers()->primaryPorts = primary;
        if (refused)
            host.answers()->refused << QStringLiteral("sendCabinetParameters");
        SSaveDialog opened({QStringLiteral("A"), QStringLiteral("A")});
        opened.gamma()->setValue(2.2);
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        QTest::mouseClick(opened.save(), Qt::LeftButton);

        QCOMPARE(user.boxes().size(), 1);
        QCOMPARE(user.boxes()[0].title, QStringLiteral("Orvo"));
        QCOMPARE(user.boxes()[0].text + QLatin1Char('|') + user.boxes()[0].details, message);
        const QString sent = QStringLiteral("sendCabinetParameters(2,%1,2.2)")
                                 .arg(QString::fromLatin1(SMD5::ofContent("A").toText()));
        QCOMPARE(host.answers()->calls().contains(sent), primary);
        QCOMPARE(host.answers()->count(QStringLiteral("sendCabinetParameters")), primary ? 1 : 0);
        QCOMPARE(opened.dialog.isVisible(), !primary || refused);
    }

    void withoutAHostNothingIsSaved()
    {
        SSaveDialog opened({QStringLiteral("A")});
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        QTest::keyClick(&opened.dialog, Qt::Key_Return);
        QCOMPARE(user.texts(), QStringList(QStringLiteral("Save failed.")));
        QVERIFY(opened.dialog.isVisible());
    }

    void cancellingSendsNothing()
    {
        CFakeHost host;
        SSaveDialog opened({QStringLiteral("A")});
        QTest::keyClick(&opened.dialog, Qt::Key_Escape);
        QVERIFY(!opened.dialog.isVisible());
        QVERIFY(host.answers()->calls().isEmpty());
    }
};

ORVO_TEST_MAIN(QApplication, CCabinetDialogsTest)
#include "tst_cabinet_dialogs.moc"
