// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CTranslatingAnimation.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPropertyAnimation>

namespace {
constexpr int SlideMilliseconds = 150;
}

CTranslatingAnimation::CTranslatingAnimation(QWidget &widget, Qt::Edge edge, QObject *parent)
    : QObject(parent)
    , m_widget(widget)
    , m_edge(edge)
{
}

CTranslatingAnimation::~CTranslatingAnimation()
{
    delete m_stage;
}

void CTranslatingAnimation::moveOut()
{
    end();
    if (m_widget.isVisible())
        slide({}, true);
    m_widget.hide();
}

void CTranslatingAnimation::moveIn()
{
    end();
    QWidget &window = *m_widget.window();
    const QPixmap before = window.isVisible() ? window.grab() : QPixmap();
    m_widget.show();
    if (before.isNull())
        return;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // the widget has its place now
    const QRect place(m_widget.mapTo(&window, QPoint(0, 0)), m_widget.size());
    const qreal ratio = before.devicePixelRatio();
    slide(before.copy(QRectF(place.topLeft() * ratio, place.size() * ratio).toRect()), false);
}

/// Lets the widget's picture move where the widget stands, above @p below.
void CTranslatingAnimation::slide(const QPixmap &below, bool out)
{
    QWidget *window = m_widget.window();
    m_stage = new QLabel(window);
    m_stage->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_stage->setGeometry(QRect(m_widget.mapTo(window, QPoint(0, 0)), m_widget.size()));
    m_stage->setPixmap(below);
    auto *picture = new QLabel(m_stage);
    picture->setPixmap(m_widget.grab());
    picture->resize(m_stage->size());
    auto *motion = new QPropertyAnimation(picture, "pos", m_stage);
    motion->setDuration(SlideMilliseconds);
    motion->setEasingCurve(QEasingCurve::OutCubic);
    motion->setStartValue(out ? QPoint() : outside());
    motion->setEndValue(out ? outside() : QPoint());
    connect(motion, &QPropertyAnimation::finished, this, &CTranslatingAnimation::end);
    picture->move(motion->startValue().toPoint());
    m_stage->show();
    m_stage->raise();
    motion->start();
}

/// Where the picture has left its place.
QPoint CTranslatingAnimation::outside() const
{
    switch (m_edge) {
    case Qt::TopEdge:
        return {0, -m_widget.height()};
    case Qt::LeftEdge:
        return {-m_widget.width(), 0};
    case Qt::RightEdge:
        return {m_widget.width(), 0};
    case Qt::BottomEdge:
        break;
    }
    return {0, m_widget.height()};
}

void CTranslatingAnimation::end()
{
    if (!m_stage)
        return;
    m_stage->hide();
    m_stage->deleteLater(); // its animation may have called
    m_stage = nullptr;
    Q_EMIT notifyFinished();
}
