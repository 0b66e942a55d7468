// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CSvgIcon.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>
#include <QVector>

#include <algorithm>

namespace {

/// Which modes stand in for @p mode, the better group first; in a group, modes of the same state go first.
QVector<QVector<QIcon::Mode>> substitutes(QIcon::Mode mode)
{
    switch (mode) {
    case QIcon::Disabled:
        return {{QIcon::Disabled, QIcon::Normal, QIcon::Active}, {QIcon::Selected}};
    case QIcon::Selected:
        return {{QIcon::Selected, QIcon::Normal, QIcon::Active}, {QIcon::Disabled}};
    case QIcon::Active:
        return {{QIcon::Active, QIcon::Normal}, {QIcon::Disabled, QIcon::Selected}};
    case QIcon::Normal:
        break;
    }
    return {{QIcon::Normal, QIcon::Active}, {QIcon::Disabled, QIcon::Selected}};
}

QImage drawn(const QString &file, const QSize &size)
{
    QSvgRenderer renderer(file);
    const QSize fitting = renderer.defaultSize().scaled(size, Qt::KeepAspectRatio);
    if (fitting.isEmpty())
        return {};
    QImage image(fitting, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace

class CSvgIcon::CEngine final : public QIconEngine
{
public:
    explicit CEngine(const QVector<SPicture> &pictures)
        : m_pictures(pictures)
    {
    }

    QString key() const override { return QStringLiteral("orvo-svg"); }
    QIconEngine *clone() const override { return new CEngine(*this); }

    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return pixmap(size, mode, state).size();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        const SPicture &picture = pictureOf(mode, state);
        const bool asItIs = mode == picture.mode || mode == QIcon::Normal;
        const QString name = QStringLiteral("orvo-svg %1 %2 %3x%4")
                                 .arg(picture.file)
                                 .arg(asItIs ? int(QIcon::Normal) : int(mode))
                                 .arg(size.width())
                                 .arg(size.height());
        QPixmap pixmap;
        if (QPixmapCache::find(name, &pixmap))
            return pixmap;
        pixmap = QPixmap::fromImage(drawn(picture.file, size));
        if (!asItIs && !pixmap.isNull()) {
            QStyleOption option(0);
            option.palette = QGuiApplication::palette();
            pixmap = QApplication::style()->generatedIconPixmap(mode, pixmap, &option);
        }
        QPixmapCache::insert(name, pixmap);
        return pixmap;
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio =
            painter->device() ? painter->device()->devicePixelRatioF() : qApp->devicePixelRatio();
        QPixmap picture = pixmap(rect.size() * ratio, mode, state);
        picture.setDevicePixelRatio(1);
        painter->drawPixmap(rect, picture);
    }

private:
    const SPicture &pictureOf(QIcon::Mode mode, QIcon::State state) const
    {
        for (const QVector<QIcon::Mode> &group : substitutes(mode)) {
            for (const QIcon::State of : {state, state == QIcon::On ? QIcon::Off : QIcon::On}) {
                for (const QIcon::Mode substitute : group) {
                    const auto found =
                        std::find_if(m_pictures.begin(), m_pictures.end(), [=](const SPicture &picture) {
                            return picture.mode == substitute && picture.state == of;
                        });
                    if (found != m_pictures.end())
                        return *found;
                }
            }
        }
        return m_pictures.first();
    }

    QVector<SPicture> m_pictures;
};

CSvgIcon &CSvgIcon::add(const QString &file, QIcon::Mode mode, QIcon::State state)
{
    m_pictures << SPicture{file, mode, state};
    return *this;
}

QIcon CSvgIcon::icon() const
{
    return m_pictures.isEmpty() ? QIcon() : QIcon(new CEngine(m_pictures));
}
