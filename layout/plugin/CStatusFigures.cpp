// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CStatusFigures.h"

#include "layout/data/CLayoutData.h"
#include "layout/editor/view/CLayoutGraphicsView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMouseEvent>
#include <QtMath>

#include <numeric>

namespace {
constexpr int FigureSpacing = 16;
}

CStatusFigures::CStatusFigures(CLayoutData &store, CLayoutGraphicsView &view, QWidget *faults)
    : m_store(store)
    , m_view(view)
    , m_faults(faults)
    , m_cursor(addLabel("StatusCursor"))
    , m_selection(addLabel("StatusSelection"))
    , m_port(addLabel("StatusPort"))
    , m_scale(addLabel("StatusScale"))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(FigureSpacing);
    row->addWidget(m_faults);
    for (QLabel *label : {m_cursor, m_selection, m_port, m_scale})
        row->addWidget(label);
    connectSignals();
    showSelection();
    showPort();
    showScale();
}

/// Of all that could be told, also of what is hidden for want of room.
QSize CStatusFigures::sizeHint() const
{
    int width = m_faults->sizeHint().width();
    for (const QLabel *label : {m_cursor, m_selection, m_port, m_scale})
        width += label->text().isEmpty() ? 0 : label->sizeHint().width() + FigureSpacing;
    return {width, m_scale->sizeHint().height()};
}

bool CStatusFigures::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseMove)
        showCursor(static_cast<QMouseEvent *>(event)->pos());
    else if (event->type() == QEvent::Leave)
        setText(*m_cursor, {});
    return QWidget::eventFilter(watched, event);
}

void CStatusFigures::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fit();
}

void CStatusFigures::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fit();
}

QLabel *CStatusFigures::addLabel(const char *name)
{
    auto *label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

void CStatusFigures::connectSignals()
{
    using View = CLayoutGraphicsView;
    m_view.viewport()->installEventFilter(this);
    connect(&m_view, &View::notifySelectedCabinetInfos, this,
            [this](const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets) {
                m_selected = cabinets.size();
                m_pixels = std::accumulate(cabinets.begin(), cabinets.end(), qint64(0),
                                           [](qint64 sum, const auto &cabinet) {
                                               const QSize size = cabinet.rect.size();
                                               return sum + qint64(size.width()) * size.height();
                                           });
                showSelection();
            });
    connect(&m_view, &View::notifySelectedCabinetGeometryChanged, this, [this](const QRect &extent) {
        m_extent = extent;
        showSelection();
    });
    connect(&m_view, &View::notifyScaleChanged, this, &CStatusFigures::showScale);
    connect(&m_store, &CLayoutData::notifyCurrentPortChanged, this, &CStatusFigures::showPort);
    connect(&m_store, &CLayoutData::notifyProcessorPortPayloadChanged, this, &CStatusFigures::showPort);
}

void CStatusFigures::showCursor(const QPoint &viewportPos)
{
    const QPointF place = m_view.mapToScene(viewportPos);
    setText(*m_cursor, tr("X %1 Y %2").arg(qFloor(place.x())).arg(qFloor(place.y())));
}

void CStatusFigures::showSelection()
{
    if (m_selected == 0) {
        setText(*m_selection, {});
        return;
    }
    setText(*m_selection, tr("%1 selected, %2 × %3, %4 pixels")
                              .arg(m_selected)
                              .arg(m_extent.width())
                              .arg(m_extent.height())
                              .arg(QLocale(QLocale::English).toString(m_pixels)));
}

void CStatusFigures::showPort()
{
    const int port = m_store.currentPort();
    setText(*m_port, port < 0 ? QString() : tr("Port %1: %2%").arg(port + 1).arg(m_store.port(port).load));
}

void CStatusFigures::showScale()
{
    setText(*m_scale, QStringLiteral("%1%").arg(qRound(m_view.scaleFactor() * 100)));
}

void CStatusFigures::setText(QLabel &label, const QString &text)
{
    if (label.text() == text)
        return;
    label.setText(text);
    updateGeometry();
    fit();
}

/// Scale and cursor go first, as the canvas tells both; what is wrong never goes.
void CStatusFigures::fit()
{
    int room = width() - m_faults->sizeHint().width();
    for (QLabel *label : {m_selection, m_port, m_cursor, m_scale}) {
        const int wanted = label->text().isEmpty() ? 0 : label->sizeHint().width() + FigureSpacing;
        label->setVisible(wanted > 0 && wanted <= room);
        room -= wanted;
    }
}
