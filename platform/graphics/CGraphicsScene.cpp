// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/graphics/CGraphicsScene.h"

#include <QGraphicsView>

#include <algorithm>

namespace {
constexpr int SceneIndexDepth =
    11; // a wall has up to some hundred thousand items; an adaptive depth re-sorts them
constexpr qreal SceneMarginShare = 0.5;
constexpr qreal SceneLeastMargin = 400;
constexpr int PenReach = 3; // pixels by which cosmetic pens reach beyond their shapes
} // namespace

CGraphicsScene::CGraphicsScene(QObject *parent)
    : QGraphicsScene(parent)
{
    setBspTreeDepth(SceneIndexDepth);
}

void CGraphicsScene::setContentRect(const QRectF &content)
{
    if (content == m_content)
        return;
    m_content = content;
    const qreal margin =
        std::max(SceneLeastMargin, SceneMarginShare * std::max(content.width(), content.height()));
    setSceneRect(content.adjusted(-margin, -margin, margin, margin));
}

void CGraphicsScene::updateViews()
{
    update();
    const QList<QGraphicsView *> all = views();
    for (const QGraphicsView *view : all)
        view->viewport()->update();
}

void CGraphicsScene::changeWithin(const QVector<QRectF> &areas, const std::function<void()> &change)
{
    // A scene that repaints everything ignores what its items request. It tells its views only later if
    // somebody listens to its changes, and forgets it when it has told them what they knew before.
    const QMetaObject::Connection listening = connect(this, &QGraphicsScene::changed, this, [] {});
    update();
    change();
    disconnect(listening);
    const QList<QGraphicsView *> all = views();
    for (const QGraphicsView *view : all) {
        for (const QRectF &area : areas) {
            const QRect shown = view->mapFromScene(area).boundingRect();
            view->viewport()->update(shown.adjusted(-PenReach, -PenReach, PenReach, PenReach));
        }
    }
    QMetaObject::invokeMethod(this, "_q_emitUpdated", Qt::DirectConnection); // may paint at once
}

void CGraphicsScene::polishNewItems()
{
    QMetaObject::invokeMethod(this, "_q_polishItems", Qt::DirectConnection);
}

void CGraphicsScene::renderPicture(QPainter &painter, const QRectF &target, const QRectF &source)
{
    m_picturing = true;
    render(&painter, target, source);
    m_picturing = false;
}
