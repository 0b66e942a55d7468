// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CStatusFigures.h"

#include "layout/data/CLayoutData.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/geometry/SSelectionFigures.h"
#include "layout/plugin/CToolHint.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMouseEvent>
#include <QStatusBar>
#include <QtMath>

namespace {

constexpr int FigureSpacing = 16;
constexpr int EndMargin = 8; // beside the space between the status bar's widgets

QStatusBar *statusBarOf(QWidget *widget)
{
    while (widget && !qobject_cast<QStatusBar *>(widget))
        widget = widget->parentWidget();
    return static_cast<QStatusBar *>(widget);
}

} // namespace

CStatusFigures::CStatusFigures(CLayoutData &store, CLayoutGraphicsView &view, QWidget *faults)
    : m_store(store)
    , m_view(view)
    , m_faults(faults)
    , m_cursor(addLabel("StatusCursor"))
    , m_extent(addLabel("StatusExtent"))
    , m_port(addLabel("StatusPort"))
    , m_scale(addLabel("StatusScale"))
    , m_canvas(addLabel("StatusCanvas"))
    , m_hint(new CToolHint(view))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, EndMargin, 0);
    row->setSpacing(FigureSpacing);
    row->addWidget(m_faults);
    for (QLabel *label : {m_cursor, m_extent, m_port, m_scale, m_canvas})
        row->addWidget(label);
    connectSignals();
    setTelling(false);
    showCanvas();
    showScale();
}

CStatusFigures::~CStatusFigures()
{
    delete m_hint;
}

void CStatusFigures::setTelling(bool telling)
{
    m_telling = telling;
    m_faults->setVisible(telling);
    if (m_hint)
        m_hint->setTelling(telling);
    fit();
}

/// Of all that could be told, also of what is hidden for want of room.
QSize CStatusFigures::sizeHint() const
{
    return {widthOf({m_extent, m_port, m_scale, m_cursor, m_canvas}), m_extent->sizeHint().height()};
}

QSize CStatusFigures::minimumSizeHint() const
{
    return {widthOf({m_extent}), 0};
}

int CStatusFigures::widthOf(const QVector<QLabel *> &labels) const
{
    int width = m_faults->sizeHint().width() + EndMargin;
    for (const QLabel *label : labels)
        width += label->text().isEmpty() ? 0 : label->sizeHint().width() + FigureSpacing;
    return width;
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

void CStatusFigures::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Not now: the status bar walks over its children.
    QMetaObject::invokeMethod(this, &CStatusFigures::placeHint, Qt::QueuedConnection);
}

/// The hint stands where messages do, which the status bar shows in its place.
void CStatusFigures::placeHint()
{
    QStatusBar *bar = statusBarOf(this);
    if (!bar || !m_hint || m_hint->parentWidget())
        return;
    bar->insertWidget(0, m_hint, 1);
    if (!bar->currentMessage().isEmpty()) // otherwise it would stay hidden after it
        m_hint->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
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
    using Scene = CCabinetGraphicsScene;
    m_view.viewport()->installEventFilter(this);
    connect(&m_view, &View::notifySelectionFigures, this, [this](const SSelectionFigures &figures) {
        m_selected = figures.count;
        m_pixels = figures.pixels;
        showExtent();
    });
    connect(&m_view, &View::notifySelectedCabinetGeometryChanged, this, [this](const QRect &extent) {
        m_selection = extent;
        showExtent();
    });
    connect(&m_view.cabinetScene(), &Scene::notifySceneChanged, this, &CStatusFigures::showExtent);
    connect(&m_view.cabinetScene(), &Scene::notifySelectedChanged, this, &CStatusFigures::showCanvas);
    connect(&m_view.cabinetScene(), &Scene::notifyLookChanged, this, &CStatusFigures::showCanvas);
    connect(&m_view, &View::notifyScaleChanged, this, &CStatusFigures::showScale);
    connect(&m_store, &CLayoutData::notifyCurrentPortChanged, this, &CStatusFigures::showPort);
    connect(&m_store, &CLayoutData::notifyProcessorPortPayloadChanged, this, [this](int port) {
        if (port == m_store.currentPort())
            showPort();
    });
}

void CStatusFigures::showCursor(const QPoint &viewportPos)
{
    const QPointF place = m_view.mapToScene(viewportPos);
    setText(*m_cursor, tr("X %1 Y %2").arg(qFloor(place.x())).arg(qFloor(place.y())));
}

void CStatusFigures::showExtent()
{
    const CSceneContent &content = m_view.cabinetScene().backend().content();
    const QSize size = m_selected > 0 ? m_selection.size() : content.wall().size();
    const int count = m_selected > 0 ? m_selected : content.cabinetCount();
    const QString counted = m_selected > 0 ? tr("%1 selected")
                            : count == 1   ? tr("%1 cabinet")
                                           : tr("%1 cabinets");
    const QString pixels =
        m_selected > 0 ? tr(", %1 pixels").arg(QLocale(QLocale::English).toString(m_pixels)) : QString();
    setText(*m_extent,
            count == 0
                ? QString()
                : tr("%1, %2 × %3").arg(counted.arg(count)).arg(size.width()).arg(size.height()) + pixels);
}

void CStatusFigures::showPort()
{
    const int port = m_store.currentPort();
    setText(*m_port, port < 0 ? QString() : tr("Port %1: %2%").arg(port + 1).arg(m_store.port(port).load));
}

void CStatusFigures::showScale()
{
    const qreal percent = m_view.scaleFactor() * 100;
    setText(*m_scale, tr("Zoom %1%").arg(percent, 0, 'f', percent < 10 ? 1 : 0));
}

void CStatusFigures::showCanvas()
{
    const QSize canvas = m_view.cabinetScene().backend().content().canvas();
    setText(*m_canvas,
            canvas.isEmpty() ? QString() : tr("Canvas %1 × %2").arg(canvas.width()).arg(canvas.height()));
    showExtent(); // another wall may be shown
    showPort();
}

void CStatusFigures::setText(QLabel &label, const QString &text)
{
    if (label.text() == text)
        return;
    label.setText(text);
    updateGeometry();
    fit();
}

/// What is wrong and what is selected never goes.
void CStatusFigures::fit()
{
    QVector<QLabel *> told = {m_extent};
    m_extent->setVisible(m_telling && !m_extent->text().isEmpty());
    for (QLabel *label : {m_port, m_scale, m_cursor, m_canvas}) {
        told << label;
        label->setVisible(m_telling && !label->text().isEmpty() && widthOf(told) <= width());
    }
}
