// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/geometry/CSnakeOrder.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CTestBase.h"

#include <QAction>
#include <QApplication>
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

/// A resource that the table names.
struct SResource
{
    QString name; ///< the whole path
    QString family;
    QString picture; ///< that it is made from
};

QVector<SResource> tableResources()
{
    QVector<SResource> resources;
    const QVector<QStringList> lines = tableLines();
    for (const QStringList &fields : lines) {
        for (const QString &state : fields.mid(2)) {
            const QString suffix = state == QLatin1String("-") ? QString() : QLatin1Char('_') + state;
            resources << SResource{imageRoot + fields.first() + suffix + QLatin1String(".svg"),
                                   fields.first(), fields.at(1)};
        }
    }
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

/// All pictures: there under the names that the program uses, visible, unlike each other, and drawn only with
/// what Qt can draw.
class CIconsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isVisibleAtEverySizeAndStaysInItsFrame();
    void noTwoLookAlike();
    void everyNameInTheSourcesExists();
    void toolsShowTheirOwnPicture();
    void topologyPicturesShowTheirPattern_data();
    void topologyPicturesShowTheirPattern();
    void picturesUseOnlyWhatQtDraws();
    void everyPictureIsUsed();
};

void CIconsTest::initTestCase()
{
    initLayoutResources();
    QVERIFY(tableResources().size() > 100);
}

void CIconsTest::isVisibleAtEverySizeAndStaysInItsFrame()
{
    constexpr int margin = 8;
    for (const SResource &resource : tableResources()) {
        QVERIFY2(QSvgRenderer(resource.name).isValid(), qPrintable(resource.name));
        for (const int size : {16, 24, 48, 96}) {
            const QImage image = rendered(resource.name, size, margin);
            const int inside = visiblePixels(image.copy(margin, margin, size, size));
            QVERIFY2(inside >= size / 4 && visiblePixels(image) == inside, qPrintable(resource.name));
        }
    }
}

void CIconsTest::noTwoLookAlike()
{
    QMap<QByteArray, SResource> seen;
    for (const SResource &resource : tableResources()) {
        const QImage image = rendered(resource.name, 24);
        const QByteArray bits(reinterpret_cast<const char *>(image.constBits()), int(image.sizeInBytes()));
        const SResource &other = seen.value(bits);
        QVERIFY2(other.name.isEmpty() ||
                     (other.picture == resource.picture && other.family != resource.family),
                 qPrintable(other.name + QLatin1String(" is like ") + resource.name));
        seen[bits] = resource;
    }
}

void CIconsTest::everyNameInTheSourcesExists()
{
    QStringList resources;
    for (const SResource &resource : tableResources())
        resources << resource.name;
    for (const char *folder : {"layout", "host", "platform"}) {
        QDirIterator files(inSource(QLatin1String(folder)), {QStringLiteral("*.cpp"), QStringLiteral("*.h")},
                           QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(files.hasNext());
        while (files.hasNext()) {
            for (const QString &name : imageNames(QString::fromUtf8(contentOf(files.next())))) {
                const QString message = name + QLatin1String(" in ") + files.filePath();
                QVERIFY2(!resources.filter(asPattern(name)).isEmpty(), qPrintable(message));
            }
        }
    }
}

void CIconsTest::toolsShowTheirOwnPicture()
{
    const CEditorToolBar bar;
    const QVector<QPair<CEditorToolBar::ETool, QString>> pictures{
        {CEditorToolBar::Undo, QStringLiteral("ToolBar/undo")},
        {CEditorToolBar::Redo, QStringLiteral("ToolBar/redo")},
        {CEditorToolBar::Arrow, QStringLiteral("ToolBar/arrow")},
        {CEditorToolBar::Hand, QStringLiteral("ToolBar/open-hand")},
        {CEditorToolBar::TypeLibrary, QStringLiteral("Layout/ToolBar/type-library")},
        {CEditorToolBar::ClearTopology, QStringLiteral("Layout/ToolBar/break-wiring")},
        {CEditorToolBar::Pen, QStringLiteral("Layout/ToolBar/manual-wiring")},
        {CEditorToolBar::HeadToTailExchange, QStringLiteral("Layout/ToolBar/head-to-tail-exchange")},
        {CEditorToolBar::Group, QStringLiteral("Layout/ToolBar/create-group")},
        {CEditorToolBar::Ungroup, QStringLiteral("Layout/ToolBar/break-group")},
        {CEditorToolBar::Calibrate, QStringLiteral("Layout/ToolBar/calibrate")},
        {CEditorToolBar::Print, QStringLiteral("Layout/ToolBar/print")},
        {CEditorToolBar::Navigator, QStringLiteral("ToolBar/aerial-view")}};
    QCOMPARE(pictures.size(), int(CEditorToolBar::ToolCount));
    const auto drawn = [](const QIcon &icon, QIcon::Mode mode, QIcon::State state) {
        return icon.pixmap(24, mode, state).toImage();
    };
    for (const auto &[tool, name] : pictures) {
        const QIcon shown = bar.tool(tool)->icon();
        const QString file = imageRoot + name + QStringLiteral("_%1.svg");
        const auto of = [&](const char *state) {
            return drawn(QIcon(file.arg(QLatin1String(state))), QIcon::Normal, QIcon::Off);
        };
        QVERIFY2(drawn(shown, QIcon::Normal, QIcon::Off) == of("normal"), qPrintable(name));
        QVERIFY2(drawn(shown, QIcon::Normal, QIcon::On) == of("checked"), qPrintable(name));
        QVERIFY2(drawn(shown, QIcon::Disabled, QIcon::Off) == of("disabled"), qPrintable(name));
    }
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

ORVO_TEST_MAIN(QApplication, CIconsTest)
#include "tst_icons.moc"
