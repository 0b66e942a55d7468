// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsScene>

/// The widget library's graphics scene: finds items by identity and keeps its rectangle still while items
/// move.
class CGraphicsScene : public QGraphicsScene
{
    Q_OBJECT

public:
    explicit CGraphicsScene(QObject *parent = nullptr);

    /// Sets the scene rectangle to @p content with a margin on which it can be scrolled. Done once an
    /// operation: a rectangle left to grow by itself rebuilds the index with every item.
    void setContentRect(const QRectF &content);
    QRectF contentRect() const { return m_content; }

private:
    QRectF m_content;
};
