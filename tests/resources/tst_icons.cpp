// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CTestBase.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace {

const QString imageRoot = QStringLiteral(":/Image/");

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

QString folderOf(const SResource &resource)
{
    return resource.name.section(QLatin1Char('/'), 0, -2);
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

} // namespace

/// All pictures: there under the names that the program uses, visible and unlike each other.
class CIconsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        initLayoutResources();
        QVERIFY(tableResources().size() > 100);
    }

    void isVisibleAtEverySizeAndStaysInItsFrame()
    {
        constexpr int margin = 8;
        for (const SResource &resource : tableResources()) {
            QVERIFY2(QSvgRenderer(resource.name).isValid(), qPrintable(resource.name));
            for (const int size : {16, 24, 48, 96}) {
                const QImage image = rendered(resource.name, size, margin);
                const int inside = visiblePixels(image.copy(margin, margin, size, size));
                const bool empty = resource.name.endsWith(QLatin1String("/placeholder.svg")); // keeps room
                QVERIFY2((empty ? inside == 0 : inside >= size / 4) && visiblePixels(image) == inside,
                         qPrintable(resource.name));
            }
        }
    }

    void noTwoLookAlike()
    {
        QMap<QByteArray, SResource> seen;
        for (const SResource &resource : tableResources()) {
            const QImage image = rendered(resource.name, 24);
            const QByteArray bits(reinterpret_cast<const char *>(image.constBits()),
                                  int(image.sizeInBytes()));
            const SResource &other = seen.value(bits);
            QVERIFY2(other.name.isEmpty() ||
                         (other.picture == resource.picture && other.family != resource.family &&
                          folderOf(other) != folderOf(resource)),
                     qPrintable(other.name + QLatin1String(" is like ") + resource.name));
            seen[bits] = resource;
        }
    }

    void everyNameInTheSourcesExists()
    {
        QStringList resources;
        for (const SResource &resource : tableResources())
            resources << resource.name;
        for (const char *folder : {"layout", "host", "platform"}) {
            QDirIterator files(inSource(QLatin1String(folder)),
                               {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                               QDirIterator::Subdirectories);
            QVERIFY(files.hasNext());
            while (files.hasNext()) {
                for (const QString &name : imageNames(QString::fromUtf8(contentOf(files.next())))) {
                    const QString message = name + QLatin1String(" in ") + files.filePath();
                    QVERIFY2(!resources.filter(asPattern(name)).isEmpty(), qPrintable(message));
                }
            }
        }
    }

    void toolsShowTheirOwnPicture()
    {
        const CEditorToolBar bar;
        QVector<QImage> seen;
        for (int tool = 0; tool < CEditorToolBar::ToolCount; ++tool) {
            const QIcon icon = bar.tool(CEditorToolBar::ETool(tool))->icon();
            for (const auto &[mode, state] :
                 {qMakePair(QIcon::Normal, QIcon::Off), qMakePair(QIcon::Normal, QIcon::On),
                  qMakePair(QIcon::Disabled, QIcon::Off)}) {
                seen << icon.pixmap(24, mode, state).toImage();
                QVERIFY(!seen.last().isNull());
                QVERIFY2(seen.indexOf(seen.last()) == seen.size() - 1, qPrintable(QString::number(tool)));
            }
        }
    }
};

ORVO_TEST_MAIN(QApplication, CIconsTest)
#include "tst_icons.moc"
