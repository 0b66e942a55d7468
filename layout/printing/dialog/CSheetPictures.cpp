// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CSheetPictures.h"

#include "layout/printing/output/CSheetPainter.h"
#include "layout/printing/sheets/CSheetFont.h"

#include <QPainter>

#include <algorithm>
#include <new>

namespace {

constexpr int Draw = 0; // key of all events

/// Null: there is not enough memory.
QImage drawn(const SSheet &sheet, const QSize &pixels)
{
    try {
        QImage picture(pixels, QImage::Format_RGB32);
        if (picture.isNull())
            return picture;
        picture.fill(Qt::white);
        QPainter painter(&picture);
        const double scale = pixels.width() / sheet.size.width() / CSheetFont::UnitsPerMillimetre;
        painter.scale(scale, scale);
        CSheetPainter::paint(painter, sheet);
        return picture;
    } catch (const std::bad_alloc &) {
        return QImage();
    }
}

} // namespace

CSheetPictures::CSheetPictures(QObject *parent)
    : QObject(parent)
{
}

void CSheetPictures::setSheets(const QVector<SSheet> &sheets)
{
    m_thread.RemoveEvent(Draw);
    m_jobs.clear();
    m_pictures.clear();
    m_sheets = sheets;
}

void CSheetPictures::draw(const QVector<SWish> &wishes)
{
    m_thread.RemoveEvent(Draw);
    const int begun = m_begun; // is drawn, or about to be taken
    const SWish kept = m_jobs.value(begun, {-1, {}});
    const auto isKept = [&kept](const SWish &wish) {
        return wish.sheet == kept.sheet && wish.pixels == kept.pixels;
    };
    m_jobs.clear();
    if (std::any_of(wishes.begin(), wishes.end(), isKept))
        m_jobs.insert(begun, kept); // else it would replace the picture of the size that is wished
    QHash<int, QImage> pictures;
    for (const SWish &wish : wishes) {
        const QImage known = m_pictures.value(wish.sheet);
        if (!known.isNull())
            pictures.insert(wish.sheet, known);
        if (known.size() != wish.pixels && !isKept(wish))
            append(wish);
    }
    m_pictures = pictures;
    m_thread.ActivateThread();
}

void CSheetPictures::append(const SWish &wish)
{
    const int job = ++m_latest;
    m_jobs.insert(job, wish);
    m_thread.AppendEvent({Draw, [this, job, wish, sheet = m_sheets.at(wish.sheet)] {
                              m_begun = job;
                              const QImage picture = drawn(sheet, wish.pixels);
                              QMetaObject::invokeMethod(
                                  this, [this, job, wish, picture] { take(job, wish.sheet, picture); },
                                  Qt::QueuedConnection);
                          }});
}

void CSheetPictures::take(int job, int sheet, const QImage &picture)
{
    if (m_jobs.remove(job) == 0)
        return; // of sheets that are forgotten
    m_pictures.insert(sheet, picture);
    Q_EMIT notifyDrawn(sheet);
}
