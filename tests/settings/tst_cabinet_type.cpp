// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetTypeSetting.h"
#include "platform/widgets/CTheme.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/settings/TypeSamples.h"

#include <QMenu>

namespace {

CCabinetTypeSetting::Library libraryOf(const QVector<TypeNode> &nodes)
{
    return [nodes] { return nodes; };
}

CCabinetTypeSetting::Cabinets cabinets(const QVector<QSize> &sizes)
{
    CCabinetTypeSetting::Cabinets selected;
    for (const QSize &size : sizes) {
        CabinetLayout::CabinetPort::Cabinet cabinet;
        cabinet.rect = QRect(QPoint(640, 0), size);
        selected << cabinet;
    }
    return selected;
}

QPushButton *typeButton(const CCabinetTypeSetting &dialog)
{
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->menu())
            return button;
    }
    return nullptr;
}

QString typeSize(const CCabinetTypeSetting &dialog)
{
    return labelled<QLabel>(dialog, "Type size")->text();
}

QAction *entry(const QMenu &menu, const QStringList &path)
{
    for (QAction *action : menu.actions()) {
        if (action->text() == path.first())
            return path.size() == 1 ? action : entry(*action->menu(), path.mid(1));
    }
    return nullptr;
}

/// Lets a user act on the type menu while it is open.
void inMenu(CCabinetTypeSetting &dialog, const std::function<void(QMenu &)> &act)
{
    QPushButton *button = typeButton(dialog);
    QTimer::singleShot(0, button, [button, act] {
        act(*button->menu());
        button->menu()->close();
    });
    QTest::mouseClick(button, Qt::LeftButton); // returns once the menu is closed
}

void choose(CCabinetTypeSetting &dialog, const QStringList &path)
{
    QAction *action = nullptr;
    inMenu(dialog, [&](QMenu &menu) { action = entry(menu, path); });
    QVERIFY2(action && action->isEnabled(), qPrintable(path.join(QLatin1Char('/'))));
    action->trigger();
}

/// The menu as text: submenus in brackets, "-" for a separator, "!" before a disabled entry.
QString outline(const QMenu &menu)
{
    QStringList entries;
    for (const QAction *action : menu.actions()) {
        const QString mark = action->isEnabled() ? QString() : QStringLiteral("!");
        if (action->isSeparator())
            entries << QStringLiteral("-");
        else if (action->menu())
            entries << QStringLiteral("%1%2[%3]").arg(mark, action->text(), outline(*action->menu()));
        else
            entries << mark + action->text();
    }
    return entries.join(QLatin1Char(','));
}

QImage picture(const QAction *action)
{
    return action->icon().pixmap(16, 16).toImage();
}

const QString ProductPictures = QStringLiteral(":/Image/SettingArea/TypeLibrary/product-%1.svg");
const QString SizeQuestion = QStringLiteral("The size of the cabinet and the selected type does not match. "
                                            "Do you want to change the size of cabinet?");

} // namespace

class CCabinetTypeTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CTheme::apply(*qApp); }

    void theMenuIsTheLibrary()
    {
        TypeInfo damaged = typeOf("Broken");
        damaged.damaged = true;
        TypeInfo several = typeOf("Tall");
        several.kind = TypeInfo::MultiReceiver;
        TypeInfo unknownKind = typeOf("Plain");
        unknownKind.kind = 7;
        CCabinetTypeSetting dialog(
            cabinets({}),
            libraryOf({folder("Rental", {folder("Indoor", {leaf(typeOf("R & D"))}), leaf(several)}),
                       folder("Empty", {}), leaf(damaged), leaf(unknownKind)}),
            nullptr);
        dialog.show();
        QVERIFY(!okOf(dialog)->isEnabled());
        inMenu(dialog, [](QMenu &menu) {
            QCOMPARE(outline(menu), QStringLiteral("Rental[Indoor[R && D],Tall],!Empty[],!Broken,Plain,-,"
                                                   "Type library..."));
            const QImage tall = picture(entry(menu, {QStringLiteral("Rental"), QStringLiteral("Tall")}));
            const QImage plain = picture(entry(menu, {QStringLiteral("Plain")}));
            QCOMPARE(tall, QIcon(ProductPictures.arg(QStringLiteral("multi"))).pixmap(16, 16).toImage());
            QCOMPARE(plain, QIcon(ProductPictures.arg(QStringLiteral("single"))).pixmap(16, 16).toImage());
            QVERIFY(!plain.isNull() && tall != plain);
        });
    }

    void showsWhatWasChosen()
    {
        const QString longName = QStringLiteral("A name that is far too long for a button of this width");
        CCabinetTypeSetting dialog(
            cabinets({{192, 384}}),
            libraryOf({folder("Rental", {leaf(typeOf("A & B"))}), leaf(typeOf(longName))}), nullptr);
        dialog.show();
        const QPushButton *button = typeButton(dialog);
        choose(dialog, {QStringLiteral("Rental"), QStringLiteral("A && B")});
        QCOMPARE(button->text(), QStringLiteral("A && B"));
        QCOMPARE(typeSize(dialog), QStringLiteral("192x384"));
        QCOMPARE(dialog.type(), typeOf("A & B"));
        choose(dialog, {longName});
        QVERIFY(button->text().endsWith(QChar(0x2026)));
        QVERIFY(button->fontMetrics().horizontalAdvance(button->text()) < button->width() - 30);
        QCOMPARE(button->toolTip(), longName);
    }

    void refusesATypeWhoseSizeNoCabinetCanHave_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("usable");
        QTest::newRow("largest") << QSize(2048, 2048) << true;
        QTest::newRow("smallest") << QSize(1, 1) << true;
        QTest::newRow("too wide") << QSize(2049, 100) << false;
        QTest::newRow("too high") << QSize(100, 2049) << false;
        QTest::newRow("no width") << QSize(0, 100) << false;
        QTest::newRow("negative") << QSize(100, -1) << false;
    }

    void refusesATypeWhoseSizeNoCabinetCanHave()
    {
        QFETCH(QSize, size);
        QFETCH(bool, usable);
        const TypeInfo tried = typeOfSize("Tried", {size.width(), size.height()});
        CCabinetTypeSetting dialog(cabinets({{64, 64}}),
                                   libraryOf({leaf(typeOfSize("Before", {64, 64})), leaf(tried)}), nullptr);
        dialog.show();
        choose(dialog, {QStringLiteral("Before")});
        const CMessageBoxAnswerer user(usable ? QStringList() : QStringList{QStringLiteral("OK")});
        choose(dialog, {QStringLiteral("Tried")});
        QCOMPARE(dialog.type().name, usable ? QStringLiteral("Tried") : QStringLiteral("Before"));
        QCOMPARE(typeButton(dialog)->text(), dialog.type().name);

        const QString text = QStringLiteral("Cabinet height or width must be between 1-2048, the WxH "
                                            "(%1x%2) of this cabinet type already exceeds the limit.")
                                 .arg(size.width())
                                 .arg(size.height());
        QCOMPARE(user.texts(), usable ? QStringList() : QStringList{text});
    }

    void asksBeforeCabinetsAreResized_data()
    {
        QTest::addColumn<QVector<QSize>>("sizes");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("accepted");
        using Sizes = QVector<QSize>;
        QTest::newRow("all match") << Sizes{{128, 256}, {128, 256}} << QString() << true;
        QTest::newRow("yes") << Sizes{{128, 128}, {128, 128}} << QStringLiteral("Yes") << true;
        QTest::newRow("no") << Sizes{{128, 128}, {128, 128}} << QStringLiteral("No") << false;
        QTest::newRow("only the last differs")
            << Sizes{{128, 256}, {127, 256}} << QStringLiteral("No") << false;
    }

    void asksBeforeCabinetsAreResized()
    {
        QFETCH(QVector<QSize>, sizes);
        QFETCH(QString, answer);
        QFETCH(bool, accepted);
        CCabinetTypeSetting dialog(cabinets(sizes), libraryOf({leaf(typeOfSize("Tall", {128, 256}))}),
                                   nullptr);
        dialog.show();
        choose(dialog, {QStringLiteral("Tall")});
        const CMessageBoxAnswerer user(answer.isEmpty() ? QStringList() : QStringList{answer});
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(dialog.isVisible(), !accepted);
        QCOMPARE(dialog.result() == QDialog::Accepted, accepted);
        QCOMPARE(user.texts(), answer.isEmpty() ? QStringList() : QStringList(SizeQuestion));
        if (!user.boxes().isEmpty()) {
            QCOMPARE(user.boxes().first().title, QStringLiteral("Orvo"));
            QCOMPARE(user.boxes().first().defaultButton, QStringLiteral("Yes"));
        }
    }

    void theMenuFollowsTheLibrary()
    {
        QVector<TypeNode> library{leaf(typeOfSize("Old", {64, 64}))};
        CFakeHost host;
        host.answers()->onCalled = [&](const QString &call) {
            if (call.startsWith(QLatin1String("showTypeLibrary")))
                library = {leaf(typeOfSize("New", {64, 64}))};
        };
        CCabinetTypeSetting dialog(
            cabinets({{64, 64}}), [&library] { return library; }, nullptr);
        dialog.show();
        choose(dialog, {QStringLiteral("Old")});
        choose(dialog, {QStringLiteral("Type library...")});
        QCOMPARE(host.answers()->count(QStringLiteral("showTypeLibrary")), 1);
        QCOMPARE(dialog.type().name, QStringLiteral("Old"));
        choose(dialog, {QStringLiteral("New")});
        QCOMPARE(dialog.type().name, QStringLiteral("New"));
    }
};

ORVO_TEST_MAIN(QApplication, CCabinetTypeTest)
#include "tst_cabinet_type.moc"
