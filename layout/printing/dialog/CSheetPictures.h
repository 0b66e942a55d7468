// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"
#include "platform/common/CWorkThread.h"

#include <QHash>
#include <QImage>
#include <QObject>

#include <atomic>

/// Draws sheets as pictures, on a thread of its own. GUI thread.
class CSheetPictures final : public QObject
{
    Q_OBJECT

public:
    struct SWish
    {
        int sheet;
        QSize pixels;
    };

    explicit CSheetPictures(QObject *parent = nullptr);

    /// Forgets all pictures.
    void setSheets(const QVector<SSheet> &sheets);
    /// Draws these sheets, the first one first, as far as there are no such pictures yet; forgets the
    /// pictures of others.
    void draw(const QVector<SWish> &wishes);
    /// The newest picture of a sheet, perhaps of another size than what is drawn for it; null: none,
    /// for want of memory once notifyDrawn() has told of it.
    QImage picture(int sheet) const { return m_pictures.value(sheet); }

Q_SIGNALS:
    void notifyDrawn(int sheet);

private:
    void append(const SWish &wish);
    void take(int job, int sheet, const QImage &picture);

    QVector<SSheet> m_sheets;
    QHash<int, QImage> m_pictures; ///< by sheet
    QHash<int, SWish> m_jobs;      ///< what is not drawn yet, by number
    int m_latest = 0;              ///< number of a job
    std::atomic<int> m_begun{0};   ///< number of the job that was begun last
    CWorkThread m_thread;          // ends before what its work uses
};
