// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/projects/CVersionReader.h"

#include "host/projects/CProcessorProject.h"
#include "layout/api/records/LayoutData.h"
#include "layout/drawing/CLayoutPicture.h"

#include <QPainter>

#include <new>

CVersionReader::CVersionReader(QSize picture, QObject *parent)
    : QObject(parent)
    , m_picture(picture)
{
}

CVersionReader::~CVersionReader()
{
    m_stopped = true;
    if (m_thread.joinable())
        m_thread.join();
}

void CVersionReader::read(const QStringList &files)
{
    m_thread = std::thread([this, files] {
        for (int place = 0; place < files.size() && !m_stopped; ++place) {
            try {
                readOne(place, files.at(place));
            } catch (const std::bad_alloc &) {
                Q_EMIT notifyRead(place, {}, tr("There is not enough memory for it."));
            }
        }
    });
}

void CVersionReader::readOne(int place, const QString &file)
{
    const CResult<SProcessorProject> project = CProcessorProject::read(file);
    if (!project) {
        Q_EMIT notifyRead(place, {}, project.error());
        return;
    }
    LayoutData data;
    data.layout = project.value().layout;
    data.canvas = project.value().canvas;
    data.bounds = data.layout.boundingRect();
    QImage picture(m_picture, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        SLayoutDrawOptions options;
        options.numbers = options.labels = false; // too small to be read
        CLayoutPicture::paint(painter, data, picture.rect(), options);
    }
    Q_EMIT notifyRead(place, picture, tr("%1 cabinets").arg(data.layout.cabinetCount()));
}
