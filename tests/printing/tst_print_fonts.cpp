// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/output/SheetFiles.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "tests/harness/CTestBase.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryFile>

#include <algorithm>

namespace {

constexpr int Dots = 254; // per inch

/// From the first to the last column with something dark, in millimetres.
QPair<double, double> inkOf(const QImage &image)
{
    QPair<int, int> ink(image.width(), 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128)
                ink = {std::min(ink.first, x), std::max(ink.second, x)};
        }
    }
    return {ink.first * 25.4 / Dots, ink.second * 25.4 / Dots};
}

QImage drawn(const QByteArray &svg, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QSvgRenderer(svg).render(&painter);
    return image;
}

} // namespace

/// Sheets where the only letters are wide ones: those of DejaVu Sans, which the tests need.
class CPrintFontsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void narrowsWideLettersInEveryFile()
    {
        for (bool bold : {false, true}) {
            const QFont font = CSheetFont::font(9, bold);
            QVERIFY2(font.stretch() < 100, qPrintable(QFontInfo(font).family()));
            QVERIFY(CSheetFont::width(QStringLiteral("0"), 72 / 25.4, bold) <= 0.56);
            SSheetText text;
            text.text = QStringLiteral("Redundanz 8,847,360");
            text.points = 14;
            text.bold = bold;
            text.box = {10, 10, CSheetFont::width(text.text, text.points, bold), 8};
            SSheet sheet;
            sheet.size = {120, 30};
            sheet.marks << text;
            const QImage png = QImage::fromData(SheetFiles::png(sheet, Dots));
            for (const QImage &image : {png, drawn(SheetFiles::svg(sheet, {}), png.size())}) {
                const QPair<double, double> ink = inkOf(image);
                QVERIFY2(ink.first >= 10 && ink.first < 11, qPrintable(QString::number(ink.first)));
                const double right = text.box.right() - ink.second;
                QVERIFY2(right >= 0 && right < 1, qPrintable(QString::number(right)));
            }
        }
    }
};

int main(int argc, char **argv)
{
    const CTestEnvironment environment;
    QTemporaryFile fonts;
    if (!fonts.open())
        return 1;
    qputenv("FONTCONFIG_FILE", fonts.fileName().toUtf8());
    fonts.write(
        "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>"
        "<include>/etc/fonts/fonts.conf</include><selectfont><rejectfont><pattern></pattern></rejectfont>"
        "<acceptfont><pattern><patelt name=\"family\"><string>DejaVu Sans</string></patelt></pattern>"
        "</acceptfont></selectfont></fontconfig>");
    fonts.close();
    QGuiApplication application(argc, argv);
    CPrintFontsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_print_fonts.moc"
