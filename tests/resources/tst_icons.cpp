// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CSnakeOrder.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CTestBase.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamReader>

namespace {

const QString imageRoot = QStringLiteral(":/Image/");
const QString topologyRoot = QStringLiteral(":/Image/Layout/SidePanel/Topology/");

QString inSource(const QString &path)
{
    return QStringLiteral(ORVO_SOURCE_DIR "/") + path;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The lines of the picture table, each as its fields.
QVector<QStringList> tableLines()
{
    QVector<QStringList> lines;
    const QString table =
        QString::fromUtf8(contentOf(inSource(QStringLiteral("layout/resources/icons.txt"))));
    for (const QString &line : table.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (!line.startsWith(QLatin1Char('#')))
            lines << line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }
    return lines;
}

/// The resources of each family that the table names.
QMap<QString, QStringList> tableFamilies()
{
    QMap<QString, QStringList> families;
    const QVector<QStringList> lines = tableLines();
    for (const QStringList &fields : lines) {
        for (const QString &state : fields.mid(2)) {
            const QString suffix = state == QLatin1String("-") ? QString() : QLatin1Char('_') + state;
            families[fields.first()] << imageRoot + fields.first() + suffix + QLatin1String(".svg");
        }
    }
    return families;
}

QStringList tableResources()
{
    QStringList resources;
    const QMap<QString, QStringList> families = tableFamilies();
    for (const QStringList &family : families)
        resources << family;
    return resources;
}

/// The names of pictures in C++ source text, those in comments left out.
QStringList imageNames(QString source)
{
    static const QRegularExpression comment(QStringLiteral("(^|\\s)//[^\n]*"),
                                            QRegularExpression::MultilineOption);
    static const QRegularExpression literal(QStringLiteral("\"(:/Image/[^\"]+)\""));
    source.remove(comment);
    QStringList names;
    for (auto it = literal.globalMatch(source); it.hasNext();)
        names << it.next().captured(1);
    return names;
}

/// What matches the resources that @p name may stand for: a placeholder such as %1 stands for anything, and
/// what is missing at the end is added by the program.
QRegularExpression asPattern(const QString &name)
{
    static const QRegularExpression placeholder(QStringLiteral("%\\d"));
    QStringList parts = name.split(placeholder);
    for (QString &part : parts)
        part = QRegularExpression::escape(part);
    const bool whole = name.endsWith(QLatin1String(".svg"));
    return QRegularExpression(QLatin1Char('^') + parts.join(QLatin1String(".+")) +
                              (whole ? QLatin1String("$") : QLatin1String()));
}

/// The picture in a frame of @p margin pixels that it should leave empty.
QImage rendered(const QString &resource, int size, int margin = 0)
{
    QImage image(size + 2 * margin, size + 2 * margin, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(resource);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(margin, margin, size, size));
    return image;
}

int visiblePixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) >= 64;
    }
    return count;
}

/// Where the wire of a topology picture starts, which way it leaves, and where its arrow points.
struct SSnakePicture
{
    QPointF start;
    QPointF firstStep;
    QPointF tip;
};

SSnakePicture snakePicture(const QString &resource)
{
    SSnakePicture snake;
    const QString svg = QString::fromUtf8(contentOf(resource));
    const QString path = QRegularExpression(QStringLiteral(" d=\"([^\"]+)\"")).match(svg).captured(1);
    const QRegularExpression command(QStringLiteral("([MlqHm])([^a-zA-Z]+)"));
    for (auto it = command.globalMatch(path); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const QStringList numbers = match.captured(2).trimmed().split(QLatin1Char(' '));
        const QPointF last(numbers.at(numbers.size() - 2).toDouble(), numbers.last().toDouble());
        const QString name = match.captured(1);
        if (name == QLatin1String("m"))
            break; // the arrow head begins
        if (name == QLatin1String("M"))
            snake.start = last;
        else if (snake.firstStep.isNull())
            snake.firstStep = last;
        snake.tip += last;
    }
    return snake;
}

} // namespace

/// All pictures: there under the names the program uses, visible, unlike each other, and drawn only with what
/// Qt can draw.
class CIconsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rendersVisiblyAtEverySize_data();
    void rendersVisiblyAtEverySize();
    void staysInsideItsFrame_data();
    void staysInsideItsFrame();
    void statesOfOnePictureDiffer();
    void everyNameInTheSourcesExists();
    void topologyPicturesShowTheirPattern_data();
    void topologyPicturesShowTheirPattern();
    void topologyPicturesDiffer();
    void picturesUseOnlyWhatQtDraws();
    void everyPictureIsUsed();
};

void CIconsTest::initTestCase()
{
    initLayoutResources();
    QVERIFY(tableResources().size() > 100);
}

void CIconsTest::rendersVisiblyAtEverySize_data()
{
    QTest::addColumn<QString>("resource");
    const QStringList resources = tableResources();
    for (const QString &resource : resources)
        QTest::newRow(qPrintable(resource)) << resource;
}

void CIconsTest::rendersVisiblyAtEverySize()
{
    QFETCH(QString, resource);
    QVERIFY(QFile::exists(resource));
    QVERIFY(QSvgRenderer(resource).isValid());
    for (const int size : {16, 24, 48})
        QVERIFY2(visiblePixels(rendered(resource, size)) >= size / 4, qPrintable(QString::number(size)));
}

void CIconsTest::staysInsideItsFrame_data()
{
    rendersVisiblyAtEverySize_data();
}

void CIconsTest::staysInsideItsFrame()
{
    QFETCH(QString, resource);
    constexpr int size = 96;
    constexpr int margin = 8;
    QImage image = rendered(resource, size, margin);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(margin, margin, size, size, Qt::transparent);
    painter.end();
    QCOMPARE(visiblePixels(image), 0);
}

void CIconsTest::statesOfOnePictureDiffer()
{
    const QMap<QString, QStringList> families = tableFamilies();
    for (const QStringList &family : families) {
        for (int i = 0; i < family.size(); ++i) {
            for (int j = 0; j < i; ++j) {
                const QString pair = family.at(j) + QLatin1String(" is like ") + family.at(i);
                QVERIFY2(rendered(family.at(i), 24) != rendered(family.at(j), 24), qPrintable(pair));
            }
        }
    }
}

void CIconsTest::everyNameInTheSourcesExists()
{
    const QStringList resources = tableResources();
    int sourcesRead = 0;
    for (const char *folder : {"layout", "host", "platform"}) {
        QDirIterator files(inSource(QLatin1String(folder)), {QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QStringList names = imageNames(QString::fromUtf8(contentOf(files.next())));
            ++sourcesRead;
            for (const QString &name : names) {
                const QString message = name + QLatin1String(" in ") + files.filePath();
                QVERIFY2(!resources.filter(asPattern(name)).isEmpty(), qPrintable(message));
            }
        }
    }
    QVERIFY(sourcesRead > 0);
}

void CIconsTest::topologyPicturesShowTheirPattern_data()
{
    QTest::addColumn<int>("pattern");
    for (int i = 0; i < CSnakeOrder::PatternCount; ++i)
        QTest::newRow(CSnakeOrder::patterns().at(i).iconName) << i;
}

void CIconsTest::topologyPicturesShowTheirPattern()
{
    QFETCH(int, pattern);
    const CSnakeOrder::SPattern &p = CSnakeOrder::patterns().at(pattern);
    const SSnakePicture snake =
        snakePicture(topologyRoot + QLatin1String(p.iconName) + QLatin1String(".svg"));

    const QPointF way = snake.tip - snake.start;
    QCOMPARE(p.rows ? snake.firstStep.y() : snake.firstStep.x(), 0.0);
    QCOMPARE((p.rows ? snake.firstStep.x() : snake.firstStep.y()) > 0, p.firstForward);
    QCOMPARE((p.rows ? way.y() : way.x()) > 0, p.advanceForward);
    QCOMPARE((p.rows ? way.x() : way.y()) > 0, p.firstForward); // the third line runs like the first
    QVERIFY(QRectF(2, 2, 36, 24).contains(snake.start));
    QVERIFY(QRectF(2, 2, 36, 24).contains(snake.tip));
}

void CIconsTest::topologyPicturesDiffer()
{
    QVector<QImage> pictures;
    for (const CSnakeOrder::SPattern &p : CSnakeOrder::patterns()) {
        const QImage picture = rendered(topologyRoot + QLatin1String(p.iconName) + QLatin1String(".svg"), 40);
        QVERIFY2(!pictures.contains(picture), p.iconName);
        pictures << picture;
    }
}

void CIconsTest::picturesUseOnlyWhatQtDraws()
{
    const QStringList drawn = {
        QStringLiteral("svg"),  QStringLiteral("g"),       QStringLiteral("path"),
        QStringLiteral("rect"), QStringLiteral("circle"),  QStringLiteral("ellipse"),
        QStringLiteral("line"), QStringLiteral("polygon"), QStringLiteral("polyline"),
        QStringLiteral("defs"), QStringLiteral("stop"),    QStringLiteral("linearGradient")};
    const QStringList ignored = {QStringLiteral("clip-path"),    QStringLiteral("mask"),
                                 QStringLiteral("filter"),       QStringLiteral("marker-end"),
                                 QStringLiteral("marker-start"), QStringLiteral("style")};
    QDirIterator files(inSource(QStringLiteral("layout/resources/pictures")), {QStringLiteral("*.svg")});
    while (files.hasNext()) {
        QXmlStreamReader xml(contentOf(files.next()));
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            QVERIFY2(drawn.contains(xml.name().toString()), qPrintable(files.fileName()));
            for (const QXmlStreamAttribute &attribute : xml.attributes()) {
                const QString value = attribute.value().toString();
                QVERIFY2(!ignored.contains(attribute.name().toString()), qPrintable(files.fileName()));
                QVERIFY2(!value.startsWith(QLatin1String("rgba")) && !value.startsWith(QLatin1String("hsl")),
                         qPrintable(files.fileName()));
            }
        }
        QVERIFY2(!xml.hasError(), qPrintable(files.fileName() + xml.errorString()));
    }
}

void CIconsTest::everyPictureIsUsed()
{
    QStringList used;
    for (const QStringList &fields : tableLines())
        used << fields.at(1) + QLatin1String(".svg");
    const QStringList files =
        QDir(inSource(QStringLiteral("layout/resources/pictures"))).entryList(QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QString &file : files)
        QVERIFY2(used.contains(file), qPrintable(file));
}

ORVO_TEST_MAIN(QGuiApplication, CIconsTest)
#include "tst_icons.moc"
