// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/placing/CCopyMime.h"

#include "layout/api/access/IPortStates.h"
#include "layout/drawing/CLayoutPicture.h"

#include <QImage>
#include <QMap>
#include <QPainter>

#include <algorithm>

namespace {

using Port = CabinetLayout::CabinetPort;

constexpr int LargestPictureSide = 2048; // pixels

const QString TextFormat = QStringLiteral("text/plain");
const QString PictureFormat = QStringLiteral("application/x-qt-image");

} // namespace

CCopyMime::CCopyMime(const PasteCache &cache, const IPortStates &states)
{
    QMap<int, Port::CabinetGroup> byPort;
    for (const Port::CabinetGroup &group : cache.groups) {
        for (const Port::Cabinet &cabinet : group.allCabinets())
            byPort[cabinet.port].cabinets << cabinet;
    }
    for (auto loose = byPort.cbegin(); loose != byPort.cend(); ++loose) {
        Port port;
        port.index = loose.key();
        port.color = states.portColor(port.index);
        port.groups << loose.value();
        m_layout.ports << port;
    }
}

QStringList CCopyMime::formats() const
{
    return {TextFormat, PictureFormat};
}

QVariant CCopyMime::retrieveData(const QString &format, QVariant::Type) const
{
    if (format == TextFormat)
        return table();
    if (format == PictureFormat)
        return picture();
    return {};
}

QString CCopyMime::table() const
{
    QString text = tr("Port\tNumber\tX\tY\tWidth\tHeight\n");
    for (const Port &port : m_layout.ports) {
        for (const Port::Cabinet &cabinet : port.getAllCabinets()) {
            const QString number = cabinet.rank < 0 ? QString() : QString::number(cabinet.rank + 1);
            text += QStringLiteral("%1\t%2\t%3\t%4\t%5\t%6\n")
                        .arg(QString::number(port.index + 1), number, QString::number(cabinet.rect.x()),
                             QString::number(cabinet.rect.y()), QString::number(cabinet.rect.width()),
                             QString::number(cabinet.rect.height()));
        }
    }
    return text;
}

QImage CCopyMime::picture() const
{
    LayoutData data;
    data.layout = m_layout;
    data.canvas = QSize(0, 0); // the picture shows only the cabinets
    QSize size = CLayoutPicture::extent(data).size();
    if (std::max(size.width(), size.height()) > LargestPictureSide)
        size.scale(LargestPictureSide, LargestPictureSide, Qt::KeepAspectRatio);
    QImage image(size.expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    SLayoutDrawOptions options;
    options.canvas = false;
    CLayoutPicture::paint(painter, data, QRectF(QPointF(), QSizeF(image.size())), options);
    return image;
}
