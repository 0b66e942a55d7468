// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/screen/CRasterScreen.h"

#include "host/app/screen/CScreenPicture.h"
#include "host/app/screen/CSimulateScreen.h"

#include <QPainter>

CRasterScreen::CRasterScreen(CScreenPicture &picture)
    : m_picture(picture)
{
    CSimulateScreen::setUpWindow(*this);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&m_picture, &CScreenPicture::notifyChanged, this, qOverload<>(&QWidget::update));
}

void CRasterScreen::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_picture.paint(painter, rect());
}
