// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsScene>
#include <QHash>
#include <QUuid>
#include <QVector>

#include <functional>
#include <utility>

/// The widget library's graphics scene: finds items by identity, and does not resize itself while items move.
class CGraphicsScene : public QGraphicsScene
{
    Q_OBJECT

public:
    explicit CGraphicsScene(QObject *parent = nullptr);

    /// Sets the scene rectangle to @p content with a margin for scrolling. Call once per operation: a scene
    /// rectangle that grows by itself rebuilds the index for every item.
    void setContentRect(const QRectF &content);
    QRectF contentRect() const { return m_content; }

    /// Draws the area @p source into @p target, without what is shown in views only.
    virtual void renderPicture(QPainter &painter, const QRectF &target, const QRectF &source);

    /// Repaints all views. An update() alone is lost if a view paints something else before Qt processes it,
    /// and so are repaints requested by items in between.
    void updateViews();

    /// Carries out @p change, which alters the look of thousands of items within @p areas of the scene, and
    /// nothing else of them: no place, size or parent. Repaints these areas once, perhaps before it returns.
    /// What the items request meanwhile is ignored: one by one it costs more than it shows.
    void changeWithin(const QVector<QRectF> &areas, const std::function<void()> &change);

    /// Does now what Qt postpones to the next turn of the event loop for new items. Call once per operation
    /// that adds many items: until then Qt walks a list of all of them for each item that is removed.
    void polishNewItems();

    /// The item registered under @p uuid, or null. O(1).
    QGraphicsItem *itemOf(const QUuid &uuid) const
    {
        return m_expected && uuid == m_expectedUuid ? m_expected : m_items.value(uuid, nullptr);
    }
    /// Call with a registered item that will be asked for next, perhaps several times: to find it among tens
    /// of thousands costs more than most edits of it.
    void expectItem(const QUuid &uuid, QGraphicsItem &item)
    {
        Q_ASSERT(m_items.value(uuid) == &item);
        m_expectedUuid = uuid;
        m_expected = &item;
    }
    int knownItemCount() const { return m_items.size(); }

    /// Registers an item of the scene under its identity, or unregisters it. enterItem() returns whether it
    /// was not registered so before.
    bool enterItem(const QUuid &uuid, QGraphicsItem &item)
    {
        m_expected = nullptr;
        return std::exchange(m_items[uuid], &item) != &item;
    }
    /// Registers a new item; returns false, and does nothing, if its identity is taken.
    bool enterNewItem(const QUuid &uuid, QGraphicsItem &item)
    {
        QGraphicsItem *&place = m_items[uuid];
        return !place && (place = &item);
    }
    void leaveItem(const QUuid &uuid)
    {
        m_expected = nullptr;
        m_items.remove(uuid);
    }
    void reserveItems(int count) { m_items.reserve(count); }
    void forgetItems()
    {
        m_expected = nullptr;
        m_items.clear();
    }

protected:
    /// Returns whether a picture is being drawn, rather than a view.
    bool isPicturing() const { return m_picturing; }

private:
    bool m_picturing = false;
    QRectF m_content;
    QHash<QUuid, QGraphicsItem *> m_items;
    QUuid m_expectedUuid;
    QGraphicsItem *m_expected = nullptr;
};
